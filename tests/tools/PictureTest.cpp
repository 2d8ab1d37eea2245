#include "FrameInputs.h"

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
    const SImage range{.bits = 16, .sign = 1, .more = Us(0x00280120, 63636) + Us(0x00280121, 63536)};
    EXPECT_EQ(Draw(Native(range, Words({-1950, -100, 0, 100}))).bytes, (Bytes{0, 0, 128, 255}));
    EXPECT_EQ(Draw(Native({}, std::string(4, 'x'))).bytes, (Bytes{0, 0, 0, 0}));
    // Single bits are black and white, though the first frame has only ones and the next one only zeros.
    EXPECT_EQ(Draw(Native({.bits = 1, .frames = "2 "}, std::string("\x0F\0", 2))).bytes, (Bytes{255, 255, 255, 255}));
    EXPECT_EQ(ReadPicture("out/frame-0002.png").bytes, (Bytes{0, 0, 0, 0}));

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
    // What follows the places of the segments in the header has no meaning.
    std::string strange = RleFrame({"\1\4", "\2\5", "\3\6"});
    strange[16] = 65;
    EXPECT_EQ(Draw(Compressed(kRleUid, rgb, "", {strange})).bytes, (Bytes{1, 2, 3, 4, 5, 6}));
    const SImage shared{.samples = 3, .photometric = "YBR_FULL_422", .rows = 1, .planar = 1};
    EXPECT_EQ(Draw(Compressed(kRleUid, shared, "", {RleFrame({{"\xFF\0", 2}, "\x80\x80", "\x80\x80"})})).bytes,
              (Bytes{255, 255, 255, 0, 0, 0}));
}

TEST_F(PictureTest, RunLengthEncodedSamplesLookAsAnotherToolDecodesThem)
{
    const std::filesystem::path folder = SampleFolder();
    if (folder.empty() || std::system("which dcmdrle >which.txt 2>&1") != 0)
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder, or dcmdrle is not installed";
    }
    for (const char* name : {"MR_small_RLE", "CT0012.bot_rle", "SC_rgb_rle", "SC_rgb_rle_2frame"})
    {
        const std::string sample = "\"" + (folder / name).string() + ".dcm\"";
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
    EXPECT_TRUE(Holds(Refusal(Compressed(kRleUid, {}, "", {RleFrame({"abc"})})), "segment 1 ends early"));
    // The first segment ends where the second one does.
    std::string empty = RleFrame({"abcd", "efgh"});
    empty[8] = 64;
    EXPECT_TRUE(Holds(Refusal(Compressed(kRleUid, {.bits = 16}, "", {empty})), "segment 1 ends early: it has 0 of 4"));
    const std::string large = LittleEndian(4, 4) + std::string(9000000, '\0');
    EXPECT_TRUE(Holds(Refusal(Compressed(kRleUid, {.rows = 16384, .columns = 8193, .bits = 32}, "", {large})),
                      "takes more than 2 GiB"));
    EXPECT_TRUE(Holds(Refusal(Native({.rows = 65535, .columns = 65535}, "abcd")), "a picture needs"));
    EXPECT_TRUE(Holds(Refusal(Native({.bits = 12}, "abcdef")), "samples of 12 bits"));
    EXPECT_TRUE(Holds(Refusal(Native({.bits = 65535}, "abcdef")), "samples of 65535 bits"));
    EXPECT_TRUE(Holds(Refusal(Native({.photometric = "HSV "}, "abcd")), "'HSV' are not supported"));
    EXPECT_TRUE(Holds(Refusal(Native({.samples = 3}, "abcdabcdabcd")), "3 samples per pixel do not fit"));
    EXPECT_TRUE(Holds(Refusal(Native({.more = Text(0x00281053, "DS", "1e999")}, "abcd")), "'1e999' cannot be used"));
}

