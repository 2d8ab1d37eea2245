#include "Varnotix/codec/StandardDecoder.h"

#include "Varnotix/codec/ElementHeader.h"
#include "Varnotix/codec/FragmentReader.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/codec/SyntaxProbe.h"
#include "Varnotix/codec/TransferSyntax.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <algorithm>

using namespace Varnotix;

namespace
{

constexpr std::size_t kPreambleSize = 128;
constexpr std::size_t kPrefixSize = 4;
constexpr std::size_t kShortestStream = 6;

bool IsPrivateCreator(DWORD tag)
{
    const int element = Tag::Element(tag);
    return Tag::IsPrivate(tag) && element >= 0x10 && element <= 0xFF;
}

/// The VR of a tag that no dictionary lists, in implicit syntax (PS3.5 sections 7.2 and 7.8.1).
int UnlistedVr(DWORD tag)
{
    if (Tag::IsGroupLength(tag))
    {
        return VR_UL;
    }
    return IsPrivateCreator(tag) ? VR_LO : VR_UN;
}

} // namespace

void CStandardDecoder::Decode(CDcmElementSet& set)
{
    set.RemoveAll();
    try
    {
        try
        {
            DecodeStream(CElementBody::Of(set));
        }
        catch (const CParseException&)
        {
            // Stop has noted it.
        }
        m_choices.Resolve();
    }
    catch (...)
    {
        set.DestroyContents();
        throw;
    }
}

void CStandardDecoder::Note(EReadNote note, DWORD tag, std::size_t offset, DWORD count)
{
    m_result.notes.push_back({note, tag, static_cast<DWORD>(offset), count});
}

void CStandardDecoder::Stop(EParseFault fault, DWORD tag, std::size_t offset)
{
    Note(READ_STOPPED, tag, offset, static_cast<DWORD>(fault));
    throw CParseException(fault);
}

void CStandardDecoder::DecodeStream(CElementBody& elements)
{
    const std::size_t start = m_cursor.Position();
    if (m_cursor.Left() < kItemHeaderSize)
    {
        Stop(m_cursor.Left() < kShortestStream ? PARSE_SHORT_STREAM : PARSE_NOT_DICOM, 0, start);
    }
    const bool isFile = ReadStart();
    SLevel level{elements, nullptr, m_cursor.Length(), false, SYNTAX_EXPLICIT_LITTLE};
    ReadMeta(level);
    m_result.syntax = FindSyntax(elements);
    if (m_result.syntax == SYNTAX_UNKNOWN)
    {
        m_result.syntax = isFile ? SYNTAX_EXPLICIT_LITTLE : SYNTAX_UNKNOWN;
        Stop(PARSE_NOT_DICOM, 0, m_cursor.Position());
    }
    level.syntax = m_result.syntax;
    level.lastTag = 0;
    DecodeLevel(level);
}

/// @return true when the DICM prefix was found; the cursor is after it then.
bool CStandardDecoder::ReadStart()
{
    const std::size_t start = m_cursor.Position();
    for (const std::size_t preamble : {kPreambleSize, std::size_t{0}})
    {
        m_cursor.Seek(start);
        m_cursor.TakeUpTo(preamble, m_result.preamble);
        m_cursor.TakeUpTo(kPrefixSize, m_result.prefix);
        if (m_result.prefix.GetSize() == 4 && std::equal(m_result.prefix.begin(), m_result.prefix.end(), "DICM"))
        {
            return true;
        }
    }
    m_cursor.Seek(start);
    return false;
}

/// File meta information is in explicit VR little endian, and as long as its group goes (PS3.10 section 7.1). Its group
/// length is often wrong, and not needed.
void CStandardDecoder::ReadMeta(SLevel& level)
{
    const std::size_t start = m_cursor.Position();
    std::size_t named = 0;
    while (const BYTE* header = m_cursor.Peek(kItemHeaderSize))
    {
        // In big endian a data set may begin with group 0200, which looks like group 0002.
        const bool goesBack = m_cursor.Position() == named && TagAt(header, level.syntax) <= level.lastTag;
        if (Word(header, false) != Tag::kMetaGroup || goesBack)
        {
            break;
        }
        const SHeader element = ReadHeader(level);
        ReadElement(element, level);
        if (element.tag == Tag::kFileMetaInformationGroupLength)
        {
            const CDcmElement* length = level.elements.Find(Tag::kFileMetaInformationGroupLength);
            const CValueBytes value = length->ValueBytes();
            named = value.Size() == 4 ? m_cursor.Position() + DoubleWord(value.Data(), false) : 0;
        }
    }
    if (named != 0 && named != m_cursor.Position())
    {
        Note(READ_META_LENGTH, Tag::kFileMetaInformationGroupLength, start, static_cast<DWORD>(named));
    }
}

