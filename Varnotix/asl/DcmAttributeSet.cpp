#include "Varnotix/asl/DcmAttributeSet.h"

#include "Varnotix/asl/AslWriter.h"

IMPLEMENT_DYNCREATE(CDcmAttributeSet, CObject)

CDcmAttributeSet::CDcmAttributeSet() : m_elements(new CDcmElementSet) {}

CDcmAttributeSet::CDcmAttributeSet(const CDcmAttributeSet& other) : CObject(other), m_elements(new CDcmElementSet)
{
    CopyByCreate(other);
}

CDcmAttributeSet::~CDcmAttributeSet()
{
    delete m_elements;
}

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
    return *m_elements == *other.m_elements;
}

void CDcmAttributeSet::Empty(int group, int element)
{
    m_elements->EmptyValue(group, element);
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
    m_elements->CopyIntoBody(*source.m_elements);
}

void CDcmAttributeSet::CopyByReference(CDcmAttributeSet& source)
{
    m_elements->CopyByReference(*source.m_elements);
}

void CDcmAttributeSet::CopyByValue(const CDcmAttributeSet& source)
{
    m_elements->UpdateValuesFrom(*source.m_elements);
}

void CDcmAttributeSet::EmptyAll()
{
    m_elements->EmptyValues();
}

void CDcmAttributeSet::DestroySet()
{
    m_elements->DestroyContents();
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
    AslLines(*m_elements, lines);
}

void CDcmAttributeSet::Export(const CString& path) const
{
    CStringArray lines;
    Export(lines);
    WriteAslFile(path, lines);
}
