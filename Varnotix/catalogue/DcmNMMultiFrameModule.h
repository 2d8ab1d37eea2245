#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Multi-frame Module (PS3.3 C.8.4.8): what each frame of a nuclear medicine image belongs to.
class VARNOTIX_EXPORT CDcmNMMultiFrameModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMMultiFrameModule)
    DCM_INITIALIZE_MODULE()
    DCM_US_LIST(FrameIncrementPointer, "0028", "0009")
    DCM_US_LIST(EnergyWindowVector,    "0054", "0010")
    DCM_US     (NumberOfEnergyWindows, "0054", "0011")
    DCM_US_LIST(DetectorVector,        "0054", "0020")
    DCM_US     (NumberOfDetectors,     "0054", "0021")
    DCM_US_LIST(PhaseVector,           "0054", "0030")
    DCM_US     (NumberOfPhases,        "0054", "0031")
    DCM_US_LIST(RotationVector,        "0054", "0050")
    DCM_US     (NumberOfRotations,     "0054", "0051")
    DCM_US_LIST(RRIntervalVector,      "0054", "0060")
    DCM_US     (NumberRRIntervals,     "0054", "0061")
    DCM_US_LIST(TimeSlotVector,        "0054", "0070")
    DCM_US     (NumberTimeSlots,       "0054", "0071")
    DCM_US_LIST(SliceVector,           "0054", "0080")
    DCM_US     (NumberOfSlices,        "0054", "0081")
    DCM_US_LIST(AngularViewVector,     "0054", "0090")
    DCM_US_LIST(TimeSliceVector,       "0054", "0100")
    // clang-format on
};
