#include "Varnotix/modules/DcmModule.h"

IMPLEMENT_DYNAMIC(CModulePrivate, CObject)
IMPLEMENT_DYNCREATE(CDcmModule, CDcmAttributeSet)

CDcmModule::CDcmModule() = default;

CDcmModule::CDcmModule(const CDcmModule& other) : CDcmAttributeSet(other) {}

CDcmModule::~CDcmModule() = default;

CDcmModule& CDcmModule::operator=(const CDcmModule& other)
{
    if (this != &other)
    {
        CDcmAttributeSet::operator=(other);
    }
    return *this;
}

CDcmModule& CDcmModule::operator<<(const CDcmModule& other)
{
    CDcmAttributeSet::operator<<(other);
    return *this;
}

CDcmModule& CDcmModule::operator>>(CDcmModule& other)
{
    CDcmAttributeSet::operator>>(other);
    return *this;
}

void CDcmModule::EmptyModule()
{
    EmptyAll();
}

void CDcmModule::InitializeModule() {}

void CDcmModule::CopyModule(CDcmModule& other)
{
    *this << other;
}

void CDcmModule::DestroyModule()
{
    DestroySet();
}
