/// What an object says about its own de-identification.
#pragma once

#include "Varnotix/Varnotix.h"

/// Sets Patient Identity Removed and Longitudinal Temporal Information Modified (PS3.3 C.12.1), and adds to
/// De-identification Method and its codes (PS3.3 C.7.1.1, PS3.16 CID 7050). What earlier de-identifications stated
/// stays true.
/// @param options values of EProfileOption.
/// @param cleanedPixels rectangles of the pixels were cleared, and a person has seen that this is enough; Burned In
///        Annotation becomes NO.
void SetMethod(CDcmElementSet& store, unsigned options, bool cleanedPixels);
