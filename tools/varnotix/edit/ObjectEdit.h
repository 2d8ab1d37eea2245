/// Changing an object by paths.
#pragma once

#include "edit/Assignment.h"
#include "edit/EditRules.h"
#include "object/Selection.h"
#include "object/ValueRules.h"

#include <memory>
#include <set>

/// Deletes and sets elements of one object, and collects what it did and what it refuses.
///
/// A path may name elements, items and private blocks that the object lacks; setting makes them. "[]" means the items
/// that are there. When there are faults, some of the edits may have been made: the object must not be written then.
class CObjectEdit
{
public:
    /// @param isForced values and attributes are edited that would be refused otherwise.
    CObjectEdit(CDcmElementSet& store, bool isForced) : m_store(store), m_isForced(isForced) {}

    /// Deletes all elements or items that are selected. None is not a fault.
    void Delete(const SSelection& selection);

    /// Sets all elements that the path names. The texts of an object whose Specific Character Set is set are converted
    /// to it, unless edits are forced.
    void Assign(const SAssignment& assignment);

    /// Puts a copy of an element, with its items or frames, where the path leads.
    void Place(const Varnotix::CElementPath& path, const CDcmElement& element);

    /// Makes the file meta information name the SOP class and instance that were set. What was not set may differ from
    /// it, as before. Call it last.
    void UpdateFileMeta();

    const std::vector<CString>& Faults() const { return m_faults; }
    /// One line for each edit, and for each path that names nothing.
    const std::vector<CString>& Details() const { return m_details; }
    bool HasEdits() const { return m_changed + m_added + m_deleted > 0; }
    /// "1 value changed, 2 attributes added, 0 deleted".
    CString Summary() const;

private:
    void DeletePath(const Varnotix::CElementPath& path);
    void DeleteElement(const Varnotix::SFoundElement& found);
    void Follow(const Varnotix::CElementPath& path);
    void Enter(CDcmElementSet& set, int item, const CCharacterSet& around, std::size_t index);
    void EnterItems(CDcmElement& sequence, const CCharacterSet& characters, std::size_t index);
    std::optional<DWORD> TagIn(CDcmElementSet& set, int item, const Varnotix::SPathStep& step,
                               const CCharacterSet& characters);
    std::optional<DWORD> ReserveBlock(CDcmElementSet& set, int item, const Varnotix::SPathStep& step);
    CDcmElement* AddSequence(CDcmElementSet& set, int item, DWORD tag);
    void SetElement(CDcmElementSet& set, int item, DWORD tag, const CCharacterSet& characters);
    void PlaceElement(CDcmElementSet& set, int item, DWORD tag);
    CString VrFor(const CDcmElementSet& set, int item, DWORD tag, const CDcmElement* present);
    bool ConvertTexts(CDcmElementSet& set, int item, const CCharacterSet& from, const CCharacterSet& to);
    CDcmElement* Replace(CDcmElementSet& set, int item, const CDcmElement* present, std::unique_ptr<CDcmElement> made);
    bool MayGoOn(const SEditReason& reason);
    void AddFault(const CString& what);

    CDcmElementSet& m_store;
    bool m_isForced;
    const Varnotix::CElementPath* m_steps = nullptr;
    const SAssignment* m_assignment = nullptr; // Null while an element is placed.
    const CDcmElement* m_element = nullptr;    // The one that is placed.
    CString m_path;                            // Of the edit that is being made, as messages show it.
    std::set<DWORD> m_assigned;                // Tags of the object itself that were set.
    std::vector<CString> m_faults;
    std::vector<CString> m_details;
    int m_changed = 0;
    int m_added = 0;
    int m_deleted = 0;
};
