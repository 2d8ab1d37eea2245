/// What the file system holds under a path.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string>
#include <vector>

enum class EFileKind
{
    Missing, ///< Also what cannot be asked for.
    File,    ///< A regular file.
    Folder,
    Other ///< A pipe, a device or a socket.
};

/// The kind of what a path leads to, through links.
EFileKind FileKindOf(const CString& path);

/// True when both paths lead to one existing folder.
bool IsSameFolder(const CString& left, const CString& right);

/// A text that all paths of an existing file share, links to it included where the system resolves them.
std::string FileKey(const CString& path);

/// Appends the names in a folder in byte order, without "." and "..".
/// @return empty, or why the folder cannot be read.
CString ListFolder(const CString& folder, std::vector<CString>& names);

/// Gives a file the owner and the permissions of another one, as far as this user may.
void CopyOwner(const CString& from, const CString& to);

/// True for a link to a folder: a walk that entered it could go in circles.
bool IsFolderLink(const CString& path);
