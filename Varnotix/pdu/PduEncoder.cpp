// Encodes a protocol data unit into its byte image.

#include "Varnotix/pdu/DcmProtocolDataUnit.h"
#include "Varnotix/pdu/PduBytes.h"

#include <algorithm>

using namespace Varnotix;

void CDcmProtocolDataUnit::Create()
{
    EncodeProtocol();
}

void CDcmProtocolDataUnit::EncodeProtocol()
{
    switch (m_type)
    {
    case PDU_ASSOCIATE_RQ:
        CreateARequestProtocol();
        break;
    case PDU_ASSOCIATE_AC:
        CreateAAceptProtocol();
        break;
    case PDU_ASSOCIATE_RJ:
        CreateRejectField();
        break;
    case PDU_DATA_TF:
        CreateTFField();
        break;
    case PDU_RELEASE_RQ:
        CreateReleaseRequestField();
        break;
    case PDU_RELEASE_RP:
        CreateReleaseReplyField();
        break;
    case PDU_ABORT:
        CreateAbortField();
        break;
    default:
        break;
    }
}

/// Resizes the field to its fixed part and writes type and length; all other bytes keep their values.
void CDcmProtocolDataUnit::WriteHeader(int fixedSize, int length)
{
    m_pduField.SetSize(fixedSize);
    m_pduField[0] = static_cast<BYTE>(m_type);
    PutBig32(m_pduField.GetData() + 2, length);
}

void CDcmProtocolDataUnit::WriteTitle(CString& title, int offset)
{
    const int size = std::min(title.GetLength(), m_pduField.GetSize() - offset);
    std::copy_n(title.View().data(), size, m_pduField.GetData() + offset);
    if (title.GetLength() > kTitleSize)
    {
        m_pduField[offset + kTitleSize] = 0;
        title = title.Left(kTitleSize);
    }
}

void CDcmProtocolDataUnit::CreateARequestProtocol()
{
    WriteHeader(kAssociateFixedSize, 0);
    PutBig16(m_pduField.GetData() + kPduHeaderSize, m_version);
    WriteTitle(m_calledAE, kCalledTitleOffset);
    WriteTitle(m_callingAE, kCallingTitleOffset);
    CreateARequestVariableItems();
    m_length = m_pduField.GetSize() - kPduHeaderSize;
    PutBig32(m_pduField.GetData() + 2, m_length);
}

void CDcmProtocolDataUnit::CreateAAceptProtocol()
{
    CreateARequestProtocol();
}

void CDcmProtocolDataUnit::CreateARequestVariableItems()
{
    CByteArray items;
    CreateItemField(PDU_ITEM_APPLICATION_CONTEXT, m_applicationContexts, items);
    m_pduField.Append(items);
    CreatePresentationContextItems(items);
    m_pduField.Append(items);
    CreateUserDataItems(items);
    m_pduField.Append(items);
}

void CDcmProtocolDataUnit::CreateRejectField()
{
    WriteHeader(kShortPduSize, kShortPduSize - kPduHeaderSize);
    m_pduField[7] = static_cast<BYTE>(m_result);
    m_pduField[8] = static_cast<BYTE>(m_source);
    m_pduField[9] = static_cast<BYTE>(m_reason);
}

void CDcmProtocolDataUnit::CreateTFField()
{
    WriteHeader(kPduHeaderSize, 0);
    for (const CObject* object : m_dataValues)
    {
        CByteArray item;
        CreatePresentationDataItem(static_cast<const CPresentationDataValue&>(*object), item);
        m_pduField.Append(item);
    }
    m_length = m_pduField.GetSize() - kPduHeaderSize;
    PutBig32(m_pduField.GetData() + 2, m_length);
}

void CDcmProtocolDataUnit::CreateReleaseRequestField()
{
    WriteHeader(kShortPduSize, kShortPduSize - kPduHeaderSize);
}

void CDcmProtocolDataUnit::CreateReleaseReplyField()
{
    CreateReleaseRequestField();
}

void CDcmProtocolDataUnit::CreateAbortField()
{
    WriteHeader(kShortPduSize, kShortPduSize - kPduHeaderSize);
    m_pduField[8] = static_cast<BYTE>(m_source);
    m_pduField[9] = static_cast<BYTE>(m_reason);
}

void CDcmProtocolDataUnit::CreateItemField(int type, const CByteArray& data, CByteArray& out) const
{
    CByteArray item;
    item.SetSize(kItemHeader);
    item[0] = static_cast<BYTE>(type);
    PutBig16(item.GetData() + 2, data.GetSize());
    item.Append(data);
    out.Swap(item);
}

void CDcmProtocolDataUnit::CreateItemField(int type, const CStringArray& strings, CByteArray& out) const
{
    CByteArray items;
    for (const CString& string : strings)
    {
        CByteArray data;
        data.Assign(reinterpret_cast<const BYTE*>(string.View().data()), string.GetLength());
        CByteArray item;
        CreateItemField(type, data, item);
        items.Append(item);
    }
    out.Swap(items);
}

void CDcmProtocolDataUnit::CreatePresentationContextField(const CByteArray& subItems, CByteArray& out, int id,
                                                          int result) const
{
    const bool isAccept = m_type == PDU_ASSOCIATE_AC;
    CByteArray item;
    item.SetSize(kContextItemHeader);
    item[0] = static_cast<BYTE>(isAccept ? PDU_ITEM_CONTEXT_AC : PDU_ITEM_CONTEXT_RQ);
    item[4] = static_cast<BYTE>(id);
    item[6] = static_cast<BYTE>(isAccept ? result : 0);
    item.Append(subItems);
    PutBig16(item.GetData() + 2, item.GetSize() - kItemHeader);
    out.Swap(item);
}

void CDcmProtocolDataUnit::CreatePresentationContextItems(CByteArray& out) const
{
    CByteArray items;
    for (const CObject* object : m_presentationContexts)
    {
        const auto& context = static_cast<const CPresentationContext&>(*object);
        CByteArray subItems;
        if (m_type != PDU_ASSOCIATE_AC)
        {
            CStringArray abstractSyntax;
            abstractSyntax.Add(context.AbstractSyntax());
            CreateItemField(PDU_ITEM_ABSTRACT_SYNTAX, abstractSyntax, subItems);
        }
        CByteArray transferSyntaxes;
        CreateItemField(PDU_ITEM_TRANSFER_SYNTAX, context.TransferSyntaxes(), transferSyntaxes);
        subItems.Append(transferSyntaxes);
        CByteArray item;
        CreatePresentationContextField(subItems, item, context.ContextID(), context.Result());
        items.Append(item);
    }
    out.Swap(items);
}

void CDcmProtocolDataUnit::CreateUserDataItems(CByteArray& out) const
{
    CByteArray subItems;
    for (const CObject* object : m_userData)
    {
        const auto& userData = static_cast<const CDcmUserData&>(*object);
        CByteArray item;
        CreateItemField(userData.Type(), userData.Data(), item);
        subItems.Append(item);
    }
    CreateItemField(PDU_ITEM_USER_INFORMATION, subItems, out);
}

void CDcmProtocolDataUnit::CreatePresentationDataItem(const CPresentationDataValue& value, CByteArray& out) const
{
    CByteArray item;
    item.SetSize(kDataValueHeader);
    item[4] = static_cast<BYTE>(value.ContextID());
    item[5] = static_cast<BYTE>(value.MessageControl());
    item.Append(value.Data());
    PutBig32(item.GetData(), item.GetSize() - kItemHeader);
    out.Swap(item);
}
