#include "codestream/JpegDecoders.h"

#include <algorithm>

namespace
{

constexpr int kLongestDifference = 16; // It has no bits of its own: it is 32768 (table H.2).

int Predict(int predictor, int left, int above, int before)
{
    switch (predictor)
    {
    case 1:
        return left;
    case 2:
        return above;
    case 3:
        return before;
    case 4:
        return left + above - before;
    case 5:
        return left + ((above - before) >> 1);
    case 6:
        return above + ((left - before) >> 1);
    default:
        return (left + above) >> 1;
    }
}

class CLosslessScan
{
public:
    CLosslessScan(const CJpegStream& stream, const SJpegScan& scan, SRaster& raster)
        : m_stream(stream),
          m_scan(scan),
          m_raster(raster),
          m_step(static_cast<std::size_t>(raster.channels)),
          m_row(m_step * static_cast<std::size_t>(raster.width)),
          m_bits(stream.Bits())
    {
    }

    void Decode();

private:
    void DecodeRow(std::size_t start, bool isFirst);
    int Difference(const CHuffmanTable& table);

    const CJpegStream& m_stream;
    const SJpegScan& m_scan;
    SRaster& m_raster;
    std::size_t m_step; // From pixel to pixel, and from row to row.
    std::size_t m_row;
    CJpegBits m_bits;
};

void CLosslessScan::Decode()
{
    const int interval = m_stream.RestartInterval();
    if (interval % m_raster.width != 0)
    {
        FailCodestream("restart intervals that do not end with a row are not supported");
    }
    const int rows = interval / m_raster.width;
    for (int y = 0; y < m_raster.height; ++y)
    {
        const bool isRestart = rows > 0 && y > 0 && y % rows == 0;
        if (isRestart)
        {
            m_bits.Restart(y / rows - 1);
        }
        DecodeRow(static_cast<std::size_t>(y) * m_row, y == 0 || isRestart);
    }
}

int CLosslessScan::Difference(const CHuffmanTable& table)
{
    const int count = m_bits.Decode(table);
    if (count > kLongestDifference)
    {
        FailCodestream("a difference in its codestream is too long");
    }
    return count == kLongestDifference ? 1 << (kLongestDifference - 1) : m_bits.ReadDifference(count);
}

void CLosslessScan::DecodeRow(std::size_t start, bool isFirst)
{
    const int origin = 1 << (m_raster.bits - m_scan.shift - 1);
    for (std::size_t pixel = start; pixel < start + m_row; pixel += m_step)
    {
        for (std::size_t i = 0; i < m_scan.components.size(); ++i)
        {
            std::uint16_t* sample = m_raster.samples.data() + pixel + m_scan.components[i];
            int predicted = origin;
            if (pixel == start)
            {
                predicted = isFirst ? origin : *(sample - m_row);
            }
            else if (isFirst)
            {
                predicted = *(sample - m_step);
            }
            else
            {
                predicted =
                    Predict(m_scan.predictor, *(sample - m_step), *(sample - m_row), *(sample - m_row - m_step));
            }
            const int difference = Difference(m_stream.DcTable(m_scan.dcTables[i]));
            *sample = static_cast<std::uint16_t>(predicted + difference);
        }
    }
}

} // namespace

void DecodeLosslessJpeg(CJpegStream& stream, SRaster& raster)
{
    constexpr int kLastPredictor = 7;
    if (stream.Frame().IsSubsampled())
    {
        FailCodestream("lossless components of different size are not supported");
    }
    std::vector<int> shifts(static_cast<std::size_t>(raster.channels), 0);
    std::size_t found = 0;
    SJpegScan scan;
    while (found < shifts.size() && stream.NextScan(scan))
    {
        if (scan.predictor < 1 || scan.predictor > kLastPredictor || scan.shift >= raster.bits)
        {
            FailCodestream("the scan header of its codestream is damaged");
        }
        CLosslessScan(stream, scan, raster).Decode();
        found += scan.components.size();
        for (const std::size_t component : scan.components)
        {
            shifts[component] = scan.shift;
        }
    }
    if (found < shifts.size())
    {
        FailCodestream("its codestream lacks a scan");
    }
    if (std::any_of(shifts.begin(), shifts.end(), [](int shift) { return shift > 0; }))
    {
        for (std::size_t i = 0; i < raster.samples.size(); ++i)
        {
            raster.samples[i] = static_cast<std::uint16_t>(raster.samples[i] << shifts[i % shifts.size()]);
        }
    }
}
