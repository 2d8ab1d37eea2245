/// Output folders.
#pragma once

#include "Varnotix/Varnotix.h"

/// True for an existing folder, and for a path that ends with a separator.
bool IsFolderPath(const CString& path);

/// True when a path leads into a folder, at any depth; neither needs to exist. False for paths that cannot be followed.
bool LeadsInto(const CString& path, const CString& folder);

/// Creates a folder and its parents.
/// @return empty, or why the folder is not there, as a whole message.
CString MakeFolder(const CString& path);

/// The last component of a path.
CString FileNameOf(const CString& path);

/// The path without its last component, and with the separator; empty for a plain name.
CString FolderNameOf(const CString& path);
