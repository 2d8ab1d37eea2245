// Objects with pixel data, built byte by byte, and the frames that the command-line host writes of them.
#pragma once

#include "PngReader.h"
#include "ToolRunner.h"

inline const std::string kJpegUid = "1.2.840.10008.1.2.4.50";
inline const std::string kMonochrome2 = "MONOCHROME2 ";

inline std::string Text(unsigned long tag, const std::string& vr, const std::string& value)
{
    return Explicit(tag, vr, value.size() % 2 == 0 ? value : value + " ");
}

/// The image pixel attributes of a test image, and other elements.
struct SImage
{
    unsigned samples = 1;
    std::string photometric = kMonochrome2;
    unsigned rows = 2;
    unsigned columns = 2;
    unsigned bits = 8;   ///< Allocated.
    unsigned stored = 0; ///< 0: as allocated.
    unsigned sign = 0;
    std::string frames = {};
    unsigned planar = 0;
    std::string more = {}; ///< Elements after (0028,0103).

    unsigned Stored() const { return stored == 0 ? bits : stored; }

    std::string Elements() const
    {
        return Us(0x00280002, samples) + Text(0x00280004, "CS", photometric) + Us(0x00280006, planar) +
               (frames.empty() ? "" : Text(0x00280008, "IS", frames)) + Us(0x00280010, rows) + Us(0x00280011, columns) +
               Us(0x00280100, bits) + Us(0x00280101, Stored()) + Us(0x00280102, Stored() - 1) + Us(0x00280103, sign) +
               more;
    }
};

inline std::string Native(const SImage& image, const std::string& pixels)
{
    return Part10(kExplicitUid, image.Elements() + Explicit(0x7FE00010, "OW", pixels));
}

inline std::string Compressed(const std::string& uid, const SImage& image, const std::string& table,
                              const std::vector<std::string>& fragments)
{
    std::vector<std::string> padded = fragments;
    for (std::string& fragment : padded)
    {
        fragment.resize(fragment.size() + fragment.size() % 2);
    }
    return Part10(uid, image.Elements() + Encapsulated(table, padded));
}

/// An RLE frame of literal runs, one segment a text of at most 128 bytes (PS3.5 Annex G).
inline std::string RleFrame(const std::vector<std::string>& segments)
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

inline std::string Words(const std::vector<int>& values)
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
    using Bytes = std::vector<int>;

    static SRun FramesOf(const std::string& file, const std::string& arguments, int status = 0)
    {
        std::filesystem::remove_all("out");
        Write("in.dcm", file);
        return Expect(status, "frames in.dcm -o out " + arguments);
    }

    /// The first picture of an object; empty, with the message shown, when none was drawn.
    static SReadPicture Draw(const std::string& file, const std::string& options = "")
    {
        FramesOf(file, "--png " + options);
        return ReadPicture("out/frame-0001.png");
    }

    /// The message with which an object is not drawn.
    static std::string Refusal(const std::string& file, const std::string& options = "")
    {
        const SRun run = FramesOf(file, "--png " + options, 20);
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
            GTEST_SKIP() << "there is nothing here to read pictures with";
        }
    }
};
