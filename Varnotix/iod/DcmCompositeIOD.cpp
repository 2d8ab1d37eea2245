#include "Varnotix/iod/DcmCompositeIOD.h"

#include "Varnotix/platform/Archive.h"

IMPLEMENT_DYNCREATE(CDcmCompositeIOD, CDcmIOD)

CDcmCompositeIOD::CDcmCompositeIOD() = default;

CDcmCompositeIOD::CDcmCompositeIOD(const CDcmCompositeIOD& other) = default;

CDcmCompositeIOD::~CDcmCompositeIOD() = default;

CDcmCompositeIOD& CDcmCompositeIOD::operator=(const CDcmCompositeIOD& other) = default;

void CDcmCompositeIOD::InitializeIod() {}

void CDcmCompositeIOD::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        UpdateIod(true);
        CDcmIOD::Serialize(archive);
    }
    else
    {
        CDcmIOD::Serialize(archive);
        UpdateIod(false);
    }
}