/// The syntax that the meta information names, unless the first elements are clearly in another.
int CStandardDecoder::FindSyntax(const CElementBody& elements)
{
    const CDcmElement* element = elements.Find(Tag::kTransferSyntaxUid);
    const CString uid = element != nullptr ? element->JoinedText() : CString();
    const int named = SyntaxOfUid(uid);
    const BYTE* data = m_cursor.Peek(0);
    const std::size_t size = m_cursor.Left();
    if (size == 0 && !elements.list.IsEmpty())
    {
        return named != SYNTAX_UNKNOWN ? named : SYNTAX_EXPLICIT_LITTLE;
    }
    if (named != SYNTAX_UNKNOWN && ClearlyFits(data, size, named))
    {
        return named;
    }
    const int found = ProbeSyntax(data, size);
    if (named == SYNTAX_UNKNOWN || found == SYNTAX_UNKNOWN)
    {
        if (Varnotix::IsDeflatedUid(uid))
        {
            m_result.syntax = named;
            Stop(PARSE_DEFLATED, 0, m_cursor.Position());
        }
        return found != SYNTAX_UNKNOWN ? found : named;
    }
    const int fitNamed = ElementsThatFit(data, size, named);
    if (found != named && fitNamed <= 1 && ElementsThatFit(data, size, found) > fitNamed)
    {
        if (Varnotix::IsDeflatedUid(uid))
        {
            m_result.syntax = named;
            Stop(PARSE_DEFLATED, 0, m_cursor.Position());
        }
        Note(READ_OTHER_SYNTAX, Tag::kTransferSyntaxUid, m_cursor.Position(), static_cast<DWORD>(found));
        return found;
    }
    return named;
}

CStandardDecoder::SHeader CStandardDecoder::ReadHeader(SLevel& level)
{
    SHeader header{};
    header.position = m_cursor.Position();
    header.tag = TagAt(m_cursor.Peek(kItemHeaderSize), level.syntax);
    header.entry = CDcmRegistry::Global().LookUpPublicTag(header.tag);
    if (header.tag <= level.lastTag && level.lastTag != 0)
    {
        Note(READ_OUT_OF_ORDER, header.tag, header.position);
    }
    level.lastTag = header.tag;
    if (level.syntax == SYNTAX_IMPLICIT_LITTLE)
    {
        ReadImplicit(header, level);
    }
    else
    {
        ReadExplicit(header, level);
    }
    return header;
}

void CStandardDecoder::ReadExplicit(SHeader& header, SLevel& level)
{
    const bool bigEndian = IsBigEndian(level.syntax);
    const BYTE* bytes = m_cursor.Peek(kShortHeaderSize);
    SExplicitVr vr = ExplicitVrOf(bytes + 4);
    if (!vr.isKnown && !(IsVrLetter(bytes[4]) && IsVrLetter(bytes[5])))
    {
        ReadWithoutVr(header, level);
        return;
    }
    if (!vr.isKnown)
    {
        Note(READ_UNKNOWN_VR, header.tag, header.position, Word(bytes + 4, true));
        // Some writers put letters of their own into headers of the short form.
        const bool longFits = m_cursor.Left() >= kLongHeaderSize && Word(bytes + 6, false) == 0 &&
                              DoubleWord(bytes + 8, bigEndian) <= m_cursor.Left() - kLongHeaderSize;
        vr.hasLongForm = longFits || Word(bytes + 6, bigEndian) > m_cursor.Left() - kShortHeaderSize;
    }
    header.vr = vr.code;
    header.laterVr = vr.laterVr;
    bytes = m_cursor.Take(vr.hasLongForm ? kLongHeaderSize : kShortHeaderSize);
    if (bytes == nullptr)
    {
        Stop(PARSE_CUT_OFF, header.tag, header.position);
    }
    header.length = vr.hasLongForm ? DoubleWord(bytes + 8, bigEndian) : Word(bytes + 6, bigEndian);
}

void CStandardDecoder::ReadWithoutVr(SHeader& header, SLevel& level)
{
    Note(READ_HEADER_WITHOUT_VR, header.tag, header.position);
    const bool bigEndian = IsBigEndian(level.syntax);
    const std::size_t size = std::min(m_cursor.Left(), level.end - std::min(level.end, header.position));
    const BYTE* bytes = m_cursor.Peek(kShortHeaderSize);
    const EHeaderForm form =
        size < kShortHeaderSize ? EHeaderForm::Implicit : HeaderFormWithoutVr(bytes, size, level.syntax);
    if (form == EHeaderForm::Implicit)
    {
        ReadImplicit(header, level);
        return;
    }
    SetListedVr(header);
    const bool isLong = form == EHeaderForm::Long;
    header.length = isLong ? DoubleWord(bytes + 8, bigEndian) : Word(bytes + 6, bigEndian);
    m_cursor.Take(isLong ? kLongHeaderSize : kShortHeaderSize);
}

void CStandardDecoder::ReadImplicit(SHeader& header, SLevel& level)
{
    const BYTE* bytes = m_cursor.Take(kShortHeaderSize);
    header.length = DoubleWord(bytes + 4, IsBigEndian(level.syntax));
    SetListedVr(header);
}

