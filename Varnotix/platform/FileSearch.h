/// Paths and files found by name. Paths may be written with '\' or '/'.
#pragma once

#include "Varnotix/platform/Arrays.h"

namespace Varnotix
{

/// The existing file or folder that `path` means without regard to case, with the names as the disk has them (on
/// Windows as asked); empty when there is none. Where several names differ only in case, the one written as asked wins,
/// then the first in byte order.
VARNOTIX_EXPORT CString FindPathNoCase(const CString& path);

/// Appends the plain names (without folder) that match the last component of `pattern`, in byte order (on Windows in
/// the system's order). '*' matches any characters, '?' one, case does not count, and "*.*" means every name.
/// Folders count as names, and so do "." and "..", which come first. False when nothing matched or the folder is
/// missing.
VARNOTIX_EXPORT bool FindFiles(const CString& pattern, CStringArray& names);

/// True when `name` matches `pattern` as in FindFiles.
VARNOTIX_EXPORT bool MatchesWildcard(const CString& pattern, const CString& name);

/// True when `path`, as written, is a regular file.
VARNOTIX_EXPORT bool FileExists(const CString& path);

/// The current directory, without a separator at the end; empty when the system does not report it.
VARNOTIX_EXPORT CString CurrentDirectory();

/// The folder that this library was loaded from, without a separator at the end; empty when the system does not report
/// it.
VARNOTIX_EXPORT CString LibraryDirectory();

/// The value of an environment variable; empty when it is not set.
VARNOTIX_EXPORT CString EnvironmentVariable(LPCTSTR name);

/// `name` inside `folder`, with exactly one separator between. An empty folder and an absolute name
/// give the name as it is.
VARNOTIX_EXPORT CString JoinPath(const CString& folder, const CString& name);

/// Waits until the content of a file is on its disk, so that a power failure cannot take it away. False when there is
/// no such file, and when the disk refuses what was written.
VARNOTIX_EXPORT bool SyncFile(const CString& path);

/// Gives the file `from` the name `to` in one step, replacing what was there. False on failure; both are then as
/// before.
VARNOTIX_EXPORT bool ReplaceFileByRename(const CString& from, const CString& to);

/// Deletes a file; false when there was none or it cannot be deleted.
VARNOTIX_EXPORT bool DeleteFileByPath(const CString& path);

} // namespace Varnotix
