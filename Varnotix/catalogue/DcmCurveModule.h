#pragma once

#include "Varnotix/catalogue/ReferencedOverLaySequence.h"
#include "Varnotix/catalogue/RepeatingGroups.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Curve Module (PS3.3 C.10.2, retired): points in one instance of group 50xx, kept as they are.
class VARNOTIX_EXPORT CDcmCurveModule : public CDcmModule
{
    // clang-format off
    DCM_REPEATING_MODULE(CDcmCurveModule, Varnotix::kDefaultCurveGroup)
    DCM_US              (CurveDimensions,         DCM_GROUP, "0005")
    DCM_US              (NumberOfPoints,          DCM_GROUP, "0010")
    DCM_TEXT            (TypeOfData,              DCM_GROUP, "0020")
    DCM_US              (DataValueRepresentation, DCM_GROUP, "0103")
    DCM_BYTES           (CurveData,               DCM_GROUP, "3000")
    DCM_TEXT            (CurveDescription,        DCM_GROUP, "0022")
    DCM_TEXT_LIST       (AxisUnits,               DCM_GROUP, "0030")
    DCM_TEXT_LIST       (AxisLabels,              DCM_GROUP, "0040")
    DCM_US_LIST         (MinimumCoordinateValue,  DCM_GROUP, "0104")
    DCM_US_LIST         (MaximumCoordinateValue,  DCM_GROUP, "0105")
    DCM_TEXT_LIST       (CurveRange,              DCM_GROUP, "0106")
    DCM_US_LIST         (CurveDataDescriptor,     DCM_GROUP, "0110")
    DCM_US_LIST         (CoordinateStartValue,    DCM_GROUP, "0112")
    DCM_US_LIST         (CoordinateStepValue,     DCM_GROUP, "0114")
    DCM_TEXT            (CurveLabel,              DCM_GROUP, "2500")
    DCM_REPEATING_MEMBER(ReferencedOverlay, CReferencedOverLaySequence, "2600")
    // clang-format on
};
