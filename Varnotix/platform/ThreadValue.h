/// Objects of which each thread has its own.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

/// What a slot holds for a thread.
class CThreadValue
{
public:
    CThreadValue() = default;
    CThreadValue(const CThreadValue&) = delete;
    CThreadValue& operator=(const CThreadValue&) = delete;
    virtual ~CThreadValue();
};

/// A place that every thread finds empty at first. The system destroys what a thread has put there when the thread
/// ends.
///
/// The language's thread_local would do, but MinGW frees the memory of such objects before it calls their destructors.
class CThreadSlot
{
public:
    /// Throws CMemoryException when the system has no more slots.
    CThreadSlot();
    /// Also destroys the calling thread's value.
    ~CThreadSlot();
    CThreadSlot(const CThreadSlot&) = delete;
    CThreadSlot& operator=(const CThreadSlot&) = delete;

    /// The calling thread's value; null at first.
    CThreadValue* Get() const;
    /// To be called once in a thread. Throws CMemoryException.
    void Set(std::unique_ptr<CThreadValue> value) const;

private:
    std::uintptr_t m_key;
};

/// One VALUE for each thread, made when the thread first asks for it.
template <class VALUE>
class TPerThread
{
public:
    VALUE& Value() const
    {
        CThreadValue* value = m_slot.Get();
        if (value == nullptr)
        {
            auto made = std::make_unique<SHolder>();
            value = made.get();
            m_slot.Set(std::move(made));
        }
        return static_cast<SHolder*>(value)->value;
    }

private:
    struct SHolder : CThreadValue
    {
        VALUE value{};
    };

    CThreadSlot m_slot;
};
