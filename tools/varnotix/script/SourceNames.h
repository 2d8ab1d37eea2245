/// The files that a script's names lead to.
#pragma once

#include "Varnotix/Varnotix.h"

/// The files or folders among which a name does not decide, because they differ from it, and from each other, only in
/// case: "Scan.jpg, scan.JPG".
/// @param exactWins whether a name that exists as written is the one that is meant.
/// @return empty for a name that leads to one file or to none.
CString AmbiguousNames(const CString& path, bool exactWins);
