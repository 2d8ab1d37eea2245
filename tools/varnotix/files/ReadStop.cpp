#include "files/ReadStop.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace
{

constexpr long long kPreambleSize = 128;

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

} // namespace

SReadStop StopOf(const CDcmIOD& object, CFile& file)
{
    SReadStop stop;
    if (object.ReadStopped())
    {
        stop.reason = ReasonOf(object.ReadNotes().back(), file);
        stop.trials = object.ReadTrials();
    }
    return stop;
}

bool HasPrefix(CFile& file)
{
    return BytesAt(file, kPreambleSize, 4) == "DICM" || BytesAt(file, 0, 4) == "DICM";
}
