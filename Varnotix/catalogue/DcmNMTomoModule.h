#pragma once

#include "Varnotix/catalogue/DcmRotationSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM TOMO Acquisition Module (PS3.3 C.8.4.12): the rotations of a tomographic acquisition.
class VARNOTIX_EXPORT CDcmNMTomoModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMTomoModule)
    DCM_INITIALIZE_MODULE()
    DCM_SEQUENCE(Rotation, CDcmRotationSequence, "0054", "0052")
    // clang-format on
};
