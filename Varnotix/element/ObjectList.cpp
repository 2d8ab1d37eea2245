#include "Varnotix/element/ObjectList.h"

#include "Varnotix/platform/Exceptions.h"

#include <climits>

#include <algorithm>
#include <new>
#include <utility>

void CObjectList::Grow(long long count)
{
    const long long room = std::min<long long>(std::max(count, 2LL * m_room), INT_MAX);
    CObject** places =
        count >= 0 && count <= room ? new (std::nothrow) CObject*[static_cast<std::size_t>(room)] : nullptr;
    if (places == nullptr)
    {
        Varnotix::ThrowMemoryException();
    }
    std::copy(begin(), end(), places);
    const int kept = m_count;
    RemoveAll();
    m_places = places;
    m_count = kept;
    m_room = static_cast<int>(room);
}

void CObjectList::RemoveAt(int index)
{
    std::copy(begin() + index + 1, end(), m_places + index);
    --m_count;
}

void CObjectList::Swap(CObjectList& other) noexcept
{
    std::swap(m_places, other.m_places);
    std::swap(m_count, other.m_count);
    std::swap(m_room, other.m_room);
    std::swap(m_own, other.m_own);
    if (m_places == other.m_own)
    {
        m_places = m_own;
    }
    if (other.m_places == m_own)
    {
        other.m_places = other.m_own;
    }
}
