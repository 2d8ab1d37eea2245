/// Overlays: planes of one bit that are drawn over a picture (PS3.3 C.9.2).
#pragma once

#include "picture/ImageHeader.h"
#include "picture/Picture.h"

#include <vector>

/// The overlays of an object, in its groups 6000 to 601E.
class COverlays
{
public:
    /// Overlays that cannot be drawn are reported.
    COverlays(const CDcmElementSet& store, const SImageHeader& header, const CString& name, const CReport& report);

    /// Draws white points where the overlays of a frame have them. Graphics and regions are drawn alike.
    /// @param frame counted from 0.
    /// @param pixels the uncompressed frame, for overlays in unused bits of its samples.
    void Paint(int frame, const CByteArray& pixels, SPicture& picture) const;

private:
    struct SPlane
    {
        int rows = 0;
        int columns = 0;
        int top = 0; ///< Of its first row in the picture, counted from 0.
        int left = 0;
        int firstFrame = 0;
        int frames = 1;
        bool isForAll = true; ///< It has no frames of its own, and covers all of the image.
        int bit = 0;          ///< Its bit in the samples, for an overlay without data of its own.
        CSharedBytes data;
    };

    CString ReadPlane(const CDcmElementSet& store, DWORD group, SPlane& plane) const;
    bool IsSet(const SPlane& plane, int frame, int row, int column, const CByteArray& pixels) const;

    SImageHeader m_header;
    std::vector<SPlane> m_planes;
};
