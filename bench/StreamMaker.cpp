#include "StreamMaker.h"

#include <utility>

namespace
{
constexpr std::size_t kUndefinedLength = 0xFFFFFFFFU;

bool HasLongForm(std::string_view vr)
{
    return vr == "OB" || vr == "OW" || vr == "OF" || vr == "SQ" || vr == "UN" || vr == "UT";
}
} // namespace

CStreamMaker::CStreamMaker(std::string_view transferSyntaxUid)
{
    Element(0x0002, 0x0001, "OB", std::string_view("\0\1", 2));
    Element(0x0002, 0x0002, "UI", "1.2.840.10008.5.1.4.1.1.4");
    Element(0x0002, 0x0003, "UI", "1.2.826.0.1.3680043.2.1125.1.1");
    Element(0x0002, 0x0010, "UI", transferSyntaxUid);
    Element(0x0002, 0x0012, "UI", "1.2.826.0.1.3680043.2.1125.1");

    const std::string meta = std::move(m_bytes);
    m_bytes.assign(128, '\0');
    m_bytes += "DICM";
    Header(0x0002, 0x0000, "UL", 4);
    Put32(meta.size());
    m_bytes += meta;
}

void CStreamMaker::Element(int group, int element, std::string_view vr, std::string_view value)
{
    const bool odd = value.size() % 2 != 0;
    Header(group, element, vr, value.size() + (odd ? 1 : 0));
    m_bytes += value;
    if (odd)
    {
        m_bytes += vr == "UI" ? '\0' : ' ';
    }
}

void CStreamMaker::Pixels(std::size_t size)
{
    Header(0x7FE0, 0x0010, "OW", size);
    const std::size_t start = m_bytes.size();
    m_bytes.resize(start + size);
    for (std::size_t i = 0; i < size; ++i)
    {
        m_bytes[start + i] = static_cast<char>(i * 31 >> 4);
    }
}

void CStreamMaker::BeginSequence(int group, int element)
{
    Header(group, element, "SQ", kUndefinedLength);
}

void CStreamMaker::EndSequence()
{
    Delimiter(0xE0DD, 0);
}

void CStreamMaker::BeginItem()
{
    Delimiter(0xE000, kUndefinedLength);
}

void CStreamMaker::EndItem()
{
    Delimiter(0xE00D, 0);
}

void CStreamMaker::Fragment(std::string_view value)
{
    Delimiter(0xE000, value.size());
    m_bytes += value;
}

void CStreamMaker::BeginEncapsulatedPixels()
{
    Header(0x7FE0, 0x0010, "OB", kUndefinedLength);
}

CByteArray CStreamMaker::Bytes() const
{
    CByteArray bytes;
    bytes.AppendRaw(reinterpret_cast<const BYTE*>(m_bytes.data()), static_cast<int>(m_bytes.size()));
    return bytes;
}

void CStreamMaker::Put16(std::size_t value)
{
    m_bytes += static_cast<char>(value & 0xFF);
    m_bytes += static_cast<char>(value >> 8 & 0xFF);
}

void CStreamMaker::Put32(std::size_t value)
{
    Put16(value);
    Put16(value >> 16);
}

void CStreamMaker::Header(int group, int element, std::string_view vr, std::size_t length)
{
    Put16(static_cast<std::size_t>(group));
    Put16(static_cast<std::size_t>(element));
    m_bytes += vr;
    if (HasLongForm(vr))
    {
        Put16(0);
        Put32(length);
    }
    else
    {
        Put16(length);
    }
}

void CStreamMaker::Delimiter(int element, std::size_t length)
{
    Put16(0xFFFE);
    Put16(static_cast<std::size_t>(element));
    Put32(length);
}
