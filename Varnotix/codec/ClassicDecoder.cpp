#include "Varnotix/codec/ClassicDecoder.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ClassicPixelDecoder.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/codec/TransferSyntax.h"
#include "Varnotix/registry/DcmRegistry.h"

using namespace Varnotix;

namespace
{

constexpr std::size_t kPreambleSize = 128;
constexpr std::size_t kMagicSize = 4;
constexpr std::size_t kShortestStream = 6;

// Values from here on are not copied out of a stream that the library itself holds. Below, a copy is cheaper than
// keeping the whole stream alive for one value.
constexpr std::size_t kSharedValue = 65536;

bool IsMagic(const CByteArray& bytes)
{
    return CString(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetSize()).CompareNoCase("dicm") == 0;
}

} // namespace

EParseFault CClassicDecoder::UnknownFault() const
{
    switch (m_syntax)
    {
    case SYNTAX_EXPLICIT_LITTLE:
        return PARSE_UNKNOWN_IN_LITTLE;
    case SYNTAX_EXPLICIT_BIG:
        return PARSE_UNKNOWN_IN_BIG;
    default:
        return PARSE_UNKNOWN_IN_IMPLICIT;
    }
}

void CClassicDecoder::ReadStart()
{
    m_cursor.TakeUpTo(kPreambleSize, m_result.preamble);
    m_cursor.TakeUpTo(kMagicSize, m_result.prefix);
    if (IsMagic(m_result.prefix))
    {
        return;
    }
    m_cursor.Seek(0);
    m_cursor.TakeUpTo(kMagicSize, m_result.prefix);
    if (!IsMagic(m_result.prefix))
    {
        m_cursor.Seek(0);
    }
}

void CClassicDecoder::Decode(CDcmElementSet& set)
{
    if (m_cursor.Length() < kShortestStream)
    {
        throw CParseException(PARSE_SHORT_STREAM);
    }
    ReadStart();
    CDcmRegistry::Global().ClearPrivateEntries();
    set.RemoveAll();
    try
    {
        DWORD items = 0;
        DecodeLevel(set, m_cursor.Length(), items);
        // A few bytes at the end hold no element, and a sequence delimiter outside every sequence ends the stream
        // early.
        const std::size_t left = m_bytesLeft + m_cursor.Length() - m_cursor.Position();
        if (left > 0)
        {
            m_result.notes.push_back(
                {READ_BYTES_LEFT, 0, static_cast<DWORD>(m_cursor.Length() - left), static_cast<DWORD>(left)});
        }
        m_privateTags.Keep();
    }
    catch (...)
    {
        // The caller keeps the set.
        set.DestroyContents();
        throw;
    }
}

CClassicDecoder::STag CClassicDecoder::ReadTag(const BYTE* header)
{
    const int syntax = m_syntax;
    if (syntax != SYNTAX_IMPLICIT_LITTLE && syntax != SYNTAX_EXPLICIT_LITTLE && syntax != SYNTAX_EXPLICIT_BIG)
    {
        throw CParseException(PARSE_BAD_SYNTAX);
    }
    STag tag{};
    tag.group = Word(header, IsBigEndian());
    tag.element = Word(header + 2, IsBigEndian());
    tag.entry = CDcmRegistry::Global().LookUpPublicTag(Tag::Make(tag.group, tag.element));
    if (tag.entry == nullptr)
    {
        tag.entry = m_privateTags.Find(tag.group, tag.element);
    }
    if (tag.entry == nullptr)
    {
        const CString vrText = IsExplicit() ? CString(reinterpret_cast<const char*>(header + 4), 2) : CString();
        tag.entry = m_privateTags.Learn(tag.group, tag.element, vrText);
    }
    if (tag.entry == nullptr)
    {
        throw CParseException(UnknownFault());
    }
    const int dictionaryVr = static_cast<int>(tag.entry->vr);
    tag.vr = IsExplicit() ? VrCodeOfBytes(header[4], header[5]) : dictionaryVr;
    if (tag.vr == VR_UNKNOWN && IsExplicit())
    {
        if (dictionaryVr != VR_NONE)
        {
            throw CParseException(UnknownFault());
        }
        tag.vr = VR_NONE;
    }
    return tag;
}

