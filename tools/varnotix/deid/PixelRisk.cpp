#include "deid/PixelRisk.h"

#include "Varnotix/platform/Ascii.h"
#include "object/Attributes.h"

#include <algorithm>
#include <array>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr DWORD kConversionType = 0x00080064;
constexpr DWORD kVisualFeatures = 0x00280302;
constexpr DWORD kOverlayBitsAllocated = 0x60000100;
constexpr DWORD kOverlayBitPosition = 0x60000102;
constexpr DWORD kGroupStep = 0x00020000;
constexpr int kOverlayGroups = 16;

// Words in the names of classes whose objects show faces, texts or documents, or let voices be heard.
constexpr std::array kClassWords = {"Ultrasound", "US Volume", "Secondary Capture", "Encapsulated", "VL ",
                                    "Video ",     "Audio",     "Photographic",      "Photography"};
constexpr std::array kModalities = {"US", "IVUS", "ES", "XC", "DOC", "AU"};

CString NameOfClass(const CString& sopClass)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    return registry.UidName(registry.UidEnum(sopClass));
}

/// Overlays in bits of the pixel data that no sample uses stay when the overlay's attributes go.
bool HasOverlayInPixels(const CDcmElementSet& store)
{
    for (DWORD step = 0; step < kOverlayGroups; ++step)
    {
        const DWORD group = step * kGroupStep;
        const bool isSeparate = WordOf(store, kOverlayBitPosition + group).value_or(0) == 0 &&
                                WordOf(store, kOverlayBitsAllocated + group).value_or(1) == 1;
        if (!isSeparate && store.Find(Tag::kPixelData) != nullptr)
        {
            return true;
        }
    }
    return false;
}

} // namespace

bool IsDocumentClass(const CString& sopClass)
{
    return NameOfClass(sopClass).Find("Encapsulated") >= 0;
}

CString PixelRiskOf(const CDcmElementSet& store)
{
    const CString name = NameOfClass(TextOf(store, Tag::kSopClassUid));
    if (std::any_of(kClassWords.begin(), kClassWords.end(), [&](const char* word) { return name.Find(word) >= 0; }))
    {
        return "objects of its class, " + name + ", often show faces, names or documents";
    }
    for (const DWORD tag : {Tag::kBurnedInAnnotation, kVisualFeatures})
    {
        if (Varnotix::EqualNoCase(TextOf(store, tag).View(), "YES"))
        {
            return TagAndName(tag) + " is YES";
        }
    }
    const CString modality = TextOf(store, Tag::kModality);
    if (std::any_of(kModalities.begin(), kModalities.end(), [&](const char* word) { return modality == word; }))
    {
        return "objects of its modality, " + modality + ", often show faces, names or documents";
    }
    if (!TextOf(store, kConversionType).IsEmpty() || TextOf(store, Tag::kImageType).Find("SCREEN") >= 0)
    {
        return "it is a picture of a screen, a film or a document";
    }
    return HasOverlayInPixels(store) ? CString("its pixel data holds an overlay") : CString();
}
