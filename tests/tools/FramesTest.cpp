#include "PngReader.h"
#include "ToolRunner.h"

namespace
{

using Bytes = std::vector<int>;

const std::string kJpegUid = "1.2.840.10008.1.2.4.50";
const std::string kMonochrome2 = "MONOCHROME2 ";

std::string Text(unsigned long tag, const std::string& vr, const std::string& value)
{
    return Explicit(tag, vr, value.size() % 2 == 0 ? value : value + " ");
}

/// The image pixel attributes of a test image, and what is to stand beside them.
struct SImage
{
    unsigned samples = 1;
    std::string photometric = kMonochrome2;
    unsigned rows = 2;
    unsigned columns = 2;
    unsigned bits = 8;
    unsigned sign = 0;
    std::string frames = {};
    unsigned planar = 0;
    std::string more = {}; ///< Elements after (0028,0103).

    std::string Elements() const
    {
        return Us(0x00280002, samples) + Text(0x00280004, "CS", photometric) + Us(0x00280006, planar) +
               (frames.empty() ? "" : Text(0x00280008, "IS", frames)) + Us(0x00280010, rows) + Us(0x00280011, columns) +
               Us(0x00280100, bits) + Us(0x00280101, bits) + Us(0x00280102, bits - 1) + Us(0x00280103, sign) + more;
    }
};

std::string Native(const SImage& image, const std::string& pixels)
{
    return Part10(kExplicitUid, image.Elements() + Explicit(0x7FE00010, "OW", pixels));
}

std::string Compressed(const std::string& uid, const SImage& image, const std::string& table,
                       const std::vector<std::string>& fragments)
{
    return Part10(uid, image.Elements() + Encapsulated(table, fragments));
}

/// An RLE frame of literal runs, one segment a text of at most 128 bytes (PS3.5 Annex G).
std::string RleFrame(const std::vector<std::string>& segments)
{
    std::string header = LittleEndian(segments.size(), 4);
    std::string body;
    for (const std::string& segment : segments)
    {
        header += LittleEndian(64 + body.size(), 4);
        body += static_cast<char>(segment.size() - 1) + segment;
    }
    header.resize(64);
    return header + body + (body.size() % 2 == 0 ? "" : std::string(1, '\0'));
}

std::string Words(const std::vector<int>& values)
{
    std::string text;
    for (const int value : values)
    {
        text += LittleEndian(static_cast<unsigned long>(value) & 0xFFFFU, 2);
    }
    return text;
}

class FramesTest : public ToolTest
{
protected:
    static SRun FramesOf(const std::string& file, const std::string& arguments, int status = 0)
    {
        std::filesystem::remove_all("out");
        Write("in.dcm", file);
        return Expect(status, "frames in.dcm -o out " + arguments);
    }

    /// The first picture of an object; empty, with the message shown, when none was drawn.
    SReadPicture Draw(const std::string& file)
    {
        FramesOf(file, "--png");
        return ReadPicture("out/frame-0001.png");
    }

    /// The message with which an object is not drawn.
    std::string Refusal(const std::string& file)
    {
        const SRun run = FramesOf(file, "--png", 20);
        EXPECT_FALSE(std::filesystem::exists("out/frame-0001.png"));
        return run.err;
    }
};

class PictureTest : public FramesTest
{
protected:
    void SetUp() override
    {
        if (!kHasPng)
        {
            GTEST_SKIP() << "built without the PNG library";
        }
    }
};

} // namespace

TEST_F(FramesTest, UncompressedFramesLieBackToBack)
{
    EXPECT_EQ(FramesOf(Native({.frames = "2"}, "abcdefgh"), "").err, "");
    EXPECT_EQ(Read("out/frame-0001.bin"), "abcd");
    EXPECT_EQ(Read("out/frame-0002.bin"), "efgh");

    // More than asked for, less than asked for, and a number that is none.
    EXPECT_TRUE(Holds(FramesOf(Native({}, "abcdef"), "").err, "2 bytes after its last frame are left out"));
    EXPECT_TRUE(Holds(FramesOf(Native({.frames = "2147483647"}, "abcdef"), "").err, "holds 6 bytes, too few"));
    EXPECT_EQ(Read("out/frame-0002.bin"), "ef");
    EXPECT_TRUE(Holds(FramesOf(Native({.frames = "2A"}, "efghabcd"), "").err, "'2A' is not a number of frames"));
    EXPECT_EQ(Read("out/frame-0002.bin"), "abcd");
}

TEST_F(FramesTest, WithoutAFrameSizeTheValueIsOneFrame)
{
    for (const SImage& image : {SImage{.rows = 0}, SImage{.samples = 0, .frames = "2"}, SImage{.bits = 0}})
    {
        EXPECT_TRUE(Holds(FramesOf(Native(image, "abcdefgh"), "").err, "do not give the size of a frame"));
        EXPECT_EQ(Read("out/frame-0001.bin"), "abcdefgh");
    }
    EXPECT_TRUE(Holds(FramesOf(Part10(kExplicitUid, Us(0x00280010, 1)), "", 20).err, "it has no pixel data"));
}

