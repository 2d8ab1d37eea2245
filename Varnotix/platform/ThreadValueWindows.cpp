#if defined(_WIN32)

#include "Varnotix/platform/Exceptions.h"
#include "Varnotix/platform/ThreadValue.h"

#define WIN32_LEAN_AND_MEAN
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

namespace
{

DWORD ToKey(std::uintptr_t key)
{
    return static_cast<DWORD>(key);
}

void WINAPI Destroy(void* value)
{
    delete static_cast<CThreadValue*>(value);
}

} // namespace

CThreadValue::~CThreadValue() = default;

CThreadSlot::CThreadSlot()
{
    // Fibre slots are thread slots whose values the system destroys.
    const DWORD key = FlsAlloc(&Destroy);
    if (key == FLS_OUT_OF_INDEXES)
    {
        throw CMemoryException();
    }
    m_key = key;
}

CThreadSlot::~CThreadSlot()
{
    FlsFree(ToKey(m_key)); // It destroys the values of all threads.
}

CThreadValue* CThreadSlot::Get() const
{
    return static_cast<CThreadValue*>(FlsGetValue(ToKey(m_key)));
}

void CThreadSlot::Set(std::unique_ptr<CThreadValue> value) const
{
    if (FlsSetValue(ToKey(m_key), value.get()) == 0)
    {
        throw CMemoryException();
    }
    static_cast<void>(value.release());
}

#endif
