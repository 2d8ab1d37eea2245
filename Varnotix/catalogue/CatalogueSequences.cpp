// The run-time classes of the sequences and macros of the catalogue. The rows in its header describe each class.

#include "Varnotix/catalogue/DcmAcquisitionContextSequence.h"
#include "Varnotix/catalogue/DcmCalibrationDataSequence.h"
#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmCodingSchemeIdSequence.h"
#include "Varnotix/catalogue/DcmContrastAdministrationRouteSequence.h"
#include "Varnotix/catalogue/DcmContributingEquipmentSequence.h"
#include "Varnotix/catalogue/DcmDataSequence.h"
#include "Varnotix/catalogue/DcmDetectorSequence.h"
#include "Varnotix/catalogue/DcmDeviceSequence.h"
#include "Varnotix/catalogue/DcmDigitalSignatureSequence.h"
#include "Varnotix/catalogue/DcmDimensionIndexSequence.h"
#include "Varnotix/catalogue/DcmDimensionOrgSequence.h"
#include "Varnotix/catalogue/DcmEncryptedAttributesSequence.h"
#include "Varnotix/catalogue/DcmGatedSequence.h"
#include "Varnotix/catalogue/DcmIconImageSequence.h"
#include "Varnotix/catalogue/DcmImageSequence.h"
#include "Varnotix/catalogue/DcmInsurancePlanSequence.h"
#include "Varnotix/catalogue/DcmInterventionDrugSequence.h"
#include "Varnotix/catalogue/DcmLutSequence.h"
#include "Varnotix/catalogue/DcmMACParameterSequence.h"
#include "Varnotix/catalogue/DcmMaskSubtractionSequence.h"
#include "Varnotix/catalogue/DcmPersonIdentificationMacro.h"
#include "Varnotix/catalogue/DcmPhaseSequence.h"
#include "Varnotix/catalogue/DcmPrimaryLanguageSequence.h"
#include "Varnotix/catalogue/DcmRadioPharmaceuticalSequence.h"
#include "Varnotix/catalogue/DcmRequestAttributeSequence.h"
#include "Varnotix/catalogue/DcmRotationSequence.h"
#include "Varnotix/catalogue/DcmSeriesSequence.h"
#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/catalogue/DcmSpecimenSequence.h"
#include "Varnotix/catalogue/DcmTherapySequence.h"
#include "Varnotix/catalogue/DcmTimeSlotSequence.h"
#include "Varnotix/catalogue/DcmUSRegionSequence.h"
#include "Varnotix/catalogue/DcmWaveformSequence.h"
#include "Varnotix/catalogue/DcmWindowEnergyRangeSequence.h"
#include "Varnotix/catalogue/DcmWindowInformationSequence.h"

IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmAcquisitionContextSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCalibrationDataSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmCodeSequenceMacroEx, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmCodingSchemeIdSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmContrastAdministrationRouteSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmContributingEquipmentSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmDataSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmDetectorSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmDeviceSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmDigitalSignatureSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmDimensionIndexSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmDimensionOrgSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmEncryptedAttributesSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmGatedSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmIconImageSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmImageSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmInsurancePlanSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmInterventionDrugSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmLutSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmMACParameterSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmMaskSubtractionSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmPersonIdentificationMacro, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmPhaseSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmPrimaryLanguageSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmRadioPharmaceuticalSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmRequestAttributeSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmRotationSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmSeriesSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmSopSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmSpecimenSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmTherapySequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmTimeSlotSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_CLASS(CDcmUSRegionSequence, CDcmSequence)
IMPLEMENT_DCM_CLASS(CDcmWaveformSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmWindowEnergyRangeSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmWindowInformationSequence, CDcmSequence, InitializeSequence)
