/// The samples of an uncompressed frame as numbers.
#pragma once

#include "picture/ImageHeader.h"

/// Reads samples of 1, 8, 16 or 32 bits, low byte first, of which bits stored are taken (PS3.5 section 8.1.1).
class CSampleReader
{
public:
    /// The frame must outlive the reader and hold all samples that are asked for.
    CSampleReader(const SImageHeader& header, const CByteArray& frame)
        : m_bytes(frame.GetData()),
          m_allocated(header.allocated),
          m_shift(header.highBit + 1 - header.stored),
          m_mask((std::int64_t{1} << header.stored) - 1),
          m_signBit(header.isSigned ? std::int64_t{1} << (header.stored - 1) : 0)
    {
    }

    /// The sample at a place of the frame.
    std::int64_t At(std::size_t index) const
    {
        const std::int64_t value = (Cell(index) >> m_shift) & m_mask;
        return (value & m_signBit) != 0 ? value - m_mask - 1 : value;
    }

    /// All bits that are allocated for a sample.
    std::int64_t Cell(std::size_t index) const
    {
        switch (m_allocated)
        {
        case 1:
            return m_bytes[index / 8] >> (index % 8) & 1;
        case 8:
            return m_bytes[index];
        case 16:
            return m_bytes[2 * index] | m_bytes[2 * index + 1] << 8;
        default:
            return m_bytes[4 * index] | std::int64_t{m_bytes[4 * index + 1]} << 8 |
                   std::int64_t{m_bytes[4 * index + 2]} << 16 | std::int64_t{m_bytes[4 * index + 3]} << 24;
        }
    }

private:
    const BYTE* m_bytes;
    int m_allocated;
    int m_shift;
    std::int64_t m_mask;
    std::int64_t m_signBit;
};
