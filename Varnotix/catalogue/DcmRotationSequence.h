#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Rotation Information Sequence (PS3.3 C.8.4.12): one rotation.
class VARNOTIX_EXPORT CDcmRotationSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmRotationSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT     (StartAngle,               "0054", "0200")
    DCM_TEXT     (AngularStep,              "0018", "1144")
    DCM_TEXT     (RotationDirection,        "0018", "1140")
    DCM_TEXT     (ScanArc,                  "0018", "1143")
    DCM_TEXT     (ActualFrameDuration,      "0018", "1242")
    DCM_TEXT_LIST(RadialPosition,           "0018", "1142")
    DCM_TEXT     (DistanceSourceToDetector, "0018", "1110")
    DCM_US       (NumberFramesRotation,     "0054", "0053")
    DCM_TEXT     (TableTraverse,            "0018", "1131")
    DCM_TEXT     (TableHeight,              "0018", "1130")
    DCM_TEXT     (TypeDetectorMotion,       "0054", "0202")
    // clang-format on
};
