/// What the header of a JPEG picture says of its pixels.
#pragma once

#include "console/Report.h"

#include <vector>

/// The attributes that describe a frame of a picture (PS3.5 section 8.2.1, PS3.3 C.7.6.3).
struct SJpegFacts
{
    CString transferSyntax; ///< Its UID.
    CString photometric;    ///< Photometric Interpretation.
    int precision = 0;      ///< Bits per sample.
    int components = 0;
    int rows = 0;
    int columns = 0;
    bool isLossy = true;

    bool operator==(const SJpegFacts&) const = default;
};

/// Reads the header (ISO/IEC 10918-1 annex B).
/// @return empty, or why the picture cannot be a frame.
CString ReadJpegFacts(const CByteArray& bytes, SJpegFacts& facts);

/// Sets what the facts say in an object whose pixel data is such frames. What the object has otherwise is replaced,
/// and reported.
/// @param name of the object, for messages.
void DescribeJpeg(const SJpegFacts& facts, CDcmElementSet& store, const CString& name, const CReport& report);
