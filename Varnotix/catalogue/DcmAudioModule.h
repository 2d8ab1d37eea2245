#pragma once

#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Audio Module (PS3.3 C.10.3, retired): sound in one instance of group 50xx.
///
/// A group text that does not begin with a hexadecimal number counts as "50FF", the group of a default module.
class VARNOTIX_EXPORT CDcmAudioModule : public CDcmModule
{
    // clang-format off
    DCM_REPEATING_MODULE(CDcmAudioModule, "50FF")
    DCM_US      (AudioType,         DCM_GROUP, "2000")
    DCM_US      (AudioSampleFormat, DCM_GROUP, "2002")
    DCM_US      (NumberOfChannels,  DCM_GROUP, "2004")
    DCM_UL      (NumberOfSamples,   DCM_GROUP, "2006")
    DCM_UL      (SampleRate,        DCM_GROUP, "2008")
    DCM_UL      (TotalTime,         DCM_GROUP, "200A")
    DCM_BYTES   (AudioSampleData,   DCM_GROUP, "200C")
    DCM_SEQUENCE(ReferencedImage, CDcmSopSequence, "0008", "1140")
    // clang-format on
};
