#pragma once

#include "Varnotix/iod/CompositeEntities.h"

/// A composite object with patient, study, equipment and series: the base of most image objects.
class VARNOTIX_EXPORT CDcmCompositeIEIOD
    : public TCompositeIod<CDcmCompositeIE, CDcmCompositeIE::composite_patient_ie, CDcmCompositeIE::composite_study_ie,
                           CDcmCompositeIE::composite_equipment_ie, CDcmCompositeIE::composite_series_ie>
{
    DCM_COMPOSITE_IOD(CDcmCompositeIEIOD)

    /// Equal modules of the four entities, equal meta information and equal stores.
    bool operator==(const CDcmCompositeIEIOD& other) const;
    bool operator!=(const CDcmCompositeIEIOD& other) const { return !(*this == other); }
};
