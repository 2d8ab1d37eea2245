#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Image Pixel Module (PS3.3 C.7.6.3): the pixel matrix, its description and its palette.
class VARNOTIX_EXPORT CDcmImagePixelModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmImagePixelModule)
    DCM_INITIALIZE_MODULE()
    DCM_US       (SamplesperPixel,           "0028", "0002")
    DCM_TEXT     (PhotoMetricInterpretation, "0028", "0004")
    DCM_US       (PlanarConfiguration,       "0028", "0006")
    DCM_US       (Rows,                      "0028", "0010")
    DCM_US       (Columns,                   "0028", "0011")
    DCM_TEXT_LIST(PixelAspectRatio,          "0028", "0034")
    DCM_US       (BitsAllocated,             "0028", "0100")
    DCM_US       (BitsStored,                "0028", "0101")
    DCM_US       (HighBit,                   "0028", "0102")
    DCM_US       (PixelRepresentation,       "0028", "0103")
    DCM_US       (SmallestImagePixelValue,   "0028", "0106")
    DCM_US       (LargestImagePixelValue,    "0028", "0107")
    DCM_US_LIST  (RedLUTDescriptor,          "0028", "1101")
    DCM_US_LIST  (GreenLUTDescriptor,        "0028", "1102")
    DCM_US_LIST  (BlueLUTDescriptor,         "0028", "1103")
    DCM_US_LIST  (RedLUTData,                "0028", "1201")
    DCM_US_LIST  (GreenLUTData,              "0028", "1202")
    DCM_US_LIST  (BlueLUTData,               "0028", "1203")
    DCM_DECLARED ("7FE0",                    "0010")
    // clang-format on

    /// @name Pixel Data (7FE0,0010)
    /// Nothing happens, and no frames are listed, when the module does not hold it.
    /// @{

    /// Fills the list with the frames' byte arrays (CByteArray), which stay owned by the element and valid until the
    /// pixel data changes.
    void GetPixelData(CObList& frames);
    /// Replaces all frames, numbered from 0. All entries must be CByteArray, which makes the VR OB, or all CWordArray,
    /// which makes it OW; a mixed list changes nothing. An empty list removes the frames and makes the VR OB.
    void SetPixelData(CObList& frames);
    /// Adds one frame to pixel data of VR OB. Pixel data of VR OW takes no bytes.
    void SetPixelData(const CByteArray& bytes);
    /// Adds one frame and makes the VR OW.
    void SetPixelData(const CWordArray& words);

    /// @}
    /// @name Run length encoding (PS3.5 Annex G)
    /// Of one frame, by the rows, columns, bits allocated and photometric interpretation of this module. See RleCodec.h
    /// for what bad headers and incompressible frames give.
    /// @{

    /// Decodes header and segments. Segments that fit no known layout are appended to what the array holds.
    /// Throws CMemoryException when the pixels would pass 2^31-1 bytes.
    void DcmRleDecode(const CByteArray& rle, CByteArray& pixels);
    /// Replaces a raw frame by its encoded form; a frame of an unknown photometric interpretation stays as it is. Pass
    /// only data that compresses.
    void DcmRleEncode(CByteArray& data);
    /// @}
};
