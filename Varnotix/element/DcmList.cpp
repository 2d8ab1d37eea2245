#include "Varnotix/element/DcmList.h"

IMPLEMENT_DYNAMIC(CDcmListBody, CObject)
IMPLEMENT_DYNAMIC(CDcmList, CObject)

CDcmListBody::~CDcmListBody()
{
    DestroyObjects();
}

void CDcmListBody::Append(std::unique_ptr<CObject> object)
{
    list.Add(object.get());
    static_cast<void>(object.release());
}

void CDcmListBody::Fill()
{
    unfilled = false;
}

void CDcmListBody::DestroyObjects()
{
    if (list.IsEmpty())
    {
        return; // As are the most, those of sequences in modules.
    }
    CObjectList doomed;
    doomed.Swap(list);
    for (CObject* object : doomed)
    {
        delete object;
    }
}

CDcmList::~CDcmList()
{
    if (m_body != nullptr)
    {
        TakeBody(nullptr);
    }
}

void CDcmList::TakeBody(CDcmListBody* body)
{
    CDcmListBody* released = m_body;
    m_body = body;
    if (released->references.Release())
    {
        delete released;
    }
}

void CDcmList::ShareBody(const CDcmList& other)
{
    if (m_body != other.m_body)
    {
        other.m_body->references.Add();
        TakeBody(other.m_body);
    }
}
