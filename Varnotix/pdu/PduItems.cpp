// The items that a protocol data unit owns.

#include "Varnotix/pdu/DcmUserData.h"
#include "Varnotix/pdu/PresentationContext.h"
#include "Varnotix/pdu/PresentationDataValue.h"

#include <algorithm>

IMPLEMENT_DYNCREATE(CPresentationContext, CObject)
IMPLEMENT_DYNCREATE(CPresentationDataValue, CObject)
IMPLEMENT_DYNCREATE(CDcmUserData, CObject)

CPresentationContext::CPresentationContext(const CString& abstractSyntax, const CStringArray& transferSyntaxes, int id,
                                           int result)
    : m_abstractSyntax(abstractSyntax), m_transferSyntaxes(transferSyntaxes), m_id(id), m_result(result)
{
}

CPresentationDataValue::CPresentationDataValue(const CByteArray& data, int id, int messageControl)
    : m_id(id), m_messageControl(messageControl), m_data(data)
{
}

CDcmUserData::CDcmUserData(int type, const CByteArray& data) : m_type(type)
{
    m_data.Assign(data.GetData(), std::min(data.GetSize(), kMaxSize));
}
