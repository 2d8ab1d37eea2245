/// File meta information of an object that is to be written.
#pragma once

#include "console/Report.h"

/// How an object was encoded, taken before anything is changed.
struct SObjectForm
{
    int syntax = 0;           ///< The syntax it was read in (see ESyntax).
    CString transferSyntax;   ///< Its Transfer Syntax UID (0002,0010) without padding; empty when there is none.
    bool hasMeta = false;     ///< There are elements of group 0002.
    bool compressed = false;  ///< Its pixel data is compressed, or divided as compressed pixel data is.
    bool isBare = false;      ///< It was read without preamble and "DICM", by the standard stream rules.
    bool isDirectory = false; ///< It is a DICOMDIR (PS3.10 section 8), whose records name each other by file offsets.
};

SObjectForm FormOf(const CDcmIOD& object);

/// The Transfer Syntax UID to write for a wanted syntax. Compressed pixel data keeps its own.
/// @return empty when the object cannot be written in the wanted syntax; a message gave the reason.
CString UidToWrite(const SObjectForm& form, const CString& input, int syntax, const CReport& report);

/// As UidToWrite for the syntax that the object was read in. A UID that fits it, or that is not known, stays.
CString UidToKeep(const SObjectForm& form, const CString& input, const CReport& report);

/// Adds what the file meta information lacks, except the transfer syntax; reports each with -v.
void CompleteFileMeta(CDcmIOD& object, const CString& input, const CReport& report);

/// Sets the Transfer Syntax UID of an object whose pixel data comes from elsewhere.
/// @param uid empty for uncompressed pixel data, of which any uncompressed syntax may be declared.
void DeclareTransferSyntax(CDcmIOD& object, const CString& uid, const CString& input, const CReport& report);

/// Warns when the file meta information names another SOP class or instance than the data set.
void ReportMetaMismatch(const CDcmIOD& object, const CString& input, const CReport& report);

/// Makes the object one with preamble, sets (0002,0010), and the rest of the file meta information for an object that
/// has none; reports each with -v.
void SetFileMeta(CDcmIOD& object, const SObjectForm& form, const CString& input, const CString& uid,
                 const CReport& report);

/// Why other readers would not find the pixel data of the object under a Transfer Syntax UID; empty when they would.
CString PixelDataMismatch(const CDcmElementSet& store, const CString& uid);

/// Sets the VR of pixel data of more than eight bits to OW. Implicit streams do not state it, and with the dictionary's
/// OB its samples would keep the byte order of the input in a big endian output.
void SetPixelDataVr(CDcmElementSet& set, const CString& input, const CReport& report);
