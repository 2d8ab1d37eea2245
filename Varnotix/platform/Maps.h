/// Hash maps from texts and words to objects.
#pragma once

#include "Varnotix/platform/Exceptions.h"

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <unordered_map>

/// Hashes a text as it compares: up to its first zero byte.
struct CStringHash
{
    std::size_t operator()(const CString& text) const noexcept { return std::hash<std::string_view>()(text.CText()); }
};

/// A hash map to objects, which it does not own.
///
/// Contract: entries come in no particular order. A position stays valid while its entry is in the map, whatever else
/// is added or removed. A null position throws std::out_of_range. Memory that ran out throws std::bad_alloc.
template <class KEY, class ARG_KEY, class HASH>
class CMapToOb : public CObject
{
public:
    int GetCount() const noexcept { return static_cast<int>(m_entries.size()); }
    bool IsEmpty() const noexcept { return m_entries.empty(); }
    /// Prepares for about `size` entries, so that adding them moves nothing. Below 1 it does nothing.
    void InitHashTable(int size)
    {
        if (size > 0)
        {
            m_entries.reserve(static_cast<std::size_t>(size));
        }
    }
    /// Adds the entry, or replaces the value of the one that has this key.
    void SetAt(ARG_KEY key, CObject* value) { m_entries.insert_or_assign(key, value); }
    /// True when the key is in the map; its value is then in `value`, which is otherwise unchanged.
    bool Lookup(ARG_KEY key, CObject*& value) const
    {
        const auto found = m_entries.find(key);
        if (found == m_entries.end())
        {
            return false;
        }
        value = found->second;
        return true;
    }
    /// True when there was an entry with this key.
    bool RemoveKey(ARG_KEY key) { return m_entries.erase(key) != 0; }
    void RemoveAll() noexcept { m_entries.clear(); }
    /// A position to begin with; null when empty.
    POSITION GetStartPosition() const noexcept { return ToPosition(m_entries.begin()); }
    /// Gives the entry at `position`, which moves on to another entry, or to null after the last.
    void GetNextAssoc(POSITION& position, KEY& key, CObject*& value) const
    {
        if (position == nullptr)
        {
            throw std::out_of_range("map position");
        }
        const Entry& entry = *reinterpret_cast<const Entry*>(position);
        key = entry.first;
        value = entry.second;
        position = ToPosition(std::next(m_entries.find(entry.first)));
    }

private:
    using Entries = std::unordered_map<KEY, CObject*, HASH>;
    using Entry = typename Entries::value_type;

    POSITION ToPosition(typename Entries::const_iterator entry) const noexcept
    {
        return entry == m_entries.end() ? nullptr : reinterpret_cast<POSITION>(const_cast<Entry*>(&*entry));
    }

    Entries m_entries;
};

/// From texts to objects. Keys compare as CString does, up to the first zero byte.
class VARNOTIX_EXPORT CMapStringToOb : public CMapToOb<CString, const CString&, CStringHash>
{
    DECLARE_DYNCREATE(CMapStringToOb)
};

/// From 16-bit words to objects.
class VARNOTIX_EXPORT CMapWordToOb : public CMapToOb<WORD, WORD, std::hash<WORD>>
{
    DECLARE_DYNCREATE(CMapWordToOb)
};
