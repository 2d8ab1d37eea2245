// How the standard decoder reads data sets, sequences and items (PS3.5 section 7.5).

#include "Varnotix/codec/ElementHeader.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/codec/StandardDecoder.h"
#include "Varnotix/codec/TransferSyntax.h"

#include <algorithm>

using namespace Varnotix;

namespace
{

/// Ends the choice of an item when its sequence ends, however it ends.
class CItemSelection
{
public:
    explicit CItemSelection(CElementBody& items) : m_items(items) {}
    CItemSelection(const CItemSelection&) = delete;
    CItemSelection& operator=(const CItemSelection&) = delete;
    ~CItemSelection() { m_items.selectedItem = 0; }

private:
    CElementBody& m_items;
};

} // namespace

void CStandardDecoder::DecodeLevel(SLevel& level)
{
    while (m_cursor.Position() < level.end)
    {
        const std::size_t left = level.end - m_cursor.Position();
        const BYTE* header = left < kItemHeaderSize ? nullptr : m_cursor.Peek(kItemHeaderSize);
        if (header == nullptr)
        {
            if (level.depth > 0 && level.end == m_cursor.Length())
            {
                Stop(PARSE_CUT_OFF, 0, m_cursor.Position());
            }
            Note(READ_BYTES_LEFT, 0, m_cursor.Position(), static_cast<DWORD>(left));
            m_cursor.Seek(level.end);
            break;
        }
        const DWORD tag = TagAt(header, level.syntax);
        if (Tag::Group(tag) == Tag::kItemGroup)
        {
            if (ReadDelimiter(level, tag))
            {
                return;
            }
        }
        else if (tag == 0 && level.depth == 0 && IsPadding())
        {
            Note(READ_BYTES_LEFT, 0, m_cursor.Position(), static_cast<DWORD>(left));
            m_cursor.Seek(level.end);
        }
        else if (m_stopTag != 0 && level.depth == 0 && tag >= m_stopTag)
        {
            return;
        }
        else
        {
            ReadElement(ReadHeader(level), level);
        }
    }
    if (level.isDelimited)
    {
        if (level.end == m_cursor.Length())
        {
            Stop(PARSE_CUT_OFF, Tag::kItemDelimitationItem, m_cursor.Position());
        }
        Note(READ_STRAY_DELIMITER, Tag::kItemDelimitationItem, m_cursor.Position());
    }
}

/// @return true when the data set ends here. What belongs to the sequence around it is left in the stream.
bool CStandardDecoder::ReadDelimiter(SLevel& level, DWORD tag)
{
    if (level.isDelimited && tag == Tag::kItemDelimitationItem)
    {
        m_cursor.Take(kItemHeaderSize);
        return true;
    }
    Note(READ_STRAY_DELIMITER, tag, m_cursor.Position());
    if (level.isDelimited && (tag == Tag::kItem || tag == Tag::kSequenceDelimitationItem))
    {
        return true;
    }
    m_cursor.Take(kItemHeaderSize);
    return false;
}

/// True when nothing but zeros follow: files are padded to the sizes of blocks.
bool CStandardDecoder::IsPadding()
{
    // Each run of zeros is searched once, however many headers of zeros it holds.
    if (m_knownByte <= m_cursor.Position())
    {
        const BYTE* rest = m_cursor.Peek(0);
        const BYTE* end = rest + m_cursor.Left();
        m_knownByte = m_cursor.Position() +
                      static_cast<std::size_t>(std::find_if(rest, end, [](BYTE byte) { return byte != 0; }) - rest);
    }
    return m_knownByte == m_cursor.Length();
}

/// True when an item or a delimiter comes next.
bool CStandardDecoder::BeginsWithItem(DWORD length, int syntax) const
{
    const BYTE* header = m_cursor.Peek(kItemHeaderSize);
    if (length < kItemHeaderSize || header == nullptr)
    {
        return length >= kItemHeaderSize; // Cut off; reading the items finds that.
    }
    const DWORD tag = TagAt(header, syntax);
    return tag == Tag::kItem || tag == Tag::kSequenceDelimitationItem;
}

