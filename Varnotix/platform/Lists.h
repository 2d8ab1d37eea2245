#pragma once

#include "Varnotix/platform/Array.h"

#include <span>

/// A list held side by side in memory.
///
/// Contract:
/// - A POSITION counts entries. Removing or inserting an entry moves the positions behind it by one; adding at the tail
///   moves none.
/// - A position outside the list throws std::out_of_range, as does asking an empty list for its head or tail.
/// - Adding at the tail is constant over many additions; changes at the head cost as much as the list is long.
/// - Memory that ran out throws CMemoryException and leaves the list unchanged.
template <class TYPE, class ARG_TYPE>
class CListBase : public CObject
{
public:
    int GetCount() const noexcept { return m_items.GetSize(); }
    bool IsEmpty() const noexcept { return m_items.IsEmpty(); }
    /// Forgets all entries and gives their memory back.
    void RemoveAll() noexcept { m_items.RemoveAll(); }
    void Reserve(int count) { m_items.Reserve(count); }
    POSITION AddTail(ARG_TYPE value) { return ToPosition(m_items.Add(value)); }
    POSITION AddHead(ARG_TYPE value)
    {
        m_items.InsertAt(0, value);
        return ToPosition(0);
    }
    /// Inserts before `position`; null means at the head. Returns the new entry's position.
    POSITION InsertBefore(POSITION position, ARG_TYPE value)
    {
        const int index = position == nullptr ? 0 : Index(position);
        m_items.InsertAt(index, value);
        return ToPosition(index);
    }
    /// Inserts behind `position`; null means at the tail. Returns the new entry's position.
    POSITION InsertAfter(POSITION position, ARG_TYPE value)
    {
        const int index = position == nullptr ? GetCount() : Index(position) + 1;
        m_items.InsertAt(index, value);
        return ToPosition(index);
    }
    /// The first position; null when empty.
    POSITION GetHeadPosition() const noexcept { return FindIndex(0); }
    /// The last position; null when empty.
    POSITION GetTailPosition() const noexcept { return FindIndex(GetCount() - 1); }
    /// The entry at `position`, which moves on to the next one, or to null behind the last.
    const TYPE& GetNext(POSITION& position) const
    {
        const int index = Index(position);
        position = FindIndex(index + 1);
        return m_items[index];
    }
    /// The entry at `position`, which moves back to the one before, or to null before the first.
    const TYPE& GetPrev(POSITION& position) const
    {
        const int index = Index(position);
        position = FindIndex(index - 1);
        return m_items[index];
    }
    const TYPE& GetAt(POSITION position) const { return m_items[Index(position)]; }
    void SetAt(POSITION position, ARG_TYPE value) { m_items[Index(position)] = value; }
    void RemoveAt(POSITION position) { m_items.RemoveAt(Index(position)); }
    const TYPE& GetHead() const { return m_items.GetAt(0); }
    const TYPE& GetTail() const { return m_items.GetAt(GetCount() - 1); }
    /// Removes the first entry and returns it.
    TYPE RemoveHead()
    {
        TYPE value = GetHead();
        m_items.RemoveAt(0);
        return value;
    }
    /// Removes the last entry and returns it.
    TYPE RemoveTail()
    {
        TYPE value = GetTail();
        m_items.RemoveAt(GetCount() - 1);
        return value;
    }
    /// The position of the entry with this zero-based index; null outside.
    POSITION FindIndex(int index) const noexcept
    {
        return index >= 0 && index < GetCount() ? ToPosition(index) : nullptr;
    }
    /// The position of the first entry equal to `value`, searched behind `after` (null: from the head); null when none.
    POSITION Find(ARG_TYPE value, POSITION after = nullptr) const
    {
        const int start = after == nullptr ? 0 : Index(after) + 1;
        const auto found = std::find(begin() + start, end(), value);
        return FindIndex(static_cast<int>(found - begin()));
    }
    /// Replaces all entries; `values` may be this list's own.
    void Assign(std::span<const TYPE> values)
    {
        if (values.size() > static_cast<std::size_t>(INT_MAX))
        {
            ThrowMemoryException();
        }
        m_items.Assign(values.data(), static_cast<int>(values.size()));
    }
    const TYPE* begin() const noexcept { return m_items.begin(); }
    const TYPE* end() const noexcept { return m_items.end(); }

protected:
    CListBase() = default;
    void SwapItems(CListBase& other) noexcept { m_items.Swap(other.m_items); }

private:
    static POSITION ToPosition(int index) noexcept
    {
        // A position is an index in the guise of a pointer. NOLINTNEXTLINE(performance-no-int-to-ptr)
        return reinterpret_cast<POSITION>(static_cast<std::uintptr_t>(index) + 1);
    }
    int Index(POSITION position) const
    {
        const std::uintptr_t place = reinterpret_cast<std::uintptr_t>(position);
        if (place == 0 || place > static_cast<std::uintptr_t>(GetCount()))
        {
            throw std::out_of_range("list position");
        }
        return static_cast<int>(place - 1);
    }

    CArray<TYPE, ARG_TYPE> m_items;
};

/// A list of pointers to objects, which it does not own. A copy holds the same pointers.
class VARNOTIX_EXPORT CObList : public CListBase<CObject*, CObject*>
{
    DECLARE_DYNCREATE(CObList)
    /// `blockSize` is a hint that the geometric growth makes unnecessary.
    explicit CObList(int blockSize = 10);

    /// The entry with this zero-based index; null outside the list.
    CObject* At(int index) const noexcept { return index >= 0 && index < GetCount() ? begin()[index] : nullptr; }
    void Swap(CObList& other) noexcept { SwapItems(other); }
};

/// A list of texts.
class VARNOTIX_EXPORT CStringList : public CListBase<CString, const CString&>
{
    DECLARE_DYNCREATE(CStringList)
    /// `blockSize` is a hint that the geometric growth makes unnecessary.
    explicit CStringList(int blockSize = 10);

    void Swap(CStringList& other) noexcept { SwapItems(other); }
};
