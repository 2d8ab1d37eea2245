#include "Varnotix/iod/DcmIOD.h"

#include "Varnotix/iod/DcmIODPrivate.h"

IMPLEMENT_DYNCREATE(CDcmIOD, CObject)
IMPLEMENT_DYNAMIC(CDcmIODPrivate, CObject)

namespace
{

/// Copies of the module's elements that are not empty.
void CopyNonEmpty(const CDcmModule& module, CDcmElementSet& copies)
{
    module.GetDcmElementSet().CopyNonEmptyInto(copies);
}

/// True when any element of the set equals this one, tag and value.
/// @param next in and out: index at which the search begins; it wraps around, and ends after the element found.
///        Repeated tags that are asked for in the set's order are found at once.
bool HoldsEqual(const CDcmElementSet& set, const CDcmElement& wanted, int& next)
{
    const int count = set.GetCount();
    for (int left = count; left > 0; --left)
    {
        const CDcmElement& element = *set.GetAt(next);
        next = next + 1 < count ? next + 1 : 0;
        if (element.Tag() == wanted.Tag() && element == wanted)
        {
            return true;
        }
    }
    return false;
}

} // namespace

CDcmIOD::CDcmIOD() : m_store(std::make_unique<CDcmElementSet>()), m_private(std::make_unique<CDcmIODPrivate>()) {}

CDcmIOD::CDcmIOD(const CDcmIOD& other) : CDcmIOD()
{
    CopyFrom(other);
}

CDcmIOD::~CDcmIOD() = default;

CDcmIOD& CDcmIOD::operator=(const CDcmIOD& other)
{
    if (this != &other)
    {
        if (m_private->isTyped)
        {
            EmptyIodModules(); // What the store lacks must not stay from the object before.
        }
        TakeStore(other);
    }
    return *this;
}

void CDcmIOD::TakeStore(const CDcmIOD& other)
{
    CopyFrom(other);
    UpdateIod(false);
}

void CDcmIOD::CopyFrom(const CDcmIOD& other)
{
    m_streamRules = other.m_streamRules;
    m_syntax = other.m_syntax;
    m_requestedSyntax = other.m_requestedSyntax;
    m_emptyElements = other.m_emptyElements;
    m_groupLengths = other.m_groupLengths;
    m_fileFormat = other.m_fileFormat;
    m_preamble = other.m_preamble;
    m_store->CopyByValue(*other.m_store);
}

bool CDcmIOD::operator==(const CDcmIOD& other) const
{
    return this == &other || *m_store == *other.m_store;
}

bool CDcmIOD::IsSubSet(const CDcmIOD& other) const
{
    int next = 0;
    for (int i = 0; i < other.m_store->GetCount(); ++i)
    {
        const CDcmElement& wanted = *other.m_store->GetAt(i);
        const CDcmElement* first = m_store->Find(wanted);
        if (first == nullptr || (*first != wanted && !HoldsEqual(*m_store, wanted, next)))
        {
            return false;
        }
    }
    return true;
}

CDcmIOD& CDcmIOD::operator+=(CDcmModule& module)
{
    AddSetIncludeEmpty(module);
    UpdateIodModule(module, module.GetDcmElementSet());
    return *this;
}

CDcmIOD& CDcmIOD::operator-=(CDcmModule& module)
{
    // A stream may have repeated a tag, and what a caller removes must not stay.
    m_store->RemoveEveryTagOf(module.GetDcmElementSet());
    if (CDcmModule* registered = FindIodModule(module.GetRuntimeClass()))
    {
        registered->EmptyModule();
    }
    return *this;
}

CDcmIOD& CDcmIOD::operator-=(const CDcmIOD& other)
{
    m_store->RemoveEveryTagOf(*other.m_store);
    return *this;
}

CDcmIOD& CDcmIOD::operator&=(CDcmModule& module)
{
    CDcmElementSet values;
    CopyNonEmpty(module, values);
    m_store->UpdateValuesFrom(values);
    UpdateIodModule(module, values);
    return *this;
}

