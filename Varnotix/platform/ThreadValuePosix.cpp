#if !defined(_WIN32)

#include "Varnotix/platform/Exceptions.h"
#include "Varnotix/platform/ThreadValue.h"

#include <pthread.h>

namespace
{

pthread_key_t ToKey(std::uintptr_t key)
{
    return static_cast<pthread_key_t>(key);
}

void Destroy(void* value)
{
    delete static_cast<CThreadValue*>(value);
}

} // namespace

CThreadValue::~CThreadValue() = default;

CThreadSlot::CThreadSlot()
{
    pthread_key_t key{};
    if (pthread_key_create(&key, &Destroy) != 0)
    {
        throw CMemoryException();
    }
    m_key = static_cast<std::uintptr_t>(key);
}

CThreadSlot::~CThreadSlot()
{
    delete Get();
    pthread_key_delete(ToKey(m_key));
}

CThreadValue* CThreadSlot::Get() const
{
    return static_cast<CThreadValue*>(pthread_getspecific(ToKey(m_key)));
}

void CThreadSlot::Set(std::unique_ptr<CThreadValue> value) const
{
    if (pthread_setspecific(ToKey(m_key), value.get()) != 0)
    {
        throw CMemoryException();
    }
    static_cast<void>(value.release());
}

#endif
