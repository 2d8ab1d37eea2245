/// The verbs of the command-line host. Each returns an exit status (see EStatus).
#pragma once

#include "console/Report.h"

#include <string>
#include <vector>

/// Prints the text document of each object; "-" stands for standard input.
int Dump(const std::vector<std::string>& files, const CReport& report);

/// Rewrites an object as a PS3.10 file.
/// @param syntax the syntax to write in (see ESyntax).
/// @param output a path, or "-" for standard output.
int Convert(const CString& input, const CString& output, int syntax, const CReport& report);

/// Writes each frame of an object's pixel data to a file of its own: as it lies, or as a picture.
/// @param folder where to; it is made when it is missing.
int Frames(const CString& input, const CString& folder, bool asPictures, const CReport& report);

struct SAnonymize
{
    CString text;      ///< Goes into the identifying attributes; empty: they are removed.
    bool deep = false; ///< Also in items; private groups go.
};

/// Writes each object without what tells who its patient is, and tells what stays.
/// @param output a folder, or, for a single input, a file or "-" for standard output.
int Anonymize(const std::vector<std::string>& files, const CString& output, const SAnonymize& wanted,
              const CReport& report);

/// Prints an object by entity and module, each attribute by name with its value.
/// @param withGaps also the attributes that a module declares and the object lacks.
int Modules(const CString& input, bool withGaps, const CReport& report);

/// Writes a script with a line for each attribute that an object of a kind may have.
/// @param kind one of ScriptKindWords.
/// @param output a path, or "-" for standard output.
int New(const std::string& kind, const CString& output, const CReport& report);

struct SBuild
{
    CString output;              ///< A path, or "-" for standard output; empty: what the script says.
    int syntax = SYNTAX_UNKNOWN; ///< The syntax to write (see ESyntax); unknown: what the script says.
    bool force = false;          ///< Also when lines or sources are lost.
};

/// Makes an object from a script and writes it.
int Build(const CString& script, const SBuild& wanted, const CReport& report);

/// Changes the values of an object that differ in a script, and writes it in its own transfer syntax.
/// @param output a path, or "-" for standard output.
int Apply(const CString& script, const CString& input, const CString& output, const CReport& report);

/// Prints which data files were loaded, how many rows each gave, and where they are looked for.
int Where(const CReport& report);
