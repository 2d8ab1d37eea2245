#include "commands/Commands.h"
#include "console/StandardStreams.h"
#include "files/Input.h"
#include "object/TypedObject.h"

#include <algorithm>
#include <new>

namespace
{

constexpr const char* kFooter =
    "The first lines of a document begin with '#': file, syntax that it was read in, number of elements.";

constexpr const char* kSourceLine = "#SOURCE_FILE=";

/// Prints one object. Throws CWriteFailure, after which nothing more can be printed.
int DumpOne(const CString& path, const CReport& report)
{
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(path, object, stop, report))
    {
        return STATUS_UNREADABLE;
    }
    report.Detail(ShownName(path) + ": read as " + SyntaxName(object.IodSyntax()));
    const std::unique_ptr<CDcmIOD> typed = MakeTypedObject(object);
    CStringArray lines;
    typed->Export(lines);
    for (const CString& line : lines)
    {
        WriteStandardOutput(line.View());
        if (line == kSourceLine)
        {
            // The typed object was made from the one that was read, and has no path of its own.
            WriteStandardOutput(path == "-" ? std::string_view() : path.View());
        }
        WriteStandardOutput("\n");
    }
    FlushStandardOutput();
    return ReportStop(path, stop, report);
}

int Dump(const std::vector<CString>& files, const CReport& report)
{
    if (!HasDataFiles(report, false))
    {
        return STATUS_UNREADABLE;
    }
    int status = STATUS_DONE;
    int unread = 0;
    for (const CString& path : files)
    {
        int result = STATUS_UNREADABLE;
        try
        {
            result = DumpOne(path, report);
        }
        catch (const CWriteFailure& failure)
        {
            report.Error(failure.what());
            return STATUS_UNWRITTEN;
        }
        catch (const CMemoryException& failure)
        {
            report.Error(ShownName(path) + ": " + failure.GetErrorMessage());
        }
        catch (const std::bad_alloc&)
        {
            report.Error(ShownName(path) + ": " + CMemoryException().GetErrorMessage());
        }
        unread += result == STATUS_DONE ? 0 : 1;
        status = std::max(status, result);
    }
    if (unread > 0 && files.size() > 1)
    {
        CString summary;
        summary.Format("%d of %d inputs could not be read", unread, static_cast<int>(files.size()));
        report.Say(summary);
    }
    return status;
}

} // namespace

void AddDump(CCommandLine& line)
{
    const auto files = std::make_shared<std::vector<CString>>();
    CVerb verb = line.AddVerb("dump", "Print the text document of each file", kFooter);
    verb.Texts("FILE", *files, "Files to print; '-' is standard input");
    verb.MessageFlags();
    verb.Action([files](const CReport& report) { return Dump(*files, report); });
}