DWORD CClassicDecoder::ReadLength(bool shortForm)
{
    const BYTE* bytes = m_cursor.Take(shortForm ? 2 : 4);
    if (bytes == nullptr)
    {
        throw CParseException(PARSE_SHORT_LENGTH);
    }
    return shortForm ? Word(bytes, IsBigEndian()) : DoubleWord(bytes, IsBigEndian());
}

/// Item boundaries are not kept: all elements of all items go into the one set of the sequence element, and
/// item lengths never bound the reading.
/// @return true when the delimiter ends the level.
bool CClassicDecoder::ReadDelimiter(const STag& tag)
{
    const DWORD number = Tag::Make(tag.group, tag.element);
    const bool isItem = number == Tag::kItem || number == Tag::kItemDelimitationItem;
    if (!isItem && number != Tag::kSequenceDelimitationItem)
    {
        throw CParseException(PARSE_NO_VR);
    }
    if (isItem && m_depth == 0)
    {
        throw CParseException(PARSE_ITEM_AT_TOP);
    }
    m_itemLength = ReadLength(false);
    return !isItem;
}

bool CClassicDecoder::DecodeLevel(CDcmElementSet& set, std::size_t limit, DWORD& items)
{
    const std::size_t start = m_cursor.Position();
    bool oneEach = true;
    int beforeItem = set.GetCount();
    bool levelEnds = false;
    while (!levelEnds)
    {
        const std::size_t position = m_cursor.Position();
        const BYTE* header = m_cursor.Take(kShortestStream);
        if (header == nullptr)
        {
            m_bytesLeft += m_cursor.Length() - position; // Enclosing levels are at the end too.
            break;
        }
        const STag tag = ReadTag(header);
        // The two bytes after the tag are the VR or the low half of a length; each form reads them itself.
        m_cursor.Seek(m_cursor.Position() - 2);
        if (tag.vr > VR_NONE)
        {
            throw CParseException(PARSE_NO_VR);
        }
        if (tag.vr == VR_NONE)
        {
            levelEnds = ReadDelimiter(tag);
            if (tag.element == Tag::Element(Tag::kItem))
            {
                set.BeginItem(m_itemLength == kUndefinedLength);
                oneEach = oneEach && (items == 0 || set.GetCount() - beforeItem == 1);
                beforeItem = set.GetCount();
                ++items;
            }
        }
        else
        {
            DecodeElement(tag, set, start);
        }
        const std::size_t read = m_cursor.Position() - start;
        PassMetaEnd(read);
        levelEnds = levelEnds || read >= limit;
    }
    set.SelectItem(0);
    return oneEach && (items == 0 || set.GetCount() - beforeItem == 1);
}

void CClassicDecoder::DecodeElement(const STag& tag, CDcmElementSet& set, std::size_t levelStart)
{
    const bool longForm = HasLongForm(tag.vr);
    if (IsExplicit() && m_cursor.Take(longForm ? 4 : 2) == nullptr)
    {
        throw CParseException(PARSE_SHORT_LENGTH);
    }
    const DWORD length = ReadLength(IsExplicit() && !longForm);
    if (tag.vr == VR_SQ)
    {
        ReadSequence(tag, length, set);
    }
    else if (longForm && Tag::Make(tag.group, tag.element) == Tag::kPixelData)
    {
        auto element = std::make_unique<CDcmElement>(tag.group, tag.element, tag.vr, tag.entry);
        element->SetRead();
        CDcmElement& added = *element;
        set.Add(element.release());
        CClassicPixelDecoder(m_cursor, IsBigEndian()).Read(added, length);
    }
    else
    {
        CDcmElement& element = ReadValue(tag, length, set);
        if (tag.vr != element.Vr())
        {
            Note(READ_VR_OF_DICTIONARY, tag, static_cast<DWORD>(tag.vr));
        }
        if (tag.group == Tag::kMetaGroup && !longForm)
        {
            NoteMetaElement(element, levelStart);
        }
    }
}

void CClassicDecoder::Note(EReadNote note, const STag& tag, DWORD count)
{
    m_result.notes.push_back({note, Tag::Make(tag.group, tag.element), static_cast<DWORD>(m_cursor.Position()), count});
}

