/// The output of the pdu command.
#pragma once

#include "run/InputRun.h"

/// Prints what one PDU or a stream of PDUs holds: the dump of each, or its fields with their bytes.
/// @return an exit status; STATUS_UNREADABLE also when there are bytes that do not fit a PDU; the rest is printed
///         before.
int ShowPdus(const SJob& job, bool showFields);
