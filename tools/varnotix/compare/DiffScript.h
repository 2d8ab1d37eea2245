/// Scripts that turn one object into another.
#pragma once

#include "compare/Ignored.h"

/// A script for "varnotix apply", or the reason why there is none.
struct SDiffScript
{
    CStringArray lines;
    CString reason; ///< Empty when the script was applied to a copy of the left object and no difference was left.
};

/// Plain values are element lines; what these do not carry are commands (see CEditCommands).
SDiffScript MakeDiffScript(const CDcmIOD& left, const CDcmIOD& right, const CIgnored& ignored);
