#include "Varnotix/iod/ImageIODs.h"

IMPLEMENT_DCM_COMPOSITE_IOD(CDcmCompositeIEIOD, CDcmCompositeIE)

bool CDcmCompositeIEIOD::operator==(const CDcmCompositeIEIOD& other) const
{
    return EqualEntities(other) && CDcmCompositeIE::operator==(other);
}

IMPLEMENT_DCM_COMPOSITE_IOD(CCTImageIOD, CDcmCompositeIEIOD)
IMPLEMENT_DCM_COMPOSITE_IOD(CMRImageIOD, CDcmCompositeIEIOD)
IMPLEMENT_DCM_COMPOSITE_IOD(CCRImageIOD, CDcmCompositeIE)
IMPLEMENT_DCM_COMPOSITE_IOD(CNMImageIOD, CDcmCompositeIE)
IMPLEMENT_DCM_COMPOSITE_IOD(CUltraSoundIOD, CDcmCompositeIE)
IMPLEMENT_DCM_COMPOSITE_IOD(CUSImageIOD, CUltraSoundIOD)
IMPLEMENT_DCM_COMPOSITE_IOD(CUSMultiFrameImageIOD, CUltraSoundIOD)
IMPLEMENT_DCM_COMPOSITE_IOD(CSecondaryCaptureIOD, CDcmCompositeIE)
IMPLEMENT_DCM_COMPOSITE_IOD(CSCImageIOD, CSecondaryCaptureIOD)
IMPLEMENT_DCM_COMPOSITE_IOD(CSCMultiFrameImageIOD, CSecondaryCaptureIOD)
