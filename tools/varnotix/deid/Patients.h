/// New identities of patients.
#pragma once

#include "deid/Key.h"

#include <map>
#include <optional>
#include <string>

/// What a patient becomes.
struct SNewPatient
{
    CString id;
    CString name;
    int days = 0; ///< How far the patient's dates are moved, the same for all.
};

/// Gives each patient an identity by the old Patient ID: one of a list, or one that the key makes.
class CPatients
{
public:
    explicit CPatients(const CDeidKey& key) : m_key(key) {}

    /// Takes the identities from lines "old ID,new ID,new name" (RFC 4180); patients that are not in the list have none
    /// then. Lines that begin with # and empty ones do not count.
    /// @return false, after a message, when the file cannot be read or a line is not of this form.
    bool ReadList(const CString& path, const CReport& report);

    /// The identity of the patient whose object it is. An object without a Patient ID has one by its patient's name and
    /// birth date, or else by its study.
    /// @return nothing for a patient who is not in the list.
    std::optional<SNewPatient> Find(const CDcmElementSet& store) const;

    /// The new ID of a patient who is named in the object of another.
    CString NewIdOf(std::string_view oldId) const;

private:
    bool TakeLine(std::string_view line);
    SNewPatient Make(std::string_view identity) const;

    CDeidKey m_key;
    std::optional<std::map<std::string, SNewPatient, std::less<>>> m_list;
};
