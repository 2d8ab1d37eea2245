// The run-time classes of the modules of images, acquisitions and modalities. The rows in their headers describe each.

#include "Varnotix/catalogue/DcmAcquisitionContextModule.h"
#include "Varnotix/catalogue/DcmBitmapDisplayShutterModule.h"
#include "Varnotix/catalogue/DcmCRImageModule.h"
#include "Varnotix/catalogue/DcmCRSeriesModule.h"
#include "Varnotix/catalogue/DcmCTImageModule.h"
#include "Varnotix/catalogue/DcmCineModule.h"
#include "Varnotix/catalogue/DcmContrastBolusModule.h"
#include "Varnotix/catalogue/DcmCurveIdentificationModule.h"
#include "Varnotix/catalogue/DcmDeviceModule.h"
#include "Varnotix/catalogue/DcmDisplayShutterModule.h"
#include "Varnotix/catalogue/DcmFrameOfReferenceModule.h"
#include "Varnotix/catalogue/DcmFramePointersModule.h"
#include "Varnotix/catalogue/DcmGeneralImageModule.h"
#include "Varnotix/catalogue/DcmImagePlaneModule.h"
#include "Varnotix/catalogue/DcmMRImageModule.h"
#include "Varnotix/catalogue/DcmMaskModule.h"
#include "Varnotix/catalogue/DcmModalityLUTModule.h"
#include "Varnotix/catalogue/DcmMultiFrameDimensionModule.h"
#include "Varnotix/catalogue/DcmNMDetectorModule.h"
#include "Varnotix/catalogue/DcmNMImageModule.h"
#include "Varnotix/catalogue/DcmNMIsotopeModule.h"
#include "Varnotix/catalogue/DcmNMMultiFrameModule.h"
#include "Varnotix/catalogue/DcmNMMultiGatedModule.h"
#include "Varnotix/catalogue/DcmNMPetOrientationModule.h"
#include "Varnotix/catalogue/DcmNMPhaseModule.h"
#include "Varnotix/catalogue/DcmNMReconstructionModule.h"
#include "Varnotix/catalogue/DcmNMTomoModule.h"
#include "Varnotix/catalogue/DcmSCEquipmentModule.h"
#include "Varnotix/catalogue/DcmSCImageModule.h"
#include "Varnotix/catalogue/DcmSCMultiFrameImageModule.h"
#include "Varnotix/catalogue/DcmSCMultiFrameVectorModule.h"
#include "Varnotix/catalogue/DcmTherapyModule.h"
#include "Varnotix/catalogue/DcmUSFrameOfReferenceModule.h"
#include "Varnotix/catalogue/DcmUSImageModule.h"
#include "Varnotix/catalogue/DcmUSRegionCalibrationModule.h"
#include "Varnotix/catalogue/DcmVioLutModule.h"

IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmAcquisitionContextModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmBitmapDisplayShutterModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCRImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCRSeriesModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCTImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmCineModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmContrastBolusModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCurveIdentificationModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmDeviceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmDisplayShutterModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmFrameOfReferenceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmFramePointersModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmGeneralImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmImagePlaneModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmMRImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmMaskModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmModalityLUTModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmMultiFrameDimensionModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMDetectorModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMIsotopeModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMMultiFrameModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMMultiGatedModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMPetOrientationModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMPhaseModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMReconstructionModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmNMTomoModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmSCEquipmentModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCImageModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCMultiFrameImageModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCMultiFrameVectorModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmTherapyModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmUSFrameOfReferenceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmUSImageModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmUSRegionCalibrationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVioLutModule, CDcmModule)
