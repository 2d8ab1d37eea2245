#include "compare/Ignored.h"

#include "object/Selection.h"

#include <algorithm>

using namespace Varnotix;

namespace
{

bool Matches(const SPathStep& wanted, const SPathStep& step, const CString* creator)
{
    constexpr DWORD kInBlock = 0xFFFF00FF;
    const bool isElement = wanted.creator.IsEmpty() ? wanted.tag == step.tag
                                                    : (wanted.tag & kInBlock) == (step.tag & kInBlock) &&
                                                          (creator == nullptr || wanted.creator == *creator);
    if (creator == nullptr)
    {
        // On the way: without brackets, or with empty ones, any item.
        return isElement && (wanted.item <= 0 || wanted.item == step.item);
    }
    const bool meansItem = wanted.item != SPathStep::kNoItem;
    return isElement && meansItem == (step.item > 0) && (wanted.item <= 0 || wanted.item == step.item);
}

} // namespace

bool CIgnored::Add(const CString& text)
{
    const std::optional<SSelection> selection = SSelection::Parse(text.View());
    if (!selection)
    {
        return false;
    }
    if (selection->path)
    {
        m_paths.push_back(*selection->path);
    }
    else if (selection->group)
    {
        m_groups.insert(*selection->group);
    }
    else
    {
        m_isPrivate = true;
    }
    return true;
}

bool CIgnored::Has(const CElementPath& path, const CString& creator) const
{
    const std::vector<SPathStep>& steps = path.Steps();
    const DWORD tag = steps.back().tag;
    if ((m_isPrivate && Tag::IsPrivate(tag)) || m_groups.count(Tag::Group(tag)) > 0)
    {
        return true;
    }
    const auto isThis = [&](const CElementPath& wanted)
    {
        const std::vector<SPathStep>& want = wanted.Steps();
        if (want.size() != steps.size() || !Matches(want.back(), steps.back(), &creator))
        {
            return false;
        }
        return std::equal(want.begin(), want.end() - 1, steps.begin(), steps.end() - 1,
                          [](const SPathStep& a, const SPathStep& b) { return Matches(a, b, nullptr); });
    };
    return std::any_of(m_paths.begin(), m_paths.end(), isThis);
}
