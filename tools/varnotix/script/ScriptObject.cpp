#include "script/ScriptObject.h"

#include "files/Input.h"
#include "rewrite/FileMeta.h"

#include <algorithm>
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

/// The transfer syntax of a source's frames; empty for an uncompressed one.
CString CSourceReport::UidOf(const SScriptSource& source) const
{
    if (IsPicture(source.name))
    {
        return CDcmRegistry::Global().UidString(Varnotix::UID_JPEG_BASELINE);
    }
    CDcmIOD file;
    const SObjectForm form = ReadObject(source.name, file, m_report) ? FormOf(file) : SObjectForm();
    return form.compressed ? form.transferSyntax : CString();
}

/// Frames come without their transfer syntax, so it is declared for all of them. False when they have several.
bool CSourceReport::Declare(CDcmIOD& object) const
{
    std::set<std::string> uids;
    for (const SScriptSource& source : m_object.ScriptSources())
    {
        if (source.state == SCRIPT_SOURCE_TAKEN)
        {
            uids.emplace(UidOf(source).CText());
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
    return true;
}

} // namespace

bool BuildObject(const CDcmAttributeScript& script, const CStringArray& lines, CDcmCompositeIOD& object,
                 const CString& name, const CReport& report)
{
    const CSourceReport sources(script, object, name, report);
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
    return sources.Declare(object) && isWhole;
}
