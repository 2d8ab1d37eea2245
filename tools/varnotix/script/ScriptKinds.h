/// The kinds of objects that a new script can be made for.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string>
#include <vector>

/// What the standard asks of a module that an object must have (PS3.3, 2016).
struct SNeeds
{
    const CRuntimeClass* module = nullptr;
    std::vector<DWORD> values; ///< Type 1: the attribute and a value for it.
    std::vector<DWORD> tags;   ///< Type 2: the attribute, which may be empty.
};

/// One kind of object.
struct SScriptKind
{
    const char* word;
    const CRuntimeClass* objectClass;
    const char* sopClass;
    const char* modality;
    std::vector<SNeeds> needs; ///< One for each module that every object of the kind has (usage M).
};

/// The words that name kinds, in the order in which help shows them.
std::vector<std::string> ScriptKindWords();

/// The kind that a word of ScriptKindWords names.
SScriptKind ScriptKind(const std::string& word);
