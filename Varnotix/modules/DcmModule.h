/// The base of all module classes.
#pragma once

#include "Varnotix/modules/DcmAttributeSet.h"

class CDcmIOD;

/// Reserved for the module class's own later use.
class VARNOTIX_EXPORT CModulePrivate : public CObject
{
    DECLARE_DYNAMIC(CModulePrivate)

public:
    DWORD m_word = 0; ///< Unused.
};

/// A module of the standard: attributes with fixed tags and typed accessors (PS3.3 Annex C).
///
/// A module is constructed complete, with every declared element present and empty, and stays so: accessors never add
/// elements. It has no storage in common with an IOD; an IOD copies values between its modules and its store.
class VARNOTIX_EXPORT CDcmModule : public CDcmAttributeSet
{
    DECLARE_DYNCREATE(CDcmModule)

public:
    CDcmModule();
    /// Copies elements and values; the copy has no owner.
    CDcmModule(const CDcmModule& other);
    ~CDcmModule() override;

    /// Deep copy of elements, values and declared tags; the owner stays.
    CDcmModule& operator=(const CDcmModule& other);

    /// Takes the values of the tags that both modules hold.
    CDcmModule& operator<<(const CDcmModule& other);
    /// Gives its values to the tags that both modules hold.
    CDcmModule& operator>>(CDcmModule& other);
    bool operator==(const CDcmModule& other) const { return CDcmAttributeSet::operator==(other); }
    bool operator!=(const CDcmModule& other) const { return !(*this == other); }

    /// Empties every value; elements and declared tags stay.
    void EmptyModule();

    /// @name The owner
    /// It is the object that holds the module, and is not owned. Without an owner these do nothing to it.
    /// @{

    /// Sets the owner, which must outlive the module or be reset.
    void SetOwner(CDcmIOD* owner) { m_owner = owner; }
    CDcmIOD* Owner() const { return m_owner; }
    /// Registers the module with its owner, in place of a registered module of the same class.
    void AttachModule();
    /// Takes this very module off its owner's list.
    void DetachModule();
    /// Empties the module and removes its tags from the owner's store.
    void RemoveModule();
    /// @}

protected:
    CDcmElementSet& DcmModuleData() { return GetDcmElementSet(); }
    CModulePrivate& ModulePrivate() { return m_private; }

    /// Declares the module's tags, for classes that declare them in one place for reuse. Nothing here.
    virtual void InitializeModule();
    /// Takes the values of another module: operator<<.
    virtual void CopyModule(CDcmModule& other);
    /// Removes all elements and forgets the declared tags; every accessor then finds its attribute missing.
    virtual void DestroyModule();

private:
    CDcmIOD* m_owner = nullptr;
    CModulePrivate m_private;
};
