// The run-time classes of the modules of the catalogue. Each class is told by the rows in its own header.

#include "Varnotix/modules/DcmAcquisitionContextModule.h"
#include "Varnotix/modules/DcmBitmapDisplayShutterModule.h"
#include "Varnotix/modules/DcmCRImageModule.h"
#include "Varnotix/modules/DcmCRSeriesModule.h"
#include "Varnotix/modules/DcmCTImageModule.h"
#include "Varnotix/modules/DcmCardiacSynchronizationModule.h"
#include "Varnotix/modules/DcmCineModule.h"
#include "Varnotix/modules/DcmClinicalTrialSeriesModule.h"
#include "Varnotix/modules/DcmClinicalTrialStudyModule.h"
#include "Varnotix/modules/DcmClinicalTrialSubjectModule.h"
#include "Varnotix/modules/DcmContrastBolusModule.h"
#include "Varnotix/modules/DcmCurveIdentificationModule.h"
#include "Varnotix/modules/DcmDeviceModule.h"
#include "Varnotix/modules/DcmDisplayShutterModule.h"
#include "Varnotix/modules/DcmFrameOfReferenceModule.h"
#include "Varnotix/modules/DcmFramePointersModule.h"
#include "Varnotix/modules/DcmGeneralEquipmentModule.h"
#include "Varnotix/modules/DcmGeneralImageModule.h"
#include "Varnotix/modules/DcmGeneralSeriesModule.h"
#include "Varnotix/modules/DcmGeneralStudyModule.h"
#include "Varnotix/modules/DcmImagePlaneModule.h"
#include "Varnotix/modules/DcmMRImageModule.h"
#include "Varnotix/modules/DcmMaskModule.h"
#include "Varnotix/modules/DcmModalityLUTModule.h"
#include "Varnotix/modules/DcmMultiFrameDimensionModule.h"
#include "Varnotix/modules/DcmNMDetectorModule.h"
#include "Varnotix/modules/DcmNMImageModule.h"
#include "Varnotix/modules/DcmNMIsotopeModule.h"
#include "Varnotix/modules/DcmNMMultiFrameModule.h"
#include "Varnotix/modules/DcmNMMultiGatedModule.h"
#include "Varnotix/modules/DcmNMPetOrientationModule.h"
#include "Varnotix/modules/DcmNMPhaseModule.h"
#include "Varnotix/modules/DcmNMReconstructionModule.h"
#include "Varnotix/modules/DcmNMTomoModule.h"
#include "Varnotix/modules/DcmPatientDemographicModule.h"
#include "Varnotix/modules/DcmPatientIdentificationModule.h"
#include "Varnotix/modules/DcmPatientMedicalModule.h"
#include "Varnotix/modules/DcmPatientModule.h"
#include "Varnotix/modules/DcmPatientRelationshipModule.h"
#include "Varnotix/modules/DcmPatientStudyModule.h"
#include "Varnotix/modules/DcmQueryRetrieveModule.h"
#include "Varnotix/modules/DcmRespiratorySynchronizationModule.h"
#include "Varnotix/modules/DcmSCEquipmentModule.h"
#include "Varnotix/modules/DcmSCImageModule.h"
#include "Varnotix/modules/DcmSCMultiFrameImageModule.h"
#include "Varnotix/modules/DcmSCMultiFrameVectorModule.h"
#include "Varnotix/modules/DcmSOPCommonModule.h"
#include "Varnotix/modules/DcmServiceModule.h"
#include "Varnotix/modules/DcmSynchronizationModule.h"
#include "Varnotix/modules/DcmTherapyModule.h"
#include "Varnotix/modules/DcmUSFrameOfReferenceModule.h"
#include "Varnotix/modules/DcmUSImageModule.h"
#include "Varnotix/modules/DcmUSRegionCalibrationModule.h"
#include "Varnotix/modules/DcmVioLutModule.h"
#include "Varnotix/modules/DcmVisitAdmissionModule.h"
#include "Varnotix/modules/DcmVisitDischargeModule.h"
#include "Varnotix/modules/DcmVisitIdentificationModule.h"
#include "Varnotix/modules/DcmVisitRelationshipModule.h"
#include "Varnotix/modules/DcmVisitSchedulingModule.h"

IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmAcquisitionContextModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmBitmapDisplayShutterModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCRImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCRSeriesModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCTImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmCardiacSynchronizationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmCineModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmClinicalTrialSeriesModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmClinicalTrialStudyModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmClinicalTrialSubjectModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmContrastBolusModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCurveIdentificationModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmDeviceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmDisplayShutterModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmFrameOfReferenceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmFramePointersModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmGeneralEquipmentModule, CDcmModule)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmGeneralImageModule, CDcmModule, InitializeModule)
IMPLEMENT_DCM_CLASS(CDcmGeneralSeriesModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmGeneralStudyModule, CDcmModule)
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
IMPLEMENT_DCM_CLASS(CDcmPatientDemographicModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmPatientIdentificationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmPatientMedicalModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmPatientModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmPatientRelationshipModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmPatientStudyModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmQueryRetrieveModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmRespiratorySynchronizationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCEquipmentModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCImageModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCMultiFrameImageModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSCMultiFrameVectorModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSOPCommonModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmServiceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmSynchronizationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmTherapyModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmUSFrameOfReferenceModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmUSImageModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmUSRegionCalibrationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVioLutModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVisitAdmissionModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVisitDischargeModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVisitIdentificationModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVisitRelationshipModule, CDcmModule)
IMPLEMENT_DCM_CLASS(CDcmVisitSchedulingModule, CDcmModule)
