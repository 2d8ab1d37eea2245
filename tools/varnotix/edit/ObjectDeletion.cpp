#include "edit/ObjectEdit.h"

#include <algorithm>

using namespace Varnotix;

void CObjectEdit::Delete(const SSelection& selection)
{
    if (selection.path)
    {
        DeletePath(*selection.path);
        return;
    }
    const int before = m_deleted;
    const auto visit = [&](const SWalkPlace& place)
    {
        const DWORD tag = place.element.Tag();
        const bool isPrivate = Tag::IsPrivate(tag);
        if (selection.group ? Tag::Group(tag) != *selection.group : !isPrivate)
        {
            return EWalk::Enter;
        }
        m_path = place.path.Text();
        // A private creator goes with its block.
        if (!isPrivate && !MayGoOn(ReasonAgainstDeleting(place.set, place.item, tag)))
        {
            return EWalk::Skip;
        }
        ++m_deleted;
        return EWalk::Remove;
    };
    WalkElements(m_store, visit);
    CString name("private attributes");
    if (selection.group)
    {
        name.Format("group %04X", static_cast<unsigned>(*selection.group));
    }
    m_details.push_back(name + (m_deleted == before ? ": there is none to delete" : ": deleted"));
}

void CObjectEdit::DeletePath(const CElementPath& path)
{
    m_path = path.Text();
    std::vector<SFoundElement> found = path.FindAll(m_store);
    // Items move up when one before them goes.
    std::reverse(found.begin(), found.end());
    for (const SFoundElement& one : found)
    {
        DeleteElement(one);
    }
    m_details.push_back(m_path + (found.empty() ? ": there is none to delete" : ": deleted"));
}

void CObjectEdit::DeleteElement(const SFoundElement& found)
{
    if (const int item = found.path.Steps().back().item; item > 0)
    {
        m_deleted += found.element->Items()->RemoveItem(item) ? 1 : 0;
    }
    else if (MayGoOn(ReasonAgainstDeleting(*found.set, found.item, found.element->Tag())))
    {
        found.set->Remove(found.element);
        ++m_deleted;
    }
}
