/// What the stream decoder meets when a stream cannot be read in the syntax that is being tried.
#pragma once

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/platform/Exceptions.h"

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
    PARSE_BAD_OFFSET_TABLE = 7,       ///< The first item of encapsulated pixel data is no item, or its header is short.
    PARSE_SHORT_ITEM = 8,             ///< The offset table, or the header of a fragment, cannot be read whole.
    PARSE_ITEM_AT_TOP = 9,            ///< An item or item delimiter outside every sequence.
    PARSE_NO_VR = 10,                 ///< The dictionary gives the tag no VR, or a delimiter is not one.
    PARSE_BAD_FRAGMENT = 11,          ///< A fragment is no item, or its value cannot be read whole.
    PARSE_UNKNOWN_IN_IMPLICIT = 12,   ///< Implicit little endian: unknown even-group tag.
    PARSE_SHORT_STREAM = 13,          ///< The stream is shorter than six bytes.
    PARSE_TOO_DEEP = 14               ///< Sequences are nested more than 64 levels deep.
};

/// The fault in words, for a host that reports it.
VARNOTIX_EXPORT const char* ParseFaultText(int fault);

/// Thrown inside the stream decoder and caught by its read loop; it never reaches a caller of the library. The code
/// alone carries the meaning.
class VARNOTIX_EXPORT CParseException : public CException
{
    DECLARE_DYNAMIC(CParseException)

public:
    explicit CParseException(int fault) : m_code(fault) {}

    int m_code;        ///< One of EParseFault.
    CString m_message; ///< Always empty.
};

/// What one trial of a read met.
struct VARNOTIX_EXPORT SReadTrial
{
    int syntax;   ///< The syntax in force when decoding ended (see ESyntax).
    int fault;    ///< One of EParseFault.
    DWORD offset; ///< The stream offset at which the decoder stood.
};

/// What a successful read could not keep as the stream held it.
enum EReadNote : int
{
    READ_ITEMS_GATHERED = 0, ///< Items that did not hold one element each are gathered in one set; count is the items.
    READ_BEYOND_LENGTH = 1,  ///< A sequence took elements from behind its defined end; count is the bytes taken.
    READ_ITEMS_DROPPED = 2,  ///< The dictionary gives a sequence another VR, so its items are gone.
    READ_VR_OF_DICTIONARY = 3, ///< The element took the dictionary's VR; count is the code of the stream's VR.
    READ_BYTES_LEFT = 4        ///< Bytes at the end of the stream were not read; count is how many, the tag is 0.
};

/// One place of a stream of which a read kept less, or other, than it held.
struct VARNOTIX_EXPORT SReadNote
{
    int note;     ///< One of EReadNote.
    DWORD tag;    ///< Group in the high half, element in the low half.
    DWORD offset; ///< Stream offset behind the element; where the bytes begin for READ_BYTES_LEFT.
    DWORD count;  ///< See EReadNote.
};
