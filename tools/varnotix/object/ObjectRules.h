/// What the standard requires of the objects of a SOP class: their modules, and the types of their attributes.
#pragma once

#include "Varnotix/Varnotix.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The type of an attribute in a module (PS3.5 section 7.4), the strictest first.
enum class EAttributeType : char
{
    Type1,  ///< Present, with a value.
    Type1C, ///< As Type1 under a condition; otherwise it may be absent.
    Type2,  ///< Present, possibly empty.
    Type2C, ///< As Type2 under a condition; otherwise it may be absent.
    Type3   ///< Optional.
};

/// "1", "1C", "2", "2C" or "3".
const char* TypeText(EAttributeType type);

struct SAttributeRules;

/// Attributes by tag.
using CAttributeRules = std::map<DWORD, SAttributeRules>;

/// What the modules of a class require of an attribute.
struct SAttributeRules
{
    EAttributeType type = EAttributeType::Type3;
    bool isMandatory = false; ///< The type is that of mandatory modules. Otherwise the module itself may be absent.
    std::string module;       ///< The name of the module with this type.
    CAttributeRules items;    ///< The attributes of a sequence's items.
};

/// The rules for the objects of a SOP class. An attribute that several modules have gets its strictest type among the
/// mandatory ones; where only other modules have it, the mildest one, which is true whichever of them the object has.
/// @return null for a class that "objects.txt" does not describe, and when that file is not found.
const CAttributeRules* RulesOfClass(std::string_view sopClass);

/// The rules for an attribute at a path of whole tags; null when the class's modules do not have it.
const SAttributeRules* RulesOfAttribute(const CAttributeRules& rules, const Varnotix::CElementPath& path);

/// The path from which "objects.txt" was loaded; empty when it was not found. It is looked for where "dictionary.txt"
/// is.
const CString& ObjectRulesPath();
