#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Curve Identification Module (PS3.3 C.10.1, retired): number and time of a curve.
class VARNOTIX_EXPORT CDcmCurveIdentificationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmCurveIdentificationModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT(CurveNumber, "0020", "0024")
    DCM_TEXT(CurveDate,   "0008", "0025")
    DCM_TEXT(CurveTime,   "0008", "0035")
    // clang-format on
};
