/// The root of the class library, and run-time class records.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/Types.h"

#include <vector>

class CArchive;
class CDumpContext;
class CObject;

/// The run-time record of a class: its name, its base, and how to make an object of it.
/// Records are static objects made by the IMPLEMENT_ macros below and are never copied.
class VARNOTIX_EXPORT CRuntimeClass
{
public:
    /// The class name as written in the source.
    const char* m_lpszClassName;
    /// The size of an object in bytes.
    int m_nObjectSize;
    /// Makes a new object; null when the class cannot be created dynamically.
    CObject* (*m_pfnCreateObject)();
    /// The record of the base class; null only for CObject.
    CRuntimeClass* m_pBaseClass;
    /// The next record of the same module. Maintained by the class chain only.
    CRuntimeClass* m_pNextClass;

    /// A new object of this class, owned by the caller; null when the class cannot be created dynamically.
    CObject* CreateObject() const;
    /// True when this class is `base` or derived from it. False for null.
    bool IsDerivedFrom(const CRuntimeClass* base) const;

    /// The record with this exact name, or null. The host's own records are searched before the library's, and the
    /// library's only while a CDynLinkLibrary exists. Null gives null.
    static CRuntimeClass* FromName(LPCTSTR name);
    /// A new object of the class with this name, owned by the caller; null when there is no such class or it cannot
    /// be created.
    static CObject* CreateObject(LPCTSTR name);
    /// Every record that FromName can find, in no particular order.
    static std::vector<CRuntimeClass*> Classes();
};

/// The module that a class record belongs to.
enum class EClassModule
{
    Library, ///< found only while a CDynLinkLibrary exists
    Host     ///< found at once
};

#if defined(VARNOTIX_BUILDING)
#define VARNOTIX_CLASS_MODULE EClassModule::Library
#else
#define VARNOTIX_CLASS_MODULE EClassModule::Host
#endif

/// Keeps a record in its module's list for the lifetime of the entry. The lists are ready before any constructor runs,
/// so entries may be constructed in any order of static initialisation. Used by the IMPLEMENT_ macros.
class VARNOTIX_EXPORT CRuntimeClassEntry
{
public:
    CRuntimeClassEntry(CRuntimeClass& record, EClassModule module);
    ~CRuntimeClassEntry();
    CRuntimeClassEntry(const CRuntimeClassEntry&) = delete;
    CRuntimeClassEntry& operator=(const CRuntimeClassEntry&) = delete;

private:
    CRuntimeClass& m_record;
    EClassModule m_module;
};

/// The root of the class library: run-time class, serialisation and diagnosis. The order of the virtual functions is
/// part of the interface.
class VARNOTIX_EXPORT CObject
{
public:
    /// The record of CObject itself.
    static CRuntimeClass classCObject;

    /// The record of the object's own class.
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Reads or writes the object. Does nothing here.
    virtual void Serialize(CArchive& archive);
    /// Checks the object's own consistency. Does nothing here.
    virtual void AssertValid() const;
    /// Writes a diagnostic text: here the class name.
    virtual void Dump(CDumpContext& context) const;

    /// True when the object's class is `base` or derived from it. False for null.
    bool IsKindOf(const CRuntimeClass* base) const;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

/// The address of a class's run-time record.
#define RUNTIME_CLASS(className) (&className::class##className)

/// At the top of a class body: gives the class a run-time record. Leaves the access at `public:`.
#define DECLARE_DYNAMIC(className) \
public: \
    static CRuntimeClass class##className; \
    CRuntimeClass* GetRuntimeClass() const override;

/// As DECLARE_DYNAMIC, for a class that can be created by its record. It needs a default constructor.
#define DECLARE_DYNCREATE(className) \
    DECLARE_DYNAMIC(className) \
    static CObject* CreateObject();

#define VARNOTIX_IMPLEMENT_CLASS(className, baseName, createFunction) \
    CRuntimeClass className::class##className = {#className, static_cast<int>(sizeof(className)), createFunction, \
                                                 RUNTIME_CLASS(baseName), nullptr}; \
    static const CRuntimeClassEntry entry##className(className::class##className, VARNOTIX_CLASS_MODULE); \
    CRuntimeClass* className::GetRuntimeClass() const \
    { \
        return &className::class##className; \
    }

/// In one source file, outside namespaces: defines what DECLARE_DYNAMIC declared.
#define IMPLEMENT_DYNAMIC(className, baseName) VARNOTIX_IMPLEMENT_CLASS(className, baseName, nullptr)

/// In one source file, outside namespaces: defines what DECLARE_DYNCREATE declared.
#define IMPLEMENT_DYNCREATE(className, baseName) \
    CObject* className::CreateObject() \
    { \
        return new className; \
    } \
    VARNOTIX_IMPLEMENT_CLASS(className, baseName, &className::CreateObject)
