#include "deid/MethodCodes.h"

#include "Varnotix/platform/Ascii.h"
#include "deid/Values.h"
#include "object/Attributes.h"

#include <memory>
#include <string_view>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr DWORD kCodeSequence = 0x00120064;
constexpr DWORD kCodeValue = 0x00080100;
constexpr DWORD kCodingScheme = 0x00080102;
constexpr DWORD kCodeMeaning = 0x00080104;
constexpr DWORD kTemporalInformation = 0x00280303;

constexpr unsigned kDates = Varnotix::PROFILE_RETAIN_FULL_DATES | Varnotix::PROFILE_RETAIN_MODIFIED_DATES;

constexpr const char* kMethod = "Varnotix, PS3.15 Annex E, table of 2025";

struct SCode
{
    unsigned option;
    std::string_view value;
    std::string_view meaning;
};

constexpr SCode kBasicProfile = {0, "113100", "Basic Application Confidentiality Profile"};
constexpr SCode kCleanPixels = {0, "113101", "Clean Pixel Data Option"};
constexpr SCode kOptionCodes[] = {
    {Varnotix::PROFILE_CLEAN_GRAPHICS, "113103", "Clean Graphics Option"},
    {Varnotix::PROFILE_CLEAN_STRUCTURED_CONTENT, "113104", "Clean Structured Content Option"},
    {Varnotix::PROFILE_CLEAN_DESCRIPTORS, "113105", "Clean Descriptors Option"},
    {Varnotix::PROFILE_RETAIN_FULL_DATES, "113106", "Retain Longitudinal Temporal Information Full Dates Option"},
    {Varnotix::PROFILE_RETAIN_MODIFIED_DATES, "113107",
     "Retain Longitudinal Temporal Information Modified Dates Option"},
    {Varnotix::PROFILE_RETAIN_PATIENT_CHARACTERISTICS, "113108", "Retain Patient Characteristics Option"},
    {Varnotix::PROFILE_RETAIN_DEVICE, "113109", "Retain Device Identity Option"},
    {Varnotix::PROFILE_RETAIN_UIDS, "113110", "Retain UIDs Option"},
    {Varnotix::PROFILE_RETAIN_SAFE_PRIVATE, "113111", "Retain Safe Private Option"},
    {Varnotix::PROFILE_RETAIN_INSTITUTION, "113112", "Retain Institution Identity Option"},
};

void AddText(CDcmElementSet& items, DWORD tag, std::string_view text)
{
    auto element = std::make_unique<CDcmElement>(tag);
    SetValue(*element, text);
    items.Add(element.release());
}

/// Adds a code, unless an earlier de-identification did.
void AddCode(CDcmElementSet& items, const SCode& code)
{
    for (int item = 1; item <= items.ItemCount(); ++item)
    {
        const CDcmElement* value = items.FindInItem(item, Tag::Group(kCodeValue), Tag::Element(kCodeValue));
        if (value != nullptr && Varnotix::TrimBlanks(value->ValueBytes().View()) == code.value)
        {
            return;
        }
    }
    items.BeginItem();
    AddText(items, kCodeValue, code.value);
    AddText(items, kCodingScheme, "DCM");
    AddText(items, kCodeMeaning, code.meaning);
}

/// The method, after those of earlier de-identifications.
std::string MethodsOf(const CDcmElementSet& store)
{
    const std::string old(TextOf(store, Tag::kDeidentificationMethod).View());
    const bool isNew = old.find(kMethod) == std::string::npos;
    return !isNew ? old : (old.empty() ? old : old + '\\') + kMethod;
}

/// What became of the dates, earlier de-identifications included: dates that are gone are not unmodified.
std::string TemporalInformationOf(const CDcmElementSet& store, unsigned options)
{
    const std::string old(TextOf(store, kTemporalInformation).View());
    if ((options & kDates) == 0 || old == "REMOVED")
    {
        return "REMOVED";
    }
    const bool isModified = (options & Varnotix::PROFILE_RETAIN_MODIFIED_DATES) != 0 || old == "MODIFIED";
    return isModified ? "MODIFIED" : "UNMODIFIED";
}

} // namespace

void SetMethod(CDcmElementSet& store, unsigned options, bool cleanedPixels)
{
    SetText(store, Tag::kPatientIdentityRemoved, "YES", ' ');
    SetText(store, Tag::kDeidentificationMethod, MethodsOf(store), ' ');
    CDcmElement* codes = store.Find(kCodeSequence);
    if (codes == nullptr || codes->Items() == nullptr)
    {
        store.Remove(kCodeSequence);
        codes = new CDcmElement(kCodeSequence);
        store.Add(codes);
    }
    CDcmElementSet& items = *codes->Items();
    AddCode(items, kBasicProfile);
    if (cleanedPixels)
    {
        AddCode(items, kCleanPixels);
        SetText(store, Tag::kBurnedInAnnotation, "NO", ' ');
    }
    for (const SCode& code : kOptionCodes)
    {
        if ((options & code.option) != 0)
        {
            AddCode(items, code);
        }
    }
    SetText(store, kTemporalInformation, TemporalInformationOf(store, options), ' ');
}