TEST_F(FramesTest, OffsetTableOrNumberOfFramesGathersFragments)
{
    // The second frame begins at the third item, 8 + 4 + 8 + 2 bytes after the first.
    const std::string table = LittleEndian(0, 4) + LittleEndian(22, 4);
    const std::vector<std::string> fragments = {"aabb", "cc", "ddee"};
    EXPECT_EQ(FramesOf(Compressed(kJpegUid, {.frames = "2"}, table, fragments), "").err, "");
    EXPECT_EQ(Read("out/frame-0001.jpg"), "aabbcc");
    EXPECT_EQ(Read("out/frame-0002.jpg"), "ddee");

    FramesOf(Compressed("1.2.840.10008.1.2.4.80", {}, "", fragments), "");
    EXPECT_EQ(Read("out/frame-0001.jls"), "aabbccddee");
    FramesOf(Compressed("1.2.840.10008.1.2.4.91", {.frames = "3"}, "", fragments), "");
    EXPECT_EQ(Read("out/frame-0003.j2k"), "ddee");

    const std::string wrong = LittleEndian(0, 4) + LittleEndian(23, 4);
    EXPECT_TRUE(Holds(FramesOf(Compressed(kRleUid, {.frames = "3"}, wrong, fragments), "").err, "is not used"));
    EXPECT_EQ(Read("out/frame-0003.bin"), "ddee");
}

TEST_F(PictureTest, GrayGoesThroughRescaleAndTheFirstWindow)
{
    const std::string scale = Text(0x00281050, "DS", "10.5\\7") + Text(0x00281051, "DS", "21\\9") +
                              Text(0x00281052, "DS", "-100") + Text(0x00281053, "DS", "2");
    // Modality values -120, 0, 10 and 900; the window is linear from 0 to 20.
    const std::string pixels = Words({-10, 50, 55, 500});
    const SReadPicture picture = Draw(Native({.rows = 4, .columns = 1, .bits = 16, .sign = 1, .more = scale}, pixels));
    EXPECT_FALSE(picture.isColour);
    EXPECT_EQ(std::pair(picture.width, picture.height), std::pair(1U, 4U));
    EXPECT_EQ(picture.bytes, (Bytes{0, 0, 128, 255}));
    EXPECT_EQ(Draw(Native({.photometric = "MONOCHROME1 ", .bits = 16, .sign = 1, .more = scale}, pixels)).bytes,
              (Bytes{255, 255, 127, 0}));
}

TEST_F(PictureTest, WithoutAWindowTheRangeOfTheValuesIsShown)
{
    // Pixel padding -2000 is not a part of the range.
    const SImage padded{.bits = 16, .sign = 1, .more = Us(0x00280120, 63536)};
    EXPECT_EQ(Draw(Native(padded, Words({-2000, -100, 0, 100}))).bytes, (Bytes{0, 0, 128, 255}));
    EXPECT_EQ(Draw(Native({}, std::string(4, 'x'))).bytes, (Bytes{0, 0, 0, 0}));

    const SImage strange{.more = Text(0x00281050, "DS", "1") + Text(0x00281051, "DS", "0")};
    EXPECT_EQ(Draw(Native(strange, std::string("\0\1\0\1", 4))).bytes, (Bytes{0, 255, 0, 255}));
    EXPECT_TRUE(Holds(Read("err.txt"), "Window Width '0' cannot be used"));
}

TEST_F(PictureTest, ColourIsDrawnByPixelAndByPlane)
{
    const Bytes wanted = {1, 2, 3, 4, 5, 6};
    const SImage rgb{.samples = 3, .photometric = "RGB", .rows = 1};
    EXPECT_EQ(Draw(Native(rgb, "\1\2\3\4\5\6")).bytes, wanted);
    SImage byPlane = rgb;
    byPlane.planar = 1;
    EXPECT_EQ(Draw(Native(byPlane, "\1\4\2\5\3\6")).bytes, wanted);

    // Full luminance without colour is white; red difference at its top is red.
    const SImage ybr{.samples = 3, .photometric = "YBR_FULL", .rows = 1};
    EXPECT_EQ(Draw(Native(ybr, "\xFF\x80\x80\x4C\x55\xFF")).bytes, (Bytes{255, 255, 255, 254, 0, 0}));
    const SImage shared{.samples = 3, .photometric = "YBR_FULL_422", .rows = 1};
    EXPECT_EQ(Draw(Native(shared, std::string("\xFF\0\x80\x80", 4))).bytes, (Bytes{255, 255, 255, 0, 0, 0}));
}

