/// Checking an object against the standard.
#pragma once

#include "check/Findings.h"

/// Checks an object that was read by the standard stream rules: its stream (PS3.5 section 7), its file meta information
/// (PS3.10 section 7.1), the value of every element (PS3.5 section 6.2), and, for classes that "objects.txt" describes,
/// its modules (PS3.3). An object whose read ended early is checked as far as it was read, but for its modules.
void CheckObject(CDcmIOD& object, CFindings& findings);

// The parts of the check, one source each.

/// What the read found remarkable.
void CheckStream(const CDcmIOD& object, CFindings& findings);
void CheckFileMeta(const CDcmIOD& object, CFindings& findings);
/// Values, private blocks, and tags that the dictionary does not have.
void CheckElements(CDcmElementSet& set, CFindings& findings);
/// Attributes that the modules of the object's class require.
void CheckModules(CDcmElementSet& set, CFindings& findings);
/// Pixel Data, and the attributes that describe it.
void CheckPixels(const CDcmIOD& object, CFindings& findings);
