#include "picture/FrameAttributes.h"

#include <algorithm>

namespace
{

constexpr DWORD kSharedGroups = 0x52009229;
constexpr DWORD kFrameGroups = 0x52009230;
constexpr int kSharedItem = 0;

} // namespace

CFunctionalGroups::CFunctionalGroups(const CDcmElementSet& store)
{
    for (const DWORD tag : {kSharedGroups, kFrameGroups})
    {
        const CDcmElement* sequence = store.Find(tag);
        const CDcmElementSet* items = sequence != nullptr ? sequence->Items() : nullptr;
        for (int i = 0; items != nullptr && i < items->GetCount(); ++i)
        {
            const CDcmElement* macro = items->GetAt(i);
            // Elements without an item count to the first one.
            const int item = tag == kSharedGroups ? kSharedItem : std::max(macro->Item(), 1);
            m_macros.try_emplace({item, macro->Tag()}, macro);
        }
    }
}

const CDcmElement* CFunctionalGroups::FindInMacro(int item, DWORD macro, DWORD tag) const
{
    const auto found = m_macros.find({item, macro});
    const CDcmElementSet* items = found != m_macros.end() ? found->second->Items() : nullptr;
    return items != nullptr ? items->FindInItem(1, Varnotix::Tag::Group(tag), Varnotix::Tag::Element(tag)) : nullptr;
}

const CDcmElement* CFunctionalGroups::Find(int frame, DWORD macro, DWORD tag) const
{
    const CDcmElement* found = FindInMacro(frame + 1, macro, tag);
    return found != nullptr ? found : FindInMacro(kSharedItem, macro, tag);
}

const CDcmElement* CFrameAttributes::Find(DWORD macro, DWORD tag) const
{
    const CDcmElement* found = m_groups.Find(m_frame, macro, tag);
    return found != nullptr ? found : m_store.Find(tag);
}

CString CFrameAttributes::FirstText(DWORD macro, DWORD tag) const
{
    const CDcmElement* found = Find(macro, tag);
    CString text = found != nullptr ? CString(found->JoinedText().CText()) : CString();
    const int end = text.Find('\\');
    text = end < 0 ? text : text.Left(end);
    text.Trim();
    return text;
}
