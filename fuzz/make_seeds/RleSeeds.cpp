// Frames to decode and to encode. Four bytes come first: rows, columns, and the numbers of bits and interpretation.

#include "RleFrames.h"
#include "Seeds.h"

namespace
{

constexpr int kBits8 = 0;
constexpr int kBits16 = 1;
constexpr int kMonochrome = 1;
constexpr int kPalette = 2;
constexpr int kRgb = 3;
constexpr int kOther = 4;

CByteArray Input(int rows, int columns, int bits, int photometric, const CByteArray& rest)
{
    return Join({Bytes({rows, columns, bits, photometric}), rest});
}

} // namespace

void MakeRleSeeds()
{
    const CByteArray runs = Bytes({0xFD, 7, 3, 1, 2, 3, 4, 0x80, 0xF9, 9});
    const CByteArray row = Bytes({0xF1, 5});
    const auto decode = [](const char* name, const CByteArray& bytes) { PutSeed("rle_decode", name, bytes); };
    decode("gray", Input(4, 4, kBits8, kMonochrome, RleFrame({runs})));
    decode("gray_16", Input(4, 4, kBits16, kMonochrome, RleFrame({runs, row})));
    decode("palette", Input(4, 4, kBits8, kPalette, RleFrame({row}, 0)));
    decode("rgb", Input(4, 4, kBits8, kRgb, RleFrame({runs, row, runs})));
    decode("rgb_two", Input(2, 2, kBits8, kRgb, RleFrame({runs, row})));
    decode("other", Input(4, 4, kBits16, kOther, RleFrame({runs, row, runs, row, runs})));
    decode("sixteen", Input(1, 3, kBits8, kMonochrome, RleFrame(std::vector<CByteArray>(15, row))));
    CByteArray wild = RleFrame({runs, row});
    PutNumber(wild, 0, 0xFFFFFFFF);
    PutNumber(wild, 4, 0x7FFFFFFF);
    PutNumber(wild, 8, 2);
    decode("wild_offsets", Input(3, 3, kBits8, kRgb, wild));

    const auto encode = [](const char* name, const CByteArray& bytes) { PutSeed("rle_encode", name, bytes); };
    const CByteArray smooth = Join({Repeated(0, 140), Counting(1, 20), Bytes({7, 7, 1}), Repeated(5, 200)});
    encode("smooth", Input(1, 1, kBits8, kMonochrome, smooth));
    encode("literals", Input(1, 1, kBits8, kMonochrome, Join({Counting(0, 126), Bytes({9, 9, 3}), Repeated(1, 90)})));
    encode("pairs", Input(1, 1, kBits16, kPalette, Join({Bytes({1, 2, 2, 3, 3, 3, 4, 4, 5, 5, 6}), Repeated(0, 40)})));
    encode("grows", Input(1, 1, kBits8, kMonochrome, Counting(0, 256)));
    encode("rgb", Input(8, 15, kBits8, kRgb, smooth));
    encode("rgb_short", Input(31, 31, kBits8, kRgb, smooth));
    encode("other", Input(4, 4, kBits8, kOther, smooth));
}
