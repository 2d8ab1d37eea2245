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

const std::string kDataSet =
    Explicit(0x00080016, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.4")) +
    Explicit(0x00080018, "UI", PaddedUid("1.2.3.4")) + Explicit(0x00100010, "PN", "Doe^Jane") +
    Explicit(0x00280010, "US", LittleEndian(1, 2)) + Explicit(0x00280011, "US", LittleEndian(0x0102, 2)) +
    Explicit(0x00280100, "US", LittleEndian(16, 2)) + Explicit(0x7FE00010, "OW", LittleEndian(0x01020304, 4));

const std::string kRleDataSet = kDataSet.substr(0, kDataSet.size() - 16) + Encapsulated("", {"AAAA", "BB"});

} // namespace

TEST_F(Convert, EverySyntaxBecomesEveryOther)
{
    Write("0.dcm", Part10(kExplicitUid, kDataSet));
    const std::pair<const char*, std::string> steps[] = {{"big", kBigUid},           {"implicit", kImplicitUid},
                                                         {"explicit", kExplicitUid}, {"implicit", kImplicitUid},
                                                         {"big", kBigUid},           {"explicit", kExplicitUid}};
    int step = 0;
    for (const auto& [word, uid] : steps)
    {
        const std::string from = std::to_string(step++) + ".dcm";
        const std::string to = std::to_string(step) + ".dcm";
        const SRun run = Run(std::string("convert -q --syntax ") + word + " " + from + " " + to);
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        CDcmIOD object;
        ReadObject(to, object);
        EXPECT_EQ(TextOf(object, 0x0002, 0x0010), uid);
    }
    EXPECT_EQ(Read("1.dcm"), Read("5.dcm"));
    EXPECT_EQ(Read("3.dcm"), Read("6.dcm"));
    EXPECT_TRUE(Read("6.dcm").ends_with(kDataSet));
}

TEST_F(Convert, WordsOfAnImplicitObjectAreSwappedForBigEndian)
{
    const std::string pixels = LittleEndian(0x0102, 2) + LittleEndian(0x0304, 2);
    const std::string depth = Implicit(0x00280100, LittleEndian(16, 2));
    const std::string icon = LittleEndian(0x0506, 2);
    Write("in.dcm", Part10(kImplicitUid, depth + Implicit(0x00880200, Item(depth + Implicit(0x7FE00010, icon))) +
                                             Implicit(0x7FE00010, pixels)));
    const SRun run = Run("convert -v -s big in.dcm out.dcm");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(Holds(run.err, "in.dcm: (7FE0,0010) Pixel Data: VR OW, for it has 16 bits a sample"));
    const std::string written = Read("out.dcm");
    EXPECT_TRUE(written.ends_with(BigEndianWords(0x7FE00010, "OW", pixels)));
    EXPECT_TRUE(Holds(written, BigEndianWords(0x7FE00010, "OW", icon)));
    EXPECT_EQ(Run("convert -q -s explicit in.dcm explicit.dcm").status, 0);
    EXPECT_TRUE(Read("explicit.dcm").ends_with(Explicit(0x7FE00010, "OW", pixels)));
}

TEST_F(Convert, BytesOfAnImplicitObjectStayBytes)
{
    Write("in.dcm", Part10(kImplicitUid, Implicit(0x00280100, LittleEndian(8, 2)) + Implicit(0x7FE00010, "\1\2\3\4")));
    ASSERT_EQ(Run("convert -q -s big in.dcm out.dcm").status, 0);
    EXPECT_TRUE(Read("out.dcm").ends_with(std::string("OB\0\0\0\0\0\4\1\2\3\4", 12)));
}

TEST_F(Convert, ABareDataSetBecomesAFileThatNamesItself)
{
    Write("bare.dcm", kDataSet);
    const SRun run = Run("convert -v -s explicit bare.dcm out.dcm");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(Holds(run.err, "bare.dcm: (0002,0002) "));
    EXPECT_TRUE(Holds(run.err, ": added as 1.2.840.10008.5.1.4.1.1.4\n"));
    EXPECT_EQ(Read("out.dcm").substr(128, 4), "DICM");
    CDcmIOD object;
    ReadObject("out.dcm", object);
    const CDcmElement* version = object.ElementStore().Find(0x0002, 0x0001);
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(std::string(version->RawBytes().Text()), std::string("\0\1", 2));
    EXPECT_EQ(TextOf(object, 0x0002, 0x0002), "1.2.840.10008.5.1.4.1.1.4");
    EXPECT_EQ(TextOf(object, 0x0002, 0x0003), "1.2.3.4");
    EXPECT_EQ(TextOf(object, 0x0002, 0x0010), kExplicitUid);
    EXPECT_TRUE(TextOf(object, 0x0002, 0x0012).starts_with("2.25."));
    EXPECT_EQ(TextOf(object, 0x0002, 0x0013), "VARNOTIX_0_1");

    Write("anonymous.dcm", Explicit(0x00100010, "PN", "Doe^Jane"));
    const SRun unnamed = Run("convert -s explicit anonymous.dcm out.dcm");
    EXPECT_EQ(unnamed.status, 0);
    EXPECT_TRUE(Holds(unnamed.err, "(0002,0003)"));
    EXPECT_TRUE(Holds(unnamed.err, "missing, because the data set does not name it"));
}

