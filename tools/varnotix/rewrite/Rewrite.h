/// Rewriting an object that was read.
#pragma once

#include "rewrite/CheckedWrite.h"
#include "rewrite/FileMeta.h"

/// How and where to write.
struct STarget
{
    CString uid;            ///< The Transfer Syntax UID to write.
    int syntax = 0;         ///< How elements are encoded in it (see ESyntax).
    CString output;         ///< A path, or "-" for standard output.
    CString source = {};    ///< The path of the input that a DICOMDIR must stay equal to; empty when it was changed.
    bool staysBare = false; ///< Neither preamble nor file meta information is added.
    bool isForced = false;  ///< Also a DICOMDIR whose offsets would be wrong.
    CString backup = {};    ///< Where the file at the output's path is kept before it is replaced; empty: nowhere.
};

/// Reports why other readers would refuse an object that is written with a Transfer Syntax UID: the form of its pixel
/// data is that of another one.
/// @return true when they would not, or when the user wants the output all the same.
bool MayWrite(const CDcmIOD& object, const CString& uid, bool isForced, const CString& input, const CReport& report);

/// Why a DICOMDIR that changes is not written; its name goes before it.
inline constexpr const char* kChangedDirectory =
    ": it is a DICOMDIR, and is not rewritten because the file offsets in it would be wrong";

/// Sets the file meta information, writes the object and reports what was lost. Throws as
/// WriteChecked, and for a DICOMDIR that would change.
/// @param form the object's, taken before anything was changed.
void Rewrite(CDcmIOD& object, const SObjectForm& form, const STarget& target, const CString& input, CLossReport& losses,
             const CReport& report);
