#include "Elements.h"
#include "Programs.h"
#include "Varnotix/iod/DcmIOD.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::string>;

constexpr const char* kExplicitLittle = "1.2.840.10008.1.2.1";
constexpr const char* kExplicitBig = "1.2.840.10008.1.2.2";

CByteArray File(CDcmIOD& iod)
{
    CByteArray bytes;
    iod.ExportFileFormat(bytes);
    return bytes;
}

std::vector<int> Start(const CByteArray& bytes, int count)
{
    return {bytes.begin(), bytes.begin() + count};
}

} // namespace

TEST(IodFile, KeepsAPreambleOf128BytesOnly)
{
    CDcmIOD source;
    Fill(source.ElementStore(), {MakeText(0x0010, 0x0010, "AB")});
    CByteArray file = File(source);
    // Implicit little endian: (0010,0010), length 2, the value.
    EXPECT_EQ(Numbers(file),
              Numbers(Join({Zeros(128), TextBytes("DICM"), Bytes({0x10, 0, 0x10, 0, 2, 0, 0, 0}), TextBytes("AB")})));
    file[0] = 'P';
    file[127] = 'E';
    CDcmIOD read;
    read.Import(file);
    EXPECT_TRUE(read == source);
    EXPECT_EQ(read.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    EXPECT_EQ(Numbers(File(read)), Numbers(file));

    // One byte less than a preamble is not written as one.
    const CByteArray bare = Join({Bytes({0x10, 0, 0x10, 0, 119, 0, 0, 0}), TextBytes(std::string(119, 'N'))});
    read.Import(bare);
    EXPECT_EQ(read.GetCount(), 1);
    EXPECT_EQ(Start(File(read), 128), Numbers(Zeros(128)));

    // A longer one is: the start of the bare data set itself.
    const CByteArray longer = Join({Bytes({0x10, 0, 0x10, 0, 200, 0, 0, 0}), TextBytes(std::string(200, 'N'))});
    read.Import(longer);
    EXPECT_EQ(Start(File(read), 128), Start(longer, 128));
}

TEST(IodFile, SyntaxNamedInTheStoreWinsOverTheRequestedOne)
{
    CDcmIOD iod;
    iod.FileFormat(false);
    Fill(iod.ElementStore(), {MakeText(0x0002, 0x0010, kExplicitBig), MakeWord(0x0028, 0x0010, 0x0102)});
    // The meta group is explicit little endian whatever follows: its length, then the UID padded to 20 bytes.
    const CByteArray meta = Join({Bytes({2, 0, 0, 0, 'U', 'L', 4, 0, 28, 0, 0, 0}),
                                  Bytes({2, 0, 0x10, 0, 'U', 'I', 20, 0}), TextBytes(kExplicitBig), Zeros(1)});
    EXPECT_EQ(Numbers(File(iod)), Numbers(Join({meta, Bytes({0, 0x28, 0, 0x10, 'U', 'S', 0, 2, 1, 2})})));
    EXPECT_EQ(iod.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);

    // A UID that the table lacks leaves the choice to the request; it is written as it is.
    iod.ElementStore().Find(0x0002, 0x0010)->AddText("1.2.3.4");
    iod.IodSyntax(kExplicitLittle);
    const CByteArray bytes = File(iod);
    EXPECT_EQ(std::vector<int>(bytes.end() - 10, bytes.end()),
              Numbers(Bytes({0x28, 0, 0x10, 0, 'U', 'S', 2, 0, 2, 1})));
    EXPECT_STREQ(iod.ElementStore().Find(0x0002, 0x0010)->JoinedText(), "1.2.3.4");
}

TEST(IodFile, SyntaxIsSetByKnownUidsOnly)
{
    CDcmIOD iod;
    EXPECT_EQ(iod.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    const std::pair<const char*, int> uids[] = {
        {kExplicitBig, 4},          {"1.2.840.10008.1.1", 4}, // No transfer syntax: unchanged.
        {"1.2.840.10008.1.2", 1},   {"1.2.840.10008.1.2.1.99", 2}, {"1.2.840.10008.1.2", 1},
        {"1.2.840.10008.1.2.5", 2}, {"1.2.840.10008.1.2.1.98", 2}, // Row 28: unchanged.
        {"1.2.840.10008.1.2", 1},   {"1.2.840.10008.1.2.4.50", 2}, {"", 2}};
    for (const auto& [uid, syntax] : uids)
    {
        iod.IodSyntax(uid);
        EXPECT_EQ(iod.IodSyntax(), syntax) << uid;
    }
}

TEST(IodFile, ExportWritesTheElementsAloneInTheSyntaxAskedFor)
{
    CDcmIOD iod;
    iod.GroupLengths(true);
    Fill(iod.ElementStore(), {MakeWord(0x0028, 0x0010, 0x0102)});
    CByteArray bytes(Bytes({9, 9}));
    iod.Export(bytes, kExplicitLittle);
    EXPECT_EQ(Numbers(bytes), Numbers(Bytes({0x28, 0, 0x10, 0, 'U', 'S', 2, 0, 2, 1})));
    EXPECT_EQ(iod.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    iod.Export(bytes, "1.2.3.4");
    EXPECT_TRUE(bytes.IsEmpty());
    EXPECT_EQ(iod.GetCount(), 1);
}

TEST(IodText, DocumentTellsKindSyntaxAndCounts)
{
    CDcmIOD iod;
    iod.IodSyntax(kExplicitBig);
    Fill(iod.ElementStore(),
         {MakeSequence(0x0008, 0x1120, {MakeText(0x0008, 0x1150, "1.2")}), MakeText(0x0010, 0x0020, "7")});
    CStringArray lines;
    lines.Add("old");
    iod.Export(lines);
    const Texts document = Lines(lines);
    ASSERT_EQ(document.size(), 13U);
    EXPECT_EQ(document[0].rfind("#Attribute Script Language(ASL) ", 0), 0U);
    EXPECT_EQ(Texts(document.begin() + 1, document.end()),
              (Texts{"#SOURCE_FILE=", "#IOD_KIND=CDcmIOD", "#IOD_SYNTAX=explicit_big_endian", "#COUNT=2",
                     "#COUNT_ALL=3", "#ATTRIBUTE_SET_BEGIN", "0008,1120,SQ,1,Referenced Patient Sequence,[1]",
                     "#SEQUENCE_BEGIN", "   0008,1150,UI,1,Referenced SOP Class UID,[1.2,]", "#SEQUENCE_END",
                     "0010,0020,LO,1,Patient ID,[7,]", "#ATTRIBUTE_SET_END"}));

    iod.Export(CString("document.asl"));
    const std::string written = ReadText("document.asl");
    std::filesystem::remove("document.asl");
    EXPECT_EQ(written.substr(0, document[0].size() + 1), document[0] + "\n");
    EXPECT_TRUE(written.ends_with("[7,]\n#ATTRIBUTE_SET_END\n\n"));
    EXPECT_NO_THROW(iod.Export(CString("no such folder/document.asl")));
}
