#include "Varnotix/registry/EntryTable.h"

#include <cstdio>

namespace
{

constexpr std::size_t kKeyLength = 8;
constexpr std::size_t kFirstSlots = 64;
constexpr std::uint64_t kRepeatingMark = std::uint64_t{1} << 32U;

bool IsRepeatingGroup(unsigned group)
{
    const unsigned family = group & 0xFF00U;
    return family == 0x5000U || family == 0x6000U;
}

/// Reads upper-case hexadecimal digits only: the key's text form is canonical, so each number has one text.
bool HexValue(std::string_view digits, unsigned& value)
{
    value = 0;
    for (const char digit : digits)
    {
        unsigned nibble = 0;
        if (digit >= '0' && digit <= '9')
        {
            nibble = static_cast<unsigned>(digit - '0');
        }
        else if (digit >= 'A' && digit <= 'F')
        {
            nibble = static_cast<unsigned>(digit - 'A') + 10U;
        }
        else
        {
            return false;
        }
        value = value * 16U + nibble;
    }
    return true;
}

} // namespace

CEntryTable::Code CEntryTable::CodeOfTag(int group, int element)
{
    const unsigned groupBits = static_cast<unsigned>(group) & 0xFFFFU;
    const unsigned elementBits = static_cast<unsigned>(element) & 0xFFFFU;
    if (IsRepeatingGroup(groupBits))
    {
        return kRepeatingMark | (Code{groupBits & 0xFF00U} << 16U) | elementBits;
    }
    return (Code{groupBits} << 16U) | elementBits;
}

bool CEntryTable::CodeOfKey(std::string_view key, Code& code)
{
    if (key.size() != kKeyLength)
    {
        return false;
    }
    unsigned element = 0;
    if (!HexValue(key.substr(4), element))
    {
        return false;
    }
    unsigned group = 0;
    if (HexValue(key.substr(0, 4), group))
    {
        code = (Code{group} << 16U) | element;
        return true;
    }
    if (key.substr(2, 2) == "XX" && HexValue(key.substr(0, 2), group) && IsRepeatingGroup(group << 8U))
    {
        code = kRepeatingMark | (Code{group} << 24U) | element;
        return true;
    }
    return false;
}

std::string CEntryTable::KeyOfTag(int group, int element)
{
    char key[kKeyLength + 1];
    std::snprintf(key, sizeof key, "%04X%04X", static_cast<unsigned>(group) & 0xFFFFU,
                  static_cast<unsigned>(element) & 0xFFFFU);
    return key;
}

std::size_t CEntryTable::SlotOf(Code code) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = static_cast<std::size_t>(SpreadNumber(code, m_spread)) & mask;
    while (m_slots[slot].entry != nullptr && m_slots[slot].code != code)
    {
        slot = (slot + 1) & mask;
    }
    return slot;
}

const CDcmEntry* CEntryTable::FindCode(Code code) const
{
    return m_slots.empty() ? nullptr : m_slots[SlotOf(code)].entry;
}

const CDcmEntry* CEntryTable::Find(std::string_view key) const
{
    Code code = 0;
    if (CodeOfKey(key, code))
    {
        return FindCode(code);
    }
    const auto found = m_otherKeys.find(std::string(key));
    return found == m_otherKeys.end() ? nullptr : found->second;
}

void CEntryTable::Grow()
{
    std::vector<SSlot> old(m_slots.empty() ? kFirstSlots : m_slots.size() * 2);
    old.swap(m_slots);
    for (const SSlot& slot : old)
    {
        if (slot.entry != nullptr)
        {
            m_slots[SlotOf(slot.code)] = slot;
        }
    }
}

const CDcmEntry* CEntryTable::Add(std::string_view key, std::unique_ptr<CDcmEntry> entry)
{
    m_owned.push_back(std::move(entry));
    const CDcmEntry* added = Add(key, *m_owned.back());
    if (added != m_owned.back().get())
    {
        m_owned.pop_back();
    }
    return added;
}

const CDcmEntry* CEntryTable::Add(std::string_view key, const CDcmEntry& entry)
{
    if (const CDcmEntry* present = Find(key))
    {
        return present;
    }
    // Make room first, so that a failed allocation leaves the table as it was.
    m_items.reserve(m_items.size() + 1 > m_items.capacity() ? m_items.capacity() * 2 + 1 : m_items.capacity());
    SItem item{std::string(key), &entry};
    Code code = 0;
    if (CodeOfKey(key, code))
    {
        if ((m_codedCount + 1) * 2 > m_slots.size())
        {
            Grow();
        }
        m_slots[SlotOf(code)] = SSlot{code, &entry};
        ++m_codedCount;
    }
    else
    {
        m_otherKeys.emplace(item.key, &entry);
    }
    m_items.push_back(std::move(item));
    return &entry;
}

void CEntryTable::MoveInto(CEntryTable& target)
{
    for (const SItem& item : m_items)
    {
        target.Add(item.key, *item.entry);
    }
    RemoveAll();
}

void CEntryTable::RemoveAll()
{
    if (m_items.empty())
    {
        return; // Every read clears its provisional entries; most reads made none.
    }
    m_items.clear();
    m_owned.clear();
    m_slots.clear();
    m_codedCount = 0;
    m_otherKeys.clear();
}