void CStandardDecoder::ReadSequence(const SHeader& header, SLevel& level)
{
    if (level.depth >= Varnotix::kMaxDepth)
    {
        Stop(PARSE_TOO_DEEP, header.tag, header.position);
    }
    const bool isUndefined = header.length == kUndefinedLength;
    // VR UN with undefined length is a sequence in implicit VR little endian (PS3.5 section 6.2.2).
    const bool isUnknown = isUndefined && header.vr == VR_UN && !header.isImplicit;
    SHeader sequence = header;
    sequence.vr = VR_SQ;
    sequence.laterVr = Varnotix::ELaterVr::None;
    CDcmElement& element = AddElement(sequence, level, CSharedBytes());
    if (isUndefined)
    {
        element.SetForm(isUnknown ? CDcmElement::FORM_UNKNOWN : CDcmElement::FORM_UNDEFINED);
    }
    CElementBody& items = CElementBody::Of(*element.Items());
    items.keepsItems = true;
    std::size_t end = isUndefined ? level.end : m_cursor.Position() + header.length;
    const bool isCut = end > m_cursor.Length();
    end = std::min(end, m_cursor.Length());
    if (end > level.end)
    {
        Note(READ_BEYOND_ITEM, header.tag, header.position, static_cast<DWORD>(end - level.end));
    }
    ReadItems(level, items, end, isUndefined, isUnknown ? SYNTAX_IMPLICIT_LITTLE : level.syntax);
    if (isCut)
    {
        Stop(PARSE_CUT_OFF, header.tag, header.position);
    }
}

/// @param isDelimited whether a delimiter ends the sequence, and not its length.
void CStandardDecoder::ReadItems(SLevel& level, CElementBody& items, std::size_t end, bool isDelimited, int syntax)
{
    const CItemSelection selection(items);
    while (m_cursor.Position() < end)
    {
        const std::size_t position = m_cursor.Position();
        const BYTE* header = end - position < kItemHeaderSize ? nullptr : m_cursor.Take(kItemHeaderSize);
        const DWORD tag = header != nullptr ? TagAt(header, syntax) : 0;
        if (tag == Tag::kSequenceDelimitationItem && isDelimited)
        {
            return;
        }
        if (tag == Tag::kSequenceDelimitationItem || tag == Tag::kItemDelimitationItem)
        {
            Note(READ_STRAY_DELIMITER, tag, position);
            continue;
        }
        if (tag != Tag::kItem)
        {
            Stop(header == nullptr ? PARSE_CUT_OFF : PARSE_NO_ITEM, tag, position);
        }
        const DWORD length = ItemLength(header, syntax);
        const bool isUndefined = length == kUndefinedLength;
        items.BeginItem(isUndefined);
        std::size_t itemEnd = isUndefined ? end : m_cursor.Position() + length;
        const bool isCut = itemEnd > m_cursor.Length();
        itemEnd = std::min(itemEnd, m_cursor.Length());
        if (itemEnd > end)
        {
            Note(READ_BEYOND_ITEM, tag, position, static_cast<DWORD>(itemEnd - end));
        }
        SLevel item{items, &level, itemEnd, isUndefined, syntax};
        item.depth = level.depth + 1;
        DecodeLevel(item);
        if (isCut)
        {
            Stop(PARSE_CUT_OFF, tag, position);
        }
    }
    if (isDelimited)
    {
        if (end == m_cursor.Length())
        {
            Stop(PARSE_CUT_OFF, Tag::kSequenceDelimitationItem, m_cursor.Position());
        }
        Note(READ_STRAY_DELIMITER, Tag::kSequenceDelimitationItem, m_cursor.Position());
    }
}

DWORD CStandardDecoder::ItemLength(const BYTE* header, int syntax) const
{
    const DWORD length = DoubleWord(header + 4, IsBigEndian(syntax));
    // Files in big endian that the classic rules wrote have the halves of item lengths exchanged.
    if (IsBigEndian(syntax) && length != kUndefinedLength && length > m_cursor.Left())
    {
        const DWORD exchanged = (length >> 16U) | (length << 16U);
        return exchanged <= m_cursor.Left() ? exchanged : length;
    }
    return length;
}
