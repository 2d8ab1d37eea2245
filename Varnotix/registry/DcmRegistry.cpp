#include "Varnotix/registry/DcmRegistry.h"

#include "Varnotix/registry/DataFiles.h"
#include "Varnotix/registry/DictionaryFile.h"
#include "Varnotix/registry/EntryTable.h"
#include "Varnotix/registry/NameList.h"

#include <array>
#include <map>
#include <memory>
#include <utility>

IMPLEMENT_DYNCREATE(CDcmRegistry, CObject)

class CDcmRegistryPrivate : public CObject
{
    DECLARE_DYNAMIC(CDcmRegistryPrivate)

public:
    CEntryTable dictionary;
};

IMPLEMENT_DYNAMIC(CDcmRegistryPrivate, CObject)

namespace
{

constexpr const char* kPrivateName = "Private Data Element";

/// The order of these names is the enumeration.
constexpr const char* kPhotometricNames[] = {
    "monochrome1",     "monochrome2", "palette color", "rgb", "ybr_full", "ybr_full_422",
    "ybr_partial_422", "ybr_ict",     "ybr_rct",       "hsv", "argb",     "cmyk"};

/// What all registry instances share. It lives in a function, so that it exists before the first instance, whatever
/// translation unit makes that one.
struct SSharedTables
{
    int instances = 0;
    CEntryTable publicDictionary;
    CEntryTable privateDictionary;
    // The entries of all private tags: those of one VR and multiplicity share one. They stay when the private
    // dictionary is cleared, so that elements which refer to them remain whole.
    std::map<std::pair<int, int>, CDcmEntry> privateEntries;
    CMapWordToOb types;
    CNameList uids;
    CNameList uidNames;
    CNameList photometricNames;
    CString dictionaryPath;
    CString uidTablePath;

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
    for (int vr = 0; vr < kNamedVrCount; ++vr)
    {
        types.SetAt(static_cast<WORD>(vr), new CDcmType(vr));
    }
    for (const char* name : kPhotometricNames)
    {
        photometricNames.Add(name);
    }
    dictionaryPath =
        Varnotix::ReadDataFile("dictionary.txt", [this](std::string_view line) { AddDictionaryLine(line, publicDictionary); });
    uidTablePath = Varnotix::ReadDataFile("UidTable.txt", [this](std::string_view line) { AddUidLine(line, uids, uidNames); });
}

/// The name lists stay: a registry constructed after all others were destroyed appends to them again, and searches then
/// return rows of the second copy.
void SSharedTables::Clear()
{
    publicDictionary.RemoveAll();
    privateDictionary.RemoveAll();
    for (int vr = 0; vr < kNamedVrCount; ++vr)
    {
        CObject* type = nullptr;
        types.Lookup(static_cast<WORD>(vr), type);
        delete type;
    }
    types.RemoveAll();
}

const CDcmEntry& PrivateEntry(int vr, int multiplicity)
{
    const auto [place, added] =
        Shared().privateEntries.try_emplace(std::make_pair(vr, multiplicity), vr, multiplicity, kPrivateName);
    return place->second;
}

const CDcmEntry* AddTo(CEntryTable& table, int group, int element, const CString& vr, int multiplicity)
{
    const int vrCode = Varnotix::VrCode(vr.CText());
    return table.Add(CEntryTable::KeyOfTag(group, element),
                     PrivateEntry(vrCode == VR_UNKNOWN ? VR_OB : vrCode, multiplicity));
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

/// Asks the layers of the dictionary in their order.
template <class FIND>
const CDcmEntry* FirstHit(const CEntryTable& instanceLayer, const FIND& find)
{
    const SSharedTables& shared = Shared();
    const CDcmEntry* entry = find(shared.publicDictionary);
    if (entry == nullptr)
    {
        entry = find(shared.privateDictionary);
    }
    return entry != nullptr ? entry : find(instanceLayer);
}

bool IsEvenGroup(int group)
{
    return (group & 1) == 0;
}

/// Constructed when the library is loaded, so that the tables are filled before any client call.
CDcmRegistry globalRegistry;

} // namespace

CDcmRegistry::CDcmRegistry() : m_private(new CDcmRegistryPrivate)
{
    if (Shared().instances++ == 0)
    {
        Shared().Load();
    }
}

CDcmRegistry::~CDcmRegistry()
{
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
    return FirstHit(m_private->dictionary, [&upper](const CEntryTable& layer) { return layer.Find(upper.View()); });
}

const CDcmEntry* CDcmRegistry::LookUpTag(int group, int element) const
{
    return FirstHit(m_private->dictionary,
                    [group, element](const CEntryTable& layer) { return layer.FindTag(group, element); });
}

const CDcmEntry* CDcmRegistry::AddPrivateEntry(int group, int element, const CString& vr, int multiplicity)
{
    if (IsEvenGroup(group))
    {
        return nullptr;
    }
    // LookUpTag does not find odd groups among 50xx and 60xx. If an earlier read has learned such a tag, its shared
    // entry must be used, because elements keep a pointer to their entry.
    if (const CDcmEntry* lasting = Shared().privateDictionary.Find(CEntryTable::KeyOfTag(group, element)))
    {
        return lasting;
    }
    return AddTo(m_private->dictionary, group, element, vr, multiplicity);
}

const CDcmEntry* CDcmRegistry::AddSharedPrivateEntry(int group, int element, const CString& vr, int multiplicity)
{
    return IsEvenGroup(group) ? nullptr : AddTo(Shared().privateDictionary, group, element, vr, multiplicity);
}

void CDcmRegistry::PromotePrivateEntries()
{
    m_private->dictionary.MoveInto(Shared().privateDictionary);
}

void CDcmRegistry::ForgetPrivateEntries()
{
    m_private->dictionary.RemoveAll();
    Shared().privateDictionary.RemoveAll();
}

const CDcmEntry* CDcmRegistry::LookUpPublicTag(DWORD tag) const
{
    return Shared().publicDictionary.FindTag(static_cast<int>(tag >> 16U), static_cast<int>(tag & 0xFFFFU));
}

const CDcmEntry& CDcmRegistry::UnlistedEntry(int vr)
{
    static const auto entries = []
    {
        std::array<const CDcmEntry*, VR_UNKNOWN + 1> made{};
        for (int code = 0; code <= VR_UNKNOWN; ++code)
        {
            made[static_cast<std::size_t>(code)] = &PrivateEntry(code, UnlistedMultiplicity(code));
        }
        return made;
    }();
    return *entries[static_cast<std::size_t>(vr >= 0 && vr < VR_UNKNOWN ? vr : VR_UNKNOWN)];
}

void CDcmRegistry::ClearPrivateEntries()
{
    m_private->dictionary.RemoveAll();
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
    static CString result;
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
    static CString result;
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
