#pragma once

#include "Varnotix/catalogue/Catalogue.h"
#include "Varnotix/iod/DcmCompositeIOD.h"
#include "Varnotix/iod/DcmMetaFileInformation.h"

/// A normalized information object: SOP common and file meta information, and the modules of derived classes.
///
/// After a read each registered module takes the store's values. Before a write the store takes each module's elements
/// that are not empty, whatever EmptyElements says.
class VARNOTIX_EXPORT CDcmNormalizedIOD : public CDcmIOD
{
    DECLARE_DYNCREATE(CDcmNormalizedIOD)

public:
    CDcmNormalizedIOD();
    /// Registers the object's own modules and copies the other's store, from which they take their values.
    CDcmNormalizedIOD(const CDcmNormalizedIOD& other);
    ~CDcmNormalizedIOD() override;
    /// Empties the registered modules and copies the other's store, from which they take their values.
    CDcmNormalizedIOD& operator=(const CDcmNormalizedIOD& other);

    void Serialize(CArchive& archive) override;

    CDcmSOPCommonModule& SOPCommon() { return m_sopCommon; }
    CDcmMetaFileInformation& MetaFileInformation() { return m_metaFileInformation; }

protected:
    /// Empties the list of registered modules and registers the object's own.
    virtual void InitializeIod();

    /// Assigns SOP common and the meta information; derived classes assign their own modules too.
    void AssignModules(const CDcmNormalizedIOD& other)
    {
        m_sopCommon = other.m_sopCommon;
        m_metaFileInformation = other.m_metaFileInformation;
    }

private:
    CDcmSOPCommonModule m_sopCommon;
    CDcmMetaFileInformation m_metaFileInformation;
};

/// Patient Information Object (retired Patient Management): who the patient is, apart from any image.
class VARNOTIX_EXPORT CPatientInformationIOD : public CDcmNormalizedIOD
{
    DECLARE_DYNCREATE(CPatientInformationIOD)

public:
    CPatientInformationIOD();
    CPatientInformationIOD(const CPatientInformationIOD& other);
    /// Registers the object's own modules and copies the other's store, from which they take their values.
    explicit CPatientInformationIOD(const CDcmCompositeIOD& other);
    ~CPatientInformationIOD() override;
    /// Assigns every module, then store and settings.
    CPatientInformationIOD& operator=(const CPatientInformationIOD& other);
    CPatientInformationIOD& operator=(const CDcmCompositeIOD& other);

    CDcmPatientRelationshipModule& PatientRelationship() { return m_relationship; }
    CDcmPatientIdentificationModule& PatientIdentification() { return m_identification; }
    CDcmPatientDemographicModule& PatientDemographic() { return m_demographic; }
    CDcmPatientMedicalModule& PatientMedical() { return m_medical; }

protected:
    void InitializeIod() override;

private:
    CDcmPatientRelationshipModule m_relationship;
    CDcmPatientIdentificationModule m_identification;
    CDcmPatientDemographicModule m_demographic;
    CDcmPatientMedicalModule m_medical;
};
