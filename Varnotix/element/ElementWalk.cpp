#include "Varnotix/element/ElementWalk.h"

#include "Varnotix/element/ElementBody.h"

#include <unordered_set>

namespace Varnotix
{

namespace
{

/// One walk over an object.
class CWalk
{
public:
    explicit CWalk(const std::function<EWalk(const SWalkPlace&)>& visit) : m_visit(visit) {}

    bool Over(CDcmElementSet& set, bool hasItems)
    {
        std::unordered_set<const CDcmElement*> removed;
        bool goesOn = true;
        const int count = set.GetCount();
        for (int i = 0; i < count && goesOn; ++i)
        {
            CDcmElement& element = *set.GetAt(i);
            const int item = hasItems ? ItemOf(element) : 0;
            if (hasItems)
            {
                m_path.SelectItem(item);
            }
            m_path.Append({element.Tag(), CString(), SPathStep::kNoItem});
            const EWalk next = m_visit({element, set, item, m_path});
            goesOn = next != EWalk::Stop;
            if (next == EWalk::Remove)
            {
                removed.insert(&element);
            }
            else if (next == EWalk::Enter && element.Items() != nullptr)
            {
                goesOn = Over(*element.Items(), true);
            }
            m_path.RemoveLast();
        }
        if (!removed.empty())
        {
            set.RemoveIf([&removed](const CDcmElement& element) { return removed.count(&element) > 0; });
        }
        return goesOn;
    }

private:
    const std::function<EWalk(const SWalkPlace&)>& m_visit;
    CElementPath m_path;
};

} // namespace

bool WalkElements(CDcmElementSet& set, const std::function<EWalk(const SWalkPlace&)>& visit)
{
    return CWalk(visit).Over(set, false);
}

} // namespace Varnotix
