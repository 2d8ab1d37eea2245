/// The Basic Application Level Confidentiality Profile: what de-identification does with each attribute.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/String.h"
#include "Varnotix/platform/Types.h"

namespace Varnotix
{

/// Options of the profile (PS3.15 Annex E.3); they may be combined.
enum EProfileOption : unsigned
{
    PROFILE_RETAIN_SAFE_PRIVATE = 1U << 0U,            ///< Keeps private attributes that are known to be safe.
    PROFILE_RETAIN_UIDS = 1U << 1U,                    ///< Keeps UIDs.
    PROFILE_RETAIN_DEVICE = 1U << 2U,                  ///< Keeps the identity of devices.
    PROFILE_RETAIN_INSTITUTION = 1U << 3U,             ///< Keeps the identity of institutions.
    PROFILE_RETAIN_PATIENT_CHARACTERISTICS = 1U << 4U, ///< Keeps age, sex, size, weight and the like.
    PROFILE_RETAIN_FULL_DATES = 1U << 5U,              ///< Keeps dates and times as they are.
    PROFILE_RETAIN_MODIFIED_DATES = 1U << 6U,          ///< Keeps dates and times, moved by an unknown span.
    PROFILE_CLEAN_DESCRIPTORS = 1U << 7U,              ///< Cleans descriptions instead of removing them.
    PROFILE_CLEAN_STRUCTURED_CONTENT = 1U << 8U,       ///< Cleans content items instead of removing them.
    PROFILE_CLEAN_GRAPHICS = 1U << 9U                  ///< Cleans graphics and overlays instead of removing them.
};

/// What is done with an attribute (PS3.15 table E.1-1a). The actions with several names leave a choice; see
/// ActionForType.
enum class EProfileAction
{
    None,               ///< The profile does not list the attribute.
    Keep,               ///< K: stays; the items of a sequence are treated by the profile.
    Clean,              ///< C: a value of similar meaning without identifying information.
    Remove,             ///< X
    Empty,              ///< Z: no value, or a dummy value.
    Dummy,              ///< D: a dummy value of the VR.
    NewUid,             ///< U: a new UID, the same one for equal UIDs.
    EmptyOrDummy,       ///< Z/D
    RemoveOrEmpty,      ///< X/Z
    RemoveOrDummy,      ///< X/D
    RemoveEmptyOrDummy, ///< X/Z/D
    RemoveEmptyOrUids   ///< X/Z/U*: of a sequence, U in its items.
};

/// What an object's modules require of an attribute (PS3.5 section 7.4).
enum class EAttributeNeed
{
    Unknown,  ///< The class of the object or its modules are not known.
    Optional, ///< Type 3, or an attribute of no module of the object.
    Present,  ///< Type 2 or 2C.
    Value     ///< Type 1 or 1C.
};

/// The action of the profile for an attribute, as "deidentification.txt" lists it; the file is looked for where the
/// registry looks for its own when this function is first called.
///
/// Options go before the basic profile. Where several options name an attribute, Clean goes before Keep.
/// @param tag private attributes have one action in common; so have those of the groups 50xx, and the overlays of all
///        groups 60xx.
/// @param options values of EProfileOption.
/// @return None for an attribute that the profile leaves as it is, and for every one when ProfileSize is 0.
VARNOTIX_EXPORT EProfileAction ProfileAction(DWORD tag, unsigned options);

/// The one action that is meant where an action leaves a choice: the first that the need allows. For an unknown need
/// that is the last one, which keeps an object valid whatever its class.
VARNOTIX_EXPORT EProfileAction ActionForType(EProfileAction action, EAttributeNeed need);

/// The letters of an action in the standard, such as "X/Z/D"; "-" for None.
VARNOTIX_EXPORT const char* ProfileActionText(EProfileAction action);

/// Number of rows in the table of the profile; 0 when "deidentification.txt" was not found, is not complete or has a
/// line that cannot be read. Objects must not be de-identified then.
VARNOTIX_EXPORT int ProfileSize();

/// The path from which "deidentification.txt" was loaded; empty when it was not found.
VARNOTIX_EXPORT const CString& ProfilePath();

} // namespace Varnotix
