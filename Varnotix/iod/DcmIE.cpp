#include "Varnotix/iod/DcmIE.h"

#include "Varnotix/iod/DcmCompositeIE.h"

IMPLEMENT_DYNCREATE(CDcmIE, CObject)

CDcmIE::CDcmIE(CDcmCompositeIE* owner) : m_owner(owner) {}

CDcmIE::CDcmIE(const CDcmIE& other) = default;

CDcmIE& CDcmIE::operator=(const CDcmIE& other) = default;

void CDcmIE::AttachIE()
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        m_modules[i].AttachModule();
    }
}

void CDcmIE::DetachIE()
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        m_modules[i].DetachModule();
    }
}

void CDcmIE::EmptyIE()
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        m_modules[i].EmptyModule();
    }
}

void CDcmIE::RemoveIE()
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        m_modules[i].RemoveModule();
    }
}

CDcmModule* CDcmIE::GetAt(int index) const
{
    return index >= 0 && index < m_modules.GetSize() ? &m_modules[index] : nullptr;
}

void CDcmIE::AddIeModule(CDcmModule& module)
{
    module.SetOwner(m_owner);
    m_modules.Add(module);
}

CDcmModule* CDcmIE::FindIeModule(const CRuntimeClass* moduleClass) const
{
    return m_modules.Find(moduleClass);
}

CDcmModule* CDcmIE::FindIeModule(const CDcmModule& module) const
{
    return m_modules.Find(module);
}

void CDcmIE::RemoveIeModule(const CRuntimeClass* moduleClass)
{
    m_modules.Remove(moduleClass);
}

void CDcmIE::RemoveIeModule(const CDcmModule& module)
{
    m_modules.Remove(module);
}

void CDcmIE::RemoveIeModules()
{
    m_modules.RemoveAll();
}
