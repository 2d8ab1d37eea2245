#include "Varnotix/registry/DcmRegistry.h"

#include "Varnotix/platform/ThreadValue.h"
#include "Varnotix/registry/DataFiles.h"
#include "Varnotix/registry/DictionaryFile.h"
#include "Varnotix/registry/EntryTable.h"
#include "Varnotix/registry/NameList.h"
#include "Varnotix/registry/PrivateTags.h"
#include "Varnotix/registry/PublicDictionary.h"
#include "Varnotix/registry/Tag.h"

#include <array>
#include <atomic>
#include <mutex>

IMPLEMENT_DYNCREATE(CDcmRegistry, CObject)

class CDcmRegistryPrivate : public CObject
{
    DECLARE_DYNAMIC(CDcmRegistryPrivate)

public:
    const CDcmEntry* Find(std::string_view key) const
    {
        return FindWith([key](const CEntryTable& table) { return table.Find(key); });
    }
    const CDcmEntry* FindTag(int group, int element) const
    {
        return FindWith([=](const CEntryTable& table) { return table.FindTag(group, element); });
    }
    const CDcmEntry* Add(std::string_view key, const CDcmEntry& entry)
    {
        const std::scoped_lock lock(m_lock);
        m_isEmpty.store(false, std::memory_order_release);
        return m_dictionary.Add(key, entry);
    }
    /// Also empties the dictionary.
    void Promote()
    {
        const std::scoped_lock lock(m_lock);
        CPrivateTags::Shared().Take(m_dictionary);
        m_isEmpty.store(true, std::memory_order_release);
    }
    void RemoveAll()
    {
        // Each classic read comes here, and hosts hardly ever enter tags by themselves.
        if (!m_isEmpty.load(std::memory_order_acquire))
        {
            const std::scoped_lock lock(m_lock);
            m_dictionary.RemoveAll();
            m_isEmpty.store(true, std::memory_order_release);
        }
    }

private:
    template <class FIND>
    const CDcmEntry* FindWith(const FIND& find) const
    {
        if (m_isEmpty.load(std::memory_order_acquire))
        {
            return nullptr;
        }
        const std::scoped_lock lock(m_lock);
        return find(m_dictionary);
    }

    mutable std::mutex m_lock;
    CEntryTable m_dictionary;
    std::atomic<bool> m_isEmpty{true};
};

IMPLEMENT_DYNAMIC(CDcmRegistryPrivate, CObject)

namespace
{

/// The order of these names is the enumeration.
constexpr const char* kPhotometricNames[] = {
    "monochrome1",     "monochrome2", "palette color", "rgb", "ybr_full", "ybr_full_422",
    "ybr_partial_422", "ybr_ict",     "ybr_rct",       "hsv", "argb",     "cmyk"};

/// Texts that a registry hands out until the thread asks for the next one.
struct SResults
{
    CString uid;
    CString photometricName;
};

/// What all registry instances share. It lives in a function, so that it exists before the first instance, whatever
/// translation unit makes that one.
///
/// Only the first instance writes to these tables; afterwards any thread may read them without a lock. What reads learn
/// is in CPrivateTags.
struct SSharedTables
{
    std::mutex lock; // Of the number of instances, and of what the first and the last one do.
    int instances = 0;
    CEntryTable publicDictionary;
    CMapWordToOb types;
    CNameList uids;
    CNameList uidNames;
    CNameList photometricNames;
    CString dictionaryPath;
    CString uidTablePath;
    TPerThread<SResults> results;

    void Load();
    void Clear();
};

SSharedTables& Shared()
{
    static SSharedTables tables;
    return tables;
}

void SSharedTables::Load()
{
    CPrivateTags::Shared(); // Made now, it goes after the last instance.
    for (int vr = 0; vr < kNamedVrCount; ++vr)
    {
        types.SetAt(static_cast<WORD>(vr), new CDcmType(vr));
    }
    for (const char* name : kPhotometricNames)
    {
        photometricNames.Add(name);
    }
    dictionaryPath = Varnotix::ReadDataFile("dictionary.txt", [this](std::string_view line)
                                            { AddDictionaryLine(line, publicDictionary); });
    uidTablePath =
        Varnotix::ReadDataFile("UidTable.txt", [this](std::string_view line) { AddUidLine(line, uids, uidNames); });
}

/// The name lists stay: a registry constructed after all others were destroyed appends to them again, and searches then
/// return rows of the second copy.
void SSharedTables::Clear()
{
    publicDictionary.RemoveAll();
    CPrivateTags::Shared().Forget();
    for (int vr = 0; vr < kNamedVrCount; ++vr)
    {
        CObject* type = nullptr;
        types.Lookup(static_cast<WORD>(vr), type);
        delete type;
    }
    types.RemoveAll();
}

/// Multiplicity of a tag that no dictionary lists: any number of values where the VR can hold several.
int UnlistedMultiplicity(int vr)
{
    switch (Varnotix::VrKind(vr))
    {
    case EVrKind::Text:
        return vr == VR_LT || vr == VR_ST || vr == VR_UT ? 1 : -1;
    case EVrKind::Words:
    case EVrKind::Integers:
    case EVrKind::Doubles:
        return -1;
    case EVrKind::Floats:
        return vr == VR_FL ? -1 : 1;
    default:
        return 1;
    }
}

/// Constructed when the library is loaded, so that the tables are filled before any client call.
CDcmRegistry globalRegistry;

} // namespace

