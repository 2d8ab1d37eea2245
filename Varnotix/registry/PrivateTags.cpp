#include "Varnotix/registry/PrivateTags.h"

#include "Varnotix/registry/Tag.h"

#include <string>

using namespace Varnotix;

namespace
{

constexpr const char* kPrivateName = "Private Data Element";

int CodeOf(const CString& vr)
{
    const int code = VrCode(vr.View());
    return code == VR_UNKNOWN ? static_cast<int>(VR_OB) : code;
}

} // namespace

CEntryTable& CPrivateTable::TagsToChange()
{
    if (!m_shared->holders.IsOne())
    {
        CPrivateTable copy;
        copy.m_shared->tags.AddAll(m_shared->tags);
        std::swap(m_shared, copy.m_shared);
    }
    return m_shared->tags;
}

void CPrivateTable::RemoveAll()
{
    if (m_shared->holders.IsOne())
    {
        m_shared->tags.RemoveAll();
    }
    else
    {
        *this = CPrivateTable();
    }
}

CPrivateTags& CPrivateTags::Shared()
{
    static CPrivateTags tags;
    return tags;
}

const CDcmEntry* CPrivateTags::Find(std::string_view key) const
{
    if (m_isEmpty.load(std::memory_order_acquire))
    {
        return nullptr;
    }
    const std::scoped_lock lock(m_lock);
    return m_table.Tags().Find(key);
}

const CDcmEntry* CPrivateTags::FindTag(int group, int element) const
{
    if (!Tag::IsPrivate(Tag::Make(group, element)) || m_isEmpty.load(std::memory_order_acquire))
    {
        return nullptr;
    }
    const std::scoped_lock lock(m_lock);
    return m_table.Tags().FindTag(group, element);
}

CPrivateTable CPrivateTags::Now() const
{
    const std::scoped_lock lock(m_lock);
    return m_table;
}

const CDcmEntry* CPrivateTags::Add(std::string_view key, const CString& vr, int multiplicity)
{
    const std::scoped_lock lock(m_lock);
    const CDcmEntry* entry = m_table.Tags().Find(key);
    if (entry == nullptr)
    {
        entry = m_table.TagsToChange().Add(key, EntryLocked(CodeOf(vr), multiplicity));
        m_isEmpty.store(false, std::memory_order_release);
    }
    return entry;
}

void CPrivateTags::Take(CEntryTable& learned)
{
    if (learned.GetCount() == 0)
    {
        return;
    }
    const std::scoped_lock lock(m_lock);
    m_isEmpty.store(false, std::memory_order_release);
    m_table.TagsToChange().AddAll(learned);
    learned.RemoveAll();
}

void CPrivateTags::Forget()
{
    const std::scoped_lock lock(m_lock);
    m_table.RemoveAll();
    m_isEmpty.store(true, std::memory_order_release);
}

const CDcmEntry& CPrivateTags::EntryLocked(int vr, int multiplicity)
{
    const auto [place, added] = m_entries.try_emplace(std::make_pair(vr, multiplicity), vr, multiplicity, kPrivateName);
    return place->second;
}

const CDcmEntry& CPrivateTags::Entry(int vr, int multiplicity)
{
    const std::scoped_lock lock(m_lock);
    return EntryLocked(vr, multiplicity);
}

const CDcmEntry& CPrivateTags::Entry(const CString& vr, int multiplicity)
{
    return Entry(CodeOf(vr), multiplicity);
}

const CEntryTable& CReadTags::Known()
{
    if (!m_known)
    {
        m_known.emplace(CPrivateTags::Shared().Now());
    }
    return m_known->Tags();
}

const CDcmEntry* CReadTags::Find(DWORD tag)
{
    if (!Tag::IsPrivate(tag))
    {
        return nullptr;
    }
    const CDcmEntry* entry = Known().FindTag(tag);
    return entry != nullptr ? entry : m_learned.FindTag(tag);
}

const CDcmEntry* CReadTags::Learn(DWORD tag, const CString& vr)
{
    if (!Tag::IsPrivate(tag))
    {
        return nullptr;
    }
    // Find does not know odd groups among 50xx and 60xx, which it takes for repeating ones. If an earlier read has
    // learned such a tag, its VR counts, as for every private tag.
    const std::string key = CEntryTable::KeyOfTag(Tag::Group(tag), Tag::Element(tag));
    const CDcmEntry* entry = Known().Find(key);
    return entry != nullptr ? entry : m_learned.Add(key, CPrivateTags::Shared().Entry(vr, 1));
}

void CReadTags::Keep()
{
    m_known.reset(); // As the only holder the dictionary need not be copied.
    CPrivateTags::Shared().Take(m_learned);
}
