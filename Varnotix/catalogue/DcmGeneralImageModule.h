#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmIconImageSequence.h"
#include "Varnotix/catalogue/DcmImageSequence.h"
#include "Varnotix/catalogue/DcmWaveformSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// General Image Module (PS3.3 C.7.6.1): what every image states.
class VARNOTIX_EXPORT CDcmGeneralImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmGeneralImageModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT     (InstanceNumber,             "0020", "0013")
    DCM_TEXT_LIST(PatientOrientation,         "0020", "0020")
    DCM_TEXT     (ContentDate,                "0008", "0023")
    DCM_TEXT     (ContentTime,                "0008", "0033")
    DCM_TEXT_LIST(ImageType,                  "0008", "0008")
    DCM_TEXT     (AcquisitionNumber,          "0020", "0012")
    DCM_TEXT     (AcquisitionDate,            "0008", "0022")
    DCM_TEXT     (AcquisitionTime,            "0008", "0032")
    DCM_TEXT     (AcquisitionDatetime,        "0008", "002A")
    DCM_TEXT     (DerivationDescription,      "0008", "2111")
    DCM_TEXT     (ImagesInAcquisition,        "0020", "1002")
    DCM_TEXT     (ImageComments,              "0020", "4000")
    DCM_TEXT     (QualityControlImage,        "0028", "0300")
    DCM_TEXT     (BurnedInAnnotation,         "0028", "0301")
    DCM_TEXT     (LossyImageCompression,      "0028", "2110")
    DCM_TEXT_LIST(LossyImageCompressionRatio, "0028", "2112")
    DCM_TEXT     (PresentationLUTShape,       "2050", "0020")
    DCM_SEQUENCE (ReferencedImage, CDcmImageSequence,       "0008", "1140")
    DCM_SEQUENCE (DerivationCode, CDcmCodeSequenceMacroEx,  "0008", "9215")
    DCM_SEQUENCE (SourceImage, CDcmImageSequence,           "0008", "2112")
    DCM_SEQUENCE (ReferencedWaveForm, CDcmWaveformSequence, "0008", "113A")
    DCM_SEQUENCE (IconImage, CDcmIconImageSequence,         "0088", "0200")
    // clang-format on
};
