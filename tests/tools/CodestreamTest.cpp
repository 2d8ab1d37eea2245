#include "FrameInputs.h"

#include <cmath>

namespace
{

const std::string kLosslessJpegUid = "1.2.840.10008.1.2.4.70";
const std::string kJpegLsUid = "1.2.840.10008.1.2.4.80";
const std::string kJpeg2000Uid = "1.2.840.10008.1.2.4.90";

std::string BigEndian(unsigned long number, int bytes)
{
    std::string text = LittleEndian(number, bytes);
    std::reverse(text.begin(), text.end());
    return text;
}

/// A JPEG segment (ITU-T T.81 section B.1.1.4).
std::string Segment(int marker, const std::string& content)
{
    return std::string("\xFF") + static_cast<char>(marker) + BigEndian(content.size() + 2, 2) + content;
}

/// A JPEG codestream of one component whose header is as given, up to the bits of its scan.
std::string JpegStart(int marker, int bits, unsigned long rows, unsigned long columns)
{
    const std::string header =
        static_cast<char>(bits) + BigEndian(rows, 2) + BigEndian(columns, 2) + std::string("\1\1\x11\0", 4);
    // Nine codes of four bits, one for each length of a difference.
    const std::string table =
        std::string(4, '\0') + "\x9" + std::string(12, '\0') + std::string("\0\1\2\3\4\5\6\7\x8", 9);
    return "\xFF\xD8" + Segment(marker, header) + Segment(0xC4, table) + Segment(0xDA, std::string("\1\1\0\1\0\0", 6));
}

/// The start of a JPEG 2000 codestream of one component (ITU-T T.800 section A.5.1).
std::string Jpeg2000Start(unsigned long rows, unsigned long columns, unsigned long tile)
{
    std::string size = std::string(2, '\0') + BigEndian(columns, 4) + BigEndian(rows, 4) + std::string(8, '\0');
    size += BigEndian(tile, 4) + BigEndian(tile, 4) + std::string(8, '\0') + std::string("\0\1\7\1\1", 5);
    return "\xFF\x4F" + Segment(0x51, size);
}

class CodestreamTest : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        m_samples = SampleFolder();
    }

    /// False, and the test is skipped, where the samples or the program are missing.
    bool HasPeer(const std::string& program) const
    {
        return !m_samples.empty() && std::system(("which " + program + " >which.txt 2>&1").c_str()) == 0;
    }

    std::string Sample(const std::string& name) const { return "\"" + (m_samples / (name + ".dcm")).string() + "\""; }

    /// The mean difference of two pictures; 1000 where they cannot be compared.
    static double Difference(const SReadPicture& left, SReadPicture right)
    {
        if (left.isColour && !right.isColour)
        {
            std::vector<int> spread;
            for (const int gray : right.bytes)
            {
                spread.insert(spread.end(), 3, gray);
            }
            right.bytes = spread;
        }
        double sum = left.bytes.empty() || left.bytes.size() != right.bytes.size() ? 1000 : 0;
        for (std::size_t i = 0; sum < 1000 && i < left.bytes.size(); ++i)
        {
            sum += std::abs(left.bytes[i] - right.bytes[i]) / static_cast<double>(left.bytes.size());
        }
        return sum;
    }

    std::filesystem::path m_samples;
};

} // namespace

TEST_F(CodestreamTest, LosslessJpegIsDecodedToTheLastBit)
{
    // 128 - 28, + 1; the second row from the sample above: + 3, - 13. Four bits of a length, then the difference.
    const std::string whole = JpegStart(0xC3, 8, 2, 2) + "\x51\x8C\xB4\x2F\xFF\xD9";
    EXPECT_EQ(Draw(Compressed(kLosslessJpegUid, {}, "", {whole}), "--window 128,256").bytes,
              (Bytes{100, 101, 103, 90}));
    EXPECT_TRUE(Holds(Refusal(Compressed(kLosslessJpegUid, {}, "", {whole.substr(0, whole.size() - 5)})),
                      "frame 1 is not drawn: its codestream ends early"));
}

