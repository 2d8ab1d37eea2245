#include "Varnotix/element/ElementShape.h"

#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/TagText.h"

#include <algorithm>

using namespace Varnotix;

std::vector<CElementShape::SElement>::const_iterator CElementShape::Place(DWORD tag) const
{
    return std::upper_bound(m_elements.begin(), m_elements.end(), tag,
                            [](DWORD value, const SElement& element) { return value < element.tag; });
}

void CElementShape::AddElement(DWORD tag)
{
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpTag(tag);
    const int vr = entry != nullptr ? static_cast<int>(entry->vr) : static_cast<int>(VR_UNKNOWN);
    m_elements.insert(Place(tag), SElement{tag, vr, entry});
    m_beginsEmpty = m_beginsEmpty && entry != nullptr && VrKind(vr) != EVrKind::RawOnly;
    m_hasPrivateTags = m_hasPrivateTags || Tag::IsPrivate(tag);
}

bool CElementShape::IsCurrent() const
{
    // The dictionary of the standard stays as it was loaded.
    return !m_hasPrivateTags || std::all_of(m_elements.begin(), m_elements.end(),
                                            [](const SElement& element)
                                            {
                                                const CDcmEntry* entry = CDcmRegistry::Global().LookUpTag(element.tag);
                                                return entry == element.entry &&
                                                       (entry == nullptr || static_cast<int>(entry->vr) == element.vr);
                                            });
}

void CElementShape::Declare(const CString& group, const CString& element)
{
    Declare(TagOfTexts(group, element));
}

void CElementShape::Declare(DWORD tag)
{
    const auto place = Place(tag);
    if (place == m_elements.begin() || std::prev(place)->tag != tag)
    {
        m_declared.push_back(tag);
        AddElement(tag);
    }
}

void CElementShape::AddSequence(const CString& group, const CString& element)
{
    const DWORD tag = TagOfTexts(group, element);
    m_sequences.push_back(tag);
    AddElement(tag);
}
