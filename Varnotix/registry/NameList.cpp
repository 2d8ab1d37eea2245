#include "Varnotix/registry/NameList.h"

void CNameList::Add(const CString& text)
{
    // The map never refers to a missing row: if memory runs out here, the row only cannot be found by text.
    m_rows.push_back(text);
    m_lastRow[std::string(text.CText())] = GetCount() - 1;
}

CString CNameList::At(int index) const
{
    return index >= 0 && index < GetCount() ? m_rows[static_cast<std::size_t>(index)] : CString();
}

int CNameList::LastRowOf(const CString& text) const
{
    if (text.IsEmpty())
    {
        return -1;
    }
    CString trimmed(text);
    trimmed.Trim();
    const auto found = m_lastRow.find(std::string(trimmed.CText()));
    return found == m_lastRow.end() ? -1 : found->second;
}
