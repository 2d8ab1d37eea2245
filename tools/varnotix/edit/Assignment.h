/// Edits as a command line gives them.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string_view>
#include <vector>

/// "PATH=VALUE" or "PATH:VR=VALUE".
struct SAssignment
{
    Varnotix::CElementPath path;
    CString vr;    ///< Two letters, or empty for the VR of the element or of the dictionary.
    CString value; ///< UTF-8.
};

/// What an argument of the command line is.
enum class EArgument
{
    NoAssignment, ///< There is no equals sign in it.
    BadPath,      ///< There is one, and no path before it.
    Assignment
};

/// Reads an assignment. An equals sign in the quotation marks of a private creator is part of the path.
EArgument ReadAssignment(std::string_view argument, SAssignment& assignment);
