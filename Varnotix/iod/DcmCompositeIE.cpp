#include "Varnotix/iod/DcmCompositeIE.h"

#include "Varnotix/iod/DcmIODPrivate.h"

IMPLEMENT_DYNCREATE(CDcmCompositeIE, CDcmCompositeIOD)

CDcmCompositeIE::CDcmCompositeIE()
{
    IodPrivate().isTyped = true;
    m_metaFileInformation.SetOwner(this);
    CDcmCompositeIE::InitializeIod();
}

CDcmCompositeIE::CDcmCompositeIE(const CDcmCompositeIE& other) : CDcmCompositeIE()
{
    *this = other;
}

CDcmCompositeIE::CDcmCompositeIE(const CDcmCompositeIOD& other) : CDcmCompositeIE()
{
    TakeStore(other);
}

CDcmCompositeIE::~CDcmCompositeIE() = default;

CDcmCompositeIE& CDcmCompositeIE::operator=(const CDcmCompositeIE& other)
{
    if (this != &other)
    {
        EmptyIodModules(); // Those of a derived object are not assigned here.
        AssignEntities(other);
        TakeStore(other);
    }
    return *this;
}

CDcmCompositeIE& CDcmCompositeIE::operator=(const CDcmCompositeIOD& other)
{
    if (this != &other)
    {
        InitializeIod();
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
