#pragma once

#include "Varnotix/iod/DcmCompositeIOD.h"
#include "Varnotix/iod/DcmMetaFileInformation.h"

/// A composite information object made of information entities, with the file meta information.
///
/// The entity classes that concrete objects are made of are nested here by name and described in CompositeEntities.h.
class VARNOTIX_EXPORT CDcmCompositeIE : public CDcmCompositeIOD
{
    DECLARE_DYNCREATE(CDcmCompositeIE)

public:
    class composite_patient_ie;
    class composite_study_ie;
    class composite_series_ie;
    class series_ie_cr;
    class series_ie_nm;
    class composite_equipment_ie;
    class equipment_ie_sc;
    class composite_frameref_ie;
    class frame_ie_us;
    class curve_ie_us;
    class composite_image_ie;
    class image_ie_cr;
    class image_ie_ct_mr;
    class image_ie_ct;
    class image_ie_mr;
    class image_ie_nm;
    class image_ie_sc;
    class image_ie_sc_multi;
    class composite_image_ie_us;
    class image_ie_us;
    class image_ie_us_multi;

    CDcmCompositeIE();
    CDcmCompositeIE(const CDcmCompositeIE& other);
    /// Registers the meta information and copies the other's store, from which it takes its values.
    explicit CDcmCompositeIE(const CDcmCompositeIOD& other);
    ~CDcmCompositeIE() override;
    CDcmCompositeIE& operator=(const CDcmCompositeIE& other);
    CDcmCompositeIE& operator=(const CDcmCompositeIOD& other);

    /// Equal meta information and equal stores.
    bool operator==(const CDcmCompositeIE& other) const;
    /// Unequal stores. Ignores meta information, so it is not the negation of ==: two objects that differ only there
    /// are neither equal nor unequal.
    bool operator!=(const CDcmCompositeIE& other) const;

    CDcmMetaFileInformation& MetaFileInformation() { return m_metaFileInformation; }

protected:
    /// Empties the list of registered modules and registers the meta information.
    void InitializeIod() override;

    /// Assigns the meta information; derived classes assign the modules of their entities too.
    void AssignEntities(const CDcmCompositeIE& other) { m_metaFileInformation = other.m_metaFileInformation; }

private:
    CDcmMetaFileInformation m_metaFileInformation;
};
