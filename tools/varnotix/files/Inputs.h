/// The inputs of verbs that take many: files, and the files in folders.
#pragma once

#include "console/Report.h"

#include <set>
#include <string>
#include <vector>

/// The inputs that a command line names, and where their outputs go. CVerb::Inputs fills it.
struct SInputs
{
    std::vector<CString> names; ///< Files, folders, and "-" for standard input.
    bool entersFolders = false; ///< A folder means the files in it, at every depth.
    bool takesAnyFile = false;  ///< Files in folders need not be DICOM.
    int jobs = 1;               ///< How many inputs may be worked on at a time; 0: one per processor.
    CString output;             ///< Set by PlaceOutputs: the folder or file to write to; empty: no outputs.
    bool intoFolder = false;    ///< Set by PlaceOutputs: output is a folder.
    bool namesOutputs = true;   ///< Outputs in a folder have the names of their inputs; the verb names others.
};

/// One input.
struct SInput
{
    CString path;             ///< What to read; "-" is standard input.
    CString relative;         ///< Its name, or its path below the folder that the command line named.
    std::size_t number = 0;   ///< Of the input among all, from 0.
    CString output;           ///< Where its output goes; empty where inputs have none.
    bool isFound = false;     ///< It was found in a folder. Such a file is skipped when it is not DICOM.
    CString fault = {};       ///< Why it cannot be worked on, as a whole message; mostly empty.
    int status = STATUS_DONE; ///< The status that the fault gives.
};

/// Decides whether the outputs go into a folder or to one file, and sets SInputs::output. A path is a folder when it
/// ends with a separator, when it is an existing folder, and when there is or may be more than one input.
/// @param output the value of "-o"; "-" is standard output.
/// @return false, after a message, when standard input or output is named and there is more than one input or output.
bool PlaceOutputs(SInputs& inputs, const CString& output, const CReport& report);

/// Lists inputs one by one: in the order in which the command line names them, a folder's in byte order of their names.
/// It reads one folder at a time, follows links to files but not to folders, and does not enter the output folder. It
/// passes over temporary files and the backups of the program.
class CInputWalk
{
public:
    /// @param inputs must outlive the walk.
    explicit CInputWalk(const SInputs& inputs) : m_inputs(inputs) {}

    /// Gets the next input.
    /// @return false when there is none.
    bool Next(SInput& input);

    /// How many inputs there will be; 0 when that is not known before the end.
    std::size_t Count() const;

private:
    /// A folder whose names are being given.
    struct SLevel
    {
        CString path;
        CString relative;
        std::vector<CString> names;
        std::size_t next = 0;
    };

    bool NextNamed(SInput& input);
    bool Enter(const CString& path, const CString& relative, SInput& input);
    bool NextFound(SInput& input);
    void Place(SInput& input);

    const SInputs& m_inputs;
    std::size_t m_next = 0;
    std::size_t m_count = 0; // How many inputs were given.
    std::vector<SLevel> m_levels;
    std::set<std::string> m_outputs;
};
