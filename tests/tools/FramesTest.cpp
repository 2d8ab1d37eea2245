#include "FrameInputs.h"

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
    const std::string first = LittleEndian(0, 4); // Though there are as many fragments as frames.
    EXPECT_TRUE(Holds(FramesOf(Compressed(kRleUid, {.frames = "3"}, first, fragments), "").err, "is not used"));
    EXPECT_EQ(Read("out/frame-0003.bin"), "ddee");

    // Without a table, codestreams begin the frames, if there are as many.
    const std::vector<std::string> starts = {"\xFF\xD8\xFF-", "cc", "\xFF\xD8\xFF="};
    EXPECT_EQ(FramesOf(Compressed(kJpegUid, {.frames = "2"}, "", starts), "").err, "");
    EXPECT_EQ(Read("out/frame-0001.jpg"), "\xFF\xD8\xFF-cc");
    EXPECT_EQ(Read("out/frame-0002.jpg"), "\xFF\xD8\xFF=");
    FramesOf(Compressed(kJpegUid, {.frames = "4"}, "", starts), "");
    EXPECT_EQ(Read("out/frame-0002.jpg"), "cc");
}

TEST_F(FramesTest, FramesThatShareBytesAreMovedToBeginWithOne)
{
    // Bits 101, 110 and 011, from the lowest one on; then the same cut short.
    const SImage bits{.rows = 1, .columns = 3, .bits = 1, .frames = "3"};
    EXPECT_EQ(FramesOf(Native(bits, "\x9D\x01"), "").err, "");
    EXPECT_EQ(Read("out/frame-0001.bin") + Read("out/frame-0002.bin") + Read("out/frame-0003.bin"), "\5\3\6");
    SImage more = bits;
    more.frames = "6";
    EXPECT_TRUE(Holds(FramesOf(Native(more, "\x9D\x01"), "").err, "holds 2 bytes, too few"));
    EXPECT_EQ(Read("out/frame-0003.bin"), "\6");
    EXPECT_FALSE(std::filesystem::exists("out/frame-0006.bin"));
}

TEST_F(FramesTest, RleFramesThatCannotBeDecodedWholeAreNotClearedEither)
{
    const struct
    {
        SImage image;
        std::string frame;
        std::string reason;
    } cases[] = {
        {{}, RleFrame({"abc"}), "its RLE segment 1 ends early"},
        {{.bits = 2040}, '\xFF' + std::string(127, '\0'), "more bytes than RLE has segments"},
    };
    for (const auto& one : cases)
    {
        Write("in.dcm", Compressed(kRleUid, one.image, "", {one.frame}));
        Expect(20, "deidentify in.dcm -o out --key key --black-out 0,0,1,1", one.reason);
    }
}

TEST_F(FramesTest, ManyObjectsGetNamesThatDoNotMix)
{
    const auto write = [](const std::string& name, const std::string& uid, const std::string& frames)
    {
        const std::string instance = uid.empty() ? "" : Explicit(0x00080018, "UI", PaddedUid(uid));
        Write(name, Part10(kExplicitUid, instance + Text(0x00200013, "IS", "7") + SImage{.frames = frames}.Elements() +
                                             Explicit(0x7FE00010, "OW", "abcdefgh")));
    };
    std::filesystem::create_directories("in/deep");
    write("in/a.dcm", "1.2.3", "2 ");
    write("in/deep/b.dcm", "1.2.4", "1 ");
    Write("in/note.txt", "no object");
    Expect(0, "frames -r in -o out");
    EXPECT_EQ(Read("out/1.2.3-0002.bin"), "efgh");
    EXPECT_EQ(Read("out/1.2.4-0001.bin"), "abcd");
    Expect(0, "frames -r in -o out --name {file}/{number}-{frame}");
    EXPECT_EQ(Read("out/a/0007-0002.bin"), "efgh");
    Expect(0, "frames in/a.dcm -o out --frame 2");
    EXPECT_EQ(Read("out/frame-0002.bin"), "efgh");
    EXPECT_FALSE(std::filesystem::exists("out/frame-0001.bin"));
    Expect(0, "frames in/a.dcm -o - --frame 2");
    EXPECT_EQ(ReadText("out.txt"), "efgh");

    // Whatever would mix two objects, or lead out of the folder, is refused or reported.
    Expect(40, "frames in/a.dcm in/deep/b.dcm -o out2 --name frame-{frame}", "b.dcm: not written", "those of in/a.dcm");
    EXPECT_EQ(Read("out2/frame-0002.bin"), "efgh");
    // Not even those frames that the other object does not have.
    Expect(40, "frames in/deep/b.dcm in/a.dcm -o out6 --name frame-{frame}", "a.dcm: not written");
    EXPECT_FALSE(std::filesystem::exists("out6/frame-0002.bin"));
    Expect(40, "frames in/a.dcm -o out3 --name one", "frame 2: not written: ", "one.bin holds in/a.dcm, frame 1");
    Expect(0, "frames in/deep/b.dcm -o out2", "frame-0002.bin and those after it are not of this object");
    write("nameless.dcm", "", "1 ");
    Expect(40, "frames nameless.dcm in/a.dcm -o out4", "it has no (0008,0018)");
    write("strange.dcm", "../../1", "1 ");
    Expect(0, "frames strange.dcm -o out5 --name {uid}");
    EXPECT_TRUE(std::filesystem::exists("out5/_._.._1.bin"));
    Expect(1, "frames in/a.dcm -o out --name ../{frame}", "leads out of the output folder");
    Expect(1, "frames in/a.dcm -o out --name {patient}", "has the field 'patient'");
    Expect(1, "frames in/a.dcm -o out --frame 0", "is not a number of a frame");
    Expect(1, "frames -r in -o -", "standard output takes one frame");
    Expect(1, "frames -r in --png -o a.png", "the file 'a.png' takes one frame of a single FILE");
    Expect(20, "frames in/a.dcm -o -", "choose it with --frame");
    Expect(20, "frames in/a.dcm -o out --frame 3", "it has no frame 3; it has 2");
}
