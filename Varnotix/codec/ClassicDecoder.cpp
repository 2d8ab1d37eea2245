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

bool CClassicDecoder::Fail(EParseFault fault)
{
    m_fault = fault;
    return false;
}

std::optional<EParseFault> CClassicDecoder::Decode(CDcmElementSet& set)
{
    if (m_cursor.Length() < kShortestStream)
    {
        return PARSE_SHORT_STREAM;
    }
    ReadStart();
    CDcmRegistry::Global().ClearPrivateEntries();
    set.RemoveAll();
    try
    {
        SItems items;
        if (DecodeLevel(CElementBody::Of(set), m_cursor.Length(), items))
        {
            // A few bytes at the end hold no element, and a sequence delimiter outside every sequence ends the stream
            // early.
            const std::size_t left = m_bytesLeft + m_cursor.Length() - m_cursor.Position();
            if (left > 0)
            {
                m_result.notes.push_back(
                    {READ_BYTES_LEFT, 0, static_cast<DWORD>(m_cursor.Length() - left), static_cast<DWORD>(left)});
            }
            m_privateTags.Keep();
            return std::nullopt;
        }
    }
    catch (const CParseException& fault)
    {
        m_fault = fault.m_code;
    }
    catch (...)
    {
        // The caller keeps the set.
        set.DestroyContents();
        throw;
    }
    set.DestroyContents();
    return m_fault;
}

/// The entry of a tag that the dictionary file does not list: one that was learned, or is learned now.
const CDcmEntry* CClassicDecoder::FindPrivateTag(const BYTE* header, DWORD tag)
{
    const CDcmEntry* entry = m_privateTags.Find(tag);
    if (entry == nullptr)
    {
        const CString vrText = IsExplicit() ? CString(reinterpret_cast<const char*>(header + 4), 2) : CString();
        entry = m_privateTags.Learn(tag, vrText);
    }
    return entry;
}

inline bool CClassicDecoder::ReadTag(const BYTE* header, STag& tag)
{
    tag.number = Tag::Make(Word(header, IsBigEndian()), Word(header + 2, IsBigEndian()));
    tag.entry = m_dictionary.FindTag(tag.number);
    if (tag.entry == nullptr)
    {
        tag.entry = FindPrivateTag(header, tag.number);
    }
    if (tag.entry == nullptr)
    {
        return Fail(UnknownFault());
    }
    const int dictionaryVr = static_cast<int>(tag.entry->vr);
    tag.vr = IsExplicit() ? VrCodeOfBytes(header[4], header[5]) : dictionaryVr;
    if (tag.vr == VR_UNKNOWN && IsExplicit())
    {
        if (dictionaryVr != VR_NONE)
        {
            return Fail(UnknownFault());
        }
        tag.vr = VR_NONE;
    }
    return true;
}

/// Item boundaries are not kept: all elements of all items go into the one set of the sequence element, and
/// item lengths never bound the reading.
bool CClassicDecoder::ReadDelimiter(const STag& tag, bool& levelEnds)
{
    const bool isItem = tag.number == Tag::kItem || tag.number == Tag::kItemDelimitationItem;
    if (!isItem && tag.number != Tag::kSequenceDelimitationItem)
    {
        return Fail(PARSE_NO_VR);
    }
    if (isItem && m_depth == 0)
    {
        return Fail(PARSE_ITEM_AT_TOP);
    }
    levelEnds = !isItem;
    const BYTE* length = m_cursor.Take(4);
    if (length == nullptr)
    {
        return Fail(PARSE_SHORT_LENGTH);
    }
    m_itemLength = DoubleWord(length, IsBigEndian());
    return true;
}

bool CClassicDecoder::DecodeLevel(CElementBody& elements, std::size_t limit, SItems& items)
{
    const std::size_t start = m_cursor.Position();
    int beforeItem = elements.list.GetCount();
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
        STag tag{};
        if (!ReadTag(header, tag))
        {
            return false;
        }
        // The two bytes after the tag are the VR or the low half of a length; each form reads them itself.
        m_cursor.Return(2);
        if (tag.vr > VR_NONE)
        {
            return Fail(PARSE_NO_VR);
        }
        if (tag.vr != VR_NONE)
        {
            if (!DecodeElement(tag, elements, start))
            {
                return false;
            }
        }
        else
        {
            if (!ReadDelimiter(tag, levelEnds))
            {
                return false;
            }
            if (tag.number == Tag::kItem)
            {
                elements.BeginItem(m_itemLength == kUndefinedLength);
                items.oneEach = items.oneEach && (items.count == 0 || elements.list.GetCount() - beforeItem == 1);
                beforeItem = elements.list.GetCount();
                ++items.count;
            }
        }
        const std::size_t read = m_cursor.Position() - start;
        PassMetaEnd(read);
        levelEnds = levelEnds || read >= limit;
    }
    elements.selectedItem = 0;
    items.oneEach = items.oneEach && (items.count == 0 || elements.list.GetCount() - beforeItem == 1);
    return true;
}

