// Run length encoded frames written out in tests.
#pragma once

#include "Bytes.h"
#include "Varnotix/pixel/DcmImagePixelModule.h"

#include <vector>

constexpr int kRleHeader = 64;

inline CDcmImagePixelModule Image(int rows, int columns, int bitsAllocated, const char* photometric)
{
    CDcmImagePixelModule image;
    image.Rows(static_cast<WORD>(rows));
    image.Columns(static_cast<WORD>(columns));
    image.BitsAllocated(static_cast<WORD>(bitsAllocated));
    image.PhotoMetricInterpretation(photometric);
    return image;
}

/// Bytes that count up, no two neighbours equal.
inline CByteArray Counting(int first, int count)
{
    CByteArray bytes;
    for (int i = 0; i < count; ++i)
    {
        bytes.Add(static_cast<BYTE>(first + i));
    }
    return bytes;
}

inline void PutNumber(CByteArray& bytes, int position, DWORD number)
{
    for (int i = 0; i < 4; ++i)
    {
        bytes[position + i] = static_cast<BYTE>(number >> (8 * i));
    }
}

/// Header and segments as PS3.5 Annex G has them. The decoder gives up 64 bytes before the end, so that many follow.
inline CByteArray RleFrame(const std::vector<CByteArray>& segments, int bytesBehind = kRleHeader)
{
    CByteArray frame(Zeros(kRleHeader));
    PutNumber(frame, 0, static_cast<DWORD>(segments.size()));
    int position = 4;
    for (const CByteArray& segment : segments)
    {
        PutNumber(frame, position, static_cast<DWORD>(frame.GetSize()));
        position += 4;
        frame.Append(segment);
    }
    frame.Append(Zeros(bytesBehind));
    return frame;
}

inline std::vector<int> Decoded(CDcmImagePixelModule image, const CByteArray& frame)
{
    CByteArray pixels;
    image.DcmRleDecode(frame, pixels);
    return Numbers(pixels);
}
