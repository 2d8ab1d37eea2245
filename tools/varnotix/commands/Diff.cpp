#include "commands/Commands.h"
#include "compare/DiffScript.h"
#include "compare/DiffText.h"
#include "compare/FolderPairs.h"
#include "console/StandardStreams.h"
#include "files/FileKinds.h"
#include "files/Input.h"
#include "object/NearestKeyword.h"

#include <algorithm>

namespace
{

constexpr const char* kFooter =
    "Prints each attribute that differs by its path, with the value of A after '-' and that of B after '+'; of pixel\n"
    "data the frames and the number of bytes that differ. Padding, group lengths and the form of lengths do not "
    "count.\n"
    "Of two folders, at every depth, files of the same SOP Instance UID are compared, and others named.\n"
    "--script prints a script with which 'varnotix apply SCRIPT A -o OUT' makes OUT equal to B. It is tried before it\n"
    "is printed; when no script can do that, there is none, and a message gives the reason.\n"
    "Exit status: 0 equal, 10 different, 20 an input cannot be read or there is no script.";

struct SDiffOptions
{
    CString left;
    CString right;
    std::vector<CString> ignored;
    bool script = false;
};

void Print(std::string_view text)
{
    WriteStandardOutput(text);
}

void PrintNames(const CString& left, const CString& right)
{
    Print(std::string((CString("--- ") + left + "\n+++ " + right + "\n").View()));
}

int PrintScript(const CDcmIOD& left, const CDcmIOD& right, const CIgnored& ignored, const SDiffOptions& options,
                const CReport& report)
{
    const SDiffScript script = MakeDiffScript(left, right, ignored);
    if (!script.reason.IsEmpty())
    {
        report.Error("there is no script that turns '" + options.left + "' into '" + options.right +
                     "': " + script.reason);
        return STATUS_UNREADABLE;
    }
    for (const CString& line : script.lines)
    {
        Print(std::string(line.View()) + '\n');
    }
    return script.lines.IsEmpty() ? STATUS_DONE : STATUS_FOUND;
}

int CompareFiles(const CString& leftPath, const CString& rightPath, const CIgnored& ignored,
                 const SDiffOptions& options, const CReport& report)
{
    CDcmIOD left;
    CDcmIOD right;
    const bool isLeftRead = ReadObject(leftPath, left, report);
    if (!ReadObject(rightPath, right, report) || !isLeftRead)
    {
        return STATUS_UNREADABLE;
    }
    if (options.script)
    {
        return PrintScript(left, right, ignored, options, report);
    }
    const bool vrsCount = left.IodSyntax() != SYNTAX_IMPLICIT_LITTLE && right.IodSyntax() != SYNTAX_IMPLICIT_LITTLE;
    const std::vector<SDifference> differences = CompareObjects(left, right, ignored, EAlignment::Best, vrsCount);
    if (differences.empty())
    {
        return STATUS_DONE;
    }
    if (!report.IsQuiet())
    {
        PrintNames(leftPath, rightPath);
        const bool isColoured = UsesColour();
        for (const SDifference& difference : differences)
        {
            Print(DifferenceText(difference, isColoured));
        }
    }
    return STATUS_FOUND;
}

int CompareFolders(const CIgnored& ignored, const SDiffOptions& options, const CReport& report)
{
    const SFolderPairs pairs = PairFolders(options.left, options.right, report);
    int status = pairs.status;
    const auto name = [&](const char* sign, const std::vector<CString>& paths)
    {
        for (const CString& path : paths)
        {
            status = std::max<int>(status, STATUS_FOUND);
            if (!report.IsQuiet())
            {
                Print(std::string((CString(sign) + path + "\n").View()));
            }
        }
    };
    name("only in the first: ", pairs.onlyLeft);
    name("only in the second: ", pairs.onlyRight);
    for (const auto& [left, right] : pairs.both)
    {
        const auto compare = [&, &a = left, &b = right]
        {
            status = std::max(status, CompareFiles(a, b, ignored, options, report));
            return true;
        };
        if (!ReportReadFailures(left, report, compare))
        {
            status = std::max<int>(status, STATUS_UNREADABLE);
        }
    }
    return status;
}

int Diff(const SDiffOptions& options, const CReport& report)
{
    CIgnored ignored;
    CString fault;
    for (const CString& text : options.ignored)
    {
        if (!ignored.Add(text))
        {
            fault = "--ignore: '" + text + "' is neither a path nor a group nor 'private'" +
                    NearestKeywordHint(text.View());
        }
    }
    const bool isLeftFolder = FileKindOf(options.left) == EFileKind::Folder;
    const bool isRightFolder = FileKindOf(options.right) == EFileKind::Folder;
    if (isLeftFolder != isRightFolder)
    {
        fault = "A, B: a folder is compared with another folder only";
    }
    else if (isLeftFolder && options.script)
    {
        fault = "--script: there is one for two files, not for folders";
    }
    else if (options.left == "-" && options.right == "-")
    {
        fault = "A, B: only one of them can be standard input";
    }
    else if (ChosenStreamRules() == STREAM_RULES_CLASSIC)
    {
        fault = "--classic: objects are compared by the standard rules only";
    }
    if (!fault.IsEmpty())
    {
        report.Error(fault);
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    int status = STATUS_UNREADABLE;
    if (isLeftFolder)
    {
        status = CompareFolders(ignored, options, report);
    }
    else
    {
        const auto compare = [&]
        {
            status = CompareFiles(options.left, options.right, ignored, options, report);
            return true;
        };
        status = ReportReadFailures(options.left, report, compare) ? status : STATUS_UNREADABLE;
    }
    FlushStandardOutput();
    return status;
}

} // namespace

void AddDiff(CCommandLine& line)
{
    const auto options = std::make_shared<SDiffOptions>();
    CVerb verb = line.AddVerb("diff", "Show what differs between two files or folders", kFooter);
    verb.Text("A", options->left, "File or folder; '-' is standard input");
    verb.Text("B", options->right, "File or folder; '-' is standard input");
    verb.Repeated("--ignore", options->ignored,
                  "Path, or group of four digits, or 'private', that does not count; may be repeated");
    verb.Flag("--script", options->script, "Print a script with which 'apply' turns A into B");
    verb.MessageFlags();
    verb.Action(options, &Diff);
}
