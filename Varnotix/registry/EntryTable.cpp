#include "Varnotix/registry/EntryTable.h"

#include "Varnotix/registry/Tag.h"

#include <cstdio>
#include <optional>

using namespace Varnotix;

namespace
{

constexpr std::size_t kKeyLength = 8;
constexpr std::size_t kFirstSlots = 64;

} // namespace

bool CEntryTable::CodeOfKey(std::string_view key, Code& code)
{
    if (key.size() != kKeyLength)
    {
        return false;
    }
    const std::string_view groupText = key.substr(0, 4);
    const std::string_view elementText = key.substr(4);
    if (const std::optional<DWORD> tag = Tag::Parse(groupText, elementText))
    {
        code = *tag;
        return true;
    }
    if (groupText.substr(2) != "XX")
    {
        return false;
    }
    const std::optional<DWORD> first = Tag::Parse(std::string(groupText.substr(0, 2)) + "00", elementText);
    if (!first || !IsRepeatingGroup(*first))
    {
        return false;
    }
    code = kRepeatingMark | *first;
    return true;
}

std::string CEntryTable::KeyOfTag(int group, int element)
{
    char key[kKeyLength + 1];
    std::snprintf(key, sizeof key, "%08X", static_cast<unsigned>(Tag::Make(group, element)));
    return key;
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
        m_hasPrivateTags = m_hasPrivateTags || Tag::IsPrivate(static_cast<DWORD>(code));
    }
    else
    {
        m_otherKeys.emplace(item.key, &entry);
    }
    m_items.push_back(std::move(item));
    return &entry;
}

void CEntryTable::AddAll(const CEntryTable& other)
{
    for (const SItem& item : other.m_items)
    {
        Add(item.key, *item.entry);
    }
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
    m_hasPrivateTags = false;
    m_otherKeys.clear();
}
