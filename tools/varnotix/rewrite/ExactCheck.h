/// Compares an object that was written by the standard stream rules with its input.
#pragma once

#include "rewrite/LossReport.h"
#include "rewrite/Snapshot.h"

/// Items, VRs and values must read back as they were. What the target syntax cannot state goes to the report.
/// @param before the input, taken before the write.
/// @param after the written object, read back.
/// @param syntax the target's (see ESyntax).
/// @return empty, or the first difference that the syntax does not explain.
CString CheckExactRewrite(const std::vector<SSnapshot>& before, const std::vector<SSnapshot>& after, int syntax,
                          CLossReport& losses);