inline bool CClassicDecoder::DecodeElement(const STag& tag, CElementBody& elements, std::size_t levelStart)
{
    const bool longForm = HasLongForm(tag.vr);
    const BYTE* bytes = m_cursor.Take(IsExplicit() && longForm ? 8 : 4);
    if (bytes == nullptr)
    {
        return Fail(PARSE_SHORT_LENGTH);
    }
    // Explicit syntaxes have the VR, and two zero bytes in the long form, before the length.
    const DWORD length = !IsExplicit() ? DoubleWord(bytes, false)
                         : longForm    ? DoubleWord(bytes + 4, IsBigEndian())
                                       : Word(bytes + 2, IsBigEndian());
    if (tag.vr == VR_SQ)
    {
        return ReadSequence(tag, length, elements);
    }
    if (longForm && tag.number == Tag::kPixelData)
    {
        return ReadPixelData(tag, length, elements);
    }
    return ReadValue(tag, length, elements, levelStart);
}

inline CDcmElement& CClassicDecoder::AddElement(const STag& tag, int vr, CElementBody& elements, CSharedBytes&& value)
{
    return elements.AddRead(m_elements, {tag.number, vr, ELaterVr::None, tag.entry}, std::move(value));
}

bool CClassicDecoder::ReadPixelData(const STag& tag, DWORD length, CElementBody& elements)
{
    CClassicPixelDecoder(m_cursor, IsBigEndian()).Read(AddElement(tag, tag.vr, elements, CSharedBytes()), length);
    return true;
}

void CClassicDecoder::Note(EReadNote note, const STag& tag, DWORD count)
{
    m_result.notes.push_back({note, tag.number, static_cast<DWORD>(m_cursor.Position()), count});
}

/// A sequence always takes at least one element, when the stream holds one: its length is compared after each
/// element. An empty sequence of defined length therefore takes the element that follows it.
bool CClassicDecoder::ReadSequence(const STag& tag, DWORD length, CElementBody& elements)
{
    CDcmElement& element = AddElement(tag, static_cast<int>(tag.entry->vr), elements, CSharedBytes());
    element.SetForm(length == kUndefinedLength ? CDcmElement::FORM_UNDEFINED : CDcmElement::FORM_DEFINED);
    if (m_depth == Varnotix::kMaxDepth)
    {
        return Fail(PARSE_TOO_DEEP);
    }
    ++m_depth;
    const std::size_t start = m_cursor.Position();
    // The dictionary may give the tag another VR, under which items cannot be kept.
    const bool isKept = element.Items() != nullptr;
    SItems items;
    if (!(isKept ? DecodeLevel(CElementBody::Of(*element.Items()), length, items) : DropLevel(length, items)))
    {
        return false;
    }
    --m_depth;
    const std::size_t read = m_cursor.Position() - start;
    if (!isKept)
    {
        Note(READ_ITEMS_DROPPED, tag, items.count);
    }
    else if (!items.oneEach)
    {
        Note(READ_ITEMS_GATHERED, tag, items.count);
    }
    if (length != kUndefinedLength && read > length)
    {
        Note(READ_BEYOND_LENGTH, tag, static_cast<DWORD>(read) - length);
    }
    return true;
}

bool CClassicDecoder::DropLevel(DWORD length, SItems& items)
{
    CElementBody dropped;
    return DecodeLevel(dropped, length, items);
}

/// The bytes of a value as little endian ones. The VR of the stream decides how they are swapped.
inline CSharedBytes CClassicDecoder::ValueOf(const STag& tag, const BYTE* bytes, DWORD length)
{
    const std::size_t width = IsBigEndian() ? SwapWidth(tag.vr) : 1;
    return m_cursor.KeepValue(bytes, length, width, m_smallValues);
}

bool CClassicDecoder::ReadValue(const STag& tag, DWORD length, CElementBody& elements, std::size_t levelStart)
{
    if (length > m_cursor.Length())
    {
        return Fail(PARSE_LENGTH_BEYOND_STREAM);
    }
    const BYTE* bytes = m_cursor.Take(length);
    if (bytes == nullptr)
    {
        return Fail(PARSE_SHORT_VALUE);
    }
    // The stream's VR chose the header form and the swapping; the value itself takes its VR from the dictionary.
    CDcmElement& element = AddElement(tag, static_cast<int>(tag.entry->vr), elements, ValueOf(tag, bytes, length));
    if (tag.vr != element.Vr())
    {
        Note(READ_VR_OF_DICTIONARY, tag, static_cast<DWORD>(tag.vr));
    }
    if (Tag::Group(tag.number) == Tag::kMetaGroup && !HasLongForm(tag.vr))
    {
        NoteMetaElement(element, levelStart);
    }
    return true;
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
