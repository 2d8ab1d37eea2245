#include "Varnotix/element/PrivateBlock.h"

#include "Varnotix/platform/Ascii.h"

namespace Varnotix
{

namespace
{

constexpr int kFirstBlock = 0x10;
constexpr int kLastBlock = 0xFF;
constexpr int kBlockSize = 0x100;

/// The text of a value without blanks at its ends. From the bytes, because an implicit stream may have left the VR
/// open.
std::string_view TextOf(const CValueBytes& value)
{
    return TrimBlanks(value.View());
}

} // namespace

CDcmElement* FindInSet(const CDcmElementSet& set, int item, DWORD tag)
{
    return item > 0 ? set.FindInItem(item, Tag::Group(tag), Tag::Element(tag)) : set.Find(tag);
}

CString PrivateCreatorOf(const CDcmElementSet& set, int item, DWORD tag)
{
    const int block = Tag::Element(tag) / kBlockSize;
    if (!Tag::IsPrivate(tag) || block < kFirstBlock)
    {
        return CString();
    }
    const CDcmElement* creator = FindInSet(set, item, Tag::Make(Tag::Group(tag), block));
    return creator != nullptr ? CString(TextOf(creator->ValueBytes())) : CString();
}

std::optional<DWORD> FindPrivateTag(const CDcmElementSet& set, int item, DWORD tag, std::string_view creator)
{
    const int group = Tag::Group(tag);
    if (!Tag::IsPrivate(tag))
    {
        return std::nullopt;
    }
    creator = TrimBlanks(creator);
    for (int block = kFirstBlock; block <= kLastBlock; ++block)
    {
        const CDcmElement* element = FindInSet(set, item, Tag::Make(group, block));
        if (element != nullptr && TextOf(element->ValueBytes()) == creator)
        {
            return Tag::Make(group, block * kBlockSize + Tag::Element(tag) % kBlockSize);
        }
    }
    return std::nullopt;
}

} // namespace Varnotix
