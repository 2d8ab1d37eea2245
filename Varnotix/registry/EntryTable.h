/// The table of a dictionary layer: keys to entries.
#pragma once

#include "Varnotix/registry/DcmEntry.h"
#include "Varnotix/registry/Tag.h"
#include "Varnotix/registry/TagHash.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Maps dictionary keys to entries. It owns those that are added as owned.
///
/// A key is a text: group and element as eight upper-case hexadecimal digits, with XX for the low byte of a repeating
/// group. Decoding looks tags up by number far more often than callers look them up by text, so keys of that form are
/// held as numbers in an open hash table; any other text (from a malformed dictionary line) is kept in a separate map.
class CEntryTable
{
public:
    struct SItem
    {
        std::string key;
        const CDcmEntry* entry;
    };

    /// The entry of a key, or null. The key must be in upper case.
    const CDcmEntry* Find(std::string_view key) const;

    /// The entry of a tag, or null. Tags of the groups 50xx and 60xx are found under their repeating group's key.
    const CDcmEntry* FindTag(DWORD tag) const
    {
        const Code code = CodeOfTag(tag);
        // The public dictionary hardly ever lists private tags, and reads look there for each of them first.
        return Varnotix::Tag::IsPrivate(tag) && code == tag && !m_hasPrivateTags ? nullptr : FindCode(code);
    }
    const CDcmEntry* FindTag(int group, int element) const { return FindTag(Varnotix::Tag::Make(group, element)); }

    /// Stores the entry unless the key has one: the first entry of a key is kept.
    /// @return the entry that the key has now.
    const CDcmEntry* Add(std::string_view key, std::unique_ptr<CDcmEntry> entry);
    /// As above, for an entry that lives longer than the table.
    const CDcmEntry* Add(std::string_view key, const CDcmEntry& entry);

    /// True for tags that FindTag takes for those of a repeating group.
    static bool IsRepeatingGroup(DWORD tag)
    {
        const DWORD family = tag & 0xFF000000U;
        return family == 0x50000000U || family == 0x60000000U;
    }

    /// The key of one tag, also of one in a repeating group: its own digits, never XX.
    static std::string KeyOfTag(int group, int element);

    /// Adds the other table's entries for keys that this one lacks. The entries must live longer than this table.
    void AddAll(const CEntryTable& other);

    void RemoveAll();

    int GetCount() const { return static_cast<int>(m_items.size()); }

    /// All items in the order in which they were added.
    const std::vector<SItem>& Items() const { return m_items; }

private:
    using Code = std::uint64_t;

    struct SSlot
    {
        Code code = 0;
        const CDcmEntry* entry = nullptr;
    };

    static constexpr Code kRepeatingMark = Code{1} << 32U;

    static Code CodeOfTag(DWORD tag) { return IsRepeatingGroup(tag) ? kRepeatingMark | (tag & 0xFF00FFFFU) : tag; }
    static bool CodeOfKey(std::string_view key, Code& code);
    const CDcmEntry* FindCode(Code code) const { return m_slots.empty() ? nullptr : m_slots[SlotOf(code)].entry; }
    std::size_t SlotOf(Code code) const
    {
        const std::size_t mask = m_slots.size() - 1;
        // Neighbours are looked up one after the other, so eight of them have slots side by side.
        constexpr unsigned kNeighbourBits = 3;
        // Past the other neighbours of a tag that has the slot, but not to the same place among the next eight: those
        // of even numbers fill up first. All slots are tried, as the number is odd.
        constexpr std::size_t kStep = (1U << kNeighbourBits) + 1;
        const Code place = HashNumber(code >> kNeighbourBits, m_spread) << kNeighbourBits;
        std::size_t slot = static_cast<std::size_t>(place | (code & ((1U << kNeighbourBits) - 1))) & mask;
        while (m_slots[slot].entry != nullptr && m_slots[slot].code != code)
        {
            slot = (slot + kStep) & mask;
        }
        return slot;
    }
    void Grow();

    std::vector<SItem> m_items;
    std::vector<std::unique_ptr<CDcmEntry>> m_owned;
    std::vector<SSlot> m_slots;
    std::uint64_t m_spread = TagSpread();
    std::size_t m_codedCount = 0;
    bool m_hasPrivateTags = false;
    std::unordered_map<std::string, const CDcmEntry*> m_otherKeys;
};
