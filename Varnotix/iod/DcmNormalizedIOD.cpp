#include "Varnotix/iod/DcmNormalizedIOD.h"

#include "Varnotix/iod/DcmIODPrivate.h"
#include "Varnotix/platform/Archive.h"

IMPLEMENT_DYNCREATE(CDcmNormalizedIOD, CDcmIOD)
IMPLEMENT_DYNCREATE(CPatientInformationIOD, CDcmNormalizedIOD)

CDcmNormalizedIOD::CDcmNormalizedIOD()
{
    IodPrivate().isTyped = true;
    CDcmNormalizedIOD::InitializeIod();
}

CDcmNormalizedIOD::CDcmNormalizedIOD(const CDcmNormalizedIOD& other) : CDcmNormalizedIOD()
{
    *this = other;
}

CDcmNormalizedIOD::~CDcmNormalizedIOD() = default;

CDcmNormalizedIOD& CDcmNormalizedIOD::operator=(const CDcmNormalizedIOD& other)
{
    CDcmIOD::operator=(other);
    return *this;
}

void CDcmNormalizedIOD::InitializeIod()
{
    RemoveIodModules();
    AddIodModule(m_sopCommon);
    AddIodModule(m_metaFileInformation);
}

void CDcmNormalizedIOD::Serialize(CArchive& archive)
{
    if (archive.IsLoading())
    {
        CDcmIOD::Serialize(archive);
        for (int i = 0; i < ModuleCount(); ++i)
        {
            *this >> ModuleAt(i);
        }
        return;
    }
    for (int i = 0; i < ModuleCount(); ++i)
    {
        *this << ModuleAt(i);
    }
    CDcmIOD::Serialize(archive);
}

CPatientInformationIOD::CPatientInformationIOD()
{
    CPatientInformationIOD::InitializeIod();
}

CPatientInformationIOD::CPatientInformationIOD(const CPatientInformationIOD& other) : CPatientInformationIOD()
{
    *this = other;
}

CPatientInformationIOD::CPatientInformationIOD(const CDcmCompositeIOD& other) : CPatientInformationIOD()
{
    TakeStore(other);
}

CPatientInformationIOD::~CPatientInformationIOD() = default;

CPatientInformationIOD& CPatientInformationIOD::operator=(const CPatientInformationIOD& other)
{
    if (this != &other)
    {
        EmptyIodModules();
        AssignModules(other);
        m_relationship = other.m_relationship;
        m_identification = other.m_identification;
        m_demographic = other.m_demographic;
        m_medical = other.m_medical;
        TakeStore(other);
    }
    return *this;
}

CPatientInformationIOD& CPatientInformationIOD::operator=(const CDcmCompositeIOD& other)
{
    InitializeIod();
    CDcmIOD::operator=(other);
    return *this;
}

void CPatientInformationIOD::InitializeIod()
{
    CDcmNormalizedIOD::InitializeIod();
    AddIodModule(m_relationship);
    AddIodModule(m_identification);
    AddIodModule(m_demographic);
    AddIodModule(m_medical);
}
