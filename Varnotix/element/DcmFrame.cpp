#include "Varnotix/element/DcmFrame.h"

#include <cstdint>

IMPLEMENT_DYNAMIC(CDcmFrame, CObject)

CDcmFrame::CDcmFrame(const CSharedBytes& bytes, int number) : m_shared(bytes), m_number(number) {}

CDcmFrame::CDcmFrame(const CDcmFrame& other)
    : CObject(other),
      m_shared(other.m_shared),
      m_array(other.m_array ? std::make_unique<CByteArray>(*other.m_array) : nullptr),
      m_fragments(other.m_fragments ? std::make_unique<std::vector<DWORD>>(*other.m_fragments) : nullptr),
      m_number(other.m_number),
      m_handedOut(other.m_handedOut)
{
}

CDcmFrame::~CDcmFrame() = default;

CByteArray& CDcmFrame::Array()
{
    CByteArray& array = OwnArray();
    m_handedOut = true;
    return array;
}

CByteArray& CDcmFrame::OwnArray()
{
    if (!m_array)
    {
        auto array = std::make_unique<CByteArray>();
        m_shared.CopyTo(*array);
        m_array = std::move(array);
        m_shared = CSharedBytes();
    }
    return *m_array;
}

void CDcmFrame::Append(const CSharedBytes& bytes)
{
    if (!m_fragments)
    {
        m_fragments = std::make_unique<std::vector<DWORD>>(1, static_cast<DWORD>(Size()));
    }
    m_fragments->push_back(static_cast<DWORD>(bytes.Size()));
    OwnArray().AppendRaw(bytes.Data(), static_cast<int>(bytes.Size()));
}

std::vector<DWORD> CDcmFrame::FragmentSizes() const
{
    const auto size = static_cast<DWORD>(Size());
    if (m_fragments)
    {
        std::uint64_t total = 0;
        for (const DWORD fragment : *m_fragments)
        {
            total += fragment;
        }
        if (total == size)
        {
            return *m_fragments;
        }
    }
    return {size};
}
