/// Whether a person reads what the program prints.
#pragma once

enum class EStandardStream
{
    Output,
    Error
};

/// True when the stream goes to a terminal.
bool IsTerminal(EStandardStream stream);