TEST_F(PictureTest, PaletteIndicesStartAtTheFirstMappedValueAndStayInside)
{
    std::string palette;
    std::string data;
    for (unsigned long channel = 0; channel < 3; ++channel)
    {
        palette += Explicit(0x00281101 + channel, "US", Words({2, -1, 16}));
        const int first = static_cast<int>(channel + 1) * 0x1000;
        data += Explicit(0x00281201 + channel, "OW", Words({first, first + 0x0800}));
    }
    SImage image{.photometric = "PALETTE COLOR ", .rows = 1, .bits = 16, .sign = 1, .more = palette + data};
    EXPECT_EQ(Draw(Native(image, Words({-1, 5}))).bytes, (Bytes{0x10, 0x20, 0x30, 0x18, 0x28, 0x38}));

    image.more = palette;
    EXPECT_TRUE(Holds(Refusal(Native(image, Words({-1, 5}))), "Data is missing"));
    // 0 entries means 65536 of them.
    image.more = Explicit(0x00281101, "US", Words({0, 0, 8})) + data;
    EXPECT_TRUE(Holds(Refusal(Native(image, Words({-1, 5}))), "too few for 65536 entries"));
}

TEST_F(PictureTest, RunLengthEncodedFramesAreDrawnWholeToTheirLastByte)
{
    // High bytes, then low bytes: 0, 255, 256, 510.
    const std::string words = RleFrame({std::string("\0\0\1\1", 4), std::string("\0\xFF\0\xFE", 4)});
    EXPECT_EQ(Draw(Compressed(kRleUid, {.bits = 16}, "", {words})).bytes, (Bytes{0, 128, 128, 255}));
    // Segments are planes whatever the planar configuration is.
    const SImage rgb{.samples = 3, .photometric = "RGB", .rows = 1, .planar = 0};
    EXPECT_EQ(Draw(Compressed(kRleUid, rgb, "", {RleFrame({"\1\4", "\2\5", "\3\6"})})).bytes,
              (Bytes{1, 2, 3, 4, 5, 6}));
    const SImage shared{.samples = 3, .photometric = "YBR_FULL_422", .rows = 1, .planar = 1};
    EXPECT_EQ(Draw(Compressed(kRleUid, shared, "", {RleFrame({{"\xFF\0", 2}, "\x80\x80", "\x80\x80"})})).bytes,
              (Bytes{255, 255, 255, 0, 0, 0}));
}

TEST_F(PictureTest, RunLengthEncodedSamplesLookAsAnotherToolDecodesThem)
{
    const char* folder = std::getenv("VARNOTIX_SAMPLES");
    if (folder == nullptr || std::system("which dcmdrle >which.txt 2>&1") != 0)
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder, or dcmdrle is not installed";
    }
    for (const char* name : {"MR_small_RLE", "CT0012.bot_rle", "SC_rgb_rle", "SC_rgb_rle_2frame"})
    {
        const std::string sample = "\"" + (std::filesystem::path(folder) / name).string() + ".dcm\"";
        ASSERT_EQ(std::system(("dcmdrle " + sample + " decoded.dcm").c_str()), 0) << name;
        Expect(0, "frames -q --png -o mine " + sample);
        Expect(0, "frames -q --png -o theirs decoded.dcm");
        for (const auto& picture : std::filesystem::directory_iterator("mine"))
        {
            const std::string file = picture.path().filename().string();
            EXPECT_EQ(Read("mine/" + file), Read("theirs/" + file)) << name << ' ' << file;
        }
        EXPECT_NE(Read("theirs/frame-0001.png"), "");
    }
}

TEST_F(PictureTest, WhatCannotBeDrawnIsRefusedWithTheReason)
{
    const std::string frame = RleFrame({"abcd"});
    EXPECT_TRUE(Holds(Refusal(Compressed(kRleUid, {.rows = 65535, .columns = 65535}, "", {frame})), "too few for"));
    EXPECT_TRUE(Holds(Refusal(Compressed(kRleUid, {.bits = 16}, "", {frame})), "1 RLE segments"));
    EXPECT_TRUE(Holds(Refusal(Compressed(kRleUid, {}, "", {"ab"})), "too few for the header"));
    EXPECT_TRUE(Holds(Refusal(Compressed(kJpegUid, {}, "", {"abcd"})), "only RLE is decompressed"));
    EXPECT_TRUE(Holds(Refusal(Native({.rows = 65535, .columns = 65535}, "abcd")), "a picture needs"));
    EXPECT_TRUE(Holds(Refusal(Native({.bits = 12}, "abcdef")), "samples of 12 bits"));
    EXPECT_TRUE(Holds(Refusal(Native({.bits = 65535}, "abcdef")), "samples of 65535 bits"));
    EXPECT_TRUE(Holds(Refusal(Native({.photometric = "HSV "}, "abcd")), "'HSV' are not supported"));
    EXPECT_TRUE(Holds(Refusal(Native({.samples = 3}, "abcdabcdabcd")), "3 samples per pixel do not fit"));
    EXPECT_TRUE(Holds(Refusal(Native({.more = Text(0x00281053, "DS", "1e999")}, "abcd")), "'1e999' cannot be used"));
}
