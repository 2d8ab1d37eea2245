#include "Varnotix/iod/DcmCompositeIE.h"

IMPLEMENT_DYNCREATE(CDcmCompositeIE, CDcmCompositeIOD)

CDcmCompositeIE::CDcmCompositeIE()
{
    m_metaFileInformation.SetOwner(this);
    CDcmCompositeIE::InitializeIod();
}

CDcmCompositeIE::CDcmCompositeIE(const CDcmCompositeIE& other) : CDcmCompositeIE()
{
    *this = other;
}

CDcmCompositeIE::CDcmCompositeIE(const CDcmCompositeIOD& other) : CDcmCompositeIE()
{
    CDcmCompositeIOD::operator=(other);
}

CDcmCompositeIE::~CDcmCompositeIE() = default;

CDcmCompositeIE& CDcmCompositeIE::operator=(const CDcmCompositeIE& other)
{
    if (this != &other)
    {
        AssignEntities(other);
        CDcmIOD::operator=(other);
    }
    return *this;
}

CDcmCompositeIE& CDcmCompositeIE::operator=(const CDcmCompositeIOD& other)
{
    if (this != &other)
    {
        InitializeIod();
        EmptyIodModules();
        CDcmCompositeIOD::operator=(other);
    }
    return *this;
}

bool CDcmCompositeIE::operator==(const CDcmCompositeIE& other) const
{
    return m_metaFileInformation == other.m_metaFileInformation && CDcmIOD::operator==(other);
}

bool CDcmCompositeIE::operator!=(const CDcmCompositeIE& other) const
{
    return !CDcmIOD::operator==(other);
}

void CDcmCompositeIE::InitializeIod()
{
    RemoveIodModules();
    AddIodModule(m_metaFileInformation);
}
