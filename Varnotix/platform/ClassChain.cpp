#include "Varnotix/platform/ClassChain.h"

#include "Varnotix/platform/Object.h"

#include <cstring>
#include <mutex>

namespace
{

// Records register themselves while static objects are constructed, in an unspecified order. The lists are therefore
// ready before the first constructor runs.
constinit CRuntimeClass* libraryClasses = nullptr;
constinit CRuntimeClass* hostClasses = nullptr;
constinit int joinCount = 0;

CRuntimeClass*& Head(EClassModule module)
{
    return module == EClassModule::Library ? libraryClasses : hostClasses;
}

/// The first record makes the lock, which therefore outlives all of them.
std::mutex& ChainLock()
{
    static std::mutex lock;
    return lock;
}

template <class ACTION>
void ForEachVisible(ACTION action)
{
    const std::scoped_lock lock(ChainLock());
    for (CRuntimeClass* record = hostClasses; record != nullptr; record = record->m_pNextClass)
    {
        action(record);
    }
    if (joinCount > 0)
    {
        for (CRuntimeClass* record = libraryClasses; record != nullptr; record = record->m_pNextClass)
        {
            action(record);
        }
    }
}

} // namespace

CRuntimeClassEntry::CRuntimeClassEntry(CRuntimeClass& record, EClassModule module) : m_record(record), m_module(module)
{
    const std::scoped_lock lock(ChainLock());
    record.m_pNextClass = Head(module);
    Head(module) = &record;
}

CRuntimeClassEntry::~CRuntimeClassEntry()
{
    const std::scoped_lock lock(ChainLock());
    for (CRuntimeClass** link = &Head(m_module); *link != nullptr; link = &(*link)->m_pNextClass)
    {
        if (*link == &m_record)
        {
            *link = m_record.m_pNextClass;
            break;
        }
    }
}

void Varnotix::JoinLibraryClasses()
{
    const std::scoped_lock lock(ChainLock());
    ++joinCount;
}

void Varnotix::LeaveLibraryClasses()
{
    const std::scoped_lock lock(ChainLock());
    --joinCount;
}

CRuntimeClass* CRuntimeClass::FromName(LPCTSTR name)
{
    CRuntimeClass* found = nullptr;
    if (name != nullptr)
    {
        ForEachVisible(
            [&](CRuntimeClass* record)
            {
                if (found == nullptr && std::strcmp(record->m_lpszClassName, name) == 0)
                {
                    found = record;
                }
            });
    }
    return found;
}

CObject* CRuntimeClass::CreateObject(LPCTSTR name)
{
    const CRuntimeClass* record = FromName(name);
    return record == nullptr ? nullptr : record->CreateObject();
}

std::vector<CRuntimeClass*> CRuntimeClass::Classes()
{
    std::vector<CRuntimeClass*> classes;
    ForEachVisible([&](CRuntimeClass* record) { classes.push_back(record); });
    return classes;
}
