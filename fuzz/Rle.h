/// What the run length targets share: an image module from the first bytes of an input.
#pragma once

#include "Promise.h"
#include "Varnotix/Varnotix.h"

struct SRleInput
{
    CDcmImagePixelModule image;
    int pixels = 0;   ///< Rows by columns.
    int capacity = 0; ///< Bytes of one segment.
    int photometric = 0;

    explicit SRleInput(CInput& input)
    {
        static constexpr unsigned kBits[] = {8, 16, 1, 7, 0, 12, 24, 32};
        // Larger pictures only cost time: what matters is how they compare with their frame.
        const unsigned rows = input.Take() % 32;
        const unsigned columns = input.Take() % 32;
        const unsigned bits = kBits[input.Take() % std::size(kBits)];
        photometric = static_cast<int>(input.Take() % 13); // One more than there are names.
        image.Rows(static_cast<WORD>(rows));
        image.Columns(static_cast<WORD>(columns));
        image.BitsAllocated(static_cast<WORD>(bits));
        image.PhotoMetricInterpretation(CDcmRegistry::Global().PhotoMetricString(photometric));
        pixels = static_cast<int>(rows * columns);
        capacity = pixels * static_cast<int>(bits / 8);
    }

    bool IsGrayOrPalette() const { return photometric <= 2; }
    bool IsRgb() const { return photometric == 3; }
};
