#include "Varnotix/codec/FrameEncoder.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/codec/OffsetTable.h"

using namespace Varnotix;

CFrameEncoder::CFrameEncoder(const CDcmFrameList& frames, int vr, int syntax)
    : m_frames(frames), m_bigEndian(syntax == SYNTAX_EXPLICIT_BIG), m_swapped(m_bigEndian && vr == VR_OW)
{
}

DWORD CFrameEncoder::Size() const
{
    if (m_frames.GetCount() < 2)
    {
        return static_cast<DWORD>(m_frames.TotalSize());
    }
    std::uint64_t size = 2 * kItemHeaderSize; // The offset table's item and the delimiter.
    if (OffsetTableFits(m_frames, 1))
    {
        size += static_cast<DWORD>(m_frames.OffsetTable().GetSize());
    }
    for (int i = 0; i < m_frames.GetCount(); ++i)
    {
        size += m_frames.GetFrame(i)->FragmentSizes().size() * kItemHeaderSize;
    }
    return static_cast<DWORD>(size + m_frames.TotalSize());
}

void CFrameEncoder::WriteBytes(const BYTE* bytes, std::size_t size, COutputBuffer& out) const
{
    if (m_swapped)
    {
        PutSwapped(bytes, size, 2, out);
    }
    else
    {
        out.Put(bytes, size);
    }
}

void CFrameEncoder::Write(COutputBuffer& out) const
{
    if (m_frames.GetCount() < 2)
    {
        if (const CDcmFrame* frame = m_frames.GetFrame(0))
        {
            WriteBytes(frame->Data(), frame->Size(), out);
        }
        return;
    }
    const CByteArray& table = m_frames.OffsetTable();
    const int tableSize = OffsetTableFits(m_frames, 1) ? table.GetSize() : 0;
    PutItemTag(out, Varnotix::Tag::kItem, m_bigEndian, static_cast<DWORD>(tableSize));
    out.Put(table.GetData(), static_cast<std::size_t>(tableSize));
    for (int i = 0; i < m_frames.GetCount(); ++i)
    {
        const CDcmFrame& frame = *m_frames.GetFrame(i);
        const BYTE* bytes = frame.Data();
        for (const DWORD fragment : frame.FragmentSizes())
        {
            PutItemTag(out, Varnotix::Tag::kItem, m_bigEndian, fragment);
            WriteBytes(bytes, fragment, out);
            bytes += fragment;
        }
    }
    PutItemTag(out, Varnotix::Tag::kSequenceDelimitationItem, m_bigEndian, 0);
}