TEST_F(CodestreamTest, CodestreamsThatDoNotFitTheirObjectAreRefused)
{
    if (kIsWindows)
    {
        GTEST_SKIP() << "built without the libraries of JPEG 2000 and JPEG-LS";
    }
    const SImage huge{.rows = 30000, .columns = 30000};
    const struct
    {
        std::string uid;
        SImage image;
        std::string frame;
        std::string reason;
    } cases[] = {
        {kJpegUid, {}, "abcd", "it does not begin as a JPEG codestream does"},
        {kJpegUid, {}, JpegStart(0xC0, 8, 2, 4) + "a", "has 4 columns and 2 rows, the object 2 and 2"},
        {kJpegUid, {.samples = 3, .photometric = "RGB "}, JpegStart(0xC0, 8, 2, 2) + "a", "has 1 samples per pixel"},
        {kJpegUid, {}, JpegStart(0xC1, 12, 2, 2) + "a", "samples of 12 bits, the object room for 8"},
        {kJpegUid, {}, JpegStart(0xC9, 8, 2, 2) + "a", "(SOF9, 8 bits) is not supported"},
        {kJpegUid, huge, JpegStart(0xC0, 8, 30000, 30000) + "a", "too few for 30000 rows"},
        {kLosslessJpegUid, huge, JpegStart(0xC3, 8, 30000, 30000) + "a", "too few for 30000 rows"},
        {"1.2.840.10008.1.2.4.102", {}, "abcd", "there is no decoder here"},
        {kJpeg2000Uid, {}, "abcd", "it does not begin as a JPEG 2000 codestream does"},
        {kJpeg2000Uid, {}, Jpeg2000Start(2, 4, 4), "has 4 columns and 2 rows, the object 2 and 2"},
        {kJpeg2000Uid, huge, Jpeg2000Start(30000, 30000, 65535), "too few for 30000 rows"},
        {kJpeg2000Uid, huge, Jpeg2000Start(30000, 30000, 1), "too many tiles"},
        {kJpegLsUid, {}, "\xFF\xD8" + Segment(0xF7, std::string("\x8\0\2\0\4\1\1\x11\0", 9)), "is not drawn"},
        {kJpegLsUid, huge, "\xFF\xD8" + Segment(0xF7, "\x8\x75\x30\x75\x30\1\1\x11" + std::string(1, '\0')),
         "is not drawn"},
    };
    for (const auto& one : cases)
    {
        EXPECT_TRUE(Holds(Refusal(Compressed(one.uid, one.image, "", {one.frame})), one.reason)) << one.reason;
    }
}

TEST_F(CodestreamTest, FramesThatOtherToolsCompressedLookAsBefore)
{
    if (!HasPeer("dcmcjpeg") || !HasPeer("dcmcjpls") || !HasPeer("gdcmconv"))
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder, or a tool that compresses is not installed";
    }
    Expect(0, "convert -s explicit " + Sample("CT_small") + " ct.dcm");
    Expect(0, "convert -s explicit " + Sample("examples_palette") + " palette.dcm");
    ASSERT_EQ(std::system(("dcmdrle " + Sample("SC_rgb_rle") + " rgb.dcm").c_str()), 0);
    const struct
    {
        const char* command;
        const char* input;
        double difference; // Of lossy codings: the mean that the loss alone makes.
    } cases[] = {
        {"dcmcjpeg +el +sv 1", "ct", 0},
        {"dcmcjpeg +el +sv 2", "ct", 0},
        {"dcmcjpeg +el +sv 3", "ct", 0},
        {"dcmcjpeg +el +sv 4", "ct", 0},
        {"dcmcjpeg +el +sv 5", "ct", 0},
        {"dcmcjpeg +el +sv 6", "ct", 0},
        {"dcmcjpeg +el +sv 7", "ct", 0},
        {"dcmcjpeg +e1", "rgb", 0},
        {"dcmcjpeg +e1", "palette", 0},
        {"dcmcjpeg +ee +bt +q 100", "ct", 0.5},
        {"dcmcjpeg +eb +q 100 +s4", "rgb", 1},
        {"dcmcjpeg +eb +q 100 +s2", "rgb", 3},
        {"dcmcjpeg +eb +q 100 +cr", "rgb", 1},
        {"dcmcjpeg +ep +q 100 +s4", "rgb", 1},
        {"dcmcjpls +el", "ct", 0},
        {"dcmcjpls +el +in", "rgb", 0},
        {"dcmcjpls +el +is", "rgb", 0},
        {"dcmcjpls +en +md 1", "rgb", 1},
        {"gdcmconv --j2k", "ct", 0},
        {"gdcmconv --j2k", "rgb", 0},
    };
    for (const auto& one : cases)
    {
        const std::string input = std::string(one.input) + ".dcm";
        ASSERT_EQ(std::system((std::string(one.command) + " " + input + " packed.dcm >peer.txt 2>&1").c_str()), 0)
            << one.command;
        Expect(0, "frames -q --png --window range -o packed packed.dcm");
        Expect(0, "frames -q --png --window range -o plain " + input);
        EXPECT_LE(Difference(ReadPicture("plain/frame-0001.png"), ReadPicture("packed/frame-0001.png")), one.difference)
            << one.command << ' ' << one.input;
    }
}

TEST_F(CodestreamTest, SamplesLookAsAnotherToolDrawsThem)
{
    if (!HasPeer("dcmj2pnm"))
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder, or dcmj2pnm is not installed";
    }
    int drawn = 0;
    for (const auto& sample : std::filesystem::directory_iterator(m_samples))
    {
        const std::string name = "\"" + sample.path().string() + "\"";
        // The other tool counts pixel padding to the range of the values.
        const bool isPadded = sample.path().stem() == "CT1_UNC.explicit_big_endian";
        std::filesystem::remove("peer.png");
        if (std::system(("dcmj2pnm +on -O " + std::string(isPadded ? "+Ww 40 400 " : "+Wm ") + name +
                         " peer.png >peer.txt 2>&1")
                            .c_str()) == 0)
        {
            std::filesystem::remove_all("mine");
            Expect(0, "frames -q --png -o mine --window " + std::string(isPadded ? "40,400 " : "range ") + name);
            EXPECT_LE(Difference(ReadPicture("mine/frame-0001.png"), ReadPicture("peer.png")), 1) << name;
            ++drawn;
        }
    }
    EXPECT_GT(drawn, 20);
}
