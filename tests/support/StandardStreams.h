// Data sets that the standard stream rules read and write without a change.
#pragma once

#include "Bytes.h"
#include "Varnotix/element/DcmElement.h"

/// A data set that conforms to PS3.5.
struct SConformingStream
{
    const char* promise;
    int syntax;
    const char* bytes; ///< As Zeroed takes them.
};

inline constexpr SConformingStream kConformingStreams[] = {
    {"an empty sequence of defined length takes nothing", SYNTAX_EXPLICIT_LITTLE,
     "0800 4011 'SQ' 0000 00000000 0800 6011 'IS' 0200 '1 '"},
    {"an empty sequence of undefined length is ended by its delimiter", SYNTAX_EXPLICIT_LITTLE,
     "0800 4011 'SQ' 0000 FFFFFFFF FEFF DDE0 00000000 0800 6011 'IS' 0200 '1 '"},
    {"items keep their borders, empty ones and forms of length included", SYNTAX_EXPLICIT_LITTLE,
     "0800 4011 'SQ' 0000 FFFFFFFF"
     " FEFF 00E0 14000000 0800 5011 'UI' 0200 '1~' 0800 5511 'UI' 0200 '2~'"
     " FEFF 00E0 00000000"
     " FEFF 00E0 FFFFFFFF 0800 5011 'UI' 0200 '3~' FEFF 0DE0 00000000"
     " FEFF 00E0 FFFFFFFF FEFF 0DE0 00000000"
     " FEFF DDE0 00000000"},
    {"an item whose length spells a VR is an item", SYNTAX_IMPLICIT_LITTLE,
     "0800 4011 FFFFFFFF FEFF 00E0 FFFFFFFF 0800 5011 02000000 '1~' FEFF 0DE0 00000000 FEFF DDE0 00000000"},
    {"VR UN of undefined length holds implicit items", SYNTAX_EXPLICIT_LITTLE,
     "0900 0110 'UN' 0000 FFFFFFFF FEFF 00E0 0A000000 0800 6000 02000000 'MR' FEFF DDE0 00000000"},
    {"the same in big endian, whose UN stays in little endian", SYNTAX_EXPLICIT_BIG,
     "0009 1001 'UN' 0000 FFFFFFFF FEFF 00E0 0A000000 0800 6000 02000000 'MR' FEFF DDE0 00000000"},
    {"a private sequence of undefined length is known by it", SYNTAX_IMPLICIT_LITTLE,
     "0800 6000 02000000 'MR' 0900 0110 FFFFFFFF FEFF 00E0 0A000000 0900 0210 02000000 'xy' FEFF DDE0 00000000"},
    {"later VRs and unknown values keep their bytes", SYNTAX_EXPLICIT_LITTLE,
     "0800 1901 'UC' 0000 04000000 'a\\b ' 0800 2001 'UR' 0000 04000000 'u:x ' 0900 0110 'UN' 0000 04000000 01020304"
     " 0C00 0110 'SV' 0000 08000000 0102030405060708"},
    {"big endian reverses numbers by their VR, later ones too, and item lengths as well", SYNTAX_EXPLICIT_BIG,
     "0008 1140 'SQ' 0000 00000012 FFFE E000 0000000A 0008 1160 'IS' 0002 '1 ' 0018 9091 'FD' 0008 3FF8000000000000"
     " 0028 0009 'AT' 0004 0018 1063 0066 0040 'OL' 0000 00000004 01020304 7FE0 0009 'OD' 0000 00000008"
     " 0102030405060708"},
    {"texts keep empty values, trailing blanks and separators", SYNTAX_EXPLICIT_LITTLE,
     "0800 0800 'CS' 0600 '\\\\AB\\ ' 1000 1000 'PN' 0A00 'Doe^John  ' 2000 3700 'DS' 0400 '1\\2\\'"},
    {"group lengths stay where they are", SYNTAX_EXPLICIT_LITTLE,
     "0800 0000 'UL' 0400 0A000000 0800 6000 'CS' 0200 'MR' 1000 1000 'PN' 0000"},
    {"native pixel data is one value", SYNTAX_EXPLICIT_LITTLE, "E07F 1000 'OW' 0000 04000000 01020304"},
    {"empty native pixel data keeps its VR", SYNTAX_EXPLICIT_LITTLE,
     "2800 0001 'US' 0200 1000 E07F 1000 'OB' 0000 00000000"},
    {"native pixel data of any VR has its byte order", SYNTAX_EXPLICIT_BIG, "7FE0 0010 'US' 0004 01020304"},
    {"one compressed frame has a table and an item", SYNTAX_EXPLICIT_LITTLE,
     "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 02000000 0102 FEFF DDE0 00000000"},
    {"fragments and table stay as they are", SYNTAX_EXPLICIT_LITTLE,
     "2800 0800 'IS' 0200 '2 ' E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 08000000 00000000 14000000"
     " FEFF 00E0 02000000 0102 FEFF 00E0 02000000 0304 FEFF 00E0 04000000 05060708 FEFF DDE0 00000000"},
    {"trailing padding is an element", SYNTAX_EXPLICIT_LITTLE,
     "0800 6000 'CS' 0200 'MR' FCFF FCFF 'OB' 0000 04000000 00000000"},
    {"unknown even tags are carried", SYNTAX_IMPLICIT_LITTLE, "0800 6000 02000000 'MR' 0801 0110 02000000 0102"},
};

/// The bytes of Stream, with a zero byte for each ~.
inline CByteArray Zeroed(const char* text)
{
    CByteArray bytes = Stream(text);
    for (BYTE& byte : bytes)
    {
        byte = byte == '~' ? BYTE{0} : byte;
    }
    return bytes;
}
