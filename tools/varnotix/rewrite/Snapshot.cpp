#include "rewrite/Snapshot.h"

#include <algorithm>

namespace
{

/// The value as a write has it, without a copy where it is what was read.
CSharedBytes ValueOf(const CDcmElement& element)
{
    const CValueBytes value = element.ValueBytes();
    return value.Data() == element.RawBytes().Data() && value.Size() == element.RawBytes().Size()
               ? element.RawBytes()
               : CSharedBytes::Copy(value.Data(), value.Size());
}

std::vector<SSnapshot> SnapshotOf(const CDcmElementSet& set, bool isClassic, int itemCount)
{
    std::vector<SSnapshot> taken;
    taken.reserve(static_cast<std::size_t>(set.GetCount()));
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        SSnapshot& snapshot = taken.emplace_back();
        snapshot.tag = element.Tag();
        snapshot.item = isClassic || itemCount == 0 ? 0 : std::clamp(element.Item(), 1, itemCount);
        snapshot.vr = element.Vr();
        snapshot.letters = element.VrLetters();
        snapshot.raw = isClassic ? element.RawBytes() : ValueOf(element);
        snapshot.frames = element.Frames();
        if (element.Items() != nullptr)
        {
            snapshot.itemCount = element.Items()->ItemCount();
            snapshot.items = SnapshotOf(*element.Items(), isClassic, snapshot.itemCount);
        }
    }
    std::stable_sort(taken.begin(), taken.end(),
                     [](const SSnapshot& left, const SSnapshot& right) { return left.Place() < right.Place(); });
    return taken;
}

} // namespace

std::vector<SSnapshot> TakeSnapshot(const CDcmIOD& object)
{
    return SnapshotOf(object.ElementStore(), object.StreamRules() == STREAM_RULES_CLASSIC, 0);
}
