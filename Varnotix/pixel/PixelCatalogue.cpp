// The run-time classes that describe pixels, overlays, curves and palettes. Each is told by the rows in its own header.

#include "Varnotix/pixel/DcmCurveModule.h"
#include "Varnotix/pixel/DcmImagePixelModule.h"
#include "Varnotix/pixel/DcmMultiFrameModule.h"
#include "Varnotix/pixel/DcmMultiFrameOverlayModule.h"
#include "Varnotix/pixel/DcmNMImagePixelModule.h"
#include "Varnotix/pixel/DcmOverLayPlaneModule.h"
#include "Varnotix/pixel/DcmPalleteColorLookUpModule.h"
#include "Varnotix/pixel/ReferencedOverLaySequence.h"
#include "Varnotix/pixel/RepeatingGroups.h"

const char* const kDefaultCurveGroup = "5000";
const char* const kDefaultOverlayGroup = "6000";

IMPLEMENT_DCM_REPEATING_CLASS(CDcmCurveModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmImagePixelModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmMultiFrameModule, CDcmModule)
IMPLEMENT_DCM_REPEATING_CLASS(CDcmMultiFrameOverlayModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMImagePixelModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_REPEATING_CLASS(CDcmOverLayPlaneModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmPalleteColorLookUpModule, CDcmModule)
IMPLEMENT_DCM_REPEATING_CLASS(CReferencedOverLaySequence, CDcmSequence, InitializeSequence)