/// The VR is that of the dictionary; where that leaves a choice, the one that PS3.5 section A.1 prescribes.
void CStandardDecoder::SetListedVr(SHeader& header)
{
    using Varnotix::EVrChoice;
    header.isImplicit = true;
    const CDcmEntry* entry = header.entry;
    header.vr = entry != nullptr ? static_cast<int>(entry->vr) : UnlistedVr(header.tag);
    if (header.vr >= kNamedVrCount)
    {
        header.vr = VR_UN;
    }
    if (entry != nullptr && Varnotix::CarrierVr(entry->laterVr) == header.vr)
    {
        header.laterVr = entry->laterVr;
    }
    if (header.tag == Tag::kPixelData ||
        (entry != nullptr && (entry->choice == EVrChoice::ObOrOw || entry->choice == EVrChoice::UsOrSsOrOw)))
    {
        header.vr = VR_OW;
    }
}

CDcmElement& CStandardDecoder::AddElement(const SHeader& header, SLevel& level, CSharedBytes&& value)
{
    const CDcmEntry* entry = header.entry != nullptr ? header.entry : &CDcmRegistry::UnlistedEntry(header.vr);
    return level.elements.AddRead(m_elements, {header.tag, header.vr, header.laterVr, entry}, std::move(value));
}

void CStandardDecoder::ReadElement(const SHeader& header, SLevel& level)
{
    const bool isPixelData = header.tag == Tag::kPixelData;
    if (header.length == kUndefinedLength)
    {
        if (isPixelData)
        {
            ReadFragments(header, level);
        }
        else if (header.vr == VR_SQ || header.vr == VR_UN || header.isImplicit)
        {
            ReadSequence(header, level);
        }
        else
        {
            Stop(PARSE_UNDEFINED_LENGTH, header.tag, header.position);
        }
        return;
    }
    if (header.vr == VR_SQ && !isPixelData)
    {
        if (header.length == 0 || BeginsWithItem(header.length, level.syntax))
        {
            ReadSequence(header, level);
            return;
        }
        Note(READ_NO_ITEMS, header.tag, header.position);
        SHeader unknown = header;
        unknown.vr = VR_UN;
        ReadValue(unknown, level);
        return;
    }
    ReadValue(header, level);
}

/// The bytes of a value as little endian ones.
CSharedBytes CStandardDecoder::ValueOf(const SHeader& header, const SLevel& level, const BYTE* bytes)
{
    const std::size_t width = IsBigEndian(level.syntax) ? SwapWidthOf(header.vr, header.laterVr) : 1;
    return m_cursor.KeepValue(bytes, header.length, width, m_smallValues);
}

void CStandardDecoder::ReadValue(const SHeader& header, SLevel& level)
{
    const DWORD length = header.length;
    if (length > m_cursor.Left())
    {
        Stop(PARSE_CUT_OFF, header.tag, header.position);
    }
    const BYTE* bytes = m_cursor.Take(length);
    if (m_cursor.Position() > level.end)
    {
        Note(READ_BEYOND_ITEM, header.tag, header.position, static_cast<DWORD>(m_cursor.Position() - level.end));
    }
    if (length % 2 == 1)
    {
        Note(READ_ODD_LENGTH, header.tag, header.position, length);
    }
    CSharedBytes value = ValueOf(header, level, bytes);
    if (header.tag == Tag::kPixelData)
    {
        CDcmFrameList& frames = *AddElement(header, level, CSharedBytes()).Frames();
        if (length > 0)
        {
            frames.AddFrame(value);
        }
        frames.SetReadForm(CDcmFrameList::FORM_NATIVE);
        return;
    }
    CDcmElement& element = AddElement(header, level, std::move(value));
    if (length == 0)
    {
        return;
    }
    if (header.tag == Tag::kNumberOfFrames && level.numberOfFrames == nullptr)
    {
        level.numberOfFrames = &element;
    }
    if (header.tag == Tag::kPixelRepresentation && length >= 2)
    {
        m_choices.SetPixelRepresentation(NumberOf(level), Word(element.RawBytes().Data(), false));
    }
    if (header.isImplicit && header.vr == VR_US && header.entry != nullptr &&
        header.entry->choice == Varnotix::EVrChoice::UsOrSs)
    {
        m_choices.Add(element, NumberOf(level));
    }
}

void CStandardDecoder::ReadFragments(const SHeader& header, SLevel& level)
{
    CDcmElement& element = AddElement(header, level, CSharedBytes());
    const CDcmElement* count = level.numberOfFrames; // A search in a set of many items would take long.
    CFragmentReader reader(m_cursor, IsBigEndian(level.syntax));
    const bool whole = reader.Read();
    reader.FillFrames(*element.Frames(), count != nullptr ? count->JoinedText() : CString());
    element.Frames()->SetReadForm(CDcmFrameList::FORM_ENCAPSULATED);
    if (!reader.HasOffsetTable())
    {
        Note(READ_NO_OFFSET_TABLE, header.tag, header.position);
    }
    if (!whole)
    {
        Stop(reader.Fault(), header.tag, reader.FaultOffset());
    }
}

/// The number of a level among the data sets that choices of VRs depend on.
int CStandardDecoder::NumberOf(SLevel& level)
{
    if (level.number < 0)
    {
        level.number = m_choices.AddDataSet(level.around != nullptr ? NumberOf(*level.around) : -1);
    }
    return level.number;
}
