/// Files that are being written under temporary names, and must not be left when the program is interrupted.
#pragma once

#include "Varnotix/Varnotix.h"

#include <memory>

/// Creates a file for reading and writing, and counts it as unfinished. Throws CFileException.
std::unique_ptr<CFile> CreateUnfinished(const CString& path);

/// Gives an unfinished, closed file its final name, replacing what was there once the new content is on the disk.
/// @return false on failure; it is unfinished still.
bool FinishFile(const CString& path, const CString& name);

/// Closes and deletes an unfinished file.
void DeleteUnfinished(const CString& path, std::unique_ptr<CFile> file);

/// Deletes all unfinished files, and lets no thread create or finish one after that: the program is about to end.
void EndUnfinished();
