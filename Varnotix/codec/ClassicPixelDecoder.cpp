#include "Varnotix/codec/ClassicPixelDecoder.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/element/DcmFrameList.h"

#include <algorithm>
#include <iterator>

using namespace Varnotix;

namespace
{

// Some writers swap the bytes or halves of fragment tags; every order is accepted. Here the tags are little-endian
// 32-bit numbers.
constexpr DWORD kItemTags[] = {0xFFFEE000U, 0xE000FFFEU, 0xFEFF00E0U, 0x00E0FEFFU};
constexpr DWORD kDelimiterTags[] = {0xFFFEE0DDU, 0xE0DDFFFEU, 0xFEFFDDE0U, 0xDDE0FEFFU};

template <std::size_t COUNT>
bool IsOneOf(DWORD tag, const DWORD (&tags)[COUNT])
{
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

} // namespace

void CClassicPixelDecoder::Read(CDcmElement& element, DWORD length)
{
    if (length == kUndefinedLength)
    {
        ReadOffsetTable(element);
        return;
    }
    if (length > m_cursor.Length())
    {
        throw CParseException(PARSE_LENGTH_BEYOND_STREAM);
    }
    element.Frames()->AddFrame(ReadFrameBytes(length, element.Vr(), PARSE_SHORT_VALUE));
}

/// @return false for a sequence delimiter.
bool CClassicPixelDecoder::ReadItemHeader(EParseFault shortFault, EParseFault badFault, DWORD& length)
{
    const BYTE* header = m_cursor.Take(kItemHeaderSize);
    if (header == nullptr)
    {
        throw CParseException(shortFault);
    }
    const DWORD tag = DoubleWord(header, false);
    const bool isItem = IsOneOf(tag, kItemTags);
    if (!isItem && !IsOneOf(tag, kDelimiterTags))
    {
        throw CParseException(badFault);
    }
    length = DoubleWord(header + 4, m_bigEndian);
    return isItem;
}

CSharedBytes CClassicPixelDecoder::ReadFrameBytes(DWORD length, int vr, EParseFault shortFault)
{
    const BYTE* bytes = m_cursor.Take(length);
    if (bytes == nullptr)
    {
        throw CParseException(shortFault);
    }
    if (m_bigEndian && vr == VR_OW)
    {
        BYTE* swapped = nullptr;
        CSharedBytes frame = CSharedBytes::Allocate(length, swapped);
        CopySwapped(bytes, length, 2, swapped);
        return frame;
    }
    return m_cursor.Keep(bytes, length);
}

void CClassicPixelDecoder::ReadOffsetTable(CDcmElement& element)
{
    DWORD length = 0;
    if (!ReadItemHeader(PARSE_BAD_OFFSET_TABLE, PARSE_BAD_OFFSET_TABLE, length))
    {
        return; // Nothing but a delimiter: no table and no fragments.
    }
    const BYTE* bytes = m_cursor.Take(length);
    if (bytes == nullptr)
    {
        throw CParseException(PARSE_SHORT_ITEM);
    }
    CByteArray table;
    table.Assign(bytes, static_cast<int>(length));
    element.Frames()->SetOffsetTable(table);
    ReadFragments(element);
}

void CClassicPixelDecoder::ReadFragments(CDcmElement& element)
{
    CDcmFrameList& frames = *element.Frames();
    const CByteArray& table = frames.OffsetTable();
    const int entries = table.GetSize() / 4;
    int frame = 0;
    int entry = 0;
    DWORD offset = 0; // Of the fragment's item header, from the first fragment's.
    DWORD length = 0;
    while (ReadItemHeader(PARSE_SHORT_ITEM, PARSE_BAD_FRAGMENT, length))
    {
        if (length > m_cursor.Length())
        {
            throw CParseException(PARSE_LENGTH_BEYOND_STREAM);
        }
        const CSharedBytes bytes = ReadFrameBytes(length, element.Vr(), PARSE_BAD_FRAGMENT);
        if (table.IsEmpty())
        {
            frames.AddFrame(bytes);
            continue;
        }
        // The fragment is stored before the frame number moves on, so that in a frame of several fragments those
        // after the first go to the next number. Stored objects depend on this order. An offset past the table's last
        // whole entry starts no frame, which is why PARSE_MORE_FRAMES_THAN_TABLE cannot arise.
        frames.SetFrame(frame, bytes);
        if (entry < entries && DoubleWord(table.GetData() + 4 * entry, false) == offset)
        {
            ++frame;
            ++entry;
        }
        offset += length + kItemHeaderSize;
    }
}
