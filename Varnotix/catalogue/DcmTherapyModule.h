#pragma once

#include "Varnotix/catalogue/DcmTherapySequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Intervention Module (PS3.3 C.7.6.13), once the Therapy Module: interventions during acquisition.
class VARNOTIX_EXPORT CDcmTherapyModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmTherapyModule)
    DCM_SEQUENCE(InterventionalTherapy, CDcmTherapySequence, "0018", "0036")
    // clang-format on
};
