#include "codestream/JpegStream.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int kStart = 0xD8;
constexpr int kEnd = 0xD9;
constexpr int kScan = 0xDA;
constexpr int kQuantizationTables = 0xDB;
constexpr int kHuffmanTables = 0xC4;
constexpr int kArithmeticConditions = 0xCC;
constexpr int kRestartInterval = 0xDD;
constexpr int kAdobe = 0xEE;
constexpr int kFirstFrame = 0xC0;
constexpr int kLastFrame = 0xCF;
constexpr int kFirstRestart = 0xD0;
constexpr int kMostFactor = 4;
constexpr int kMostComponents = 4;

int Word(const BYTE* bytes)
{
    return bytes[0] << 8 | bytes[1];
}

void Require(bool isTrue, const char* segment)
{
    if (!isTrue)
    {
        FailCodestream(CString("the ") + segment + " of its codestream is damaged");
    }
}

bool IsFrame(int marker)
{
    return marker >= kFirstFrame && marker <= kLastFrame && marker != kHuffmanTables &&
           marker != kArithmeticConditions && marker != 0xC8;
}

} // namespace

bool SJpegFrame::IsSubsampled() const
{
    const auto differs = [this](const SJpegComponent& component)
    { return component.horizontal != components[0].horizontal || component.vertical != components[0].vertical; };
    return std::any_of(components.begin(), components.end(), differs);
}

/// Bytes before a marker, such as the bits of a scan, are passed over.
CJpegStream::SSegment CJpegStream::NextSegment()
{
    const auto isNone = [](int code) { return code == 0 || code == 0xFF || (code & ~7) == kFirstRestart; };
    while (m_end - m_next >= 2 && (m_next[0] != 0xFF || isNone(m_next[1])))
    {
        const void* found = std::memchr(m_next + 1, 0xFF, static_cast<std::size_t>(m_end - m_next - 1));
        m_next = found != nullptr ? static_cast<const BYTE*>(found) : m_end;
    }
    if (m_end - m_next < 2)
    {
        FailCodestream("its codestream ends early");
    }
    SSegment segment;
    segment.marker = m_next[1];
    m_next += 2;
    if (segment.marker == kStart || segment.marker == kEnd)
    {
        return segment;
    }
    const std::ptrdiff_t size = m_end - m_next >= 2 ? Word(m_next) : 0;
    if (size < 2 || size > m_end - m_next)
    {
        FailCodestream("its codestream ends early");
    }
    segment.bytes = m_next + 2;
    segment.size = static_cast<std::size_t>(size - 2);
    m_next += size;
    return segment;
}

void CJpegStream::ReadFrame()
{
    if (m_end - m_next < 2 || m_next[0] != 0xFF || m_next[1] != kStart)
    {
        FailCodestream("it does not begin as a JPEG codestream does");
    }
    for (;;)
    {
        const SSegment segment = NextSegment();
        Require(segment.marker != kScan && segment.marker != kEnd, "frame header");
        if (IsFrame(segment.marker))
        {
            TakeFrame(segment);
            return;
        }
        TakeTables(segment);
    }
}

bool CJpegStream::NextScan(SJpegScan& scan)
{
    for (;;)
    {
        const SSegment segment = NextSegment();
        if (segment.marker == kEnd)
        {
            return false;
        }
        Require(!IsFrame(segment.marker), "frame header");
        if (segment.marker == kScan)
        {
            TakeScan(segment, scan);
            return true;
        }
        TakeTables(segment);
    }
}

void CJpegStream::TakeTables(const SSegment& segment)
{
    if (segment.marker == kQuantizationTables)
    {
        TakeQuantization(segment);
    }
    else if (segment.marker == kHuffmanTables)
    {
        TakeHuffman(segment);
    }
    else if (segment.marker == kRestartInterval)
    {
        Require(segment.size >= 2, "restart interval");
        m_restartInterval = Word(segment.bytes);
    }
    else if (segment.marker == kAdobe && segment.size >= 12 && std::memcmp(segment.bytes, "Adobe", 5) == 0)
    {
        m_namesChrominance = segment.bytes[11] == 1;
    }
}

