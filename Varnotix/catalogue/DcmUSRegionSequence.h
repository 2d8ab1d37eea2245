#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Sequence of Ultrasound Regions (PS3.3 C.8.5.5): one calibrated region.
class VARNOTIX_EXPORT CDcmUSRegionSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmUSRegionSequence)
    DCM_UL     (RegionLocationMin_x0,         "0018", "6018")
    DCM_UL     (RegionLocationMin_y0,         "0018", "601A")
    DCM_UL     (RegionLocationMax_x1,         "0018", "601C")
    DCM_UL     (RegionLocationMax_y1,         "0018", "601E")
    DCM_US     (PhysicalUnitsXDirection,      "0018", "6024")
    DCM_US     (PhysicalUnitsYDirection,      "0018", "6026")
    DCM_FD     (PhysicalDeltaX,               "0018", "602C")
    DCM_FD     (PhysicalDeltaY,               "0018", "602E")
    DCM_UL     (ReferencePixel_x0,            "0018", "6020")
    DCM_UL     (ReferencePixel_y0,            "0018", "6022")
    DCM_FD     (RefPixelPhysicalValueX,       "0018", "6028")
    DCM_FD     (RefPixelPhysicalValueY,       "0018", "602A")
    DCM_US     (RegionSpatialFormat,          "0018", "6012")
    DCM_US     (RegionDataType,               "0018", "6014")
    DCM_UL     (RegionFlags,                  "0018", "6016")
    DCM_UL     (TranducerFrequency,           "0018", "6030")
    DCM_UL     (PulseRepetitionFrequency,     "0018", "6032")
    DCM_FD     (DopplerCorrectionAngle,       "0018", "6034")
    DCM_FD     (SteeringAngle,                "0018", "6036")
    DCM_UL     (DopplerSampleVolumeXPosition, "0018", "6039")
    DCM_UL     (DopplerSampleVolumeYPosition, "0018", "603B")
    DCM_UL     (TMLinePosition_x0,            "0018", "603D")
    DCM_UL     (TMLinePosition_y0,            "0018", "603F")
    DCM_UL     (TMLinePosition_x1,            "0018", "6041")
    DCM_UL     (TMLinePosition_y1,            "0018", "6043")
    DCM_US     (PixelComponentOrganization,   "0018", "6044")
    DCM_UL     (PixelComponentMask,           "0018", "6046")
    DCM_UL     (PixelComponentRangeStart,     "0018", "6048")
    DCM_UL     (PixelComponentRangeStop,      "0018", "604A")
    DCM_US     (PixelComponentPhysicalUnits,  "0018", "604C")
    DCM_US     (PixelComponentDataType,       "0018", "604E")
    DCM_UL     (NumberOfTableBreakPoints,     "0018", "6050")
    DCM_UL_LIST(TableOfXBreakPoints,          "0018", "6052")
    DCM_FD_LIST(TableOfYBreakPoints,          "0018", "6054")
    DCM_UL     (NumberOfTableEntries,         "0018", "6056")
    DCM_UL_LIST(TableOfPixelValues,           "0018", "6058")
    DCM_FL_LIST(TableOfParameterValues,       "0018", "605A")
    // clang-format on
};
