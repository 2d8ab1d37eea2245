// What a module asks of the object that owns it. Defined here because only this folder knows information objects.

#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/modules/DcmModule.h"

void CDcmModule::AttachModule()
{
    if (m_owner != nullptr)
    {
        m_owner->AddIodModule(*this);
    }
}

void CDcmModule::DetachModule()
{
    if (m_owner != nullptr)
    {
        m_owner->RemoveIodModule(*this);
    }
}

void CDcmModule::RemoveModule()
{
    EmptyModule();
    if (m_owner != nullptr)
    {
        *m_owner -= *this;
    }
}
