#include "codestream/JpegBits.h"

#include <algorithm>

namespace
{

constexpr BYTE kMarker = 0xFF;
constexpr int kFirstRestart = 0xD0;

} // namespace

CHuffmanTable::CHuffmanTable(const BYTE* counts, std::vector<BYTE> values) : m_values(std::move(values))
{
    int code = 0;
    int place = 0;
    for (int length = 1; length <= kLongestCode; ++length)
    {
        m_shift[static_cast<std::size_t>(length)] = place - code;
        for (int i = 0; i < counts[length - 1]; ++i, ++code, ++place)
        {
            if (code >= 1 << length)
            {
                FailCodestream("a Huffman table has more codes than there are");
            }
            if (length <= kShortCode)
            {
                const auto first = m_short.begin() + (code << (kShortCode - length));
                std::fill(first, first + (1 << (kShortCode - length)),
                          SShort{static_cast<BYTE>(length), m_values[static_cast<std::size_t>(place)]});
            }
        }
        m_afterLast[static_cast<std::size_t>(length)] = code;
        code <<= 1;
    }
}

int CHuffmanTable::Find(int bits, int& length) const
{
    const SShort entry = m_short[static_cast<std::size_t>(bits >> (kLongestCode - kShortCode))];
    if (entry.length != 0)
    {
        length = entry.length;
        return entry.value;
    }
    for (length = kShortCode + 1; length <= kLongestCode; ++length)
    {
        const int code = bits >> (kLongestCode - length);
        if (code < m_afterLast[static_cast<std::size_t>(length)])
        {
            return m_values[static_cast<std::size_t>(code + m_shift[static_cast<std::size_t>(length)])];
        }
    }
    length = 0;
    return 0;
}

void CJpegBits::Fill(int count)
{
    while (m_count < count && m_next != m_end)
    {
        const bool isStuffed = *m_next == kMarker;
        if (isStuffed && (m_end - m_next < 2 || m_next[1] != 0))
        {
            return;
        }
        m_bits = m_bits << 8U | *m_next;
        m_count += 8;
        m_next += isStuffed ? 2 : 1;
    }
}

int CJpegBits::Read(int count)
{
    Fill(count);
    if (m_count < count)
    {
        FailCodestream("its codestream ends early");
    }
    m_count -= count;
    return static_cast<int>(m_bits >> m_count & ((1U << count) - 1));
}

int CJpegBits::Decode(const CHuffmanTable& table)
{
    Fill(CHuffmanTable::kLongestCode);
    const int missing = std::max(CHuffmanTable::kLongestCode - m_count, 0);
    const std::uint32_t known = m_bits & static_cast<std::uint32_t>((std::uint64_t{1} << m_count) - 1);
    const std::uint32_t next = missing > 0 ? known << missing : known >> (m_count - CHuffmanTable::kLongestCode);
    int length = 0;
    const int value = table.Find(static_cast<int>(next), length);
    if (length == 0 || length > m_count)
    {
        FailCodestream(missing > 0 ? "its codestream ends early" : "its codestream has a code that no table has");
    }
    m_count -= length;
    return value;
}

int CJpegBits::ReadDifference(int count)
{
    const int value = Read(count);
    return count > 0 && value < 1 << (count - 1) ? value - (1 << count) + 1 : value;
}

void CJpegBits::Restart(int number)
{
    m_count = 0;
    while (m_end - m_next >= 2 && (m_next[0] != kMarker || m_next[1] == 0 || m_next[1] == kMarker))
    {
        ++m_next;
    }
    if (m_end - m_next < 2 || m_next[1] != kFirstRestart + number % 8)
    {
        FailCodestream("a restart marker of its codestream is missing");
    }
    m_next += 2;
}
