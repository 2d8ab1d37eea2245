// Any bytes as a run length encoded frame, after four bytes that describe the image.

#include "Rle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    SRleInput setting(input);
    const CByteArray frame = input.Rest();

    unsigned segments = 0;
    for (int i = 3; i >= 0; --i)
    {
        segments = segments << 8U | (i < frame.GetSize() ? frame[i] : 0U);
    }
    const bool replaces =
        segments == 1 || (segments == 2 && setting.IsGrayOrPalette()) || (segments == 3 && setting.IsRgb());
    const int decodedSize = static_cast<int>(std::min(segments, 16U)) * setting.capacity;

    static const std::uint8_t kHeld[] = {0xA5, 0x5A, 0xA5};
    const CByteArray held = ToArray(kHeld, sizeof kHeld);
    CByteArray pixels(held);
    setting.image.DcmRleDecode(frame, pixels);
    Promise(pixels.GetSize() == (replaces ? 0 : held.GetSize()) + decodedSize, "segments fill their capacity");
    Promise(replaces || std::equal(held.begin(), held.end(), pixels.begin()), "pixels are appended to what was there");

    // Bytes after the frame only let the last runs take part.
    CByteArray longer(frame);
    longer.SetSize(frame.GetSize() + 64);
    CByteArray whole;
    setting.image.DcmRleDecode(longer, whole);
    Promise(whole.GetSize() == decodedSize, "bytes after a frame do not make it larger");
    return 0;
}
