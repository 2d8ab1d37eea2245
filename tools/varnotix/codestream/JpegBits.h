/// The bits of a JPEG scan and their Huffman codes (ITU-T T.81 Annexes B, C and F).
#pragma once

#include "codestream/Raster.h"

#include <array>

/// One code table of a DHT segment.
class CHuffmanTable
{
public:
    static constexpr int kLongestCode = 16;

    /// A table without codes: decoding with it fails.
    CHuffmanTable() = default;

    /// @param counts number of codes of 1 to 16 bits. Throws CCodestreamFault when they are not a code.
    /// @param values one per code.
    CHuffmanTable(const BYTE* counts, std::vector<BYTE> values);

    /// The value whose code begins the 16 bits.
    /// @param length receives the code's length; 0 when no code fits.
    int Find(int bits, int& length) const;

private:
    static constexpr int kShortCode = 8;

    struct SShort
    {
        BYTE length = 0;
        BYTE value = 0;
    };

    std::array<SShort, 1U << kShortCode> m_short{};
    std::array<int, kLongestCode + 1> m_afterLast{}; // One more than the last code of a length.
    std::array<int, kLongestCode + 1> m_shift{};     // From a code of a length to the place of its value.
    std::vector<BYTE> m_values;
};

/// Reads the entropy-coded bytes of one scan up to its next marker. What is missing throws CCodestreamFault.
class CJpegBits
{
public:
    CJpegBits(const BYTE* begin, const BYTE* end) : m_next(begin), m_end(end) {}

    /// The next bits as a number.
    /// @param count 0 to 16.
    int Read(int count);

    /// The value of the next Huffman code.
    int Decode(const CHuffmanTable& table);

    /// A difference: its number of bits has been decoded, its bits follow (section F.1.2.1.1).
    int ReadDifference(int count);

    /// Passes over the restart marker with the number, which must come next.
    void Restart(int number);

private:
    void Fill(int count);

    const BYTE* m_next;
    const BYTE* m_end;
    std::uint32_t m_bits = 0; // The low m_count ones are to be read.
    int m_count = 0;
};
