#include "files/ReadStop.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace
{

constexpr long long kPreambleSize = 128;
constexpr std::size_t kHeaderSize = 8; // Of an element, in its short form.

std::string BytesAt(CFile& file, long long offset, UINT count)
{
    std::string bytes(count, '\0');
    file.Seek(offset, CFile::begin);
    bytes.resize(file.Read(bytes.data(), count));
    return bytes;
}

/// The first bytes, as text where they are one.
CString Beginning(CFile& file)
{
    const std::string bytes = BytesAt(file, 0, 8);
    const auto end = std::find_if_not(bytes.begin(), bytes.end(),
                                      [](char c) { return std::isprint(static_cast<unsigned char>(c)) != 0; });
    if (end - bytes.begin() >= 2)
    {
        return CString("it begins with '") + std::string(bytes.begin(), end).c_str() + "'";
    }
    CString text("it begins with");
    for (const char byte : bytes.substr(0, 4))
    {
        CString digits;
        digits.Format(" %02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += digits;
    }
    return bytes.empty() ? CString("it is empty") : text;
}

CString Offset(const char* format, unsigned long long offset)
{
    CString text;
    text.Format(format, offset);
    return text;
}

CString PlaceOf(DWORD tag)
{
    return tag == 0 || Varnotix::Tag::Group(tag) == Varnotix::Tag::kItemGroup ? CString("a sequence") : TagAndName(tag);
}

CString ReasonOf(const SReadNote& note, CFile& file)
{
    const auto fault = static_cast<EParseFault>(note.count);
    const ULONGLONG size = file.GetLength();
    switch (fault)
    {
    case PARSE_SHORT_STREAM:
    case PARSE_NOT_DICOM:
        if (size > 0 && note.offset >= size)
        {
            return CString("it has no elements");
        }
        if (size > 0 && HasPrefix(file) && size - note.offset < kHeaderSize)
        {
            return Offset("cut off at byte %llu inside its first element", size);
        }
        return HasPrefix(file) ? CString("its elements are in no transfer syntax")
                               : CString("not DICOM: ") + Beginning(file);
    case PARSE_DEFLATED:
        return CString("its data set is deflated, which the classic rules do not inflate");
    case PARSE_CUT_OFF:
    case PARSE_SHORT_ITEM:
        return Offset("cut off at byte %llu inside ", size) + PlaceOf(note.tag);
    default:
        return CString(Varnotix::ParseFaultText(fault)) + Offset(" at byte %llu, in ", note.offset) + PlaceOf(note.tag);
    }
}

/// Whether the bytes after the last element begin the header of a further one. Line ends and zeros that other programs
/// append do not: as tags they would be out of order.
bool IsHeaderCutOff(const CDcmIOD& object, const SReadNote& note, CFile& file)
{
    constexpr int kDelimiters = 0xFFFE;
    const CDcmElementSet& store = object.ElementStore();
    if (note.note != READ_BYTES_LEFT || note.count < 2 || note.count >= kHeaderSize || store.GetCount() == 0)
    {
        return false;
    }
    const std::string bytes = BytesAt(file, note.offset, static_cast<UINT>(note.count));
    const auto number = [&](std::size_t at)
    {
        const bool isBig = object.IodSyntax() == SYNTAX_EXPLICIT_BIG;
        return static_cast<unsigned char>(bytes[at + (isBig ? 1 : 0)]) |
               static_cast<unsigned char>(bytes[at + (isBig ? 0 : 1)]) << 8;
    };
    const DWORD last = store.GetAt(store.GetCount() - 1)->Tag();
    if (bytes.size() < 4)
    {
        return bytes.size() >= 2 && number(0) >= Varnotix::Tag::Group(last) && number(0) < kDelimiters;
    }
    return Varnotix::Tag::Make(number(0), number(2)) > last && number(0) < kDelimiters;
}

} // namespace

SReadStop StopOf(const CDcmIOD& object, CFile& file)
{
    SReadStop stop;
    const std::vector<SReadNote>& notes = object.ReadNotes();
    if (object.ReadStopped())
    {
        stop.reason = ReasonOf(object.ReadNotes().back(), file);
        stop.trials = object.ReadTrials();
    }
    else if (!notes.empty() && IsHeaderCutOff(object, notes.back(), file))
    {
        const CDcmElementSet& store = object.ElementStore();
        stop.reason = Offset("cut off at byte %llu after ", file.GetLength()) +
                      TagAndName(store.GetAt(store.GetCount() - 1)->Tag());
    }
    return stop;
}

bool HasPrefix(CFile& file)
{
    return BytesAt(file, kPreambleSize, 4) == "DICM" || BytesAt(file, 0, 4) == "DICM";
}
