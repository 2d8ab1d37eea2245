/// Folders that outputs go to.
#pragma once

#include "Varnotix/Varnotix.h"

/// True when the path means a folder: one that is there, or any path that ends as folders do.
bool MeansFolder(const CString& path);

/// Makes a folder and those above it. One that cannot be made shows when the first file is written to it.
void MakeFolder(const CString& path);

/// The last component of a path.
CString PlainName(const CString& path);
