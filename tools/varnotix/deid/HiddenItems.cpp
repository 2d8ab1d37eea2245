#include "deid/HiddenItems.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace
{

// A private sequence may hold another as UN, and so on; each takes one more round.
constexpr int kMostRounds = 8;

constexpr std::string_view kItemTag("\xFE\xFF\x00\xE0", 4);
constexpr std::string_view kBigEndianItemTag("\xFF\xFE\xE0\x00", 4);

std::string LittleEndian(std::size_t number)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i)
    {
        bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
    }
    return bytes;
}

/// A file of one sequence in implicit VR. The tag is that of a sequence in every dictionary: a private one would not be
/// read as a sequence.
std::string FileOfItems(std::string_view items)
{
    using namespace std::string_literals;
    return std::string(128, '\0') + "DICM"s + "\x02\x00\x00\x00UL\x04\x00"s + LittleEndian(26) +
           "\x02\x00\x10\x00UI\x12\x00"s + "1.2.840.10008.1.2\0"s + "\x08\x00\x40\x11"s + LittleEndian(items.size()) +
           std::string(items);
}

/// @return null when the bytes are not items to their end.
std::unique_ptr<CDcmElement> ReadItems(const CDcmElement& hidden)
{
    constexpr DWORD kReferencedImageSequence = 0x00081140;
    const CValueBytes value = hidden.ValueBytes();
    std::string bytes = FileOfItems(value.View());
    CMemFile file;
    file.Attach(reinterpret_cast<BYTE*>(bytes.data()), static_cast<UINT>(bytes.size()));
    CArchive archive(&file, CArchive::load);
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    object.Serialize(archive);
    const CDcmElement* read = object.ElementStore().Find(kReferencedImageSequence);
    if (object.ReadStopped() || read == nullptr || read->Items() == nullptr)
    {
        return nullptr;
    }
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(hidden.Tag());
    auto shown = std::make_unique<CDcmElement>(hidden.Group(), hidden.Element(), VR_SQ,
                                               entry != nullptr ? entry : &CDcmRegistry::UnlistedEntry(VR_SQ));
    shown->SetItems(*read->Items());
    shown->SetItem(hidden.Item());
    return shown;
}

/// What is found in a set, and what takes its place.
struct SFound
{
    std::unordered_set<const CDcmElement*> hidden;
    std::vector<std::unique_ptr<CDcmElement>> shown;
};

/// @return whether there were any.
bool ShowOnce(CDcmElementSet& store)
{
    std::map<CDcmElementSet*, SFound> found;
    const auto visit = [&found](const Varnotix::SWalkPlace& place)
    {
        if (std::unique_ptr<CDcmElement> shown = HidesItems(place.element) ? ReadItems(place.element) : nullptr)
        {
            SFound& inSet = found[&place.set];
            inSet.hidden.insert(&place.element);
            inSet.shown.push_back(std::move(shown));
        }
        return Varnotix::EWalk::Enter;
    };
    Varnotix::WalkElements(store, visit);
    for (auto& [set, inSet] : found)
    {
        set->RemoveIf([&hidden = inSet.hidden](const CDcmElement& element) { return hidden.contains(&element); });
        for (std::unique_ptr<CDcmElement>& shown : inSet.shown)
        {
            set->Add(shown.release());
        }
    }
    return !found.empty();
}

} // namespace

bool HidesItems(const CDcmElement& element)
{
    if (!element.HasVr(VR_UN) || element.Items() != nullptr)
    {
        return false;
    }
    const CValueBytes value = element.ValueBytes();
    return value.View().starts_with(kItemTag) || value.View().starts_with(kBigEndianItemTag);
}

void ShowHiddenItems(CDcmElementSet& store)
{
    for (int round = 0; round < kMostRounds && ShowOnce(store); ++round)
    {
    }
}
