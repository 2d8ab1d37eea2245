#include "Varnotix/codec/FrameWriter.h"

#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/codec/OffsetTable.h"

#include <string>

using namespace Varnotix;

namespace
{

std::uint64_t Padded(std::uint64_t size)
{
    return size + size % 2;
}

} // namespace

std::uint64_t CFrameWriter::Size() const
{
    if (!m_isEncapsulated)
    {
        return Padded(m_frames.TotalSize());
    }
    std::uint64_t size = 2 * kItemHeaderSize; // Offset table and delimiter.
    size += Padded(static_cast<std::uint64_t>(OffsetTable().GetSize()));
    for (int i = 0; i < m_frames.GetCount(); ++i)
    {
        for (const DWORD fragment : m_frames.GetFrame(i)->FragmentSizes())
        {
            size += kItemHeaderSize + Padded(fragment);
        }
    }
    return size;
}

/// Little-endian offsets of the frames' first fragments, in any syntax.
CByteArray CFrameWriter::OffsetTable() const
{
    const CByteArray& read = m_frames.OffsetTable();
    const bool isWhole = read.GetSize() % 4 == 0; // The padding of a part would make an entry of it.
    if (m_frames.ReadForm() == CDcmFrameList::FORM_ENCAPSULATED && isWhole && OffsetTableFits(m_frames, 2))
    {
        return read;
    }
    CByteArray table;
    std::uint64_t offset = 0;
    for (int i = 0; i < m_frames.GetCount(); ++i)
    {
        if (offset > 0xFFFFFFFFU)
        {
            return {};
        }
        const int place = table.GetSize();
        table.SetSize(place + 4);
        PutDoubleWord(table.GetData() + place, static_cast<DWORD>(offset), false);
        for (const DWORD fragment : m_frames.GetFrame(i)->FragmentSizes())
        {
            offset += kItemHeaderSize + Padded(fragment);
        }
    }
    return table;
}

void CFrameWriter::WriteNative(COutputBuffer& out) const
{
    const bool swapped = m_bigEndian && m_swapWidth > 1;
    const bool isPadded = m_frames.TotalSize() % 2 == 1;
    for (int i = 0; i < m_frames.GetCount(); ++i)
    {
        const CDcmFrame& frame = *m_frames.GetFrame(i);
        if (swapped && isPadded && i + 1 == m_frames.GetCount())
        {
            // The padding completes the last word, and changes places with its other byte.
            const std::size_t whole = frame.Size() - frame.Size() % m_swapWidth;
            std::string last(reinterpret_cast<const char*>(frame.Data()) + whole, frame.Size() - whole);
            last += '\0';
            PutSwapped(frame.Data(), whole, m_swapWidth, out);
            PutSwapped(reinterpret_cast<const BYTE*>(last.data()), last.size(), m_swapWidth, out);
            return;
        }
        if (swapped)
        {
            PutSwapped(frame.Data(), frame.Size(), m_swapWidth, out);
        }
        else
        {
            out.Put(frame.Data(), frame.Size());
        }
    }
    if (isPadded)
    {
        const BYTE pad = 0;
        out.Put(&pad, 1);
    }
}

void CFrameWriter::WriteItem(const BYTE* bytes, std::size_t size, COutputBuffer& out) const
{
    PutItemTag(out, Varnotix::Tag::kItem, m_bigEndian, static_cast<DWORD>(Padded(size)));
    out.Put(bytes, size);
    if (size % 2 == 1)
    {
        const BYTE pad = 0;
        out.Put(&pad, 1);
    }
}

void CFrameWriter::Write(COutputBuffer& out) const
{
    if (!m_isEncapsulated)
    {
        WriteNative(out);
        return;
    }
    const CByteArray table = OffsetTable();
    WriteItem(table.GetData(), static_cast<std::size_t>(table.GetSize()), out);
    for (int i = 0; i < m_frames.GetCount(); ++i)
    {
        const CDcmFrame& frame = *m_frames.GetFrame(i);
        const BYTE* bytes = frame.Data();
        for (const DWORD fragment : frame.FragmentSizes())
        {
            WriteItem(bytes, fragment, out);
            bytes += fragment;
        }
    }
    PutItemTag(out, Varnotix::Tag::kSequenceDelimitationItem, m_bigEndian, 0);
}
