// Streams in each syntax and layout, with each kind of value.

#include "Seeds.h"
#include "StandardStreams.h"
#include "StreamBytes.h"

namespace
{

const CByteArray kItem = Stream("FEFF 00E0 FFFFFFFF");
const CByteArray kItemEnd = Stream("FEFF 0DE0 00000000");
const CByteArray kEnd = Stream("FEFF DDE0 00000000");
const CByteArray kSequence = Stream("0800 4011 'SQ' 0000 FFFFFFFF");
const CByteArray kText = Stream("0800 0001 'SH' 0200 'AB'");
const CByteArray kEncapsulated = Stream("E07F 1000 'OB' 0000 FFFFFFFF");

const CByteArray kMeta = Stream("0200 0000 'UL' 0400 1C000000"
                                "0200 1000 'UI' 1400 '1.2.840.10008.1.2.1' 00");
const CByteArray kImplicitMeta = Stream("0200 0000 'UL' 0400 1A000000"
                                        "0200 1000 'UI' 1200 '1.2.840.10008.1.2' 00");
const CByteArray kBigMeta = Stream("0200 0000 'UL' 0400 1C000000"
                                   "0200 1000 'UI' 1400 '1.2.840.10008.1.2.2' 00");

/// One element of each VR, explicit little endian.
CByteArray EveryVr()
{
    return Stream("0800 0500 'CS' 0A00 'ISO_IR 100'"
                  "0800 0800 'CS' 0600 'A\\\\B\\C'"
                  "0800 1600 'UI' 0400 '1.2' 00"
                  "0800 2000 'DA' 0800 '20260101'"
                  "0800 2A00 'DT' 0E00 '20260101120000'"
                  "0800 3000 'TM' 0600 '120000'"
                  "0800 5000 'SH' 0200 'A '"
                  "0800 5400 'AE' 0200 'AE'"
                  "0800 8100 'ST' 0200 'S '"
                  "0800 1111 'SQ' 0000 12000000 FEFF 00E0 0A000000 0800 5011 'UI' 0200 '1' 00"
                  "0900 1000 'LO' 0600 'MAKER '"
                  "0900 0110 'UN' 0000 02000000 0102"
                  "0900 0210 'FL' 0400 0000803F"
                  "1000 1000 'PN' 0400 'A^B '"
                  "1000 1010 'AS' 0400 '030Y'"
                  "1000 2010 'DS' 0800 '1.5\\2.5 '"
                  "1000 0040 'LT' 0200 'L '"
                  "1800 2060 'SL' 0400 FFFFFFFF"
                  "1800 1C60 'UL' 0400 01000000"
                  "1800 2C60 'FD' 0800 000000000000F03F"
                  "2000 1300 'IS' 0200 '1 '"
                  "2800 0900 'AT' 0400 18006310"
                  "2800 0600 'US' 0200 0000"
                  "2800 0601 'SS' 0200 FFFF"
                  "4000 60A1 'UT' 0000 02000000 'T '"
                  "6000 0030 'OW' 0000 02000000 00FF"
                  "E07F 1000 'OW' 0000 04000000 01000200");
}

CByteArray Nested(int depth)
{
    CByteArray inner = kText;
    for (int level = 0; level < depth; ++level)
    {
        inner = kSequence + kItem + inner + kItemEnd + kEnd;
    }
    return inner;
}

CByteArray InSyntax(const CByteArray& explicitLittle, int syntax)
{
    SRead read(explicitLittle);
    return Written(read.set, syntax, true);
}

} // namespace

void MakeStreamSeeds()
{
    const auto put = [](const char* name, const CByteArray& bytes) { PutSeed("stream", name, bytes); };
    put("every_vr", Part10(kMeta + EveryVr()));
    put("every_vr_implicit", Part10(kImplicitMeta + InSyntax(EveryVr(), SYNTAX_IMPLICIT_LITTLE)));
    put("every_vr_big", Part10(kBigMeta + InSyntax(EveryVr(), SYNTAX_EXPLICIT_BIG)));
    put("delimiter_with_vr", kSequence + kItem + Stream("FEFF DDE0 'SH' 0200 'AB'") + kItemEnd + kEnd);
    put("data_set", InSyntax(EveryVr(), SYNTAX_IMPLICIT_LITTLE));
    put("data_set_big", InSyntax(EveryVr(), SYNTAX_EXPLICIT_BIG));
    put("magic_first", TextBytes("DICM") + kMeta + EveryVr());
    put("nested", Nested(6));
    put("nested_to_the_limit", Nested(64));
    put("items", kSequence + kItem + kText + kText + kItemEnd + Stream("FEFF 00E0 0A000000") + kText + kItem +
                     kItemEnd + kEnd + kText);
    put("empty_sequence", Stream("0800 4011 'SQ' 0000 00000000") + kText + Stream("0800 4011 'SQ' 0000 00000000"));
    put("fragments",
        kEncapsulated + Stream("FEFF 00E0 00000000 FEFF 00E0 02000000 0102 FEFF 00E0 02000000 0304") + kEnd);
    put("fragments_with_table", Part10(kMeta + kText + kEncapsulated +
                                       Stream("FEFF 00E0 08000000 00000000 14000000"
                                              "FEFF 00E0 02000000 0102 FEFF 00E0 02000000 0304"
                                              "FEFF 00E0 04000000 05060708") +
                                       kEnd));
    put("repeated_group_length", Stream("0800 0000 'UL' 0400 0A000000") + kText +
                                     Stream("0900 0000 'UL' 0400 00000000 0900 0000 'UL' 0400 01000000"));
    put("odd_lengths", Stream("0800 5000 'SH' 0100 'A' 0800 1600 'UI' 0300 '1.2' 2800 1000 'US' 0300 010002"));
    put("bytes_left", kText + kEnd + Stream("0102"));
    int number = 0;
    for (const SConformingStream& stream : kConformingStreams)
    {
        PutSeed("standard", "conforming_" + std::to_string(++number), Zeroed(stream.bytes));
    }
}
