// What a module asks of its owner. This is the one place where the module layer calls up into the IOD layer.

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
