/// Compares an object that was written by the classic stream rules with its input.
#pragma once

#include "rewrite/LossReport.h"
#include "rewrite/Snapshot.h"

/// The encodings of input and output.
struct SRewrite
{
    int sourceSyntax = 0;
    int targetSyntax = 0;
    bool compressed = false; ///< Pixel data is in items of its own (PS3.5 Annex A.4).
};

/// Adds to the report what the written object lost.
/// @param before the input, taken before the write.
/// @param after the written object, read back.
/// @return empty, or why the written object must not be used: bytes of frames differ, or there are elements in it that
///         the input does not have.
CString CheckRewrite(const std::vector<SSnapshot>& before, std::vector<SSnapshot> after, const SRewrite& rewrite,
                     CLossReport& losses);

/// Names the first element whose value is too long for the 16-bit length that the explicit syntaxes give its VR, in a
/// set that was written; empty when there is none.
CString FindTooLongValue(const CDcmElementSet& written);
