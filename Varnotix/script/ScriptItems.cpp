#include "Varnotix/script/ScriptItems.h"

CScriptItems::CScriptItems()
{
    m_modules.push_back(std::make_unique<CDcmAttributeModule>());
}

bool CScriptItems::Begin(int item)
{
    const bool isFirst = !IsMarkedOrFilled();
    if (item != static_cast<int>(m_modules.size()) + (isFirst ? 0 : 1))
    {
        return false;
    }
    if (!isFirst)
    {
        m_modules.push_back(std::make_unique<CDcmAttributeModule>());
    }
    m_isMarked = true;
    return true;
}

void CScriptItems::MoveInto(CDcmElementSet& set, bool keepsItems)
{
    if (!keepsItems)
    {
        set.CopyByReference(m_modules.front()->GetDcmElementSet());
        return;
    }
    set.SetKeepsItems(true);
    if (!IsMarkedOrFilled())
    {
        return;
    }
    int count = 0;
    for (const std::unique_ptr<CDcmAttributeModule>& module : m_modules)
    {
        count += module->GetCount();
    }
    set.Reserve(count); // With the room made first, nothing can fail while elements are in both sets.
    for (const std::unique_ptr<CDcmAttributeModule>& module : m_modules)
    {
        set.BeginItem();
        CDcmElementSet& elements = module->GetDcmElementSet();
        for (int i = 0; i < elements.GetCount(); ++i)
        {
            set.Add(elements.GetAt(i));
        }
        elements.ForgetAll();
    }
}
