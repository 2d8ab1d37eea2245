#include "compare/FrameDiff.h"

#include "rewrite/SameValue.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace
{

std::vector<std::string_view> FramesOf(const CDcmFrameList& list, int stated)
{
    std::vector<std::string_view> frames;
    for (int i = 0; i < list.GetCount(); ++i)
    {
        const CDcmFrame& frame = *list.GetFrame(i);
        frames.emplace_back(reinterpret_cast<const char*>(frame.Data()), frame.Size());
    }
    const bool isJoined = frames.size() == 1 && list.ReadForm() == CDcmFrameList::FORM_NATIVE;
    const auto count = static_cast<std::size_t>(std::max(stated, 1));
    if (!isJoined || count > frames.front().size())
    {
        return frames;
    }
    const std::string_view all = frames.front();
    const std::size_t size = all.size() / count; // A byte that makes the length even is in none.
    frames.clear();
    for (std::size_t i = 0; i < count; ++i)
    {
        frames.push_back(all.substr(i * size, i + 1 == count ? std::string_view::npos : size));
    }
    return frames;
}

std::size_t CountDifferent(std::string_view left, std::string_view right)
{
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t different = std::max(left.size(), right.size()) - common;
    for (std::size_t i = 0; i < common; ++i)
    {
        different += left[i] != right[i] ? 1 : 0;
    }
    return different;
}

/// Takes off the byte that makes the length even where the other pixel data has an odd length.
void RemovePadding(std::vector<std::string_view>& frames, std::uint64_t size, std::uint64_t other)
{
    if (size % 2 == 0 && size == other + 1 && !frames.empty() && frames.back().ends_with('\0'))
    {
        frames.back().remove_suffix(1);
    }
}

} // namespace

CString CompareFrames(const CDcmFrameList& left, int leftCount, const CDcmFrameList& right, int rightCount)
{
    const bool isLeftPacked = left.ReadForm() == CDcmFrameList::FORM_ENCAPSULATED;
    const bool isRightPacked = right.ReadForm() == CDcmFrameList::FORM_ENCAPSULATED;
    if (isLeftPacked != isRightPacked)
    {
        return isLeftPacked ? "encapsulated and native" : "native and encapsulated";
    }
    std::vector<std::string_view> leftFrames = FramesOf(left, leftCount);
    std::vector<std::string_view> rightFrames = FramesOf(right, rightCount);
    if (leftFrames.size() != rightFrames.size())
    {
        return Sizes("%llu and %llu frames", leftFrames.size(), rightFrames.size());
    }
    if (left.TotalSize() == right.TotalSize() && SameFrameBytes(left, right))
    {
        return CString();
    }
    RemovePadding(leftFrames, left.TotalSize(), right.TotalSize());
    RemovePadding(rightFrames, right.TotalSize(), left.TotalSize());
    constexpr std::size_t kNamed = 4;
    CString list;
    std::size_t count = 0;
    for (std::size_t i = 0; i < leftFrames.size(); ++i)
    {
        const std::size_t different = CountDifferent(leftFrames[i], rightFrames[i]);
        count += different > 0 ? 1 : 0;
        if (different > 0 && count <= kNamed)
        {
            list += Sizes(count == 1 ? ": %llu" : ", %llu", i + 1) +
                    Sizes(" (%llu of %llu bytes)", different, std::max(leftFrames[i].size(), rightFrames[i].size()));
        }
    }
    if (count == 0)
    {
        return CString();
    }
    return Sizes(leftFrames.size() == 1 ? "%llu of %llu frame differs" : "%llu of %llu frames differ", count,
                 leftFrames.size()) +
           list + (count > kNamed ? ", ..." : "");
}
