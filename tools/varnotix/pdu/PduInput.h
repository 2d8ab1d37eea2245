/// Bytes of PDUs as they come from a capture or a log.
#pragma once

#include "console/Report.h"

/// Reads a file, or standard input for "-". Input in which every byte is printable ASCII or white space is text:
/// pairs of hexadecimal digits, with blanks, commas, colons and "0x" between them and comments from '#' to the end of
/// the line. Everything else is taken as it is; the length of a PDU is never printable.
/// @return false, with a message that tells why, when it cannot be read or the text holds something else.
bool ReadPduBytes(const CString& path, CByteArray& bytes, const CReport& report);
