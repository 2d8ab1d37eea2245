#include "Varnotix/platform/Object.h"

#include "Varnotix/platform/DumpContext.h"

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), nullptr, nullptr, nullptr};
static const CRuntimeClassEntry entryCObject(CObject::classCObject, VARNOTIX_CLASS_MODULE);

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject == nullptr ? nullptr : m_pfnCreateObject();
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    if (base == nullptr)
    {
        return false;
    }
    const CRuntimeClass* record = this;
    while (record != nullptr && record != base)
    {
        record = record->m_pBaseClass;
    }
    return record != nullptr;
}

CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& dc) const
{
    dc << GetRuntimeClass()->m_lpszClassName;
}

bool CObject::IsKindOf(const CRuntimeClass* base) const
{
    return GetRuntimeClass()->IsDerivedFrom(base);
}
