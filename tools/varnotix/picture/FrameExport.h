/// The frames of objects as files.
#pragma once

#include "picture/FrameNames.h"
#include "picture/Picture.h"

/// What to write, and where.
struct SFrameExport
{
    CString output;      ///< A folder, or a file.
    bool toFile = false; ///< The output is a file for one frame; "-" is standard output.
    bool asPictures = false;
    bool withOverlays = false;
    SPictureStyle style;
    bool showsProgress = false;
    std::size_t frame = 0; ///< The only frame to write, counted from 1; 0: all.
};

/// An object whose frames are written.
struct SFrameObject
{
    const CDcmIOD& object;
    CString input; ///< The path of its file.
    CString name;  ///< As messages show it.
    CString transferSyntax;
    bool compressed = false;
};

/// Writes frames as stored, or as pictures. A frame that cannot be written does not keep the others back. Throws
/// CWriteFailure.
/// @param taken the files of the run.
/// @return an exit status.
int ExportFrames(const SFrameObject& source, const SFrameExport& wanted, const CFrameNames& names, CTakenNames& taken,
                 const CReport& report);
