#include "json/PixelItems.h"

#include <algorithm>
#include <array>

namespace
{

// Pixel Data of VR OB and undefined length, in explicit VR little endian.
constexpr std::string_view kHeader("\xE0\x7F\x10\x00OB\x00\x00\xFF\xFF\xFF\xFF", 12);
constexpr std::string_view kItem("\xFE\xFF\x00\xE0", 4);
constexpr std::string_view kDelimiter("\xFE\xFF\xDD\xE0\x00\x00\x00\x00", 8);
constexpr std::uint64_t kItemHeader = 8;

constexpr const char* kEncapsulated = "1.2.840.10008.1.2.5";

bool IsEncapsulated(const CDcmElement& element)
{
    return element.Frames() != nullptr && element.Frames()->ReadForm() == CDcmFrameList::FORM_ENCAPSULATED;
}

bool HoldsBytes(const CDcmElement& element)
{
    constexpr std::array<std::string_view, 8> kLetters = {"OB", "OD", "OF", "OL", "OV", "OW", "UN", ""};
    return element.Items() == nullptr &&
           std::find(kLetters.begin(), kLetters.end(), element.VrLetters()) != kLetters.end();
}

} // namespace

std::uint64_t BulkSize(const CDcmElement& element)
{
    const CDcmFrameList* frames = element.Frames();
    if (frames == nullptr)
    {
        return HoldsBytes(element) ? element.ValueBytes().Size() : 0;
    }
    return frames->TotalSize() + (IsEncapsulated(element) ? kItemHeader + kDelimiter.size() : 0);
}

void ForBulk(const CDcmElement& element, const std::function<void(std::string_view)>& action)
{
    const CDcmFrameList* frames = element.Frames();
    if (frames == nullptr)
    {
        action(element.ValueBytes().View());
        return;
    }
    if (IsEncapsulated(element))
    {
        CDcmIOD object;
        object.StreamRules(STREAM_RULES_STANDARD);
        object.ElementStore().Add(new CDcmElement(element));
        CByteArray bytes;
        object.Export(bytes, kEncapsulated);
        const std::string_view written(reinterpret_cast<const char*>(bytes.GetData()),
                                       static_cast<std::size_t>(bytes.GetSize()));
        action(written.substr(std::min(kHeader.size(), written.size())));
        return;
    }
    for (int i = 0; i < frames->GetCount(); ++i)
    {
        const CDcmFrame& frame = *frames->GetFrame(i);
        action({reinterpret_cast<const char*>(frame.Data()), frame.Size()});
    }
}

bool AreItems(std::string_view bytes)
{
    return bytes.starts_with(kItem) && bytes.ends_with(kDelimiter);
}

std::unique_ptr<CDcmElement> PixelDataOfItems(std::string_view items)
{
    CByteArray bytes;
    bytes.Assign(reinterpret_cast<const BYTE*>(kHeader.data()), static_cast<int>(kHeader.size()));
    bytes.AppendRaw(reinterpret_cast<const BYTE*>(items.data()), static_cast<int>(items.size()));
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    object.Import(bytes);
    const CDcmElement* element = object.ElementStore().Find(Varnotix::Tag::kPixelData);
    if (object.ReadStopped() || element == nullptr || object.GetCount() != 1)
    {
        return nullptr;
    }
    return std::make_unique<CDcmElement>(*element);
}