CDcmRegistry::CDcmRegistry() : m_private(new CDcmRegistryPrivate)
{
    const std::scoped_lock lock(Shared().lock);
    if (Shared().instances++ == 0)
    {
        Shared().Load();
    }
}

CDcmRegistry::~CDcmRegistry()
{
    const std::scoped_lock lock(Shared().lock);
    if (--Shared().instances == 0)
    {
        Shared().Clear();
    }
    delete m_private;
}

CDcmRegistry& CDcmRegistry::Global()
{
    return globalRegistry;
}

const CDcmEntry* CDcmRegistry::LookUpDictionary(const CString& group, const CString& element) const
{
    CString key(group);
    key.Trim();
    CString elementKey(element);
    elementKey.Trim();
    return LookUpKey(key + elementKey);
}

const CDcmEntry* CDcmRegistry::LookUpKey(const CString& key) const
{
    CString upper(key);
    upper.MakeUpper();
    const CDcmEntry* entry = Shared().publicDictionary.Find(upper.View());
    if (entry == nullptr)
    {
        entry = CPrivateTags::Shared().Find(upper.View());
    }
    return entry != nullptr ? entry : m_private->Find(upper.View());
}

const CDcmEntry* CDcmRegistry::LookUpTag(int group, int element) const
{
    const CDcmEntry* entry = Shared().publicDictionary.FindTag(group, element);
    if (entry == nullptr)
    {
        entry = CPrivateTags::Shared().FindTag(group, element);
    }
    return entry != nullptr ? entry : m_private->FindTag(group, element);
}

const CDcmEntry* CDcmRegistry::AddPrivateEntry(int group, int element, const CString& vr, int multiplicity)
{
    if (!Varnotix::Tag::IsPrivate(Varnotix::Tag::Make(group, element)))
    {
        return nullptr;
    }
    // LookUpTag does not find odd groups among 50xx and 60xx. If an earlier read has learned such a tag, its VR counts,
    // as for every private tag.
    const std::string key = CEntryTable::KeyOfTag(group, element);
    CPrivateTags& shared = CPrivateTags::Shared();
    const CDcmEntry* lasting = shared.Find(key);
    return lasting != nullptr ? lasting : m_private->Add(key, shared.Entry(vr, multiplicity));
}

const CDcmEntry* CDcmRegistry::AddSharedPrivateEntry(int group, int element, const CString& vr, int multiplicity)
{
    return Varnotix::Tag::IsPrivate(Varnotix::Tag::Make(group, element))
               ? CPrivateTags::Shared().Add(CEntryTable::KeyOfTag(group, element), vr, multiplicity)
               : nullptr;
}

void CDcmRegistry::PromotePrivateEntries()
{
    m_private->Promote();
}

void CDcmRegistry::ForgetPrivateEntries()
{
    m_private->RemoveAll();
    CPrivateTags::Shared().Forget();
}

const CDcmEntry* CDcmRegistry::LookUpPublicTag(DWORD tag) const
{
    return Varnotix::PublicDictionary().FindTag(tag);
}

const CEntryTable& Varnotix::PublicDictionary()
{
    return Shared().publicDictionary;
}

const CDcmEntry& CDcmRegistry::UnlistedEntry(int vr)
{
    static const auto entries = []
    {
        std::array<const CDcmEntry*, VR_UNKNOWN + 1> made{};
        for (int code = 0; code <= VR_UNKNOWN; ++code)
        {
            made[static_cast<std::size_t>(code)] = &CPrivateTags::Shared().Entry(code, UnlistedMultiplicity(code));
        }
        return made;
    }();
    return *entries[static_cast<std::size_t>(vr >= 0 && vr < VR_UNKNOWN ? vr : VR_UNKNOWN)];
}

void CDcmRegistry::ClearPrivateEntries()
{
    m_private->RemoveAll();
}

int CDcmRegistry::DictionarySize() const
{
    return Shared().publicDictionary.GetCount();
}

void CDcmRegistry::ExportPublicDictionary(CStringArray& lines) const
{
    for (const CEntryTable::SItem& item : Shared().publicDictionary.Items())
    {
        lines.Add(DictionaryLine(item.key, *item.entry));
    }
}

int CDcmRegistry::UidDictionarySize() const
{
    return Shared().uids.GetCount();
}

const CString& CDcmRegistry::UidString(int index) const
{
    CString& result = Shared().results.Value().uid;
    result = Shared().uids.At(index);
    return result;
}

CString CDcmRegistry::UidName(int index) const
{
    return Shared().uidNames.At(index);
}

int CDcmRegistry::UidEnum(const CString& uid) const
{
    return Shared().uids.LastRowOf(uid);
}

const CString& CDcmRegistry::PhotoMetricString(int value) const
{
    CString& result = Shared().results.Value().photometricName;
    result = Shared().photometricNames.At(value);
    result.MakeUpper();
    return result;
}

int CDcmRegistry::PhotoMetricEnum(const CString& name) const
{
    CString lower(name);
    lower.MakeLower();
    return Shared().photometricNames.LastRowOf(lower);
}

const CString& CDcmRegistry::DictionaryPath()
{
    return Shared().dictionaryPath;
}

const CString& CDcmRegistry::UidTablePath()
{
    return Shared().uidTablePath;
}
