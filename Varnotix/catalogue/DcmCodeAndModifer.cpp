#include "Varnotix/catalogue/DcmCodeAndModifer.h"

IMPLEMENT_DCM_COMMON(CDcmCodeAndModifer, CDcmSequence)

CDcmCodeAndModifer::CDcmCodeAndModifer() : CDcmCodeAndModifer("0008", "2220") {}

CDcmCodeAndModifer::CDcmCodeAndModifer(const CString& group, const CString& element)
    : m_group(group), m_element(element)
{
    CDcmCodeAndModifer::InitializeSequence();
}

CDcmCodeAndModifer::CDcmCodeAndModifer(const CDcmCodeAndModifer& other)
    : CDcmCodeAndModifer(other.m_group, other.m_element)
{
    SRowWalker::Copy(*this, other);
}

CDcmCodeAndModifer& CDcmCodeAndModifer::operator=(const CDcmCodeAndModifer& other)
{
    if (m_group == other.m_group && m_element == other.m_element)
    {
        CDcmSequence::operator=(other);
        return *this;
    }
    // The owner's tag stays: an anatomic region that is assigned a view code is still an anatomic region.
    m_dcmCode = other.m_dcmCode;
    m_dcmModifier = other.m_dcmModifier;
    return *this;
}

void CDcmCodeAndModifer::DcmDeclareRows()
{
    SRowWalker::Declare(*this);
}
