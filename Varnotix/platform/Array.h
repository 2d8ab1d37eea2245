/// The growing array that all arrays of the interfaces derive from.
#pragma once

#include "Varnotix/platform/Exceptions.h"

#include <climits>

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <functional>
#include <iterator>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

/// A growing array, contiguous in memory. Adding at the end takes amortised constant time.
///
/// Contract:
/// - New elements that SetSize and SetAtGrow make are zero (value-initialised).
/// - A size below 0 or above 2^31-1, or a lack of memory, throws CMemoryException; the array is then unchanged.
/// - GetAt, SetAt, ElementAt, InsertAt and RemoveAt throw std::out_of_range for an index outside. operator[] and
///   GetData are unchecked in release builds, for loops that already know the size.
/// - Pointers and references to elements are valid until the size changes.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
    static_assert(!std::is_same_v<TYPE, bool>, "bool has no addressable elements here");

public:
    CArray() = default;
    CArray(const CArray& other) : CObject(other) { Assign(other.GetData(), other.GetSize()); }
    CArray(CArray&& other) noexcept : CObject(other), m_data(std::move(other.m_data)) { other.m_data.clear(); }
    ~CArray() override = default;
    CArray& operator=(const CArray& other)
    {
        Assign(other.GetData(), other.GetSize());
        return *this;
    }
    CArray& operator=(CArray&& other) noexcept
    {
        if (this != &other)
        {
            m_data = std::move(other.m_data);
            other.m_data.clear();
        }
        return *this;
    }

    int GetSize() const noexcept { return static_cast<int>(m_data.size()); }
    int GetCount() const noexcept { return GetSize(); }
    bool IsEmpty() const noexcept { return m_data.empty(); }
    /// The last valid index; -1 when empty.
    int GetUpperBound() const noexcept { return GetSize() - 1; }
    /// Sets the size; new elements are zero. `growBy` is a hint that the geometric growth makes unnecessary.
    void SetSize(int size, [[maybe_unused]] int growBy = -1)
    {
        Guard([&] { m_data.resize(Checked(size)); });
    }
    /// Makes room for `size` elements without changing the size.
    void Reserve(int size)
    {
        Guard([&] { m_data.reserve(Checked(size)); });
    }
    /// Empties the array and frees its memory.
    void RemoveAll() noexcept { std::vector<TYPE>().swap(m_data); }
    /// The number of elements that fit without a new allocation.
    int GetCapacity() const noexcept { return static_cast<int>(std::min(m_data.capacity(), kMaxSize)); }
    /// Frees memory that the size does not need.
    void FreeExtra()
    {
        Guard([&] { m_data.shrink_to_fit(); });
    }

    const TYPE& GetAt(int index) const { return m_data[Inside(index)]; }
    void SetAt(int index, ARG_TYPE value) { m_data[Inside(index)] = value; }
    TYPE& ElementAt(int index) { return m_data[Inside(index)]; }
    const TYPE& operator[](int index) const noexcept
    {
        assert(index >= 0 && index < GetSize());
        return m_data[static_cast<std::size_t>(index)];
    }
    TYPE& operator[](int index) noexcept
    {
        assert(index >= 0 && index < GetSize());
        return m_data[static_cast<std::size_t>(index)];
    }
    /// The first element; may be null when empty.
    const TYPE* GetData() const noexcept { return m_data.data(); }
    TYPE* GetData() noexcept { return m_data.data(); }
    const TYPE* begin() const noexcept { return m_data.data(); }
    const TYPE* end() const noexcept { return m_data.data() + m_data.size(); }
    TYPE* begin() noexcept { return m_data.data(); }
    TYPE* end() noexcept { return m_data.data() + m_data.size(); }

    /// Appends one element and returns its index.
    int Add(ARG_TYPE value)
    {
        Guard(
            [&]
            {
                if (m_data.size() >= kMaxSize)
                {
                    Varnotix::ThrowMemoryException();
                }
                m_data.push_back(value);
            });
        return GetUpperBound();
    }
    /// Appends all elements of `other`, which may be this array, and returns the index of the first of them.
    int Append(const CArray& other)
    {
        const int first = GetSize();
        AppendRaw(other.GetData(), other.GetSize());
        return first;
    }
    /// Makes this array equal to `other`.
    void Copy(const CArray& other) { *this = other; }
    /// Appends `count` elements by one copy, without filling their place first. `source` may lie in this array.
    void AppendRaw(const TYPE* source, int count)
    {
        if (count == 0)
        {
            return;
        }
        Guard(
            [&]
            {
                const std::size_t added = Checked(count);
                if (added > kMaxSize - m_data.size())
                {
                    Varnotix::ThrowMemoryException();
                }
                if (Holds(source))
                {
                    const std::vector<TYPE> copy(source, source + added);
                    m_data.insert(m_data.end(), copy.begin(), copy.end());
                }
                else
                {
                    m_data.insert(m_data.end(), source, source + added);
                }
            });
    }
    /// Replaces the content by `count` elements, by one copy. `source` may lie in this array.
    void Assign(const TYPE* source, int count)
    {
        if (source == m_data.data() && count == GetSize())
        {
            return;
        }
        Guard(
            [&]
            {
                const std::size_t size = Checked(count);
                if (std::is_trivially_copyable_v<TYPE> && size <= m_data.capacity() && !Holds(source))
                {
                    m_data.assign(source, source + size);
                }
                else
                {
                    std::vector<TYPE>(source, source + size).swap(m_data);
                }
            });
    }
    /// Inserts `count` copies of `value` before `index`. An index after the end fills the gap with zero elements; one
    /// below 0 throws std::out_of_range.
    void InsertAt(int index, ARG_TYPE value, int count = 1)
    {
        if (index < 0)
        {
            throw std::out_of_range("array index");
        }
        Guard(
            [&]
            {
                const std::size_t place = static_cast<std::size_t>(index);
                std::vector<TYPE> added(Checked(count), value);
                const std::size_t start = std::max(place, m_data.size());
                if (added.size() > kMaxSize - start)
                {
                    Varnotix::ThrowMemoryException();
                }
                Grow(start + added.size());
                if (place > m_data.size())
                {
                    m_data.resize(place);
                }
                m_data.insert(m_data.begin() + index, std::make_move_iterator(added.begin()),
                              std::make_move_iterator(added.end()));
            });
    }
    /// Removes `count` elements from `index` on. The whole range must lie inside, else std::out_of_range.
    void RemoveAt(int index, int count = 1)
    {
        if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
        {
            throw std::out_of_range("array index");
        }
        m_data.erase(m_data.begin() + index, m_data.begin() + index + count);
    }
    /// As SetAt, but an index after the end makes the array longer; the gap is zero.
    void SetAtGrow(int index, ARG_TYPE value)
    {
        if (index < 0)
        {
            throw std::out_of_range("array index");
        }
        if (index < GetSize())
        {
            m_data[static_cast<std::size_t>(index)] = value;
        }
        else
        {
            InsertAt(index, value);
        }
    }
    void Swap(CArray& other) noexcept { m_data.swap(other.m_data); }
    /// Element by element.
    bool operator==(const CArray& other) const { return m_data == other.m_data; }

private:
    static constexpr std::size_t kMaxSize = INT_MAX;

    static std::size_t Checked(int size)
    {
        if (size < 0)
        {
            Varnotix::ThrowMemoryException();
        }
        return static_cast<std::size_t>(size);
    }
    std::size_t Inside(int index) const
    {
        if (index < 0 || index >= GetSize())
        {
            throw std::out_of_range("array index");
        }
        return static_cast<std::size_t>(index);
    }
    bool Holds(const TYPE* place) const noexcept
    {
        return !std::less<>()(place, begin()) && std::less<>()(place, end());
    }
    void Grow(std::size_t size)
    {
        if (size > m_data.capacity())
        {
            m_data.reserve(std::max(size, std::min(m_data.capacity() * 2, kMaxSize)));
        }
    }
    template <class ACTION>
    static void Guard(ACTION action)
    {
        try
        {
            action();
        }
        catch (const std::bad_alloc&)
        {
            Varnotix::ThrowMemoryException();
        }
        catch (const std::length_error&)
        {
            Varnotix::ThrowMemoryException();
        }
    }

    std::vector<TYPE> m_data;
};