CDcmIOD& CDcmIOD::operator<(CDcmModule& module)
{
    CDcmElementSet values;
    CopyNonEmpty(module, values);
    m_store->RemoveTagsOf(module.GetDcmElementSet());
    m_store->Merge(values);
    m_store->Sort();
    UpdateIodModule(module, values);
    return *this;
}

CDcmIOD& CDcmIOD::operator<<(CDcmModule& module)
{
    CDcmElementSet values;
    CopyNonEmpty(module, values);
    m_store->RemoveTagsOf(values);
    m_store->Merge(values);
    m_store->Sort();
    UpdateIodModule(module, values);
    return *this;
}

CDcmIOD& CDcmIOD::operator>>(CDcmModule& module)
{
    UpdateIodModule(module);
    return *this;
}

void CDcmIOD::UpdateIod(bool intoStore)
{
    if (!intoStore)
    {
        UpdateIodModuleSet();
        return;
    }
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        if (m_emptyElements == EMPTY_ELEMENTS_INCLUDED)
        {
            AddSetIncludeEmpty(m_modules[i]);
        }
        else if (m_emptyElements == EMPTY_ELEMENTS_EXCLUDED)
        {
            AddSetExcludeEmpty(m_modules[i]);
        }
    }
}

int CDcmIOD::GetCount() const
{
    return m_store->GetCount();
}

int CDcmIOD::GetCountAll() const
{
    return m_store->GetCountAll();
}

void CDcmIOD::Sort()
{
    m_store->Sort();
}

void CDcmIOD::RemoveAll()
{
    m_store->RemoveAll();
}

void CDcmIOD::EmptyIodModules()
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        m_modules[i].EmptyModule();
    }
}

bool CDcmIOD::ReadStopped() const
{
    return !m_private->readNotes.empty() && m_private->readNotes.back().note == READ_STOPPED;
}

const std::vector<SReadTrial>& CDcmIOD::ReadTrials() const
{
    return m_private->readTrials;
}

const std::vector<SReadNote>& CDcmIOD::ReadNotes() const
{
    return m_private->readNotes;
}

void CDcmIOD::AddIodModule(CDcmModule& module)
{
    m_modules.Add(module);
}

CDcmModule* CDcmIOD::FindIodModule(const CRuntimeClass* moduleClass) const
{
    return m_modules.Find(moduleClass);
}

CDcmModule* CDcmIOD::FindIodModule(const CDcmModule& module) const
{
    return m_modules.Find(module);
}

void CDcmIOD::RemoveIodModule(const CRuntimeClass* moduleClass)
{
    m_modules.Remove(moduleClass);
}

void CDcmIOD::RemoveIodModule(const CDcmModule& module)
{
    m_modules.Remove(module);
}

void CDcmIOD::RemoveIodModules()
{
    m_modules.RemoveAll();
}

void CDcmIOD::AddSetIncludeEmpty(const CDcmModule& module)
{
    CDcmElementSet values;
    values.CopyByValue(module.GetDcmElementSet());
    m_store->TakeTagsOf(values);
}

void CDcmIOD::AddSetExcludeEmpty(const CDcmModule& module)
{
    CDcmElementSet values;
    CopyNonEmpty(module, values);
    m_store->TakeTagsOf(values);
}

void CDcmIOD::UpdateIodModule(const CDcmModule& module, const CDcmElementSet& set)
{
    if (CDcmModule* registered = FindIodModule(module.GetRuntimeClass()))
    {
        registered->GetDcmElementSet().UpdateValuesFrom(set);
    }
}

void CDcmIOD::UpdateIodModule(CDcmModule& module)
{
    module.GetDcmElementSet().UpdateValuesFrom(*m_store);
}

void CDcmIOD::UpdateIodModuleSet()
{
    for (int i = 0; i < m_modules.GetSize(); ++i)
    {
        UpdateIodModule(m_modules[i]);
    }
}
