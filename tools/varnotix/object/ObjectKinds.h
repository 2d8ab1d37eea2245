/// The kinds of objects that have classes of their own, and their modules.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string_view>
#include <vector>

/// One kind of object.
struct SObjectKind
{
    const char* word; ///< Names the kind on the command line; null when no script is made for it.
    const CRuntimeClass* objectClass;
    std::vector<std::string_view> sopClasses;     ///< SOP Class UIDs, that of new objects first.
    const char* modality;                         ///< Of new objects.
    std::vector<const CRuntimeClass*> ownModules; ///< Mandatory modules (usage M) that not every image has.
};

/// A module class: where it belongs, and what the standard requires in it when it is mandatory (PS3.3, 2016).
struct SModuleFacts
{
    const CRuntimeClass* module;
    const char* entity;        ///< The entity whose first module it is; empty when it follows another of its entity.
    std::vector<DWORD> values; ///< Type 1: the attribute and a value for it.
    std::vector<DWORD> tags;   ///< Type 2: the attribute, which may be empty.
};

/// All kinds, in the order in which help shows their words.
const std::vector<SObjectKind>& ObjectKinds();

/// The class for a SOP Class UID; CDcmCompositeIOD for one of no kind here.
const CRuntimeClass* ClassOfSopClass(const CString& sopClass);

/// The modules that every object of a kind has.
std::vector<SModuleFacts> MandatoryModules(const SObjectKind& kind);

/// The name of the entity that begins with this module; empty when it follows another of its entity. The modules of an
/// entity are registered in sequence.
CString EntityStarting(const CDcmModule& module);
