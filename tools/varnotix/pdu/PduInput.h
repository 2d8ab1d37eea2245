/// Reads the bytes of PDUs from a capture or a log.
#pragma once

#include "console/Report.h"

/// Reads a file, or standard input for "-". Input in which every byte is printable ASCII or white space is text:
/// pairs of hexadecimal digits, with blanks, commas, colons and "0x" between them and comments from '#' to the end of
/// the line. All other input is taken as bytes; a PDU always has bytes that are not printable in its length.
/// @return false, after an error message, when it cannot be read, is empty, or the text holds other characters.
bool ReadPduBytes(const CString& path, CByteArray& bytes, const CReport& report);
