#pragma once

#include "Varnotix/catalogue/DcmAcquisitionContextSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Acquisition Context Module (PS3.3 C.7.6.14): the conditions under which data was acquired.
class VARNOTIX_EXPORT CDcmAcquisitionContextModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmAcquisitionContextModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT    (ContextDescription, "0040", "0556")
    DCM_SEQUENCE(AcquisitionContext, CDcmAcquisitionContextSequence, "0040", "0555")
    // clang-format on
};