TEST_F(Convert, InputAndOutputMayBeOneFileOrTheStandardStreams)
{
    Write("one.dcm", Part10(kExplicitUid, kDataSet));
    ASSERT_EQ(Run("convert -q -s big one.dcm out.dcm").status, 0);
    const SRun streamed = Run("convert -q -s big - - <one.dcm");
    EXPECT_EQ(streamed.status, 0);
    EXPECT_EQ(streamed.out, Read("out.dcm"));
    ASSERT_EQ(Run("convert -q -s big one.dcm one.dcm").status, 0);
    EXPECT_EQ(Read("one.dcm"), Read("out.dcm"));
    EXPECT_EQ(CountTemporaries(), 0);
}

TEST_F(Convert, AFailureKeepsTheOldOutputAndLeavesNothingElse)
{
    Write("out.dcm", "old");
    Write("short.dcm", Part10(kExplicitUid, kDataSet.substr(0, kDataSet.size() - 1)));
    EXPECT_EQ(Run("convert -s big short.dcm out.dcm").status, 20);
    EXPECT_EQ(Run("convert -s big missing.dcm out.dcm").status, 20);

    // What 32-bit lengths of implicit VR can tell, the 16 bits of explicit VR cannot.
    Write("long.dcm", Part10(kImplicitUid, Implicit(0x00081140, Item(Implicit(0x00081150, std::string(70000, '1'))))));
    const SRun tooLong = Run("convert -s explicit long.dcm out.dcm");
    EXPECT_EQ(tooLong.status, 40);
    EXPECT_TRUE(Holds(tooLong.err, "long.dcm: (0008,1140)>(0008,1150) Referenced SOP Class UID: a value of 70000 bytes "
                                   "is too long for VR UI"));
    EXPECT_EQ(Run("convert -s implicit long.dcm kept.dcm").status, 0);

    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}

TEST_F(Convert, AnOutputThatHasNoPlaceIsNamedWithTheReason)
{
    Write("in.dcm", Part10(kExplicitUid, kDataSet));
    const SRun nowhere = Run("convert -s big in.dcm no-folder/out.dcm");
    EXPECT_EQ(nowhere.status, 40);
    EXPECT_EQ(nowhere.err, "varnotix: cannot write 'no-folder/out.dcm': No such file or directory\n");
    std::filesystem::create_directory("folder");
    const SRun folder = Run("convert -s big in.dcm folder");
    EXPECT_EQ(folder.status, 40);
    EXPECT_TRUE(Holds(folder.err, "cannot write 'folder': "));
    EXPECT_TRUE(std::filesystem::is_directory("folder"));
    EXPECT_EQ(CountTemporaries(), 0);
}

TEST_F(Convert, CompressedPixelDataKeepsItsSyntaxOrIsRefused)
{
    Write("rle.dcm", Part10(kRleUid, kRleDataSet));
    for (const char* word : {"implicit", "big"})
    {
        const SRun refused = Run(std::string("convert -s ") + word + " rle.dcm out.dcm");
        EXPECT_EQ(refused.status, 20);
        EXPECT_TRUE(Holds(refused.err, "rle.dcm: its pixel data is compressed (transfer syntax " + kRleUid + ")"));
        EXPECT_FALSE(FileExists("out.dcm"));
    }
    const SRun kept = Run("convert -s explicit rle.dcm out.dcm");
    EXPECT_EQ(kept.status, 0);
    EXPECT_EQ(kept.err, "varnotix: rle.dcm: its pixel data is compressed, so the output keeps the transfer syntax " +
                            kRleUid + "\n");
    EXPECT_EQ(Read("out.dcm"), Read("rle.dcm"));

    Write("bare.dcm", kRleDataSet);
    const SRun unnamed = Run("convert -s explicit bare.dcm other.dcm");
    EXPECT_EQ(unnamed.status, 20);
    EXPECT_TRUE(Holds(unnamed.err, "does not name its transfer syntax"));
}
