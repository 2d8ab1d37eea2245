#pragma once

#include "Varnotix/catalogue/DcmPhaseSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Phase Module (PS3.3 C.8.4.14): the phases of a dynamic acquisition.
class VARNOTIX_EXPORT CDcmNMPhaseModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMPhaseModule)
    DCM_INITIALIZE_MODULE()
    DCM_SEQUENCE(PhaseInformation, CDcmPhaseSequence, "0054", "0032")
    // clang-format on
};
