#include "rewrite/Snapshot.h"

#include <algorithm>

std::vector<SSnapshot> TakeSnapshot(const CDcmElementSet& set)
{
    std::vector<SSnapshot> taken;
    taken.reserve(static_cast<std::size_t>(set.GetCount()));
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        SSnapshot& snapshot = taken.emplace_back();
        snapshot.tag = element.Tag();
        snapshot.vr = element.Vr();
        snapshot.raw = element.RawBytes();
        snapshot.frames = element.Frames();
        if (element.Items() != nullptr)
        {
            snapshot.items = TakeSnapshot(*element.Items());
        }
    }
    std::stable_sort(taken.begin(), taken.end(),
                     [](const SSnapshot& left, const SSnapshot& right) { return left.tag < right.tag; });
    return taken;
}
