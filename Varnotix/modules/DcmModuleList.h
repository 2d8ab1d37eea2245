/// The list of modules that an entity or an information object holds by pointer.
#pragma once

#include "Varnotix/modules/DcmModule.h"

/// Modules in the order of their registration, not owned. It holds at most one module of a class: adding one displaces
/// the first module whose class is the new one's or derives from it.
class VARNOTIX_EXPORT CDcmModuleList
{
public:
    void Add(CDcmModule& module);
    /// The first module of the class or of one derived from it; null for none and for a null class.
    CDcmModule* Find(const CRuntimeClass* moduleClass) const;
    /// The module if that very object is in the list, or null.
    CDcmModule* Find(const CDcmModule& module) const;
    void Remove(const CRuntimeClass* moduleClass);
    void Remove(const CDcmModule& module);
    void RemoveAll() { m_modules.RemoveAll(); }

    int GetSize() const { return m_modules.GetSize(); }
    CDcmModule& operator[](int index) const { return static_cast<CDcmModule&>(*m_modules[index]); }

private:
    CObArray m_modules;
};
