#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmPersonIdentificationMacro.h"
#include "Varnotix/catalogue/DcmRequestAttributeSequence.h"
#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// General Series Module (PS3.3 C.7.3.1): what all objects of a series have in common.
class VARNOTIX_EXPORT CDcmGeneralSeriesModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmGeneralSeriesModule)
    DCM_TEXT     (Modality,                           "0008", "0060")
    DCM_TEXT     (SeriesInstanceUID,                  "0020", "000E")
    DCM_TEXT     (SeriesNumber,                       "0020", "0011")
    DCM_TEXT     (Laterality,                         "0020", "0060")
    DCM_TEXT     (SeriesDate,                         "0008", "0021")
    DCM_TEXT     (SeriesTime,                         "0008", "0031")
    DCM_TEXT_LIST(PerformingPhysicianName,            "0008", "1050")
    DCM_TEXT     (ProtocolName,                       "0018", "1030")
    DCM_TEXT     (SeriesDescription,                  "0008", "103E")
    DCM_TEXT_LIST(OperatorName,                       "0008", "1070")
    DCM_TEXT     (BodyPartExamined,                   "0018", "0015")
    DCM_TEXT     (PatientPosition,                    "0018", "5100")
    DCM_US       (SmallestPixelValue,                 "0028", "0108")
    DCM_US       (LargestPixelValue,                  "0028", "0109")
    DCM_TEXT     (PerformedProcedureStepID,           "0040", "0253")
    DCM_TEXT     (PerformedProcedureStepStartDate,    "0040", "0244")
    DCM_TEXT     (PerformedProcedureStepStartTime,    "0040", "0245")
    DCM_TEXT     (PerformedProcedureStepDescription,  "0040", "0254")
    DCM_TEXT     (CommentOnThePerformedProcedureStep, "0040", "0280")
    DCM_SEQUENCE (PerformingPhysician, CDcmPersonIdentificationMacro, "0008", "1052")
    DCM_SEQUENCE (Operator, CDcmPersonIdentificationMacro,            "0008", "1072")
    DCM_SEQUENCE (ReferencedPerformedProcedureStep, CDcmSopSequence,  "0008", "1111")
    DCM_SEQUENCE (RequestAttributes, CDcmRequestAttributeSequence,    "0040", "0275")
    DCM_SEQUENCE (PerformedProtocol, CDcmCodeSequenceMacroEx,         "0040", "0260")
    // clang-format on
};
