/// The pointers that the body of a list holds.
#pragma once

#include "Varnotix/platform/Object.h"

/// Pointers to objects in order; the list does not own the objects. The first few lie in the list itself: most
/// sequences hold one short item, and need no memory besides their elements.
///
/// Memory that ran out throws CMemoryException and leaves the list unchanged. Indexes are not checked.
class VARNOTIX_EXPORT CObjectList
{
public:
    /// An empty list.
    CObjectList() = default;
    CObjectList(const CObjectList&) = delete;
    CObjectList& operator=(const CObjectList&) = delete;
    /// The objects stay.
    ~CObjectList() { RemoveAll(); }

    /// Number of pointers.
    int GetCount() const { return m_count; }
    /// True for a list without pointers.
    bool IsEmpty() const { return m_count == 0; }

    /// The pointer at an index from 0 to GetCount() - 1.
    CObject* operator[](int index) const { return m_places[index]; }
    /// As above; it can be replaced.
    CObject*& operator[](int index) { return m_places[index]; }
    /// The first place, for range loops and algorithms; valid until the list changes.
    CObject* const* begin() const { return m_places; }
    /// The place after the last one.
    CObject* const* end() const { return m_places + m_count; }
    /// As above; the pointers can be replaced and put in another order.
    CObject** begin() { return m_places; }
    /// As above.
    CObject** end() { return m_places + m_count; }

    /// Appends a pointer.
    void Add(CObject* object)
    {
        if (m_count == m_room)
        {
            Grow(m_count + 1LL);
        }
        m_places[m_count++] = object;
    }
    /// Makes room for a number of pointers without changing the count; a negative number throws CMemoryException.
    void Reserve(int count)
    {
        if (count < 0 || count > m_room)
        {
            Grow(count);
        }
    }
    /// Removes the pointer at an index; later ones move up.
    void RemoveAt(int index);
    /// Empties the list and frees its memory.
    void RemoveAll() noexcept
    {
        if (m_places != m_own)
        {
            delete[] m_places;
            m_places = m_own;
            m_room = kOwn;
        }
        m_count = 0;
    }
    /// Exchanges the content of two lists.
    void Swap(CObjectList& other) noexcept;

private:
    /// Makes room for so many pointers; throws for a negative number.
    void Grow(long long count);

    static constexpr int kOwn = 3;

    CObject** m_places = m_own;
    int m_count = 0;
    int m_room = kOwn;
    CObject* m_own[kOwn] = {};
};
