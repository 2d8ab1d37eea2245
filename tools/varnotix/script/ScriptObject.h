/// The object that a script describes, and the files that it names.
#pragma once

#include "console/Report.h"

/// Builds the object, reports the result of each source of pixel data, and declares the transfer syntax of the frames.
/// @param script the commands of the lines.
/// @param name the script's, for messages.
/// @return false when a source is missing from the object; a message gave the reason.
bool BuildObject(const CDcmAttributeScript& script, const CStringArray& lines, CDcmCompositeIOD& object,
                 const CString& name, const CReport& report);
