#pragma once

#include "Varnotix/catalogue/DcmCodeAndModifer.h"
#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Image Module (PS3.3 C.8.4.9): a nuclear medicine image.
class VARNOTIX_EXPORT CDcmNMImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMImageModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT_LIST(ImageType,                       "0008", "0008")
    DCM_TEXT     (ImageID,                         "0054", "0400")
    DCM_TEXT     (LossyImageCompression,           "0028", "2110")
    DCM_TEXT     (CountsAccumulated,               "0018", "0070")
    DCM_TEXT     (AcquisitionTerminationCondition, "0018", "0071")
    DCM_TEXT     (TableHeight,                     "0018", "1130")
    DCM_TEXT     (TableTraverse,                   "0018", "1131")
    DCM_TEXT     (ActualFrameDuration,             "0018", "1242")
    DCM_TEXT     (CountRate,                       "0018", "1243")
    DCM_TEXT     (ProcessingFunction,              "0018", "5020")
    DCM_TEXT_LIST(CorrectedImage,                  "0028", "0051")
    DCM_TEXT_LIST(WholeBodyTechnique,              "0018", "1301")
    DCM_TEXT     (ScanVelocity,                    "0018", "1300")
    DCM_TEXT     (ScanLength,                      "0018", "1302")
    DCM_TEXT     (TriggerSourceOrType,             "0018", "1061")
    DCM_SEQUENCE (ReferencedOverlay, CDcmSopSequence,           "0008", "1130")
    DCM_SEQUENCE (ReferencedCurve, CDcmSopSequence,             "0008", "1145")
    DCM_SEQUENCE (AnatomicRegion, CDcmCodeAndModifer,           "0008", "2218", "0008", "2220")
    DCM_SEQUENCE (PrimaryAnatomicStructure, CDcmCodeAndModifer, "0008", "2228", "0008", "2230")
    // clang-format on
};
