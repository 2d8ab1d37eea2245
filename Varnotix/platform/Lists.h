/// Lists of objects and of texts.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <climits>

#include <cstddef>
#include <iterator>
#include <new>
#include <stdexcept>
#include <utility>

/// A list of linked entries.
///
/// Contract:
/// - A POSITION stays valid, and stays with its entry, until that entry is removed, whatever else is added or removed.
///   The position of a removed entry must not be used any more; it is not checked.
/// - A null position throws std::out_of_range, as does asking an empty list for its head or tail.
/// - Changes at any position take constant time; FindIndex and Find walk the list.
/// - Memory that ran out throws CMemoryException and leaves the list unchanged.
template <class TYPE, class ARG_TYPE>
class CListBase : public CObject
{
    struct SEntry
    {
        TYPE value;
        SEntry* previous;
        SEntry* next;
    };

public:
    /// A forward iterator over the entries.
    class CIterator
    {
    public:
        using iterator_category = std::forward_iterator_tag; ///< As std::iterator_traits asks.
        using value_type = TYPE;                             ///< What an entry holds.
        using difference_type = std::ptrdiff_t;              ///< As std::iterator_traits asks.
        using pointer = const TYPE*;                         ///< Entries cannot be changed through it.
        using reference = const TYPE&;                       ///< Entries cannot be changed through it.

        CIterator() = default;
        explicit CIterator(const SEntry* entry) : m_entry(entry) {}
        reference operator*() const { return m_entry->value; }
        pointer operator->() const { return &m_entry->value; }
        CIterator& operator++()
        {
            m_entry = m_entry->next;
            return *this;
        }
        CIterator operator++(int) { return CIterator(std::exchange(m_entry, m_entry->next)); }
        bool operator==(const CIterator& other) const = default;

    private:
        const SEntry* m_entry = nullptr;
    };

    CListBase(const CListBase& other) : CListBase()
    {
        for (const TYPE& value : other)
        {
            AddTail(value);
        }
    }
    CListBase(CListBase&& other) noexcept { Swap(other); }
    CListBase& operator=(const CListBase& other)
    {
        CListBase copy(other);
        Swap(copy);
        return *this;
    }
    CListBase& operator=(CListBase&& other) noexcept
    {
        CListBase moved(std::move(other));
        Swap(moved);
        return *this;
    }
    ~CListBase() override { RemoveAll(); }

