#pragma once

#include "Varnotix/iod/DcmIOD.h"

/// An information object whose registered modules follow every read and every write.
///
/// After a read the modules take the store's values. Before a write the store takes the modules' elements, all of them
/// or only those that are not empty (see CDcmIOD::EmptyElements). Elements that no module declares stay in the store,
/// so private elements survive.
class VARNOTIX_EXPORT CDcmCompositeIOD : public CDcmIOD
{
    DECLARE_DYNCREATE(CDcmCompositeIOD)

public:
    CDcmCompositeIOD();
    CDcmCompositeIOD(const CDcmCompositeIOD& other);
    ~CDcmCompositeIOD() override;
    CDcmCompositeIOD& operator=(const CDcmCompositeIOD& other);

    void Serialize(CArchive& archive) override;

protected:
    /// Registers the object's own modules. Nothing here.
    virtual void InitializeIod();
};
