#include "Varnotix/element/ItemForms.h"

CItemForms::CItemForms(const CItemForms& other)
    : m_count(other.m_count),
      m_undefined(other.m_undefined),
      m_each(other.m_each ? std::make_unique<std::vector<bool>>(*other.m_each) : nullptr)
{
}

CItemForms& CItemForms::operator=(const CItemForms& other)
{
    return *this = CItemForms(other);
}

CItemForms::~CItemForms() = default;

void CItemForms::Add(bool undefinedLength)
{
    if (m_count == 0)
    {
        m_undefined = undefinedLength;
    }
    else if (!m_each && undefinedLength != m_undefined)
    {
        m_each = std::make_unique<std::vector<bool>>(static_cast<std::size_t>(m_count), m_undefined);
    }
    if (m_each)
    {
        m_each->push_back(undefinedLength);
    }
    ++m_count;
}

bool CItemForms::IsUndefined(int item) const
{
    if (item < 1 || item > m_count)
    {
        return false;
    }
    return m_each ? (*m_each)[static_cast<std::size_t>(item) - 1] : m_undefined;
}

void CItemForms::Remove(int item)
{
    if (item < 1 || item > m_count)
    {
        return;
    }
    if (m_each)
    {
        m_each->erase(m_each->begin() + (item - 1));
    }
    if (--m_count == 0)
    {
        m_each.reset();
    }
}
