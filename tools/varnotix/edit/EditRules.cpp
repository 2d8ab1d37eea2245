#include "edit/EditRules.h"

#include <algorithm>
#include <iterator>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr DWORD kPixelAspectTags[] = {
    Tag::kSamplesPerPixel,
    Tag::kPhotometricInterpretation,
    Tag::kPlanarConfiguration,
    Tag::kNumberOfFrames,
    Tag::kRows,
    Tag::kColumns,
    Tag::kBitsAllocated,
    Tag::kBitsStored,
    Tag::kHighBit,
    Tag::kPixelRepresentation,
};

/// The tags of Float Pixel Data, Double Float Pixel Data and Pixel Data.
constexpr DWORD kPixelTags[] = {0x7FE00008, 0x7FE00009, Tag::kPixelData};

template <std::size_t COUNT>
bool IsAmong(DWORD tag, const DWORD (&tags)[COUNT])
{
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

bool HasPixels(const CDcmElementSet& set, int item)
{
    return std::any_of(std::begin(kPixelTags), std::end(kPixelTags),
                       [&](DWORD tag) { return Varnotix::FindInSet(set, item, tag) != nullptr; });
}

/// Whether a private creator reserves a block that has elements.
bool IsCreatorInUse(const CDcmElementSet& set, int item, DWORD tag)
{
    constexpr int kFirst = 0x10;
    constexpr int kLast = 0xFF;
    if (!Tag::IsPrivate(tag) || Tag::Element(tag) < kFirst || Tag::Element(tag) > kLast)
    {
        return false;
    }
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        const bool isHere = item == 0 || std::max(element.Item(), 1) == item;
        if (isHere && element.HasGroup(Tag::Group(tag)) && element.Element() >> 8 == Tag::Element(tag))
        {
            return true;
        }
    }
    return false;
}

/// What setting and deleting have in common.
SEditReason ReasonAgainstBoth(const CDcmElementSet& set, int item, DWORD tag)
{
    if (tag == Tag::kFileMetaInformationGroupLength)
    {
        return {"the write computes it", true};
    }
    if (tag == Tag::kTransferSyntaxUid)
    {
        return {"it says how the file is encoded; 'varnotix convert' changes both", true};
    }
    if (IsAmong(tag, kPixelAspectTags) && HasPixels(set, item))
    {
        return {"it describes the pixel data, which stays as it is", false};
    }
    if (IsCreatorInUse(set, item, tag))
    {
        return {"private attributes are in the block that it reserves", false};
    }
    return {};
}

} // namespace

SEditReason ReasonAgainstSetting(const CDcmElementSet& set, int item, DWORD tag)
{
    const int group = Tag::Group(tag);
    if (group < Tag::kMetaGroup || group == Tag::kItemGroup || (item > 0 && group == Tag::kMetaGroup))
    {
        return {"its group has no place there", true};
    }
    if (Tag::IsGroupLength(tag))
    {
        return {"the write computes it", true};
    }
    if (IsAmong(tag, kPixelTags))
    {
        return {"pixel data is not set from text", true};
    }
    if (tag == Tag::kMediaStorageSopClassUid || tag == Tag::kMediaStorageSopInstanceUid)
    {
        return {tag == Tag::kMediaStorageSopClassUid ? "it follows SOPClassUID (0008,0016), which may be set"
                                                     : "it follows SOPInstanceUID (0008,0018), which may be set",
                false};
    }
    return ReasonAgainstBoth(set, item, tag);
}

SEditReason ReasonAgainstDeleting(const CDcmElementSet& set, int item, DWORD tag)
{
    if (item == 0 && (tag == Tag::kSopClassUid || tag == Tag::kSopInstanceUid))
    {
        return {"every object must have it", false};
    }
    if (IsAmong(tag, kPixelTags))
    {
        return {"nothing of the image would be left", false};
    }
    if (Tag::Group(tag) == Tag::kMetaGroup && Tag::Element(tag) <= Tag::Element(Tag::kMediaStorageSopInstanceUid))
    {
        return {"every file must have it", tag == Tag::kFileMetaInformationGroupLength};
    }
    return ReasonAgainstBoth(set, item, tag);
}
