// Any bytes as a frame to encode, after four bytes that describe the image. What shrinks comes back by decoding.

#include "Rle.h"

namespace
{

constexpr int kHeaderSize = 64;

// The encoder starts over once it has less room than this.
constexpr int kRoomForStep = 3;

int NumberAt(const CByteArray& bytes, int position)
{
    return bytes[position] | bytes[position + 1] << 8 | bytes[position + 2] << 16 | bytes[position + 3] << 24;
}

/// Whether every segment stayed within the room that the encoder has for it.
bool Shrank(const CByteArray& encoded, int room)
{
    const int segments = NumberAt(encoded, 0);
    for (int i = 0; i < segments; ++i)
    {
        const int begin = NumberAt(encoded, 4 + 4 * i);
        const int end = i + 1 < segments ? NumberAt(encoded, 8 + 4 * i) : encoded.GetSize();
        Promise(begin <= end, "segments follow each other");
        if (end - begin + kRoomForStep > room)
        {
            return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    SRleInput setting(input);
    const CByteArray frame = input.Rest();
    CByteArray encoded(frame);
    setting.image.DcmRleEncode(encoded);
    if (!setting.IsGrayOrPalette() && !setting.IsRgb())
    {
        Promise(Same(encoded, frame), "a frame of another interpretation stays");
        return 0;
    }
    Promise(encoded.GetSize() >= kHeaderSize && NumberAt(encoded, 4) == kHeaderSize, "the header comes first");
    Promise(encoded.GetSize() <= kHeaderSize + 2 * frame.GetSize(), "a byte costs a control byte more at most");

    // Decoded at the size of the frame, by a picture of one row.
    const int room = setting.IsRgb() ? setting.pixels : frame.GetSize();
    const int expected = setting.IsRgb() ? 3 * setting.pixels : frame.GetSize();
    if (expected == 0 || expected > frame.GetSize() || room > 0xFFFF || !Shrank(encoded, room))
    {
        return 0;
    }
    setting.image.Rows(1);
    setting.image.Columns(static_cast<WORD>(room));
    setting.image.BitsAllocated(8);
    encoded.SetSize(encoded.GetSize() + kHeaderSize); // The decoder does not read the last 64 bytes of a frame.
    CByteArray decoded;
    setting.image.DcmRleDecode(encoded, decoded);
    Promise(decoded.GetSize() == expected && std::equal(decoded.begin(), decoded.end(), frame.begin()),
            "a frame that shrank comes back");
    return 0;
}