TEST_F(PictureTest, TheWindowIsTheUsersTheObjectsOrTheRange)
{
    // Slope 2 and intercept -10: modality values 0, 10, 100 and 190.
    const std::string more = Text(0x00281050, "DS", "100") + Text(0x00281051, "DS", "10") +
                             Text(0x00281052, "DS", "-10") + Text(0x00281053, "DS", "2");
    const auto draw = [&](const std::string& options, const std::string& function = "")
    {
        const std::string elements = more + (function.empty() ? "" : Text(0x00281056, "CS", function));
        return Draw(Native({.bits = 16, .more = elements}, Words({5, 10, 55, 100})), options).bytes;
    };
    EXPECT_EQ(draw(""), (Bytes{0, 0, 142, 255}));
    EXPECT_EQ(draw("--window range"), (Bytes{0, 13, 134, 255}));
    EXPECT_EQ(draw("--window 10,21"), (Bytes{6, 134, 255, 255}));
    EXPECT_EQ(draw("--window -10,1"), (Bytes{255, 255, 255, 255}));
    if (!kIsWindows) // Wine's component exchanges the bytes of 16-bit samples.
    {
        EXPECT_EQ(draw("--window 100,400 --depth 16", "LINEAR_EXACT"), (Bytes{16384, 18022, 32768, 47513}));
    }
    EXPECT_EQ(draw("--window 100,100", "SIGMOID"), (Bytes{5, 7, 128, 248}));

    Expect(1, "frames in.dcm -o out --png --window 1", "is neither CENTER,WIDTH");
    Expect(1, "frames in.dcm -o out --png --window 1,-2", "is neither CENTER,WIDTH");
    Expect(1, "frames in.dcm -o out --window 1,2", "need --png");
}

TEST_F(PictureTest, TablesOfModalityAndVoiAreApplied)
{
    const auto table = [](unsigned long sequence, const std::vector<int>& descriptor, const std::string& data)
    {
        const std::string item = Item(Explicit(0x00283002, "US", Words(descriptor)) + Explicit(0x00283006, "OW", data));
        return Explicit(sequence, "SQ", item);
    };
    // Stored -1 to 2 become 100, 40, 20, 0; the last entry counts for what comes after the table.
    const std::string modality = table(0x00283000, {4, -1, 16}, Words({100, 40, 20, 0}));
    const SImage image{.bits = 16, .sign = 1, .more = modality};
    EXPECT_EQ(Draw(Native(image, Words({-1, 0, 1, 9}))).bytes, (Bytes{255, 102, 51, 0}));

    // A VOI LUT of 12 bits from 20 on.
    const std::string voi = table(0x00283010, {3, 20, 12}, Words({4095, 0, 2048}));
    EXPECT_EQ(Draw(Native({.more = voi}, "\x14\x15\x16\x05")).bytes, (Bytes{255, 0, 128, 255}));
    // A window goes first, unless the user wants the table.
    const SImage both{.more = Text(0x00281050, "DS", "20") + Text(0x00281051, "DS", "1") + voi};
    EXPECT_EQ(Draw(Native(both, "\x13\x14\x15\x16")).bytes, (Bytes{0, 255, 255, 255}));
    EXPECT_EQ(Draw(Native(both, "\x13\x14\x15\x16"), "--window lut").bytes, (Bytes{255, 255, 0, 128}));
    EXPECT_TRUE(Holds(Refusal(Native({}, "abcd"), "--window lut"), "it has no (0028,3010)"));

    const SImage cut{.more = table(0x00283010, {300, 0, 16}, Words({1, 2}))};
    Draw(Native(cut, std::string("\0\1\0\1", 4)));
    EXPECT_TRUE(Holds(Read("err.txt"), "too few for 300 entries", "drawn over the range"));
}

