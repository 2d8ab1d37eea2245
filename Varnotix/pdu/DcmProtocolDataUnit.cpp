#include "Varnotix/pdu/DcmProtocolDataUnit.h"

#include "Varnotix/platform/Exceptions.h"

#include <memory>
#include <new>

IMPLEMENT_DYNCREATE(CDcmProtocolDataUnit, CObject)

namespace
{

/// Calls a function that adds an item, and drops the item when there is no memory for it.
template <class ADD>
void DropWithoutMemory(const ADD& add)
{
    try
    {
        add();
    }
    catch (const CMemoryException&)
    {
    }
    catch (const std::bad_alloc&)
    {
    }
}

template <class MAKE>
void AddItem(CObArray& items, const MAKE& make)
{
    DropWithoutMemory(
        [&]
        {
            std::unique_ptr<CObject> item(make());
            items.Add(item.get());
            static_cast<void>(item.release()); // The list owns it now.
        });
}

template <class ITEM>
void AddCopies(const CObArray& from, CObArray& to)
{
    for (const CObject* item : from)
    {
        AddItem(to, [item] { return new ITEM(static_cast<const ITEM&>(*item)); });
    }
}

void DestroyItems(CObArray& items)
{
    for (const CObject* item : items)
    {
        delete item;
    }
    items.RemoveAll();
}

template <class MATCHES>
CPresentationContext* FindContext(const CObArray& contexts, const MATCHES& matches)
{
    for (CObject* item : contexts)
    {
        auto* context = static_cast<CPresentationContext*>(item);
        if (matches(*context))
        {
            return context;
        }
    }
    return nullptr;
}

} // namespace

CDcmProtocolDataUnit::CDcmProtocolDataUnit() = default;

CDcmProtocolDataUnit::CDcmProtocolDataUnit(const CByteArray& bytes) : m_pduField(bytes) {}

CDcmProtocolDataUnit::CDcmProtocolDataUnit(const CDcmProtocolDataUnit& other) : CObject(other)
{
    CopyFrom(other);
}

CDcmProtocolDataUnit::~CDcmProtocolDataUnit()
{
    DestroyPresentationContextItems();
    DestroyUserDataItems();
    DestroyPresentationDataItems();
}

CDcmProtocolDataUnit& CDcmProtocolDataUnit::operator=(const CDcmProtocolDataUnit& other)
{
    if (this != &other)
    {
        DestroyPresentationContextItems();
        DestroyUserDataItems();
        DestroyPresentationDataItems();
        CopyFrom(other);
    }
    return *this;
}

void CDcmProtocolDataUnit::CopyFrom(const CDcmProtocolDataUnit& other)
{
    m_pduField = other.m_pduField;
    m_type = other.m_type;
    m_version = other.m_version;
    m_result = other.m_result;
    m_source = other.m_source;
    m_reason = other.m_reason;
    m_length = other.m_length;
    m_calledAE = other.m_calledAE;
    m_callingAE = other.m_callingAE;
    m_applicationContexts = other.m_applicationContexts;
    AddCopies<CPresentationContext>(other.m_presentationContexts, m_presentationContexts);
    AddCopies<CDcmUserData>(other.m_userData, m_userData);
    AddCopies<CPresentationDataValue>(other.m_dataValues, m_dataValues);
}

void CDcmProtocolDataUnit::AddApplicationContextItem(const CString& name)
{
    DropWithoutMemory([&] { m_applicationContexts.Add(name); });
}

void CDcmProtocolDataUnit::AddPresentationContext(const CString& abstractSyntax, const CStringArray& transferSyntaxes,
                                                  int id, int result)
{
    AddItem(m_presentationContexts,
            [&] { return new CPresentationContext(abstractSyntax, transferSyntaxes, id, result); });
}

void CDcmProtocolDataUnit::AddPresentationContext(const CPresentationContext* context, int id, int result)
{
    if (context != nullptr)
    {
        AddPresentationContext(context->AbstractSyntax(), context->TransferSyntaxes(), id, result);
    }
}

void CDcmProtocolDataUnit::AddPresentationDataValue(const CByteArray& data, int id, int messageControl)
{
    AddItem(m_dataValues, [&] { return new CPresentationDataValue(data, id, messageControl); });
}

void CDcmProtocolDataUnit::AddUserDataItem(int type, const CByteArray& data)
{
    AddItem(m_userData, [&] { return new CDcmUserData(type, data); });
}

void CDcmProtocolDataUnit::AddUserDataItem(int type, const CString& text)
{
    DropWithoutMemory(
        [&]
        {
            CByteArray data;
            data.Assign(reinterpret_cast<const BYTE*>(text.View().data()), text.GetLength());
            AddUserDataItem(type, data);
        });
}

void CDcmProtocolDataUnit::AddUserDataItem(int type, DWORD value)
{
    DropWithoutMemory(
        [&]
        {
            CByteArray data;
            for (unsigned shift = 0; shift < 32; shift += 8)
            {
                data.Add(static_cast<BYTE>(value >> shift));
            }
            AddUserDataItem(type, data);
        });
}

CPresentationContext* CDcmProtocolDataUnit::FindPresentationContext(int id) const
{
    return FindContext(m_presentationContexts,
                       [id](const CPresentationContext& context) { return context.ContextID() == id; });
}

CPresentationContext* CDcmProtocolDataUnit::FindPresentationContext(const CString& abstractSyntax) const
{
    return FindContext(m_presentationContexts, [&abstractSyntax](const CPresentationContext& context)
                       { return context.AbstractSyntax().CompareNoCase(abstractSyntax) == 0; });
}

int CDcmProtocolDataUnit::FindPresentationContextID(const CString& abstractSyntax) const
{
    const CPresentationContext* context = FindPresentationContext(abstractSyntax);
    return context != nullptr ? context->ContextID() : -1;
}

int CDcmProtocolDataUnit::GetContextIDResult(int id) const
{
    const CPresentationContext* context = FindPresentationContext(id);
    return context != nullptr ? context->Result() : -1;
}

void CDcmProtocolDataUnit::DestroyPresentationContextItems()
{
    DestroyItems(m_presentationContexts);
}

void CDcmProtocolDataUnit::DestroyUserDataItems()
{
    DestroyItems(m_userData);
}

void CDcmProtocolDataUnit::DestroyPresentationDataItems()
{
    DestroyItems(m_dataValues);
}
