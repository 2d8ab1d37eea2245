#include "ToolRunner.h"

#include <algorithm>

class Convert : public ToolTest
{
protected:
    /// The bytes of an element's header and value in big endian.
    static std::string BigEndianWords(unsigned long tag, const std::string& vr, const std::string& value)
    {
        std::string text = Explicit(tag, vr, value);
        std::swap(text[0], text[1]);
        std::swap(text[2], text[3]);
        std::reverse(text.begin() + 8, text.begin() + 12);
        for (std::size_t i = 12; i < text.size(); i += 2)
        {
            std::swap(text[i], text[i + 1]);
        }
        return text;
    }
};

namespace
{

const std::string kDataSet = Explicit(0x00080016, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.4")) +
                             Explicit(0x00080018, "UI", PaddedUid("1.2.3.4")) + Explicit(0x00100010, "PN", "Doe^Jane") +
                             Us(0x00280010, 1) + Us(0x00280011, 0x0102) + Us(0x00280100, 16) +
                             Explicit(0x7FE00010, "OW", LittleEndian(0x01020304, 4));

const std::string kRleDataSet = kDataSet.substr(0, kDataSet.size() - 16) + Encapsulated("", {"AAAA", "BB"});

} // namespace

TEST_F(Convert, EverySyntaxBecomesEveryOther)
{
    Write("0.dcm", Part10(kExplicitUid, kDataSet));
    const std::pair<std::string, std::string> steps[] = {{"big", kBigUid},           {"implicit", kImplicitUid},
                                                         {"explicit", kExplicitUid}, {"implicit", kImplicitUid},
                                                         {"big", kBigUid},           {"explicit", kExplicitUid}};
    int step = 0;
    for (const auto& [word, uid] : steps)
    {
        const std::string from = std::to_string(step++);
        const std::string to = std::to_string(step) + ".dcm";
        EXPECT_EQ(Expect(0, "convert -q --syntax " + word + " " + from + ".dcm " + to).err, "");
        EXPECT_EQ(TextsOf(to, {0x00020010}), "[" + uid + "]");
    }
    EXPECT_EQ(Read("1.dcm"), Read("5.dcm"));
    EXPECT_TRUE(Read("6.dcm").ends_with(kDataSet));
}

TEST_F(Convert, WordsOfAnImplicitObjectAreSwappedForBigEndian)
{
    const std::string pixels = LittleEndian(0x0102, 2) + LittleEndian(0x0304, 2);
    const std::string depth = Implicit(0x00280100, LittleEndian(16, 2));
    const std::string icon = LittleEndian(0x0506, 2);
    Write("in.dcm", Part10(kImplicitUid, depth + Implicit(0x00880200, Item(depth + Implicit(0x7FE00010, icon))) +
                                             Implicit(0x7FE00010, pixels)));
    Expect(0, "convert --classic -v -s big in.dcm out.dcm",
           "in.dcm: (7FE0,0010) Pixel Data: VR OW, because it has 16 bits per sample");
    const std::string written = Read("out.dcm");
    EXPECT_TRUE(written.ends_with(BigEndianWords(0x7FE00010, "OW", pixels)));
    EXPECT_TRUE(Holds(written, BigEndianWords(0x7FE00010, "OW", icon)));
    Expect(0, "convert --classic -q -s explicit in.dcm explicit.dcm");
    EXPECT_TRUE(Read("explicit.dcm").ends_with(Explicit(0x7FE00010, "OW", pixels)));

    Expect(0, "convert -q -s big in.dcm standard.dcm");
    EXPECT_TRUE(HoldsInOrder(Read("standard.dcm"), BigEndianWords(0x7FE00010, "OW", icon),
                             BigEndianWords(0x7FE00010, "OW", pixels)));

    // Bytes stay bytes.
    Write("in.dcm", Part10(kImplicitUid, Implicit(0x00280100, LittleEndian(8, 2)) + Implicit(0x7FE00010, "\1\2\3\4")));
    Expect(0, "convert --classic -q -s big in.dcm out.dcm");
    EXPECT_TRUE(Read("out.dcm").ends_with(std::string("OB\0\0\0\0\0\4\1\2\3\4", 12)));
}

TEST_F(Convert, ABareDataSetStaysOneOrBecomesAFileThatNamesItself)
{
    Write("bare.dcm", kDataSet);
    EXPECT_EQ(Expect(0, "convert -s explicit bare.dcm out.dcm").err, "");
    EXPECT_EQ(Read("out.dcm"), kDataSet);
    Expect(0, "convert -v -s implicit bare.dcm out.dcm", "bare.dcm: (0002,0002) ",
           ": added as 1.2.840.10008.5.1.4.1.1.4\n");
    EXPECT_EQ(Read("out.dcm").substr(128, 4), "DICM");
    EXPECT_TRUE(Holds(Read("out.dcm"), Explicit(0x00020001, "OB", std::string("\0\1", 2))));
    EXPECT_EQ(TextsOf("out.dcm", {0x00020002, 0x00020003, 0x00020010, 0x00020013}),
              "[1.2.840.10008.5.1.4.1.1.4][1.2.3.4][" + kImplicitUid + "][VARNOTIX_0_1]");
    EXPECT_TRUE(TextsOf("out.dcm", {0x00020012}).starts_with("[2.25."));

    Write("anonymous.dcm", Explicit(0x00100010, "PN", "Doe^Jane"));
    Expect(0, "convert -s implicit anonymous.dcm out.dcm", "(0002,0003)",
           "missing, because the data set does not name it");
}

TEST_F(Convert, InputAndOutputMayBeOneFileOrTheStandardStreams)
{
    Write("one.dcm", Part10(kExplicitUid, kDataSet));
    const std::string converted = Expect(0, "convert -q -s big - - <one.dcm").out;
    Expect(0, "convert -q -s big one.dcm one.dcm");
    EXPECT_EQ(Read("one.dcm"), converted);
    EXPECT_EQ(CountTemporaries(), 0);
}

TEST_F(Convert, AFailureKeepsTheOldOutputAndLeavesNothingElse)
{
    Write("out.dcm", "old");
    Write("short.dcm", Part10(kExplicitUid, kDataSet.substr(0, kDataSet.size() - 1)));
    Expect(20, "convert -s big short.dcm out.dcm");
    Expect(20, "convert -s big missing.dcm out.dcm");

    // 32-bit lengths of implicit VR can exceed the 16 bits of explicit VR.
    Write("long.dcm", Part10(kImplicitUid, Implicit(0x00081140, Item(Implicit(0x00081150, std::string(70000, '1'))))));
    Expect(0, "convert -v -s explicit long.dcm kept.dcm",
           "(0008,1150) Referenced SOP Class UID: VR UI is written as UN, because 70000 bytes are too long for it");
    Expect(40, "convert --classic -s explicit long.dcm out.dcm",
           "long.dcm: (0008,1140)>(0008,1150) Referenced SOP Class UID: a value of 70000 bytes is too long for VR UI");
    Expect(0, "convert --classic -s implicit long.dcm kept.dcm");

    Write("in.dcm", Part10(kExplicitUid, kDataSet));
    EXPECT_EQ(Expect(40, "convert -s big in.dcm no-folder/out.dcm").err,
              "varnotix: cannot write 'no-folder/out.dcm': No such file or directory\n");
    std::filesystem::create_directory("folder");
    Expect(40, "convert -s big in.dcm folder", "cannot write 'folder': ");
    EXPECT_TRUE(std::filesystem::is_directory("folder"));
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}

TEST_F(Convert, CompressedPixelDataKeepsItsSyntaxOrIsRefused)
{
    Write("rle.dcm", Part10(kRleUid, kRleDataSet));
    for (const std::string word : {"implicit", "big"})
    {
        Expect(20, "convert -s " + word + " rle.dcm out.dcm",
               "rle.dcm: its pixel data is compressed (transfer syntax " + kRleUid + ")");
        EXPECT_FALSE(std::filesystem::exists("out.dcm"));
    }
    EXPECT_EQ(Expect(0, "convert -s explicit rle.dcm out.dcm").err,
              "varnotix: rle.dcm: its pixel data is compressed, so the output keeps the transfer syntax " + kRleUid +
                  "\n");
    EXPECT_EQ(Read("out.dcm"), Read("rle.dcm"));

    Write("bare.dcm", kRleDataSet);
    Expect(20, "convert -s big bare.dcm other.dcm", "does not name its transfer syntax");
}

TEST_F(Convert, WritesNothingOfAFileThatEndsInAHeader)
{
    for (const std::string& header : {Tag(0x7FE00012).substr(0, 2), Tag(0x7FE00012) + "OW"})
    {
        Write("cut.dcm", Part10(kExplicitUid, kDataSet + header));
        Expect(20, "convert cut.dcm out.dcm",
               "cut off at byte " + std::to_string(Read("cut.dcm").size()) + " after (7FE0,0010) Pixel Data");
        EXPECT_FALSE(std::filesystem::exists("out.dcm"));
    }
    // What other programs append is something else.
    Write("tail.dcm", Part10(kExplicitUid, kDataSet + "\r\n"));
    Expect(0, "convert tail.dcm out.dcm", "bytes after the last element lost");
    Write("zero.dcm", std::string(500, '\0'));
    Expect(20, "convert zero.dcm out.dcm", "it holds zero bytes where elements should be");
}

TEST_F(Convert, MakesOddNumbersEvenBeforeTheirBytesChangePlaces)
{
    const std::string values("\1\2\3", 3);
    const std::string pixels = Explicit(0x7FE00010, "OW", values);
    Write("odd.dcm", Part10(kExplicitUid, Explicit(0x00280009, "US", values) + pixels));
    Expect(0, "convert -q -s big odd.dcm big.dcm");
    Expect(0, "convert -q -s explicit big.dcm even.dcm");
    EXPECT_TRUE(Read("even.dcm")
                    .ends_with(Explicit(0x00280009, "US", values + '\0') + Explicit(0x7FE00010, "OW", values + '\0')));

    // A group length is a number whatever its header says.
    Write("length.dcm", Part10(kExplicitUid, Explicit(0x00280000, "TM", "1200") + Us(0x00280010, 1)));
    Expect(0, "convert -v length.dcm out.dcm", "(0028,0000) Group Length: remade, with VR UL");
}

TEST_F(Convert, DeflatesAndInflatesAndStopsWhereTheDataDo)
{
    Write("in.dcm", Part10(kExplicitUid, kDataSet + std::string(3, '\0')));
    Expect(0, "convert -s deflated in.dcm deflated.dcm", "bytes after the last element lost");
    const std::string deflated = Read("deflated.dcm");
    EXPECT_EQ(deflated.size() % 2, 0U);
    EXPECT_EQ(deflated.find("Doe"), std::string::npos);
    EXPECT_EQ(Expect(0, "convert deflated.dcm same.dcm").err, "");
    EXPECT_EQ(Read("same.dcm"), deflated);
    Expect(0, "convert -s explicit deflated.dcm out.dcm");
    EXPECT_TRUE(Read("out.dcm").ends_with(kDataSet));

    Write("short.dcm", deflated.substr(0, deflated.size() - 10));
    EXPECT_TRUE(Holds(Expect(20, "dump short.dcm", "short.dcm: its deflated data set is cut off").out, "1.2.840"));
    Write("bad.dcm", Part10("1.2.840.10008.1.2.1.99", std::string(40, '\xFF')));
    Expect(20, "convert bad.dcm out.dcm", "its deflated data set is damaged at its byte");
    Expect(20, "convert --classic deflated.dcm out.dcm", "is deflated, which the classic rules do not inflate");
    // A block with codes of its own for "0" and "258 more of it"; each byte of zeros then gives 1032 bytes.
    const std::string block("\xED\xC1\x01\x01\0\0\0\x82\x20\xFF\xAF\x6E\x48\x40\x01", 15);
    Write("bomb.dcm", Part10("1.2.840.10008.1.2.1.99", block + std::string(70000, '\0')));
    Expect(20, "convert bomb.dcm out.dcm", "inflates to more than the 64 MiB that its size allows");
}

TEST_F(Convert, WhatOtherReadersWouldRefuseNeedsForce)
{
    Write("native.dcm", Part10(kRleUid, kDataSet));
    Expect(40, "convert native.dcm out.dcm", "its pixel data is native, but transfer syntax " + kRleUid);
    Write("divided.dcm", Part10(kExplicitUid, kRleDataSet));
    Expect(40, "convert divided.dcm out.dcm", "its pixel data is encapsulated, but transfer syntax " + kExplicitUid);

    const std::string records = Explicit(0x00041200, "UL", LittleEndian(400, 4));
    Write("DICOMDIR", Part10(kExplicitUid, records));
    Expect(40, "convert -s implicit DICOMDIR out.dcm", "the file offsets in it would be wrong");
    Expect(0, "convert DICOMDIR same.dcm");
    EXPECT_EQ(Read("same.dcm"), Read("DICOMDIR"));
    EXPECT_FALSE(std::filesystem::exists("out.dcm"));
    for (const char* name : {"native.dcm", "divided.dcm", "-s implicit DICOMDIR"})
    {
        Expect(0, std::string("convert --force ") + name + " out.dcm");
    }
}
