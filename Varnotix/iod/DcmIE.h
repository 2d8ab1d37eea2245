/// Information entities: groups of modules that describe one real-world thing.
#pragma once

#include "Varnotix/modules/DcmModuleList.h"

class CDcmCompositeIE;

/// The modules of one information entity (PS3.3 section 6.2): patient, study, series, equipment, image.
///
/// An entity decides which modules exist and gives each its owner. The modules are members of derived classes or of
/// the IOD; the entity holds them by pointer, at most one of each class.
class VARNOTIX_EXPORT CDcmIE : public CObject
{
    DECLARE_DYNCREATE(CDcmIE)

public:
    CDcmIE() = default;
    /// @param owner the IOD that the entity belongs to; null for none. It is not owned.
    explicit CDcmIE(CDcmCompositeIE* owner);
    /// Holds the same modules for the same owner.
    CDcmIE(const CDcmIE& other);
    CDcmIE& operator=(const CDcmIE& other);

    /// Registers every module with the owner, in the entity's order.
    void AttachIE();
    /// Takes every module off the owner's list.
    void DetachIE();
    /// Empties every module.
    void EmptyIE();
    /// Empties every module and removes its tags from the owner's store.
    void RemoveIE();

    /// Number of modules.
    int GetCount() const { return m_modules.GetSize(); }
    /// The module at a place of the entity's order, or null.
    CDcmModule* GetAt(int index) const;

protected:
    /// Sets the module's owner and appends it, in place of this very module and of the first module whose class is the
    /// module's or derives from it.
    void AddIeModule(CDcmModule& module);
    /// The first module of the class or of one derived from it; null for none and for a null class.
    CDcmModule* FindIeModule(const CRuntimeClass* moduleClass) const;
    /// The module if that very object is in the entity, or null.
    CDcmModule* FindIeModule(const CDcmModule& module) const;
    void RemoveIeModule(const CRuntimeClass* moduleClass);
    void RemoveIeModule(const CDcmModule& module);
    void RemoveIeModules();

private:
    CDcmCompositeIE* m_owner = nullptr;
    CDcmModuleList m_modules;
};
