#include "StreamBytes.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

namespace
{

/// A first element that only explicit VR little endian can read, 10 bytes long.
const CByteArray kLittle = Stream("0800 6000 'CS' 0200 'MR'");
/// Pixel data of undefined length with an empty offset table, 20 bytes long.
const CByteArray kPixels = Stream("E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000");

/// The trials that a stream's read failed in; the read must have given up.
std::string Faults(const CByteArray& stream)
{
    const SRead read(stream);
    EXPECT_EQ(read.set.GetCount(), 0);
    EXPECT_EQ(read.parser.OutputSyntax(), SYNTAX_UNKNOWN);
    return read.Trials();
}

std::string Faults(const char* stream)
{
    return Faults(Stream(stream));
}

} // namespace

TEST(Fault, EachCodeComesWithTheOffsetWhereTheTrialEnded)
{
    // 0: a length beyond the whole stream; undefined length outside sequences and pixel data is one.
    EXPECT_EQ(Faults("0800 6000 'UT' 0000 FFFFFFFF"), "4:2@6 2:0@12 1:0@8");
    // 3: the stream ends inside a length.
    EXPECT_EQ(Faults(kLittle + Stream("1000 2000 'LO' 02")), "4:2@6 2:3@17");
    EXPECT_EQ(Faults(kLittle + Stream("4000 60A1 'UT' 0000 0200")), "4:2@6 2:3@20");
    EXPECT_EQ(Faults(kLittle + Stream("0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 0000")), "4:2@6 2:3@28");
    // 5: the stream ends inside a value that is no longer than the stream.
    EXPECT_EQ(Faults(kLittle + Stream("1000 2000 'LO' 0400 'AB'")), "4:2@6 2:5@20");
    EXPECT_EQ(Faults(kLittle + Stream("E07F 1000 'OW' 0000 04000000 0102")), "4:2@6 2:5@24");
    // 10: a private tag that was entered without a VR is not a delimiter.
    CDcmRegistry::Global().AddSharedPrivateEntry(0x0801, 0x0001, "none", 1);
    EXPECT_EQ(Faults("0108 0100 00000000"), "4:2@6 2:10@4");
    EXPECT_EQ(Faults("0801 0001 00000000"), "4:10@4");
    // 1 and 12: another tag of group FFFE is unknown.
    EXPECT_EQ(Faults(kLittle + Stream("FEFF 01E0 00000000")), "4:2@6 2:1@16 1:0@8");
    EXPECT_EQ(Faults("FEFF 01E0 00000000"), "4:2@6 2:1@6 1:12@6");
    // 13: shorter than one tag.
    EXPECT_EQ(Faults("0800600043"), "4:13@0");
    EXPECT_EQ(Faults(CByteArray()), "4:13@0");
}

TEST(Fault, FaultsOfEncapsulatedPixelDataEndTheRead)
{
    const auto behindStart = [](const CByteArray& rest)
    { return Faults(kLittle + Stream("E07F 1000 'OB' 0000 FFFFFFFF") + rest); };
    // 7: the table's item header is short, or no item.
    EXPECT_EQ(behindStart(Stream("FEFF 00E0")), "4:2@6 2:7@26");
    EXPECT_EQ(behindStart(Stream("0800 6000 'CS' 0000")), "4:2@6 2:7@30");
    // 8: the table, or the header of a fragment, is short.
    EXPECT_EQ(behindStart(Stream("FEFF 00E0 04000000 0000")), "4:2@6 2:8@32");
    EXPECT_EQ(Faults(kLittle + kPixels + Stream("FEFF 00E0 00")), "4:2@6 2:8@35");
    EXPECT_EQ(Faults(kLittle + kPixels), "4:2@6 2:8@30");
    // 11: a fragment is not an item, or ends early.
    EXPECT_EQ(Faults(kLittle + kPixels + Stream("0800 6000 'CS' 0000")), "4:2@6 2:11@38");
    EXPECT_EQ(Faults(kLittle + kPixels + Stream("FEFF 00E0 04000000 0102")), "4:2@6 2:11@40");
    // 0: a fragment longer than the stream. Implicit syntax finds the same pixel data after the wrong element.
    EXPECT_EQ(Faults(kLittle + kPixels + Stream("FEFF 00E0 00000001 0102")), "4:2@6 2:0@38 1:0@8");
}

TEST(Fault, NextSyntaxFollowsFromFaultAndSyntax)
{
    // Big endian reads a first element and fails later: 0, 2 and 9 try little endian next, 3 and 5 give up.
    const CByteArray big = Stream("0008 0060 'CS' 0002 'MR'");
    EXPECT_EQ(Faults(big + Stream("0010 0020 'LO' 0100")), "4:0@18 2:1@6 1:12@6");
    EXPECT_EQ(Faults(big + Stream("0008 FFF0 'LO' 0000")), "4:2@16 2:1@6 1:12@6");
    EXPECT_EQ(Faults(big + Stream("0010 0020 'XX' 0000")), "4:2@16 2:1@6 1:12@6");
    EXPECT_EQ(Faults(big + Stream("FFFE E000 00000000")), "4:9@14 2:1@6 1:12@6");
    EXPECT_EQ(Faults(big + Stream("0010 0020 'LO' 00")), "4:3@17");
    EXPECT_EQ(Faults(big + Stream("0010 0020 'LO' 0004 'AB'")), "4:5@20");
    // Little endian hands on to implicit with 0, 1 and 9.
    EXPECT_EQ(Faults(kLittle + Stream("FEFF 00E0 00000000")), "4:2@6 2:9@14 1:0@8");
    EXPECT_EQ(Faults(kLittle + Stream("0800 F0FF 'LO' 0000")), "4:2@6 2:1@16 1:0@8");
    // A syntax that was tried is not tried again: the file names big endian, whose fault 0 would ask for little.
    const CByteArray meta = Stream("0200 0000 'UL' 0400 1C000000 0200 1000 'UI' 1400 '1.2.840.10008.1.2.2' 00");
    EXPECT_EQ(Faults(Part10(meta + Stream("0010 0020 'LO' FFFF"))), "4:2@138 4:0@180");
    // The fault of a file that names implicit gives up at once with 12.
    const CByteArray implicitMeta = Stream("0200 0000 'UL' 0400 1A000000 0200 1000 'UI' 1200 '1.2.840.10008.1.2' 00");
    EXPECT_EQ(Faults(Part10(implicitMeta + Stream("0800 F0FF 00000000"))), "4:2@138 1:12@176");
}

TEST(Fault, AFailedReadLeavesNothingOfAnEarlierOneBehind)
{
    SRead read(kLittle);
    read.Again(kLittle + Stream("FEFF 00E0 00000000"));
    EXPECT_EQ(read.set.GetCount(), 0);
    EXPECT_EQ(read.Trials(), "4:2@6 2:9@14 1:0@8");
}
