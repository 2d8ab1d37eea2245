#include "picture/Palette.h"

#include "console/Report.h"
#include "object/Attributes.h"

#include <algorithm>

namespace
{

constexpr DWORD kRedDescriptor = 0x00281101;
constexpr DWORD kRedData = 0x00281201;
constexpr DWORD kRedSegmented = 0x00281221;

} // namespace

CString CPalette::ReadTable(const CDcmElementSet& store, int channel, bool isSigned, STable& table)
{
    constexpr int kDescriptorWords = 3;
    constexpr std::int64_t kMostEntries = 65536;
    const DWORD descriptorTag = kRedDescriptor + static_cast<DWORD>(channel);
    const DWORD dataTag = kRedData + static_cast<DWORD>(channel);
    const CDcmElement* descriptor = store.Find(descriptorTag);
    const CWordArray* words = descriptor != nullptr ? descriptor->Words() : nullptr;
    if (words == nullptr || words->GetSize() < kDescriptorWords)
    {
        return TagAndName(descriptorTag) + " does not hold three numbers";
    }
    const int bits = (*words)[2];
    if (bits != 8 && bits != 16)
    {
        CString text;
        text.Format(" declares entries of %d bits", bits);
        return TagAndName(descriptorTag) + text;
    }
    table.entries = (*words)[0] == 0 ? kMostEntries : (*words)[0];
    table.first = isSigned ? static_cast<std::int16_t>((*words)[1]) : (*words)[1];
    const CDcmElement* data = store.Find(dataTag);
    if (data == nullptr)
    {
        const DWORD segmentedTag = kRedSegmented + static_cast<DWORD>(channel);
        return store.Find(segmentedTag) != nullptr ? TagAndName(segmentedTag) + " is not supported"
                                                   : TagAndName(dataTag) + " is missing";
    }
    table.data = data->RawBytes();
    const std::uint64_t size = table.data.Size();
    const auto entries = static_cast<std::uint64_t>(table.entries);
    // Entries of eight bits are bytes, or low bytes of words.
    table.entrySize = bits == 16 || size >= 2 * entries ? 2 : 1;
    table.shownByte = bits == 16 ? 1 : 0;
    if (size < entries * table.entrySize)
    {
        CString text;
        text.Format(" holds %llu bytes, too few for %llu entries of %d bits", static_cast<unsigned long long>(size),
                    static_cast<unsigned long long>(entries), bits);
        return TagAndName(dataTag) + text;
    }
    return CString();
}

CString CPalette::Read(const CDcmElementSet& store, bool isSigned)
{
    for (int channel = 0; channel < 3; ++channel)
    {
        CString reason = ReadTable(store, channel, isSigned, m_tables[channel]);
        if (!reason.IsEmpty())
        {
            return reason;
        }
    }
    return CString();
}

void CPalette::Colour(std::int64_t value, BYTE* rgb) const
{
    for (const STable& table : m_tables)
    {
        const std::int64_t entry = std::clamp<std::int64_t>(value - table.first, 0, table.entries - 1);
        *rgb++ = table.data.Data()[static_cast<std::size_t>(entry) * table.entrySize + table.shownByte];
    }
}
