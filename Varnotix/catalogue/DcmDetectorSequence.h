#pragma once

#include "Varnotix/catalogue/DcmCodeAndModifer.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Detector Information Sequence (PS3.3 C.8.4.11): one detector.
class VARNOTIX_EXPORT CDcmDetectorSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmDetectorSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT     (CollimatorGridName,       "0018", "1180")
    DCM_TEXT     (CollimatorType,           "0018", "1181")
    DCM_TEXT     (FieldOfViewShape,         "0018", "1147")
    DCM_TEXT_LIST(FieldOfViewDimension,     "0018", "1149")
    DCM_TEXT_LIST(FocalDistance,            "0018", "1182")
    DCM_TEXT_LIST(XFocusCenter,             "0018", "1183")
    DCM_TEXT_LIST(YFocusCenter,             "0018", "1184")
    DCM_TEXT_LIST(ZoomCenter,               "0028", "0032")
    DCM_TEXT_LIST(ZoomFactor,               "0028", "0031")
    DCM_TEXT     (CenterOfRotationOffset,   "0018", "1145")
    DCM_TEXT     (GantryDetectorTilt,       "0018", "1120")
    DCM_TEXT     (DistanceSourceToDetector, "0018", "1110")
    DCM_TEXT     (StartAngle,               "0054", "0200")
    DCM_TEXT_LIST(RadialPosition,           "0018", "1142")
    DCM_TEXT_LIST(ImageOrientationPatient,  "0020", "0037")
    DCM_TEXT_LIST(ImagePositionPatient,     "0020", "0032")
    DCM_SEQUENCE (ViewCode, CDcmCodeAndModifer, "0054", "0220", "0054", "0222")
    // clang-format on
};
