/// What came of the files from which a script takes pixel data. For diagnosis; it changes nothing.
#pragma once

#include "Varnotix/platform/String.h"

/// What came of one file.
enum EScriptSource : int
{
    SCRIPT_SOURCE_TAKEN = 0,        ///< Its pixel data is in the object.
    SCRIPT_SOURCE_NOT_OPENED = 1,   ///< It is missing, no regular file, or cannot be read.
    SCRIPT_SOURCE_NO_MATCH = 2,     ///< The name is a pattern, and nothing matches it.
    SCRIPT_SOURCE_NO_PICTURE = 3,   ///< It is no JPEG picture, though its name says so.
    SCRIPT_SOURCE_NOT_ASCII = 4,    ///< A picture's name has characters beyond ASCII; those are never loaded.
    SCRIPT_SOURCE_NO_OBJECT = 5,    ///< It cannot be read as DICOM.
    SCRIPT_SOURCE_OTHER_SYNTAX = 6, ///< Its transfer syntax is none of those whose frames are taken.
    SCRIPT_SOURCE_NO_FRAMES = 7,    ///< It has no pixel data.
    SCRIPT_SOURCE_OTHER_KIND = 8,   ///< Its name ends in none of .jpg, .dic and .dcm.
    SCRIPT_SOURCE_PASSED_OVER = 9   ///< The script names a source file too, and that one goes before.
};

/// The state in words, for a host that reports it.
VARNOTIX_EXPORT const char* ScriptSourceText(int state);

/// One file.
struct SScriptSource
{
    CString name; ///< As it was opened: the script's text, or the name that a search found.
    int state;    ///< One of EScriptSource.
    int frames;   ///< How many frames it gave.
};
