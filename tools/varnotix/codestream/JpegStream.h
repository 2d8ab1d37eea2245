/// The segments of a JPEG codestream (ITU-T T.81 Annex B).
#pragma once

#include "codestream/JpegBits.h"

/// The coding of a frame: the second byte of its SOF marker.
enum EJpegProcess : int
{
    JPEG_BASELINE = 0xC0,
    JPEG_EXTENDED = 0xC1,
    JPEG_PROGRESSIVE = 0xC2,
    JPEG_LOSSLESS = 0xC3
};

struct SJpegComponent
{
    int id = 0;
    int horizontal = 1; ///< Sampling factors.
    int vertical = 1;
    int quantization = 0; ///< Number of its quantization table.
};

struct SJpegFrame
{
    int process = 0;
    SRasterShape shape; ///< What the codestream says of itself.
    std::vector<SJpegComponent> components;

    /// True when a component has fewer samples than another, as only colour differences have.
    bool IsSubsampled() const;
};

struct SJpegScan
{
    std::vector<std::size_t> components; ///< Their places in the frame.
    std::vector<int> dcTables;           ///< One per component, as the next.
    std::vector<int> acTables;
    int predictor = 0; ///< Of a lossless scan; else the first coefficient.
    int shift = 0;     ///< Point transform.
};

/// Reads segment by segment. What cannot be read throws CCodestreamFault.
class CJpegStream
{
public:
    static constexpr int kBlock = 64; ///< Coefficients of a block.

    CJpegStream(const BYTE* bytes, std::size_t size) : m_end(bytes + size), m_next(bytes) {}

    /// Reads up to the frame header. The components are not empty then.
    void ReadFrame();

    /// Reads up to the bits of the next scan. They last until the next call.
    /// @return false when the picture ends.
    bool NextScan(SJpegScan& scan);

    const SJpegFrame& Frame() const { return m_frame; }
    CJpegBits Bits() const { return {m_next, m_end}; }
    const CHuffmanTable& DcTable(int number) const { return m_tables[0][static_cast<std::size_t>(number)]; }
    const CHuffmanTable& AcTable(int number) const { return m_tables[1][static_cast<std::size_t>(number)]; }
    /// In the order of the codestream. All are 0 in a table that was not defined.
    const std::array<int, kBlock>& Quantization(int number) const
    {
        return m_quantization[static_cast<std::size_t>(number)];
    }
    /// Number of units between restart markers; 0 for none.
    int RestartInterval() const { return m_restartInterval; }
    /// The Adobe segment says that colours are YCbCr.
    bool NamesChrominance() const { return m_namesChrominance; }

private:
    struct SSegment
    {
        int marker = 0;
        const BYTE* bytes = nullptr;
        std::size_t size = 0;
    };

    static constexpr std::size_t kTables = 4;

    SSegment NextSegment();
    void TakeTables(const SSegment& segment);
    void TakeQuantization(const SSegment& segment);
    void TakeHuffman(const SSegment& segment);
    void TakeFrame(const SSegment& segment);
    void TakeScan(const SSegment& segment, SJpegScan& scan) const;

    const BYTE* m_end;
    const BYTE* m_next;
    SJpegFrame m_frame;
    std::array<std::array<CHuffmanTable, kTables>, 2> m_tables;
    std::array<std::array<int, kBlock>, kTables> m_quantization{};
    int m_restartInterval = 0;
    bool m_namesChrominance = false;
};
