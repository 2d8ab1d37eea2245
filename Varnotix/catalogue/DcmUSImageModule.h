#pragma once

#include "Varnotix/catalogue/DcmCodeAndModifer.h"
#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// US Image Module (PS3.3 C.8.5.6): an ultrasound image.
class VARNOTIX_EXPORT CDcmUSImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmUSImageModule)
    DCM_US       (SamplesPerPixel,               "0028", "0002")
    DCM_TEXT     (PhotometricInterpretation,     "0028", "0004")
    DCM_US       (BitsAllocated,                 "0028", "0100")
    DCM_US       (BitsStored,                    "0028", "0101")
    DCM_US       (HighBit,                       "0028", "0102")
    DCM_US       (PlanarConfiguration,           "0028", "0006")
    DCM_US       (PixelRepresentation,           "0028", "0103")
    DCM_US_LIST  (FrameIncrementPointer,         "0028", "0009")
    DCM_TEXT     (ImageType,                     "0008", "0008")
    DCM_TEXT     (LossyImageCompression,         "0028", "2110")
    DCM_TEXT     (NumberOfStages,                "0008", "2124")
    DCM_TEXT     (NumberOfViewsInStage,          "0008", "212A")
    DCM_US       (UltraSoundColorDataPresent,    "0028", "0014")
    DCM_TEXT     (StageName,                     "0008", "2120")
    DCM_TEXT     (StageNumber,                   "0008", "2122")
    DCM_TEXT     (ViewName,                      "0008", "2127")
    DCM_TEXT     (ViewNumber,                    "0008", "2128")
    DCM_TEXT     (NumberOfEventTimers,           "0008", "2129")
    DCM_TEXT_LIST(EventElapsedTimes,             "0008", "2130")
    DCM_TEXT_LIST(EventTimerNames,               "0008", "2132")
    DCM_TEXT     (AcquisitionDateTime,           "0008", "002A")
    DCM_TEXT     (TriggerTime,                   "0018", "1060")
    DCM_TEXT     (NominalInterval,               "0018", "1062")
    DCM_TEXT     (BeatRejectionFlag,             "0018", "1080")
    DCM_TEXT     (LowRRValue,                    "0018", "1081")
    DCM_TEXT     (HighRRValue,                   "0018", "1082")
    DCM_TEXT     (HeartRate,                     "0018", "1088")
    DCM_TEXT_LIST(OutputPower,                   "0018", "5000")
    DCM_TEXT_LIST(TransducerData,                "0018", "5010")
    DCM_TEXT     (TransducerType,                "0018", "6031")
    DCM_TEXT     (FocusDepth,                    "0018", "5012")
    DCM_TEXT     (PreprocessingFunction,         "0018", "5020")
    DCM_TEXT     (MechanicalIndex,               "0018", "5022")
    DCM_TEXT     (BoneThermalIndex,              "0018", "5024")
    DCM_TEXT     (CranialThermalIndex,           "0018", "5026")
    DCM_TEXT     (SoftTissueThermalIndex,        "0018", "5027")
    DCM_TEXT     (SoftTissueFocusThermalIndex,   "0018", "5028")
    DCM_TEXT     (SoftTissueSurfaceThermalIndex, "0018", "5029")
    DCM_TEXT     (DepthOfScanField,              "0018", "5050")
    DCM_TEXT_LIST(ImageTransformationMatrix,     "0018", "5210")
    DCM_TEXT_LIST(ImageTranslationVector,        "0018", "5212")
    DCM_TEXT     (IVUSAcquisition,               "0018", "3100")
    DCM_TEXT     (IVUSPullBackRate,              "0018", "3101")
    DCM_TEXT     (IVUSGatedRate,                 "0018", "3102")
    DCM_TEXT     (IVUSPullBackStartFrameNumber,  "0018", "3103")
    DCM_TEXT     (IVUSPullBackStopFrameNumber,   "0018", "3104")
    DCM_TEXT_LIST(LesionNumber,                  "0018", "3105")
    DCM_TEXT     (OverlaySubtype,                "6000", "0045")
    DCM_SEQUENCE (ReferencedOverlay, CDcmSopSequence,           "0008", "1130")
    DCM_SEQUENCE (ReferencedCurve, CDcmSopSequence,             "0008", "1145")
    DCM_SEQUENCE (StageCode, CDcmCodeSequenceMacroEx,           "0040", "000A")
    DCM_SEQUENCE (AnatomicRegion, CDcmCodeAndModifer,           "0008", "2218", "0008", "2220")
    DCM_SEQUENCE (PrimaryAnatomicStructure, CDcmCodeAndModifer, "0008", "2228", "0008", "2230")
    DCM_SEQUENCE (TransducerPosition, CDcmCodeAndModifer,       "0008", "2240", "0008", "2242")
    DCM_SEQUENCE (TransducerOrientation, CDcmCodeAndModifer,    "0008", "2244", "0008", "2246")
    // clang-format on
};
