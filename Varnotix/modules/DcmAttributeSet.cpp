#include "Varnotix/modules/DcmAttributeSet.h"

#include "Varnotix/asl/AslWriter.h"

IMPLEMENT_DYNCREATE(CDcmAttributeSet, CObject)

CDcmAttributeSet::CDcmAttributeSet() = default;

CDcmAttributeSet::CDcmAttributeSet(const CDcmAttributeSet& other) : CDcmAttributeSet()
{
    CopyByCreate(other);
}

CDcmAttributeSet::~CDcmAttributeSet() = default;

CDcmAttributeSet& CDcmAttributeSet::operator=(const CDcmAttributeSet& other)
{
    CopyByCreate(other);
    return *this;
}

CDcmAttributeSet& CDcmAttributeSet::operator<<(const CDcmAttributeSet& other)
{
    CopyByValue(other);
    return *this;
}

CDcmAttributeSet& CDcmAttributeSet::operator>>(CDcmAttributeSet& other)
{
    other.CopyByValue(*this);
    return *this;
}

bool CDcmAttributeSet::operator==(const CDcmAttributeSet& other) const
{
    if (m_isPart || other.m_isPart)
    {
        CDcmElementSet mine;
        CDcmElementSet others;
        PartInto(mine);
        other.PartInto(others);
        return mine == others;
    }
    return m_elements == other.m_elements;
}

void CDcmAttributeSet::Empty(int group, int element)
{
    m_elements.EmptyValue(group, element);
}

void CDcmAttributeSet::Empty(const CDmElement* element)
{
    if (element != nullptr)
    {
        Empty(*element);
    }
}

void CDcmAttributeSet::Empty(const CDmElement& element)
{
    Empty(element.m_group, element.m_element);
}

void CDcmAttributeSet::CopyByCreate(const CDcmAttributeSet& source)
{
    if (m_elements.SharesBodyWith(source.m_elements))
    {
        return;
    }
    if (m_isPart)
    {
        EmptyAll();
        TakeDeclared(source.m_elements);
        return;
    }
    if (source.m_elements.HoldsNothing())
    {
        m_elements.CopyDeclared(source.m_elements);
        return;
    }
    if (source.m_isPart)
    {
        CDcmElementSet part;
        source.PartInto(part);
        m_elements.CopyIntoBody(part);
        return;
    }
    m_elements.CopyIntoBody(source.m_elements);
}

void CDcmAttributeSet::CopyByReference(CDcmAttributeSet& source)
{
    m_elements.CopyByReference(source.m_elements);
}

void CDcmAttributeSet::CopyByValue(const CDcmAttributeSet& source)
{
    if (m_isPart)
    {
        TakeDeclared(source.m_elements);
    }
    else if (source.m_isPart)
    {
        CDcmElementSet part;
        source.PartInto(part);
        m_elements.UpdateValuesFrom(part);
    }
    else
    {
        m_elements.UpdateValuesFrom(source.m_elements);
    }
}

void CDcmAttributeSet::EmptyAll()
{
    if (!m_isPart)
    {
        m_elements.EmptyValues();
        return;
    }
    for (int position = 0; position < m_elements.DeclaredTagTexts(); position += 2)
    {
        if (CDcmElement* element = m_elements.FindDeclared(position))
        {
            element->EmptyValue();
        }
    }
}

std::vector<SAttributeRow> CDcmAttributeSet::AttributeRows() const
{
    return {};
}

void CDcmAttributeSet::DestroySet()
{
    m_elements.DestroyContents();
}

void CDcmAttributeSet::IncludeIn(CDcmAttributeSet& whole)
{
    m_elements.CopyByReference(whole.m_elements);
    m_isPart = true;
}

/// Fills a fresh set with copies of a part's elements; a whole set is shared instead.
void CDcmAttributeSet::PartInto(CDcmElementSet& part) const
{
    if (!m_isPart)
    {
        part.CopyByReference(m_elements);
        return;
    }
    part.DeclareTagsOf(m_elements);
    part.UpdateValuesFrom(m_elements);
}

/// The declared elements take the values of the source's elements of their tags.
void CDcmAttributeSet::TakeDeclared(const CDcmElementSet& source)
{
    if (m_elements.SharesBodyWith(source))
    {
        return;
    }
    for (int position = 0; position < m_elements.DeclaredTagTexts(); position += 2)
    {
        CDcmElement* element = m_elements.FindDeclared(position);
        const CDcmElement* other = element != nullptr ? source.Find(*element) : nullptr;
        if (other != nullptr)
        {
            *element = *other;
        }
    }
}

void CDcmAttributeSet::Export(CStringArray& lines) const
{
    CString header("#");
    header += GetRuntimeClass()->m_lpszClassName;
    lines.Add(header);
    header.Format("#count=%d", GetCount());
    lines.Add(header);
    header.Format("#count_all=%d", GetCountAll());
    lines.Add(header);
    Varnotix::AslLines(m_elements, lines);
}

void CDcmAttributeSet::Export(const CString& path) const
{
    CStringArray lines;
    Export(lines);
    Varnotix::WriteAslFile(path, lines);
}