TEST_F(PictureTest, EachFrameHasTheWindowOfItsFunctionalGroups)
{
    const auto window = [](const std::string& center)
    {
        const std::string item = Item(Text(0x00281050, "DS", center) + Text(0x00281051, "DS", "1"));
        return Item(Explicit(0x00289132, "SQ", item));
    };
    const SImage image{.rows = 1,
                       .frames = "2 ",
                       .more = Explicit(0x52009229, "SQ", window("1")) +
                               Explicit(0x52009230, "SQ", Item("") + window("3"))};
    EXPECT_EQ(Draw(Native(image, std::string("\0\1\2\3", 4))).bytes, (Bytes{0, 255}));
    EXPECT_EQ(ReadPicture("out/frame-0002.png").bytes, (Bytes{0, 255}));
}

TEST_F(PictureTest, OverlaysAreDrawnOnDemand)
{
    const auto overlay = [](unsigned long group, int row, int column, const std::string& rest) {
        return Us(group | 0x10, 2) + Us(group | 0x11, 2) + Explicit(group | 0x50, "SS", Words({row, column})) + rest;
    };
    const std::string data = Us(0x60000100, 1) + Us(0x60000102, 0);
    const auto draw = [](const std::string& more, const std::string& pixels, unsigned bits, unsigned stored)
    { return Draw(Native({.bits = bits, .stored = stored, .more = more}, pixels), "--overlays --window 9,2").bytes; };

    // Bits 1001, from the first bit on: the diagonal, and moved so that only one of its points is in the picture.
    const std::string diagonal = data + Explicit(0x60003000, "OW", std::string("\x09\0", 2));
    EXPECT_EQ(draw(overlay(0x60000000, 1, 1, diagonal), std::string(4, '\0'), 8, 0), (Bytes{255, 0, 0, 255}));
    EXPECT_EQ(draw(overlay(0x60000000, 0, 0, diagonal), std::string(4, '\0'), 8, 0), (Bytes{255, 0, 0, 0}));
    EXPECT_EQ(draw(overlay(0x60000000, 2, 1, diagonal), std::string(4, '\0'), 8, 0), (Bytes{0, 0, 255, 0}));
    EXPECT_EQ(Draw(Native({.more = overlay(0x60000000, 1, 1, diagonal)}, std::string(4, '\0'))).bytes,
              (Bytes{0, 0, 0, 0}));

    // In bit 12 of the samples.
    const std::string unused = Us(0x60020100, 16) + Us(0x60020102, 12);
    EXPECT_EQ(draw(overlay(0x60020000, 1, 1, unused), Words({0x1000, 0, 0x1000, 0}), 16, 12), (Bytes{255, 0, 255, 0}));

    // An overlay of one frame, for the second frame of the image.
    const std::string second = Text(0x60000015, "IS", "1") + Us(0x60000051, 2) + diagonal;
    const SImage two{.frames = "2 ", .more = overlay(0x60000000, 1, 1, second)};
    EXPECT_EQ(Draw(Native(two, std::string(8, '\0')), "--overlays").bytes, (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(ReadPicture("out/frame-0002.png").bytes, (Bytes{255, 0, 0, 255}));

    const std::string cut = data + Explicit(0x60003000, "OW", "");
    EXPECT_EQ(draw(overlay(0x60000000, 1, 1, cut), std::string(4, '\0'), 8, 0), (Bytes{0, 0, 0, 0}));
    EXPECT_TRUE(Holds(Read("err.txt"), "the overlay of group 6000 is not drawn"));
}

TEST_F(PictureTest, SixteenBitsKeepWhatEightCannotShow)
{
    if (kIsWindows)
    {
        GTEST_SKIP() << "Wine's component exchanges the bytes of 16-bit samples";
    }
    const SReadPicture gray = Draw(Native({.bits = 16}, Words({0, 1, 2, 1000})), "--depth 16");
    EXPECT_EQ(gray.depth, 16U);
    EXPECT_EQ(gray.bytes, (Bytes{0, 66, 131, 65535}));
    const SImage rgb{.samples = 3, .photometric = "RGB", .rows = 1};
    EXPECT_EQ(Draw(Native(rgb, "\1\2\3\4\5\6"), "--depth 16").bytes, (Bytes{257, 514, 771, 1028, 1285, 1542}));
}
