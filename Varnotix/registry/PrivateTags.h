/// The private tags that reads, scripts and hosts have entered.
#pragma once

#include "Varnotix/platform/RefCount.h"
#include "Varnotix/registry/EntryTable.h"

#include <atomic>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>

/// A table that several holders may look at. It does not change while there is more than one.
class CPrivateTable
{
public:
    /// A new, empty table.
    CPrivateTable() : m_shared(new SShared) {}
    CPrivateTable(const CPrivateTable& other) : m_shared(other.m_shared) { m_shared->holders.Add(); }
    CPrivateTable& operator=(const CPrivateTable& other)
    {
        CPrivateTable copy(other);
        std::swap(m_shared, copy.m_shared);
        return *this;
    }
    ~CPrivateTable()
    {
        if (m_shared->holders.Release())
        {
            delete m_shared;
        }
    }

    const CEntryTable& Tags() const { return m_shared->tags; }
    /// The table to write to: a copy where it has other holders. One caller at a time.
    CEntryTable& TagsToChange();
    /// Empties the table for this holder.
    void RemoveAll();

private:
    struct SShared
    {
        CRefCount holders;
        CEntryTable tags;
    };

    SShared* m_shared;
};

/// The dictionary of private tags that all reads share, and the entries of private tags. Any thread may use it.
class CPrivateTags
{
public:
    /// The dictionary of the process.
    static CPrivateTags& Shared();

    /// The entry of a key or tag, or null.
    const CDcmEntry* Find(std::string_view key) const;
    const CDcmEntry* FindTag(int group, int element) const;

    /// What is known now.
    CPrivateTable Now() const;

    /// The entry of the key, which is added if the dictionary lacks it. A VR text that names no VR is OB.
    const CDcmEntry* Add(std::string_view key, const CString& vr, int multiplicity);
    /// Adds the entries whose keys the dictionary lacks, and empties the table.
    void Take(CEntryTable& learned);
    void Forget();

    /// The entry of private tags of a VR and multiplicity. All such tags share it. It stays when the dictionary is
    /// emptied, so that elements which refer to it remain whole.
    const CDcmEntry& Entry(int vr, int multiplicity);
    /// As above, from a text; one that names no VR gives OB.
    const CDcmEntry& Entry(const CString& vr, int multiplicity);

private:
    const CDcmEntry& EntryLocked(int vr, int multiplicity);

    mutable std::mutex m_lock;
    CPrivateTable m_table;
    std::atomic<bool> m_isEmpty{true}; // Most processes meet no private tags, and then do not need the lock.
    std::map<std::pair<int, int>, CDcmEntry> m_entries;
};

/// The private tags of one read: those that earlier reads have learned, as far as they were known when the read met its
/// first private tag, and those that it learns itself.
class CReadTags
{
public:
    /// The entry of a tag; null for one that is not known, and for all tags of even groups.
    const CDcmEntry* Find(DWORD tag);
    /// The entry of a tag that Find does not know, which is learned. Null for even groups.
    /// @param vr VR text; one that names no VR is OB.
    const CDcmEntry* Learn(DWORD tag, const CString& vr);
    /// Adds what was learned to the dictionary that all reads share.
    void Keep();

private:
    const CEntryTable& Known();

    std::optional<CPrivateTable> m_known;
    CEntryTable m_learned;
};
