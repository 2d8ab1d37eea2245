#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"
#include "Varnotix/pixel/DcmImagePixelModule.h"

/// Item of the Icon Image Sequence (PS3.3 C.7.6.1): a small picture of the image.
class VARNOTIX_EXPORT CDcmIconImageSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmIconImageSequence)
    DCM_INCLUDE(ImagePixelModule, CDcmImagePixelModule)
    // clang-format on
};