    int GetCount() const noexcept { return m_count; }
    bool IsEmpty() const noexcept { return m_count == 0; }
    /// Removes all entries and gives their memory back.
    void RemoveAll() noexcept
    {
        while (m_head != nullptr)
        {
            delete std::exchange(m_head, m_head->next);
        }
        m_tail = nullptr;
        m_count = 0;
    }
    POSITION AddTail(ARG_TYPE value) { return Link(value, m_tail, nullptr); }
    POSITION AddHead(ARG_TYPE value) { return Link(value, nullptr, m_head); }
    /// Inserts before `position`; null means at the head. Returns the new entry's position.
    POSITION InsertBefore(POSITION position, ARG_TYPE value)
    {
        return position == nullptr ? AddHead(value) : Link(value, Entry(position).previous, &Entry(position));
    }
    /// Inserts after `position`; null means at the tail. Returns the new entry's position.
    POSITION InsertAfter(POSITION position, ARG_TYPE value)
    {
        return position == nullptr ? AddTail(value) : Link(value, &Entry(position), Entry(position).next);
    }
    /// The first position; null when empty.
    POSITION GetHeadPosition() const noexcept { return ToPosition(m_head); }
    /// The last position; null when empty.
    POSITION GetTailPosition() const noexcept { return ToPosition(m_tail); }
    /// The entry at `position`, which moves on to the next one, or to null after the last.
    const TYPE& GetNext(POSITION& position) const
    {
        const SEntry& entry = Entry(position);
        position = ToPosition(entry.next);
        return entry.value;
    }
    /// The entry at `position`, which moves back to the one before, or to null before the first.
    const TYPE& GetPrev(POSITION& position) const
    {
        const SEntry& entry = Entry(position);
        position = ToPosition(entry.previous);
        return entry.value;
    }
    const TYPE& GetAt(POSITION position) const { return Entry(position).value; }
    void SetAt(POSITION position, ARG_TYPE value) { Entry(position).value = value; }
    void RemoveAt(POSITION position)
    {
        SEntry& entry = Entry(position);
        (entry.previous != nullptr ? entry.previous->next : m_head) = entry.next;
        (entry.next != nullptr ? entry.next->previous : m_tail) = entry.previous;
        --m_count;
        delete &entry;
    }
    const TYPE& GetHead() const { return GetAt(GetHeadPosition()); }
    const TYPE& GetTail() const { return GetAt(GetTailPosition()); }
    /// Removes the first entry and returns it.
    TYPE RemoveHead() { return Take(GetHeadPosition()); }
    /// Removes the last entry and returns it.
    TYPE RemoveTail() { return Take(GetTailPosition()); }
    /// The position of the entry with this zero-based index; null outside.
    POSITION FindIndex(int index) const noexcept
    {
        if (index < 0 || index >= m_count)
        {
            return nullptr;
        }
        SEntry* entry = m_head;
        for (int i = 0; i < index; ++i)
        {
            entry = entry->next;
        }
        return ToPosition(entry);
    }
    /// The position of the first entry equal to `value`, searched after `after` (null: from the head); null when none.
    POSITION Find(ARG_TYPE value, POSITION after = nullptr) const
    {
        SEntry* entry = after == nullptr ? m_head : Entry(after).next;
        while (entry != nullptr && !(entry->value == value))
        {
            entry = entry->next;
        }
        return ToPosition(entry);
    }
    CIterator begin() const noexcept { return CIterator(m_head); }
    CIterator end() const noexcept { return CIterator(); }
    void Swap(CListBase& other) noexcept
    {
        std::swap(m_head, other.m_head);
        std::swap(m_tail, other.m_tail);
        std::swap(m_count, other.m_count);
    }

protected:
    CListBase() = default;

private:
    static POSITION ToPosition(SEntry* entry) noexcept { return reinterpret_cast<POSITION>(entry); }
    static SEntry& Entry(POSITION position)
    {
        if (position == nullptr)
        {
            throw std::out_of_range("list position");
        }
        return *reinterpret_cast<SEntry*>(position);
    }
    POSITION Link(ARG_TYPE value, SEntry* previous, SEntry* next)
    {
        SEntry* entry = Made(value, previous, next);
        (previous != nullptr ? previous->next : m_head) = entry;
        (next != nullptr ? next->previous : m_tail) = entry;
        ++m_count;
        return ToPosition(entry);
    }
    SEntry* Made(ARG_TYPE value, SEntry* previous, SEntry* next) const
    {
        try
        {
            if (m_count < INT_MAX)
            {
                return new SEntry{value, previous, next};
            }
        }
        catch (const std::bad_alloc&) // Goes on below.
        {
        }
        Varnotix::ThrowMemoryException();
    }
    TYPE Take(POSITION position)
    {
        TYPE value = GetAt(position);
        RemoveAt(position);
        return value;
    }

    SEntry* m_head = nullptr;
    SEntry* m_tail = nullptr;
    int m_count = 0;
};

/// A list of pointers to objects, which it does not own. A copy holds the same pointers.
class VARNOTIX_EXPORT CObList : public CListBase<CObject*, CObject*>
{
    DECLARE_DYNCREATE(CObList)
    /// `blockSize` has no effect; each entry is allocated separately.
    explicit CObList(int blockSize = 10);
};

/// A list of texts.
class VARNOTIX_EXPORT CStringList : public CListBase<CString, const CString&>
{
    DECLARE_DYNCREATE(CStringList)
    /// `blockSize` has no effect; each entry is allocated separately.
    explicit CStringList(int blockSize = 10);
};
