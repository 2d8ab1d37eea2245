#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// SC Multi-frame Vector Module (PS3.3 C.8.6.4): one value for each frame.
class VARNOTIX_EXPORT CDcmSCMultiFrameVectorModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmSCMultiFrameVectorModule)
    DCM_TEXT_LIST(FrameTimeVector,           "0018", "1065")
    DCM_TEXT_LIST(PageNumberVector,          "0018", "2001")
    DCM_TEXT_LIST(FrameLabelVector,          "0018", "2002")
    DCM_TEXT_LIST(FramePrimaryAngleVector,   "0018", "2003")
    DCM_TEXT_LIST(FrameSecondaryAngleVector, "0018", "2004")
    DCM_TEXT_LIST(SliceLocationVector,       "0018", "2005")
    DCM_TEXT_LIST(DisplayWindowLabelVector,  "0018", "2006")
    // clang-format on
};
