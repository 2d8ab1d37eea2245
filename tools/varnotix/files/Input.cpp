#include "files/Input.h"

#include "console/StandardStreams.h"
#include "files/Deflate.h"
#include "files/FileKinds.h"

#include <climits>

#include <new>

namespace
{

EStreamRules g_rules = STREAM_RULES_STANDARD;

void Load(CFile& file, const std::function<void(CArchive&)>& take)
{
    CArchive archive(&file, CArchive::load);
    take(archive);
    archive.Close();
}

/// True for what can only be read from its beginning to its end: standard input, a pipe, a device.
bool IsStream(const CString& path)
{
    return path == "-" || FileKindOf(path) == EFileKind::Other;
}

/// Opens what a path or "-" names, and passes it to the action.
void ReadInput(const CString& path, const std::function<void(CArchive&)>& take)
{
    if (IsStream(path))
    {
        CByteArray bytes;
        ReadBytes(path, bytes);
        CMemFile file;
        file.Attach(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
        Load(file, take);
        return;
    }
    CFile file(path, CFile::modeRead | CFile::shareDenyWrite);
    Load(file, take);
}

bool IsDeflated(const CDcmIOD& object)
{
    return object.ReadStopped() && object.ReadTrials().back().fault == PARSE_DEFLATED;
}

/// Reads an object again whose data set the first read found deflated.
/// @param left receives how many bytes follow the deflated ones.
void ReadDeflated(CFile& file, CDcmIOD& object, SReadStop& stop, std::size_t& left)
{
    const CByteArray bytes = BytesOf(file);
    const std::size_t start = object.ReadTrials().back().offset;
    CMemFile whole;
    whole.Write(bytes.GetData(), static_cast<UINT>(start));
    const CString fault =
        Inflate(bytes.GetData() + start, static_cast<std::size_t>(bytes.GetSize()) - start, whole, left);
    whole.Seek(0, CFile::begin);
    Load(whole, [&object](CArchive& archive) { object.Serialize(archive); });
    stop = StopOf(object, whole);
    if (!fault.IsEmpty() || IsDeflated(object))
    {
        stop.reason = fault.IsEmpty() ? CString("its deflated data set does not hold elements") : fault;
    }
}

/// The classic rules say little about what is wrong with a stream; the standard ones mostly see the cause.
SReadStop ClassicStop(const CDcmIOD& object, CArchive& archive)
{
    CDcmIOD other;
    other.StreamRules(STREAM_RULES_STANDARD);
    CDcmParser::Rewind(archive);
    other.Serialize(archive);
    SReadStop stop = StopOf(other, *archive.GetFile());
    if (stop.IsEmpty() && other.GetCount() > 0 && !object.ReadTrials().empty())
    {
        stop.reason =
            CString("the classic rules cannot read it: ") + Varnotix::ParseFaultText(object.ReadTrials().back().fault);
    }
    stop.trials = object.ReadTrials();
    return stop;
}

void Read(CArchive& archive, CDcmIOD& object, SReadStop& stop, std::size_t& left)
{
    object.StreamRules(ChosenStreamRules());
    if (ChosenStreamRules() == STREAM_RULES_CLASSIC)
    {
        // Private tags that an earlier input defined must not decide how this one is read.
        CDcmRegistry::Global().ForgetPrivateEntries();
        object.Serialize(archive);
        stop = object.GetCount() == 0 ? ClassicStop(object, archive) : SReadStop();
        return;
    }
    object.Serialize(archive);
    object.FileFormat(HasPrefix(*archive.GetFile()));
    if (IsDeflated(object))
    {
        ReadDeflated(*archive.GetFile(), object, stop, left);
    }
    else
    {
        stop = StopOf(object, *archive.GetFile());
    }
}

/// Reads what is whole of an object.
/// @param left receives how many bytes follow a deflated data set.
/// @return false, after a message, when there is not even one element.
bool ReadPart(const CString& path, CDcmIOD& object, SReadStop& stop, std::size_t& left, const CReport& report)
{
    const auto read = [&]
    {
        ReadInput(path, [&](CArchive& archive) { Read(archive, object, stop, left); });
        return true;
    };
    if (!ReportReadFailures(path, report, read))
    {
        return false;
    }
    if (object.GetCount() == 0)
    {
        stop.reason = stop.IsEmpty() ? CString("it holds zero bytes where elements should be") : stop.reason;
        ReportStop(path, stop, report);
        return false;
    }
    return true;
}

/// What a file is that was given in place of a script, mostly because of the order of arguments; empty for a text.
CString OtherThanText(std::string_view bytes)
{
    constexpr std::size_t kPreamble = 128;
    if (bytes.size() > kPreamble && bytes.substr(kPreamble).starts_with("DICM"))
    {
        return "a DICOM file";
    }
    return bytes.starts_with("\xFF\xD8\xFF") ? "a JPEG picture, which #PIXEL_DATA_FILE of a script names" : "";
}

/// Why there is not enough memory for a file.
CString MemoryFault(const CString& path)
{
    CFile file;
    const bool isFile = FileKindOf(path) == EFileKind::File && file.Open(path, CFile::modeRead | CFile::shareDenyWrite);
    return isFile && file.GetLength() > INT_MAX ? CString("files of 2 GiB and more are not read")
                                                : CMemoryException().GetErrorMessage();
}

void ReportMissingFile(const CReport& report, const char* what, const char* name)
{
    report.Error(CString("there is no ") + what + ": no '" + name + "' with rows was found in the current " +
                 "directory, in the folder that VARNOTIX_DATA names, beside the library, or in the share folder");
    report.ErrorLine("Put the file beside the library, or set VARNOTIX_DATA to its folder. "
                     "'varnotix where' lists the places.");
}

} // namespace

void ChooseStreamRules(EStreamRules rules)
{
    g_rules = rules;
}

EStreamRules ChosenStreamRules()
{
    return g_rules;
}

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

CByteArray BytesOf(CFile& file)
{
    CByteArray bytes;
    bytes.SetSize(static_cast<int>(file.GetLength()));
    file.Seek(0, CFile::begin);
    bytes.SetSize(static_cast<int>(file.Read(bytes.GetData(), static_cast<UINT>(bytes.GetSize()))));
    return bytes;
}

void ReadBytes(const CString& path, CByteArray& bytes)
{
    if (path == "-")
    {
        ReadStandardInput(bytes);
        return;
    }
    if (IsStream(path))
    {
        ReadPipe(path, bytes);
        return;
    }
    CFile file(path, CFile::modeRead | CFile::shareDenyWrite);
    if (file.GetLength() > INT_MAX)
    {
        Varnotix::ThrowMemoryException();
    }
    bytes = BytesOf(file);
}

bool IsDicomFile(const CString& path)
{
    constexpr UINT kBeginning = 1U << 16U;
    CByteArray bytes;
    bytes.SetSize(static_cast<int>(kBeginning));
    CFile file(path, CFile::modeRead | CFile::shareDenyWrite);
    if (HasPrefix(file))
    {
        return true;
    }
    file.Seek(0, CFile::begin);
    bytes.SetSize(static_cast<int>(file.Read(bytes.GetData(), kBeginning)));
    CMemFile beginning;
    beginning.Attach(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    Load(beginning, [&object](CArchive& archive) { object.Serialize(archive); });
    return object.GetCount() > 0;
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
    catch (const CMemoryException&)
    {
        report.Error(ShownName(path) + ": " + MemoryFault(path));
    }
    catch (const std::bad_alloc&)
    {
        report.Error(ShownName(path) + ": " + MemoryFault(path));
    }
    return false;
}

bool ReadObjectPart(const CString& path, CDcmIOD& object, SReadStop& stop, const CReport& report)
{
    std::size_t left = 0;
    return ReadPart(path, object, stop, left, report);
}

bool ReadObject(const CString& path, CDcmIOD& object, const CReport& report)
{
    SReadStop stop;
    std::size_t left = 0;
    if (!ReadPart(path, object, stop, left, report) || ReportStop(path, stop, report) != STATUS_DONE)
    {
        return false;
    }
    if (left > 1) // One byte makes the number even.
    {
        CString text;
        text.Format(": %lu bytes after its deflated data set are left out", static_cast<unsigned long>(left));
        report.Say(ShownName(path) + text);
    }
    return true;
}

int ReportStop(const CString& path, const SReadStop& stop, const CReport& report)
{
    if (stop.IsEmpty())
    {
        return STATUS_DONE;
    }
    report.Error(ShownName(path) + ": " + stop.reason);
    for (std::size_t i = 0; report.IsVerbose() && i < stop.trials.size(); ++i)
    {
        const SReadTrial& trial = stop.trials[i];
        CString line;
        line.Format("%s: fault %d at offset %lu: %s", SyntaxName(trial.syntax), trial.fault,
                    static_cast<unsigned long>(trial.offset), Varnotix::ParseFaultText(trial.fault));
        report.ErrorLine(line);
    }
    return STATUS_UNREADABLE;
}

bool ReadText(const CString& path, CByteArray& text, const CReport& report)
{
    const auto read = [&]
    {
        ReadBytes(path, text);
        constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
        const std::string_view start(reinterpret_cast<const char*>(text.GetData()),
                                     static_cast<std::size_t>(text.GetSize()));
        const CString other = OtherThanText(start);
        if (!other.IsEmpty())
        {
            report.Error(ShownName(path) + ": it is " + other + ", where a text is expected");
            return false;
        }
        if (start.starts_with(kByteOrderMark))
        {
            text.RemoveAt(0, static_cast<int>(kByteOrderMark.size()));
        }
        return true;
    };
    return ReportReadFailures(path, report, read);
}

void SplitLines(CByteArray& text, CStringArray& lines)
{
    CMemFile file;
    file.Attach(text.GetData(), static_cast<UINT>(text.GetSize()));
    Load(file,
         [&lines](CArchive& archive)
         {
             for (CString line; archive.ReadString(line);)
             {
                 lines.Add(line);
             }
         });
}

bool ReadScript(const CString& path, CStringArray& lines, const CReport& report)
{
    CByteArray text;
    if (!ReadText(path, text, report))
    {
        return false;
    }
    SplitLines(text, lines);
    return true;
}
