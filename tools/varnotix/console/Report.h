/// Messages and exit statuses of the command-line host.
#pragma once

#include "Varnotix/Varnotix.h"

/// Exit statuses; of several inputs the largest status is returned.
enum EStatus : int
{
    STATUS_DONE = 0,
    STATUS_USAGE = 1,        ///< The command line is wrong.
    STATUS_LEFT = 10,        ///< Done, but identifying values may be left in an output.
    STATUS_FOUND = 10,       ///< Done, and the inputs break the standard, or differ.
    STATUS_UNREADABLE = 20,  ///< An input could not be read, or cannot be turned into the requested output.
    STATUS_UNWRITTEN = 40,   ///< An output could not be written.
    STATUS_CLOSED_PIPE = 141 ///< The reader of standard output closed it; what a shell reports for SIGPIPE.
};

class CConsole;

/// Writes messages to standard error, each line with the program's name before it.
class CReport
{
public:
    CReport(bool quiet, bool verbose) : m_quiet(quiet), m_verbose(verbose && !quiet) {}
    /// As another report, on the console of a job, which must outlive this report.
    CReport(const CReport& like, CConsole& console)
        : m_quiet(like.m_quiet), m_verbose(like.m_verbose), m_console(&console)
    {
    }

    /// A failure: always shown.
    void Error(const CString& text) const;
    /// A warning or result: shown unless quiet.
    void Say(const CString& text) const;
    /// A detail: shown with --verbose only.
    void Detail(const CString& text) const;
    /// A line below an error, without the program's name.
    void ErrorLine(const CString& text) const;

    bool IsQuiet() const { return m_quiet; }
    bool IsVerbose() const { return m_verbose; }

private:
    void PutLine(const CString& text) const;

    bool m_quiet;
    bool m_verbose;
    CConsole* m_console = nullptr; // Null: standard error.
};

/// "(gggg,eeee)" in upper-case digits.
CString TagName(DWORD tag);

/// TagName and the name that the dictionary gives the tag.
CString TagAndName(DWORD tag);

/// Deflated explicit VR little endian among the codes of ESyntax: its row in the UID table.
constexpr int kSyntaxDeflated = Varnotix::UID_DEFLATED_LITTLE;

/// The name of a syntax (see ESyntax), for messages.
const char* SyntaxName(int syntax);
