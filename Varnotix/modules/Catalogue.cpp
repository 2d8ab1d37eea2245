// The run-time classes of the module and sequence catalogue. Each class is told by the rows in its own header.

#include "Varnotix/modules/DcmPatientModule.h"

IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCodeSequenceMacroEx, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmSopSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmSpecimenSequence, CDcmSequence)

IMPLEMENT_DCM_CLASS(CDcmPatientModule, CDcmModule)
