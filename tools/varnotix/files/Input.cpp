#include "files/Input.h"

#include "console/StandardStreams.h"

#include <new>

namespace
{

void Load(CFile& file, const std::function<void(CArchive&)>& take)
{
    CArchive archive(&file, CArchive::load);
    take(archive);
    archive.Close();
}

/// Opens what a path or "-" names, and passes it to the action.
void ReadInput(const CString& path, const std::function<void(CArchive&)>& take)
{
    if (path == "-")
    {
        CByteArray bytes;
        ReadStandardInput(bytes);
        CMemFile file;
        file.Attach(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
        Load(file, take);
        return;
    }
    CFile file(path, CFile::modeRead | CFile::shareDenyWrite);
    Load(file, take);
}

void ReportAttempts(const CString& name, const CDcmIOD& object, const CReport& report)
{
    report.Error(name + ": not readable as DICOM");
    if (object.ReadTrials().empty())
    {
        report.ErrorLine("it has no elements");
    }
    for (const SReadTrial& trial : object.ReadTrials())
    {
        CString line;
        line.Format("%s: fault %d at offset %lu: %s", SyntaxName(trial.syntax), trial.fault,
                    static_cast<unsigned long>(trial.offset), ParseFaultText(trial.fault));
        report.ErrorLine(line);
    }
}

void ReportMissingFile(const CReport& report, const char* what, const char* name)
{
    report.Error(CString("there is no ") + what + ": no '" + name + "' with rows was found in the current " +
                 "directory, in the folder that VARNOTIX_DATA names, beside the library, or in the share folder");
    report.ErrorLine("Put the file beside the library, or set VARNOTIX_DATA to its folder. "
                     "'varnotix where' lists the places.");
}

} // namespace

bool HasDataFiles(const CReport& report, bool needsUids)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    if (registry.DictionarySize() == 0)
    {
        ReportMissingFile(report, "data dictionary", "dictionary.txt");
        return false;
    }
    if (needsUids && registry.UidDictionarySize() == 0)
    {
        ReportMissingFile(report, "UID table", "UidTable.txt");
        return false;
    }
    return true;
}

CString ShownName(const CString& path)
{
    return path == "-" ? CString("standard input") : path;
}

bool ReportReadFailures(const CString& path, const CReport& report, const std::function<bool()>& read)
{
    try
    {
        return read();
    }
    catch (const CFileException& failure)
    {
        report.Error(failure.GetErrorMessage());
    }
    catch (const CMemoryException& failure)
    {
        report.Error(ShownName(path) + ": " + failure.GetErrorMessage());
    }
    catch (const std::bad_alloc&)
    {
        report.Error(ShownName(path) + ": " + CMemoryException().GetErrorMessage());
    }
    return false;
}

bool ReadObject(const CString& path, CDcmIOD& object, const CReport& report)
{
    const auto read = [&]
    {
        ReadInput(path, [&](CArchive& archive) { object.Serialize(archive); });
        return true;
    };
    if (!ReportReadFailures(path, report, read))
    {
        return false;
    }
    if (object.GetCount() == 0)
    {
        ReportAttempts(ShownName(path), object, report);
        return false;
    }
    return true;
}

bool ReadScript(const CString& path, CStringArray& lines, const CReport& report)
{
    const auto readLines = [&](CArchive& archive)
    {
        for (CString line; archive.ReadString(line);)
        {
            lines.Add(line);
        }
    };
    const auto read = [&]
    {
        ReadInput(path, readLines);
        constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
        if (!lines.IsEmpty() && lines[0].View().starts_with(kByteOrderMark))
        {
            lines[0] = lines[0].Mid(static_cast<int>(kByteOrderMark.size()));
        }
        return true;
    };
    return ReportReadFailures(path, report, read);
}
