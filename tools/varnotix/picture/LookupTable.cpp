#include "picture/LookupTable.h"

#include "console/Report.h"

#include <algorithm>

namespace
{

constexpr int kFirstItem = 1;

const CDcmElement* FindFirst(const CDcmElementSet& set, DWORD tag)
{
    return set.FindInItem(kFirstItem, Varnotix::Tag::Group(tag), Varnotix::Tag::Element(tag));
}

} // namespace

CString CLookupTable::Read(const CDcmElementSet& set, DWORD descriptorTag, DWORD dataTag, bool isSigned)
{
    constexpr int kDescriptorWords = 3;
    constexpr std::int64_t kMostEntries = 65536;
    constexpr int kByte = 8;
    constexpr int kWord = 16;
    const CDcmElement* descriptor = FindFirst(set, descriptorTag);
    const CWordArray* words = descriptor != nullptr ? descriptor->Words() : nullptr;
    if (words == nullptr || words->GetSize() < kDescriptorWords)
    {
        return TagAndName(descriptorTag) + " does not hold three numbers";
    }
    m_bits = (*words)[2];
    if (m_bits < kByte || m_bits > kWord)
    {
        CString text;
        text.Format(" declares entries of %d bits", m_bits);
        return TagAndName(descriptorTag) + text;
    }
    m_entries = (*words)[0] == 0 ? kMostEntries : (*words)[0];
    m_first = isSigned ? static_cast<std::int16_t>((*words)[1]) : (*words)[1];
    const CDcmElement* data = FindFirst(set, dataTag);
    if (data == nullptr)
    {
        return TagAndName(dataTag) + " is missing";
    }
    m_data = data->RawBytes();
    const std::uint64_t size = m_data.Size();
    const auto entries = static_cast<std::uint64_t>(m_entries);
    // Entries of eight bits are bytes, or low bytes of words.
    m_entrySize = m_bits > kByte || size >= 2 * entries ? 2 : 1;
    if (size < entries * m_entrySize)
    {
        CString text;
        text.Format(" holds %llu bytes, too few for %llu entries of %d bits", static_cast<unsigned long long>(size),
                    static_cast<unsigned long long>(entries), m_bits);
        return TagAndName(dataTag) + text;
    }
    return CString();
}

int CLookupTable::At(std::int64_t input) const
{
    const auto entry = static_cast<std::size_t>(std::clamp<std::int64_t>(input - m_first, 0, m_entries - 1));
    const BYTE* bytes = m_data.Data() + entry * m_entrySize;
    return m_bits > 8 ? bytes[0] | bytes[1] << 8 : bytes[0];
}
