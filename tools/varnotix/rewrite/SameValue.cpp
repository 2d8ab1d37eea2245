#include "rewrite/SameValue.h"

#include <algorithm>
#include <cstring>

bool SameFrameBytes(const CDcmFrameList& left, const CDcmFrameList& right)
{
    const std::uint64_t padding = left.TotalSize() % 2;
    if (right.TotalSize() != left.TotalSize() && right.TotalSize() != left.TotalSize() + padding)
    {
        return false;
    }
    int rightFrame = 0;
    std::size_t rightPlace = 0;
    for (int i = 0; i < left.GetCount(); ++i)
    {
        const CDcmFrame& frame = *left.GetFrame(i);
        for (std::size_t place = 0; place < frame.Size();)
        {
            const CDcmFrame& other = *right.GetFrame(rightFrame);
            const std::size_t piece = std::min(frame.Size() - place, other.Size() - rightPlace);
            if (piece > 0 && std::memcmp(frame.Data() + place, other.Data() + rightPlace, piece) != 0)
            {
                return false;
            }
            place += piece;
            rightPlace += piece;
            if (rightPlace == other.Size())
            {
                ++rightFrame;
                rightPlace = 0;
            }
        }
    }
    return true;
}

bool SameButPadding(std::string_view before, std::string_view after)
{
    const bool isPadded =
        before.size() % 2 == 1 && after.size() == before.size() + 1 && (after.back() == ' ' || after.back() == '\0');
    return before == (isPadded ? after.substr(0, before.size()) : after);
}

CString Sizes(const char* format, std::size_t first, std::size_t second)
{
    CString text;
    text.Format(format, static_cast<unsigned long long>(first), static_cast<unsigned long long>(second));
    return text;
}
