#include "codestream/JpegDecoders.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

constexpr int kSide = 8;
constexpr int kLongestDifference = 16;

/// From the order of the codestream to rows (figure A.6).
constexpr std::array<int, CJpegStream::kBlock> kPlaces = {
    0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
    41, 34, 27, 20, 13, 6,  7,  14, 21, 28, 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23,
    30, 37, 44, 51, 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

using CBlock = std::array<double, CJpegStream::kBlock>;

/// The weight of each coefficient in each sample of a row of eight (section A.3.3).
CBlock Weights()
{
    CBlock weights{};
    for (int x = 0; x < kSide; ++x)
    {
        for (int u = 0; u < kSide; ++u)
        {
            const double scale = u == 0 ? std::sqrt(0.5) : 1;
            weights[static_cast<std::size_t>(kSide * x + u)] =
                scale / 2 * std::cos((2 * x + 1) * u * std::numbers::pi / (2 * kSide));
        }
    }
    return weights;
}

/// Rows become columns, so that two calls transform a block and leave it upright.
CBlock TransformRows(const CBlock& from)
{
    static const CBlock kWeights = Weights();
    CBlock to{};
    for (std::size_t row = 0; row < kSide; ++row)
    {
        for (std::size_t x = 0; x < kSide; ++x)
        {
            double sum = 0;
            for (std::size_t u = 0; u < kSide; ++u)
            {
                sum += from[kSide * row + u] * kWeights[kSide * x + u];
            }
            to[kSide * x + row] = sum;
        }
    }
    return to;
}

int RoundedUp(int number, int divisor)
{
    return (number + divisor - 1) / divisor;
}

/// The samples of one component, in whole blocks.
struct SPlane
{
    int blocksWide = 0; ///< Blocks that hold samples: those of a scan of this component only.
    int blocksHigh = 0;
    std::size_t stride = 0;
    std::vector<std::uint16_t> samples;
    bool isDone = false;
};

class CSequentialDecoder
{
public:
    CSequentialDecoder(CJpegStream& stream, SRaster& raster);
    void Decode();

private:
    void DecodeScan(const SJpegScan& scan);
    void DecodeUnit(const SJpegScan& scan, int column, int row);
    void DecodeBlock(const SJpegScan& scan, std::size_t place, int column, int row);
    void GatherSamples();

    CJpegStream& m_stream;
    SRaster& m_raster;
    int m_horizontal = 1; // The largest sampling factors.
    int m_vertical = 1;
    std::vector<SPlane> m_planes;
    CJpegBits m_bits{nullptr, nullptr};
    std::vector<int> m_predicted;
};

CSequentialDecoder::CSequentialDecoder(CJpegStream& stream, SRaster& raster) : m_stream(stream), m_raster(raster)
{
    for (const SJpegComponent& component : stream.Frame().components)
    {
        m_horizontal = std::max(m_horizontal, component.horizontal);
        m_vertical = std::max(m_vertical, component.vertical);
    }
    const int unitsWide = RoundedUp(raster.width, kSide * m_horizontal);
    const int unitsHigh = RoundedUp(raster.height, kSide * m_vertical);
    for (const SJpegComponent& component : stream.Frame().components)
    {
        SPlane plane;
        plane.blocksWide = RoundedUp(RoundedUp(raster.width * component.horizontal, m_horizontal), kSide);
        plane.blocksHigh = RoundedUp(RoundedUp(raster.height * component.vertical, m_vertical), kSide);
        plane.stride = static_cast<std::size_t>(unitsWide) * static_cast<std::size_t>(component.horizontal) * kSide;
        plane.samples.resize(plane.stride * static_cast<std::size_t>(unitsHigh) *
                             static_cast<std::size_t>(component.vertical) * kSide);
        m_planes.push_back(std::move(plane));
    }
}

void CSequentialDecoder::Decode()
{
    const auto isDone = [](const SPlane& plane) { return plane.isDone; };
    SJpegScan scan;
    while (!std::all_of(m_planes.begin(), m_planes.end(), isDone))
    {
        if (!m_stream.NextScan(scan))
        {
            FailCodestream("its codestream lacks a scan");
        }
        DecodeScan(scan);
        for (const std::size_t component : scan.components)
        {
            m_planes[component].isDone = true;
        }
    }
    GatherSamples();
}

void CSequentialDecoder::DecodeScan(const SJpegScan& scan)
{
    m_bits = m_stream.Bits();
    m_predicted.assign(scan.components.size(), 0);
    const SPlane& first = m_planes[scan.components[0]];
    const bool isOne = scan.components.size() == 1;
    const int wide = isOne ? first.blocksWide : RoundedUp(m_raster.width, kSide * m_horizontal);
    const int high = isOne ? first.blocksHigh : RoundedUp(m_raster.height, kSide * m_vertical);
    const int interval = m_stream.RestartInterval();
    int unit = 0;
    for (int row = 0; row < high; ++row)
    {
        for (int column = 0; column < wide; ++column, ++unit)
        {
            if (interval > 0 && unit > 0 && unit % interval == 0)
            {
                m_bits.Restart(unit / interval - 1);
                m_predicted.assign(scan.components.size(), 0);
            }
            DecodeUnit(scan, column, row);
        }
    }
}

void CSequentialDecoder::DecodeUnit(const SJpegScan& scan, int column, int row)
{
    if (scan.components.size() == 1)
    {
        DecodeBlock(scan, 0, column, row);
        return;
    }
    for (std::size_t i = 0; i < scan.components.size(); ++i)
    {
        const SJpegComponent& component = m_stream.Frame().components[scan.components[i]];
        for (int block = 0; block < component.horizontal * component.vertical; ++block)
        {
            DecodeBlock(scan, i, column * component.horizontal + block % component.horizontal,
                        row * component.vertical + block / component.horizontal);
        }
    }
}

void CSequentialDecoder::DecodeBlock(const SJpegScan& scan, std::size_t place, int column, int row)
{
    const std::size_t component = scan.components[place];
    const auto& quantization = m_stream.Quantization(m_stream.Frame().components[component].quantization);
    CBlock block{};
    const int count = m_bits.Decode(m_stream.DcTable(scan.dcTables[place]));
    if (count > kLongestDifference)
    {
        FailCodestream("a difference in its codestream is too long");
    }
    // Sound values have 16 bits at most; damaged ones must not add up without end.
    m_predicted[place] = static_cast<std::int16_t>(m_predicted[place] + m_bits.ReadDifference(count));
    block[0] = m_predicted[place] * quantization[0];
    const CHuffmanTable& table = m_stream.AcTable(scan.acTables[place]);
    for (int i = 1; i < CJpegStream::kBlock; ++i)
    {
        constexpr int kSixteenZeros = 0xF0;
        const int code = m_bits.Decode(table);
        if ((code & 0xF) == 0 && code != kSixteenZeros)
        {
            break;
        }
        i += code >> 4;
        if (i >= CJpegStream::kBlock)
        {
            FailCodestream("a block of its codestream has too many coefficients");
        }
        const int value = m_bits.ReadDifference(code & 0xF);
        block[static_cast<std::size_t>(kPlaces[static_cast<std::size_t>(i)])] =
            value * quantization[static_cast<std::size_t>(i)];
    }

    block = TransformRows(TransformRows(block));
    SPlane& plane = m_planes[component];
    const double middle = 1 << (m_raster.bits - 1);
    const double highest = (1 << m_raster.bits) - 1;
    std::uint16_t* to = plane.samples.data() + static_cast<std::size_t>(row) * kSide * plane.stride +
                        static_cast<std::size_t>(column) * kSide;
    for (std::size_t i = 0; i < block.size(); ++i)
    {
        to[i / kSide * plane.stride + i % kSide] =
            static_cast<std::uint16_t>(std::lround(std::clamp(block[i] + middle, 0.0, highest)));
    }
}

void CSequentialDecoder::GatherSamples()
{
    const std::vector<SJpegComponent>& components = m_stream.Frame().components;
    auto* sample = m_raster.samples.data();
    for (int y = 0; y < m_raster.height; ++y)
    {
        for (int x = 0; x < m_raster.width; ++x)
        {
            for (std::size_t i = 0; i < components.size(); ++i)
            {
                const int row = y * components[i].vertical / m_vertical;
                const int column = x * components[i].horizontal / m_horizontal;
                *sample++ =
                    m_planes[i]
                        .samples[static_cast<std::size_t>(row) * m_planes[i].stride + static_cast<std::size_t>(column)];
            }
        }
    }
}

} // namespace

void DecodeSequentialJpeg(CJpegStream& stream, SRaster& raster)
{
    CSequentialDecoder(stream, raster).Decode();
}