/// A sequence always takes at least one element, when the stream holds one: its length is compared after each
/// element. An empty sequence of defined length therefore takes the element that follows it.
void CClassicDecoder::ReadSequence(const STag& tag, DWORD length, CDcmElementSet& set)
{
    auto owned = std::make_unique<CDcmElement>(tag.group, tag.element, static_cast<int>(tag.entry->vr), tag.entry);
    CDcmElement& element = *owned;
    element.SetRead();
    element.SetForm(length == kUndefinedLength ? CDcmElement::FORM_UNDEFINED : CDcmElement::FORM_DEFINED);
    set.Add(owned.release());
    if (m_depth == Varnotix::kMaxDepth)
    {
        throw CParseException(PARSE_TOO_DEEP);
    }
    ++m_depth;
    const std::size_t start = m_cursor.Position();
    // The dictionary may give the tag another VR, under which items cannot be kept.
    CDcmElementSet* kept = element.Items();
    DWORD items = 0;
    const bool oneEach = kept != nullptr ? DecodeLevel(*kept, length, items) : DropLevel(length, items);
    --m_depth;
    const std::size_t read = m_cursor.Position() - start;
    if (kept == nullptr)
    {
        Note(READ_ITEMS_DROPPED, tag, items);
    }
    else if (!oneEach)
    {
        Note(READ_ITEMS_GATHERED, tag, items);
    }
    if (length != kUndefinedLength && read > length)
    {
        Note(READ_BEYOND_LENGTH, tag, static_cast<DWORD>(read) - length);
    }
}

bool CClassicDecoder::DropLevel(std::size_t limit, DWORD& items)
{
    CDcmElementSet dropped;
    return DecodeLevel(dropped, limit, items);
}

CDcmElement& CClassicDecoder::ReadValue(const STag& tag, DWORD length, CDcmElementSet& set)
{
    if (length > m_cursor.Length())
    {
        throw CParseException(PARSE_LENGTH_BEYOND_STREAM);
    }
    const BYTE* bytes = m_cursor.Take(length);
    if (bytes == nullptr)
    {
        throw CParseException(PARSE_SHORT_VALUE);
    }
    // The stream's VR chose the header form and the swapping; the value itself takes its VR from the dictionary.
    auto element = std::make_unique<CDcmElement>(tag.group, tag.element, static_cast<int>(tag.entry->vr), tag.entry);
    element->SetRead();
    const std::size_t width = IsBigEndian() ? SwapWidth(tag.vr) : 1;
    if (width > 1)
    {
        BYTE* swapped = nullptr;
        CSharedBytes value = CSharedBytes::Allocate(length, swapped);
        CopySwapped(bytes, length, width, swapped);
        element->SetRawBytes(std::move(value));
    }
    else
    {
        element->SetRawBytes(length < kSharedValue ? m_smallValues.Store(bytes, length) : m_cursor.Keep(bytes, length));
    }
    CDcmElement& added = *element;
    set.Add(element.release());
    return added;
}

void CClassicDecoder::NoteMetaElement(CDcmElement& element, std::size_t levelStart)
{
    if (element.HasTag(Tag::kFileMetaInformationGroupLength) && m_metaEnd == 0)
    {
        const CUIntArray* length = element.Integers();
        const DWORD value = length != nullptr && !length->IsEmpty() ? static_cast<DWORD>((*length)[0]) : 0;
        m_metaEnd = value + static_cast<DWORD>(m_cursor.Position() - levelStart);
    }
    else if (element.HasTag(Tag::kTransferSyntaxUid) && m_namedSyntax == SYNTAX_UNKNOWN)
    {
        m_namedSyntax = SyntaxOfUid(element.JoinedText());
    }
}

/// The meta end starts at 0, so the first element of a stream pushes it beyond the stream, unless that element is the
/// group length that sets it. Meta information that does not begin with its group length never switches the syntax.
void CClassicDecoder::PassMetaEnd(std::size_t read)
{
    if (read >= m_metaEnd)
    {
        m_metaEnd = static_cast<DWORD>(m_cursor.Length()) + 1;
        if (m_namedSyntax != SYNTAX_UNKNOWN)
        {
            m_syntax = m_namedSyntax;
        }
    }
}
