#include "Varnotix/modules/DcmModuleList.h"

void CDcmModuleList::Add(CDcmModule& module)
{
    const CRuntimeClass* moduleClass = module.GetRuntimeClass();
    bool displaced = false;
    for (int i = 0; i < m_modules.GetSize();)
    {
        const bool isSame = m_modules[i] == &module;
        if (isSame || (!displaced && m_modules[i]->IsKindOf(moduleClass)))
        {
            displaced = displaced || !isSame;
            m_modules.RemoveAt(i);
        }
        else
        {
            ++i;
        }
    }
    m_modules.Add(&module);
}

CDcmModule* CDcmModuleList::Find(const CRuntimeClass* moduleClass) const
{
    for (CObject* module : m_modules)
    {
        if (moduleClass != nullptr && module->IsKindOf(moduleClass))
        {
            return static_cast<CDcmModule*>(module);
        }
    }
    return nullptr;
}

CDcmModule* CDcmModuleList::Find(const CDcmModule& module) const
{
    for (CObject* registered : m_modules)
    {
        if (registered == &module)
        {
            return static_cast<CDcmModule*>(registered);
        }
    }
    return nullptr;
}

void CDcmModuleList::Remove(const CRuntimeClass* moduleClass)
{
    if (const CDcmModule* registered = Find(moduleClass))
    {
        Remove(*registered);
    }
}

void CDcmModuleList::Remove(const CDcmModule& module)
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        if (m_modules[i] == &module)
        {
            m_modules.RemoveAt(i);
            return;
        }
    }
}
