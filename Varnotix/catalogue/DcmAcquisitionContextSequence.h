#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Acquisition Context Sequence (PS3.3 C.7.6.14): one condition, as a name and a value.
class VARNOTIX_EXPORT CDcmAcquisitionContextSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmAcquisitionContextSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_US_LIST  (ReferencedFrameNumbers, "0040", "A136")
    DCM_TEXT_LIST(NumericValue,           "0040", "A30A")
    DCM_TEXT     (Date,                   "0040", "A121")
    DCM_TEXT     (Time,                   "0040", "A122")
    DCM_TEXT     (PersonName,             "0040", "A123")
    DCM_TEXT     (TextValue,              "0040", "A160")
    DCM_SEQUENCE (ConceptName, CDcmCodeSequenceMacroEx,      "0040", "A043")
    DCM_SEQUENCE (MeasurementUnits, CDcmCodeSequenceMacroEx, "0040", "08EA")
    DCM_SEQUENCE (Concept, CDcmCodeSequenceMacroEx,          "0040", "A168")
    // clang-format on
};
