#include "script/ScriptObject.h"

#include "files/Input.h"
#include "object/Attributes.h"
#include "rewrite/FileMeta.h"
#include "script/JpegFacts.h"
#include "script/SourceNames.h"

#include <algorithm>
#include <optional>
#include <set>

namespace
{

bool IsPicture(const CString& name)
{
    return name.Right(4).CompareNoCase(".jpg") == 0;
}

/// Reports the results of the sources.
class CSourceReport
{
public:
    CSourceReport(const CDcmAttributeScript& script, const CDcmCompositeIOD& object, const CString& name,
                  const CReport& report)
        : m_script(script), m_object(object), m_name(name), m_report(report)
    {
    }

    bool ReportAll() const;
    bool ReportUntried() const;
    bool Declare(CDcmIOD& object) const;

private:
    bool ReportOne(const SScriptSource& source, bool isNamed) const;
    CString UidOf(const SScriptSource& source) const;
    bool ReadPicture(const SScriptSource& source, std::optional<SJpegFacts>& common) const;
    CString Place(const CString& source) const { return m_name + ": '" + source + "': "; }

    const CDcmAttributeScript& m_script;
    const CDcmCompositeIOD& m_object;
    const CString& m_name;
    const CReport& m_report;
};

bool CSourceReport::ReportAll() const
{
    int tried = 0;
    int lost = 0;
    for (const SScriptSource& source : m_object.ScriptSources())
    {
        // Files that the script names are tried before those that its patterns find.
        const bool isNamed = tried < m_script.PixelDataFiles().GetSize() || !m_script.SourceFile().IsEmpty();
        lost += ReportOne(source, isNamed) ? 0 : 1;
        tried += source.state != SCRIPT_SOURCE_NO_MATCH ? 1 : 0;
    }
    return lost == 0;
}

/// False for a source that the script asks for and the object lacks.
bool CSourceReport::ReportOne(const SScriptSource& source, bool isNamed) const
{
    const CString place = Place(source.name);
    if (source.state == SCRIPT_SOURCE_TAKEN)
    {
        CString count;
        count.Format(source.frames == 1 ? "%d frame" : "%d frames", source.frames);
        m_report.Detail(place + count);
        return true;
    }
    CString reason(Varnotix::ScriptSourceText(source.state));
    if (!isNamed && source.name.View().ends_with('.')) // The folder itself, which "*.*" finds.
    {
        m_report.Detail(place + reason);
        return true;
    }
    if (source.state == SCRIPT_SOURCE_PASSED_OVER || (source.state == SCRIPT_SOURCE_OTHER_KIND && !isNamed))
    {
        m_report.Say(place + reason);
        return true;
    }
    if (source.state == SCRIPT_SOURCE_NOT_OPENED && !isNamed)
    {
        reason += "; the first file that a pattern finds must be in the current directory";
    }
    m_report.Error(place + reason);
    return false;
}

/// A file that cannot be opened ends the build, so the files after it were not tried. False when one of them is
/// missing.
bool CSourceReport::ReportUntried() const
{
    int missing = 0;
    const CStringArray& files = m_script.PixelDataFiles();
    const std::vector<SScriptSource>& sources = m_object.ScriptSources();
    const auto tried =
        std::count_if(sources.begin(), sources.end(),
                      [](const SScriptSource& source) { return source.state != SCRIPT_SOURCE_NO_MATCH; });
    for (int i = static_cast<int>(tried); i < files.GetSize(); ++i)
    {
        CFile file;
        if (!file.Open(files[i], CFile::modeRead))
        {
            m_report.Error(Place(files[i]) + Varnotix::ScriptSourceText(SCRIPT_SOURCE_NOT_OPENED));
            ++missing;
        }
    }
    return missing == 0;
}

/// The transfer syntax of the frames of an object's file; empty for an uncompressed one.
CString CSourceReport::UidOf(const SScriptSource& source) const
{
    CDcmIOD file;
    const SObjectForm form = ReadObject(source.name, file, m_report) ? FormOf(file) : SObjectForm();
    return form.compressed ? form.transferSyntax : CString();
}

/// False, after a message, for a picture that cannot be a frame, or not one of the same object as those before it.
bool CSourceReport::ReadPicture(const SScriptSource& source, std::optional<SJpegFacts>& common) const
{
    CByteArray bytes;
    ReadBytes(source.name, bytes);
    SJpegFacts facts;
    const CString fault = ReadJpegFacts(bytes, facts);
    if (!fault.IsEmpty())
    {
        m_report.Error(Place(source.name) + fault);
        return false;
    }
    if (common && *common != facts)
    {
        CString text;
        text.Format("%d x %d pixels, %d bits, %s", facts.columns, facts.rows, facts.precision,
                    static_cast<const char*>(facts.photometric));
        CString other;
        other.Format("; the pictures before it have %d x %d pixels, %d bits, %s", common->columns, common->rows,
                     common->precision, static_cast<const char*>(common->photometric));
        m_report.Error(Place(source.name) + text + other);
        return false;
    }
    common = facts;
    return true;
}

/// Frames come without what describes them, so it is declared for all of them. False when they differ.
bool CSourceReport::Declare(CDcmIOD& object) const
{
    std::set<std::string> uids;
    std::optional<SJpegFacts> common;
    bool areUsable = true;
    for (const SScriptSource& source : m_object.ScriptSources())
    {
        if (source.state != SCRIPT_SOURCE_TAKEN)
        {
            continue;
        }
        if (!IsPicture(source.name))
        {
            uids.emplace(UidOf(source).CText());
            continue;
        }
        areUsable = ReadPicture(source, common) && areUsable;
        if (common)
        {
            uids.emplace(common->transferSyntax.CText());
        }
    }
    if (uids.size() > 1)
    {
        m_report.Error(m_name + ": the sources have frames of different transfer syntaxes: " + CString(*uids.begin()) +
                       ", " + CString(*uids.rbegin()));
        return false;
    }
    if (!uids.empty())
    {
        DeclareTransferSyntax(object, CString(*uids.begin()), m_name, m_report);
    }
    if (common && areUsable)
    {
        DescribeJpeg(*common, object.ElementStore(), m_name, m_report);
    }
    return areUsable;
}

/// The library counts frames that it gathers. An object of one frame needs no count, unless the script gives one.
void RemoveAddedCount(const CStringArray& lines, CDcmIOD& object)
{
    CDcmAttributeScript script;
    CDcmAttributeModule given;
    script.StreamRules(object.StreamRules());
    script.Run(lines, given);
    CDcmElementSet& store = object.ElementStore();
    if (given.GetDcmElementSet().Find(Varnotix::Tag::kNumberOfFrames) == nullptr &&
        TextOf(store, Varnotix::Tag::kNumberOfFrames) == "1")
    {
        store.Remove(store.Find(Varnotix::Tag::kNumberOfFrames));
    }
}

/// False, after messages, when a name in the script leads to several files.
bool AreClear(const CDcmAttributeScript& script, const CString& name, const CReport& report)
{
    CStringArray names(script.PixelDataFiles());
    names.Add(script.SourceFile());
    bool areClear = true;
    for (const CString& source : names)
    {
        const CString candidates = AmbiguousNames(source, script.StreamRules() == STREAM_RULES_STANDARD);
        if (!candidates.IsEmpty())
        {
            report.Error(name + ": '" + source + "': several names differ from it only in case: " + candidates);
            areClear = false;
        }
    }
    return areClear;
}

} // namespace

bool BuildObject(const CDcmAttributeScript& script, const CStringArray& lines, CDcmCompositeIOD& object,
                 const CString& name, const CReport& report)
{
    const CSourceReport sources(script, object, name, report);
    const bool areClear = AreClear(script, name, report);
    try
    {
        object.CreateFromASL(lines);
    }
    catch (const CFileException&)
    {
        const bool areAllTaken = sources.ReportAll();
        return sources.ReportUntried() && areAllTaken;
    }
    const bool isWhole = sources.ReportAll();
    const bool isDeclared = sources.Declare(object);
    if (script.SourceFile().IsEmpty())
    {
        RemoveAddedCount(lines, object);
    }
    return isDeclared && isWhole && areClear;
}
