#include "picture/Palette.h"

#include "console/Report.h"

namespace
{

constexpr DWORD kRedDescriptor = 0x00281101;
constexpr DWORD kRedData = 0x00281201;
constexpr DWORD kRedSegmented = 0x00281221;
constexpr int kHighestByte = 255;
constexpr int kByteToWord = 257;

} // namespace

CString CPalette::Read(const CDcmElementSet& store, bool isSigned)
{
    for (DWORD channel = 0; channel < 3; ++channel)
    {
        const DWORD segmented = kRedSegmented + channel;
        if (store.Find(kRedData + channel) == nullptr && store.Find(segmented) != nullptr)
        {
            return TagAndName(segmented) + " is not supported";
        }
        CLookupTable& table = m_tables[channel];
        CString reason = table.Read(store, kRedDescriptor + channel, kRedData + channel, isSigned);
        if (reason.IsEmpty() && table.Bits() != 8 && table.Bits() != 16)
        {
            reason.Format(" declares entries of %d bits", table.Bits());
            reason = TagAndName(kRedDescriptor + channel) + reason;
        }
        if (!reason.IsEmpty())
        {
            return reason;
        }
    }
    return CString();
}

void CPalette::Colour(std::int64_t value, int highest, std::uint16_t* rgb) const
{
    for (const CLookupTable& table : m_tables)
    {
        const int entry = table.At(value);
        const int word = table.Bits() == 8 ? entry * kByteToWord : entry;
        *rgb++ = static_cast<std::uint16_t>(highest == kHighestByte ? word >> 8 : word);
    }
}
