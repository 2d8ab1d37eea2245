/// Reading objects and scripts, with the reasons when they cannot be read.
#pragma once

#include "files/ReadStop.h"

#include <functional>

/// Chooses the rules by which this run reads and writes streams; the standard ones at first.
void ChooseStreamRules(EStreamRules rules);
EStreamRules ChosenStreamRules();

/// Checks that the data dictionary is loaded, without which no stream can be read; reports how to fix it otherwise.
/// @param needsUids the UID table is needed too: the output names its transfer syntax.
bool HasDataFiles(const CReport& report, bool needsUids);

/// All bytes of a file, from its beginning.
CByteArray BytesOf(CFile& file);

/// All bytes of a file, a pipe or a device, or of standard input for "-". Throws CFileException, and CMemoryException
/// beyond 2^31-1 bytes.
void ReadBytes(const CString& path, CByteArray& bytes);

/// True when a file begins as a DICOM file does (PS3.10 section 7.1), or holds elements without such a beginning.
/// Throws CFileException.
bool IsDicomFile(const CString& path);

/// The file name as messages show it.
CString ShownName(const CString& path);

/// Runs an action that reads an input, and reports its exceptions.
/// @return what the action returns; false after a failure.
bool ReportReadFailures(const CString& path, const CReport& report, const std::function<bool()>& read);

/// Reads the object in a file, or on standard input for "-", by the chosen rules. Deflated data sets are inflated.
/// @return false, after a message with the reason, when the object cannot be read to its end.
bool ReadObject(const CString& path, CDcmIOD& object, const CReport& report);

/// As ReadObject, for verbs that show an object as far as it can be read.
/// @param stop receives why the read stopped; show it after the object.
/// @return false, after a message with the reason, when nothing of the object can be read.
bool ReadObjectPart(const CString& path, CDcmIOD& object, SReadStop& stop, const CReport& report);

/// Reports why the read of an input stopped.
/// @return the status: STATUS_UNREADABLE, or STATUS_DONE when it was read to its end.
int ReportStop(const CString& path, const SReadStop& stop, const CReport& report);

/// Reads a text, on standard input for "-", without the byte order mark that some editors put first.
/// @return false, after a message with the reason, when it cannot be read.
bool ReadText(const CString& path, CByteArray& text, const CReport& report);

/// Adds the lines of a text, which stays as it is.
void SplitLines(CByteArray& text, CStringArray& lines);

/// Reads the lines of a script, as ReadText does.
bool ReadScript(const CString& path, CStringArray& lines, const CReport& report);
