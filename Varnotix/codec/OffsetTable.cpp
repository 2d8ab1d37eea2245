#include "Varnotix/codec/OffsetTable.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ItemTags.h"

namespace Varnotix
{

bool OffsetTableFits(const CDcmFrameList& frames, DWORD unit)
{
    const CByteArray& table = frames.OffsetTable();
    const int entries = table.GetSize() / 4;
    int entry = 0;
    std::uint64_t offset = 0;
    for (int i = 0; i < frames.GetCount(); ++i)
    {
        for (const DWORD fragment : frames.GetFrame(i)->FragmentSizes())
        {
            // Offsets are little endian in every syntax.
            if (entry < entries && DoubleWord(table.GetData() + 4 * entry, false) == offset)
            {
                ++entry;
            }
            offset += kItemHeaderSize + (std::uint64_t{fragment} + unit - 1) / unit * unit;
        }
    }
    return entry == entries;
}

} // namespace Varnotix
