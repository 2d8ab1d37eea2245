/// The verb that shows association PDUs.
#pragma once

#include "console/Report.h"

/// Prints what one PDU or a stream of PDUs holds: the dump of each, or its fields with their bytes.
/// @param path a file, or "-" for standard input.
/// @return an exit status; STATUS_UNREADABLE also when there are bytes that no PDU could be made of, after the rest
///         was printed.
int ShowPdus(const CString& path, bool showFields, const CReport& report);
