#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// CR Series Module (PS3.3 C.8.1.1): how a series of computed radiography images was taken.
class VARNOTIX_EXPORT CDcmCRSeriesModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmCRSeriesModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT     (BodyPartExamined,   "0018", "0015")
    DCM_TEXT     (ViewPosition,       "0018", "5101")
    DCM_TEXT     (FilterType,         "0018", "1160")
    DCM_TEXT     (CollimatorGridName, "0018", "1180")
    DCM_TEXT_LIST(FocalSpot,          "0018", "1190")
    DCM_TEXT     (PlateType,          "0018", "1260")
    DCM_TEXT     (PhosphorType,       "0018", "1261")
    // clang-format on
};
