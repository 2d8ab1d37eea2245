// The run-time classes of the sequences and macros of the catalogue. Each class is told by the rows in its own header.

#include "Varnotix/modules/DcmAcquisitionContextSequence.h"
#include "Varnotix/modules/DcmCalibrationDataSequence.h"
#include "Varnotix/modules/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/DcmCodingSchemeIdSequence.h"
#include "Varnotix/modules/DcmContrastAdministrationRouteSequence.h"
#include "Varnotix/modules/DcmContributingEquipmentSequence.h"
#include "Varnotix/modules/DcmDataSequence.h"
#include "Varnotix/modules/DcmDetectorSequence.h"
#include "Varnotix/modules/DcmDeviceSequence.h"
#include "Varnotix/modules/DcmDigitalSignatureSequence.h"
#include "Varnotix/modules/DcmDimensionIndexSequence.h"
#include "Varnotix/modules/DcmDimensionOrgSequence.h"
#include "Varnotix/modules/DcmEncryptedAttributesSequence.h"
#include "Varnotix/modules/DcmGatedSequence.h"
#include "Varnotix/modules/DcmIconImageSequence.h"
#include "Varnotix/modules/DcmImageSequence.h"
#include "Varnotix/modules/DcmInsurancePlanSequence.h"
#include "Varnotix/modules/DcmInterventionDrugSequence.h"
#include "Varnotix/modules/DcmLutSequence.h"
#include "Varnotix/modules/DcmMACParameterSequence.h"
#include "Varnotix/modules/DcmMaskSubtractionSequence.h"
#include "Varnotix/modules/DcmPersonIdentificationMacro.h"
#include "Varnotix/modules/DcmPhaseSequence.h"
#include "Varnotix/modules/DcmPrimaryLanguageSequence.h"
#include "Varnotix/modules/DcmRadioPharmaceuticalSequence.h"
#include "Varnotix/modules/DcmRequestAttributeSequence.h"
#include "Varnotix/modules/DcmRotationSequence.h"
#include "Varnotix/modules/DcmSeriesSequence.h"
#include "Varnotix/modules/DcmSopSequence.h"
#include "Varnotix/modules/DcmSpecimenSequence.h"
#include "Varnotix/modules/DcmTherapySequence.h"
#include "Varnotix/modules/DcmTimeSlotSequence.h"
#include "Varnotix/modules/DcmUSRegionSequence.h"
#include "Varnotix/modules/DcmWaveformSequence.h"
#include "Varnotix/modules/DcmWindowEnergyRangeSequence.h"
#include "Varnotix/modules/DcmWindowInformationSequence.h"

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
