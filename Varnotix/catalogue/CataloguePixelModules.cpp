// The run-time classes of frames, overlays, curves and palettes. The rows in their headers describe each.

#include "Varnotix/catalogue/DcmCurveModule.h"
#include "Varnotix/catalogue/DcmMultiFrameModule.h"
#include "Varnotix/catalogue/DcmMultiFrameOverlayModule.h"
#include "Varnotix/catalogue/DcmNMImagePixelModule.h"
#include "Varnotix/catalogue/DcmOverLayPlaneModule.h"
#include "Varnotix/catalogue/DcmPalleteColorLookUpModule.h"
#include "Varnotix/catalogue/ReferencedOverLaySequence.h"
#include "Varnotix/catalogue/RepeatingGroups.h"

const char* const Varnotix::kDefaultCurveGroup = "5000";
const char* const Varnotix::kDefaultOverlayGroup = "6000";

IMPLEMENT_DCM_REPEATING_CLASS(CDcmCurveModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmMultiFrameModule, CDcmModule)
IMPLEMENT_DCM_REPEATING_CLASS(CDcmMultiFrameOverlayModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMImagePixelModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_REPEATING_CLASS(CDcmOverLayPlaneModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmPalleteColorLookUpModule, CDcmModule)
IMPLEMENT_DCM_REPEATING_CLASS(CReferencedOverLaySequence, CDcmSequence, InitializeSequence)
