#include "Varnotix/iod/DcmMetaFileInformation.h"

IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmMetaFileInformation, CDcmModule, InitializeModule)
