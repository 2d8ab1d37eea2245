/// Diagnostics of the files from which a script takes pixel data. They change nothing.
#pragma once

#include "Varnotix/platform/String.h"

/// The outcome for one file.
enum EScriptSource : int
{
    SCRIPT_SOURCE_TAKEN = 0,        ///< Its pixel data is in the object.
    SCRIPT_SOURCE_NOT_OPENED = 1,   ///< It is missing, not a regular file, or unreadable.
    SCRIPT_SOURCE_NO_MATCH = 2,     ///< The name is a pattern, and nothing matches it.
    SCRIPT_SOURCE_NO_PICTURE = 3,   ///< It is not a JPEG picture, though its name says so.
    SCRIPT_SOURCE_NOT_ASCII = 4,    ///< A picture's name has characters beyond ASCII; those are never loaded.
    SCRIPT_SOURCE_NO_OBJECT = 5,    ///< It cannot be read as DICOM.
    SCRIPT_SOURCE_OTHER_SYNTAX = 6, ///< Frames are not taken from files in its transfer syntax.
    SCRIPT_SOURCE_NO_FRAMES = 7,    ///< It has no pixel data.
    SCRIPT_SOURCE_OTHER_KIND = 8,   ///< Its name does not end in .jpg, .dic or .dcm.
    SCRIPT_SOURCE_PASSED_OVER = 9   ///< The script names a source file too, which takes precedence.
};

namespace Varnotix
{

/// The state in words, for a host that reports it.
VARNOTIX_EXPORT const char* ScriptSourceText(EScriptSource state);

} // namespace Varnotix

/// One file.
struct SScriptSource
{
    CString name; ///< As it was opened: the script's text, or the name that a search found.
    EScriptSource state;
    int frames; ///< How many frames were taken from it.
};
