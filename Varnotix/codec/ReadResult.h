/// What a read of a stream returns besides the elements: transfer syntax, start of the file, errors and notes.
#pragma once

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/platform/Exceptions.h"

#include <vector>

/// Fault codes of the stream decoder.
enum EParseFault : int
{
    PARSE_LENGTH_BEYOND_STREAM = 0,   ///< A value length is larger than the whole stream.
    PARSE_UNKNOWN_IN_LITTLE = 1,      ///< Explicit little endian: unknown even-group tag, or VR text not recognised.
    PARSE_UNKNOWN_IN_BIG = 2,         ///< Explicit big endian: the same.
    PARSE_SHORT_LENGTH = 3,           ///< A length field cannot be read whole.
    PARSE_BAD_SYNTAX = 4,             ///< The syntax code is not 1, 2 or 4.
    PARSE_SHORT_VALUE = 5,            ///< A value field cannot be read whole.
    PARSE_MORE_FRAMES_THAN_TABLE = 6, ///< Encapsulated pixel data has more frame starts than table entries.
    PARSE_BAD_OFFSET_TABLE = 7,       ///< Encapsulated pixel data does not begin with a whole item header.
    PARSE_SHORT_ITEM = 8,             ///< The offset table, or the header of a fragment, cannot be read whole.
    PARSE_ITEM_AT_TOP = 9,            ///< An item or item delimiter outside every sequence.
    PARSE_NO_VR = 10,                 ///< The dictionary gives the tag no VR, or a delimiter is not one.
    PARSE_BAD_FRAGMENT = 11,          ///< A fragment is not an item, or its value cannot be read whole.
    PARSE_UNKNOWN_IN_IMPLICIT = 12,   ///< Implicit little endian: unknown even-group tag.
    PARSE_SHORT_STREAM = 13,          ///< The stream is shorter than six bytes.
    PARSE_TOO_DEEP = 14,              ///< Sequences are nested more than 64 levels deep.

    // Only the standard stream rules have these.
    PARSE_CUT_OFF = 15,         ///< The stream ends inside an element, or before a delimiter.
    PARSE_DEFLATED = 16,        ///< The data set is deflated (PS3.5 section A.5); the host must inflate it.
    PARSE_NOT_DICOM = 17,       ///< No syntax fits the first elements.
    PARSE_NO_ITEM = 18,         ///< An item or fragment begins with another tag.
    PARSE_UNDEFINED_LENGTH = 19 ///< A value of undefined length that is neither a sequence nor Pixel Data.
};

namespace Varnotix
{

/// The fault in words, for a host that reports it.
VARNOTIX_EXPORT const char* ParseFaultText(EParseFault fault);

} // namespace Varnotix

/// Thrown inside the stream decoder and caught by its read loop; it never reaches a caller of the library. Only the
/// code carries meaning.
class VARNOTIX_EXPORT CParseException : public CException
{
    DECLARE_DYNAMIC(CParseException)

public:
    explicit CParseException(EParseFault fault) : m_code(fault) {}

    EParseFault m_code;
    CString m_message; ///< Always empty.
};

/// A failed attempt to read a stream in a syntax.
struct VARNOTIX_EXPORT SReadTrial
{
    int syntax;        ///< The syntax in force when decoding ended (see ESyntax).
    EParseFault fault; ///< Why it ended.
    DWORD offset;      ///< The stream offset at which the decoder was.
};

/// Kinds of notes. By the classic stream rules they are places where a read did not preserve the content of the stream;
/// by the standard ones, places where the stream breaks PS3.5 and was read all the same.
enum EReadNote : int
{
    READ_ITEMS_GATHERED = 0, ///< Items that did not hold one element each are gathered in one set; count is the items.
    READ_BEYOND_LENGTH = 1,  ///< A sequence took elements after its defined end; count is the bytes taken.
    READ_ITEMS_DROPPED = 2,  ///< The dictionary gives a sequence another VR, so its items are gone.
    READ_VR_OF_DICTIONARY = 3, ///< The element took the dictionary's VR; count is the code of the stream's VR.
    READ_BYTES_LEFT = 4,       ///< Bytes at the end of the stream were not read; count is how many, the tag is 0.

    // Only the standard stream rules have these.
    READ_STOPPED = 5,      ///< The read ended here; count is the EParseFault. Whole elements before it are kept.
    READ_OTHER_SYNTAX = 6, ///< The data set is not in the named transfer syntax; count is the code of the found one.
    READ_UNKNOWN_VR = 7,   ///< An unknown VR became UN; count holds its letters, the first one in the high byte.
    READ_HEADER_WITHOUT_VR = 8, ///< An element of an explicit syntax has no VR in its header.
    READ_BEYOND_ITEM = 9,       ///< A length reaches beyond the item or sequence around it; count is the bytes.
    READ_STRAY_DELIMITER = 10,  ///< An item tag or delimiter where there should be none, or a missing one.
    READ_ODD_LENGTH = 11,       ///< A value of odd length; count is the length.
    READ_OUT_OF_ORDER = 12,     ///< The tag is not greater than the one before it.
    READ_NO_ITEMS = 13,         ///< A sequence holds other bytes than items; the element became UN.
    READ_META_LENGTH = 14,      ///< Group 0002 is not as long as (0002,0000) says; count is the value.
    READ_NO_OFFSET_TABLE = 15   ///< Encapsulated Pixel Data without the item of the offset table; a write adds it.
};

/// A note about a place in a stream.
struct VARNOTIX_EXPORT SReadNote
{
    EReadNote note;
    DWORD tag;    ///< Group in the high half, element in the low half.
    DWORD offset; ///< Stream offset: after the element by the classic rules, of its header by the standard ones. For
                  ///< READ_BYTES_LEFT, where the bytes begin.
    DWORD count;  ///< See EReadNote.
};

/// What a decoder returns besides the elements.
struct SReadResult
{
    int syntax = SYNTAX_UNKNOWN; ///< The syntax that the data set was read in.
    CByteArray preamble;         ///< The first 128 bytes of the stream, whether or not the DICM prefix follows.
    CByteArray prefix;           ///< The four bytes that were compared with "DICM" last.
    std::vector<SReadNote> notes;
};
