/// Files of two folders that hold the same object.
#pragma once

#include "console/Report.h"

#include <utility>
#include <vector>

struct SFolderPairs
{
    std::vector<std::pair<CString, CString>> both; ///< In the order of the left folder.
    std::vector<CString> onlyLeft;
    std::vector<CString> onlyRight;
    int status = STATUS_DONE; ///< STATUS_UNREADABLE when a file could not be read; a message gave the reason.
};

/// Reads the DICOM files in two folders, at every depth, and pairs those of the same SOP Instance UID. Files without
/// one are paired by their paths below the folders; of several files with one UID, the first with the first.
SFolderPairs PairFolders(const CString& left, const CString& right, const CReport& report);
