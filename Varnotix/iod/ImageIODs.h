/// The ready-made image objects. Each is a short list of the entities that it owns beyond its base.
#pragma once

#include "Varnotix/iod/DcmCompositeIEIOD.h"

/// CT Image (PS3.3 A.3).
class VARNOTIX_EXPORT CCTImageIOD
    : public TCompositeIod<CDcmCompositeIEIOD, CDcmCompositeIE::composite_frameref_ie, CDcmCompositeIE::image_ie_ct>
{
    DCM_COMPOSITE_IOD(CCTImageIOD)
};

/// MR Image (PS3.3 A.4).
class VARNOTIX_EXPORT CMRImageIOD
    : public TCompositeIod<CDcmCompositeIEIOD, CDcmCompositeIE::composite_frameref_ie, CDcmCompositeIE::image_ie_mr>
{
    DCM_COMPOSITE_IOD(CMRImageIOD)
};

/// Computed Radiography Image (PS3.3 A.2).
class VARNOTIX_EXPORT CCRImageIOD
    : public TCompositeIod<CDcmCompositeIE, CDcmCompositeIE::composite_patient_ie,
                           CDcmCompositeIE::composite_equipment_ie, CDcmCompositeIE::composite_study_ie,
                           CDcmCompositeIE::series_ie_cr, CDcmCompositeIE::image_ie_cr>
{
    DCM_COMPOSITE_IOD(CCRImageIOD)
};

/// Nuclear Medicine Image (PS3.3 A.5).
class VARNOTIX_EXPORT CNMImageIOD
    : public TCompositeIod<CDcmCompositeIE, CDcmCompositeIE::composite_patient_ie, CDcmCompositeIE::composite_study_ie,
                           CDcmCompositeIE::series_ie_nm, CDcmCompositeIE::composite_frameref_ie,
                           CDcmCompositeIE::composite_equipment_ie, CDcmCompositeIE::image_ie_nm>
{
    DCM_COMPOSITE_IOD(CNMImageIOD)
};

/// What the ultrasound objects have in common.
class VARNOTIX_EXPORT CUltraSoundIOD
    : public TCompositeIod<CDcmCompositeIE, CDcmCompositeIE::composite_patient_ie, CDcmCompositeIE::composite_study_ie,
                           CDcmCompositeIE::composite_series_ie, CDcmCompositeIE::composite_equipment_ie,
                           CDcmCompositeIE::frame_ie_us, CDcmCompositeIE::curve_ie_us>
{
    DCM_COMPOSITE_IOD(CUltraSoundIOD)
};

/// Ultrasound Image (PS3.3 A.6).
class VARNOTIX_EXPORT CUSImageIOD : public TCompositeIod<CUltraSoundIOD, CDcmCompositeIE::image_ie_us>
{
    DCM_COMPOSITE_IOD(CUSImageIOD)
};

/// Ultrasound Multi-frame Image (PS3.3 A.7).
class VARNOTIX_EXPORT CUSMultiFrameImageIOD : public TCompositeIod<CUltraSoundIOD, CDcmCompositeIE::image_ie_us_multi>
{
    DCM_COMPOSITE_IOD(CUSMultiFrameImageIOD)
};

/// What the secondary capture objects have in common.
class VARNOTIX_EXPORT CSecondaryCaptureIOD
    : public TCompositeIod<CDcmCompositeIE, CDcmCompositeIE::composite_patient_ie, CDcmCompositeIE::composite_study_ie,
                           CDcmCompositeIE::composite_series_ie, CDcmCompositeIE::equipment_ie_sc>
{
    DCM_COMPOSITE_IOD(CSecondaryCaptureIOD)
};

/// Secondary Capture Image (PS3.3 A.8.1).
class VARNOTIX_EXPORT CSCImageIOD : public TCompositeIod<CSecondaryCaptureIOD, CDcmCompositeIE::image_ie_sc>
{
    DCM_COMPOSITE_IOD(CSCImageIOD)
};

/// Multi-frame Secondary Capture Image (PS3.3 A.8.2 to A.8.5).
class VARNOTIX_EXPORT CSCMultiFrameImageIOD
    : public TCompositeIod<CSecondaryCaptureIOD, CDcmCompositeIE::image_ie_sc_multi>
{
    DCM_COMPOSITE_IOD(CSCMultiFrameImageIOD)
};