void CJpegStream::TakeQuantization(const SSegment& segment)
{
    for (std::size_t place = 0; place < segment.size;)
    {
        const std::size_t entrySize = segment.bytes[place] >> 4U == 0 ? 1 : 2;
        const std::size_t number = segment.bytes[place++] & 0xFU;
        Require(number < kTables && segment.size - place >= entrySize * kBlock, "quantization table");
        for (int& entry : m_quantization[number])
        {
            entry = entrySize == 1 ? segment.bytes[place] : Word(segment.bytes + place);
            place += entrySize;
        }
    }
}

void CJpegStream::TakeHuffman(const SSegment& segment)
{
    for (std::size_t place = 0; place < segment.size;)
    {
        const std::size_t kind = segment.bytes[place] >> 4U;
        const std::size_t number = segment.bytes[place++] & 0xFU;
        Require(kind < m_tables.size() && number < kTables &&
                    segment.size - place >= static_cast<std::size_t>(CHuffmanTable::kLongestCode),
                "Huffman table");
        const BYTE* counts = segment.bytes + place;
        place += CHuffmanTable::kLongestCode;
        std::size_t codes = 0;
        for (int i = 0; i < CHuffmanTable::kLongestCode; ++i)
        {
            codes += counts[i];
        }
        Require(segment.size - place >= codes, "Huffman table");
        const BYTE* values = segment.bytes + place;
        m_tables[kind][number] = CHuffmanTable(counts, std::vector<BYTE>(values, values + codes));
        place += codes;
    }
}

void CJpegStream::TakeFrame(const SSegment& segment)
{
    constexpr std::size_t kFixed = 6;
    constexpr std::size_t kEach = 3;
    Require(segment.size >= kFixed, "frame header");
    const int count = segment.bytes[5];
    Require(count >= 1 && count <= kMostComponents && segment.size >= kFixed + kEach * static_cast<std::size_t>(count),
            "frame header");
    m_frame.process = segment.marker;
    m_frame.shape = {Word(segment.bytes + 3), Word(segment.bytes + 1), count, segment.bytes[0]};
    for (const BYTE* entry = segment.bytes + kFixed; m_frame.components.size() < static_cast<std::size_t>(count);
         entry += kEach)
    {
        const SJpegComponent component{entry[0], entry[1] >> 4, entry[1] & 0xF, entry[2]};
        Require(component.horizontal >= 1 && component.horizontal <= kMostFactor && component.vertical >= 1 &&
                    component.vertical <= kMostFactor && component.quantization < static_cast<int>(kTables),
                "frame header");
        m_frame.components.push_back(component);
    }
}

void CJpegStream::TakeScan(const SSegment& segment, SJpegScan& scan) const
{
    constexpr std::size_t kAfter = 3;
    const std::size_t count = segment.size > 0 ? segment.bytes[0] : 0;
    Require(count >= 1 && count <= m_frame.components.size() && segment.size >= 1 + 2 * count + kAfter, "scan header");
    scan = {};
    for (std::size_t i = 0; i < count; ++i)
    {
        const BYTE* entry = segment.bytes + 1 + 2 * i;
        const auto found = std::find_if(m_frame.components.begin(), m_frame.components.end(),
                                        [&](const SJpegComponent& component) { return component.id == entry[0]; });
        const int dcTable = entry[1] >> 4;
        const int acTable = entry[1] & 0xF;
        const auto place = static_cast<std::size_t>(found - m_frame.components.begin());
        Require(found != m_frame.components.end() && dcTable < static_cast<int>(kTables) &&
                    acTable < static_cast<int>(kTables) &&
                    std::find(scan.components.begin(), scan.components.end(), place) == scan.components.end(),
                "scan header");
        scan.components.push_back(place);
        scan.dcTables.push_back(dcTable);
        scan.acTables.push_back(acTable);
    }
    const BYTE* after = segment.bytes + 1 + 2 * count;
    scan.predictor = after[0];
    scan.shift = after[2] & 0xF;
}
