#include "files/Inputs.h"

#include "files/FileKinds.h"
#include "files/OutputFolder.h"

#include <algorithm>

namespace
{

/// Outputs that are not complete yet are named so (see COutputFile).
constexpr std::string_view kTemporary = ".varnotix-";

/// Two names of one file, on systems on which case does not count.
std::string OutputKey(const CString& path)
{
    CString key = path;
#if defined(_WIN32)
    key.MakeLower();
#endif
    return std::string(key.View());
}

/// Whether a file is one that an edit has kept: NAME.bak, NAME.bak2 and so on beside NAME.
bool IsBackup(std::string_view name, const std::vector<CString>& names)
{
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::string_view kEnd = ".bak";
    const std::string_view rest = name.substr(0, name.find_last_not_of(kDigits) + 1);
    return rest.ends_with(kEnd) &&
           std::find(names.begin(), names.end(), CString(rest.substr(0, rest.size() - kEnd.size()))) != names.end();
}

/// A name in a folder, as users write it on every system.
CString Joined(const CString& folder, const CString& name)
{
    return FolderNameOf(folder) == folder ? folder + name : folder + "/" + name;
}

/// True when a name of the command line means the files in a folder.
bool NamesFolder(const SInputs& inputs)
{
    return inputs.entersFolders &&
           std::any_of(inputs.names.begin(), inputs.names.end(),
                       [](const CString& name) { return FileKindOf(name) == EFileKind::Folder; });
}

} // namespace

bool PlaceOutputs(SInputs& inputs, const CString& output, const CReport& report)
{
    const std::vector<CString>& names = inputs.names;
    inputs.output = output;
    inputs.intoFolder = names.size() > 1 || NamesFolder(inputs) || IsFolderPath(output);
    if (inputs.intoFolder && (output == "-" || std::find(names.begin(), names.end(), "-") != names.end()))
    {
        report.Error("-o: standard input and output require a single FILE and a file to write to");
        return false;
    }
    if (inputs.intoFolder && FileKindOf(output) == EFileKind::File)
    {
        report.Error("-o: '" + output + "' is a file, and several inputs need a folder");
        return false;
    }
    return true;
}

bool CInputWalk::Next(SInput& input)
{
    input = SInput();
    for (;;)
    {
        if (m_levels.empty() && m_next == m_inputs.names.size())
        {
            return false;
        }
        if (m_levels.empty() ? NextNamed(input) : NextFound(input))
        {
            input.number = m_count++;
            return true;
        }
    }
}

std::size_t CInputWalk::Count() const
{
    return NamesFolder(m_inputs) ? 0 : m_inputs.names.size();
}

/// Gets the next input of the command line, or enters the folder that it is.
bool CInputWalk::NextNamed(SInput& input)
{
    const CString& name = m_inputs.names[m_next++];
    if (name != "-" && FileKindOf(name) == EFileKind::Folder)
    {
        if (m_inputs.entersFolders)
        {
            return Enter(name, CString(), input);
        }
        input.path = name;
        input.fault = "cannot open '" + name + "': it is a folder, whose files -r reads";
        input.status = STATUS_UNREADABLE;
        return true;
    }
    input.path = name;
    input.relative = FileNameOf(name);
    Place(input);
    return true;
}

/// Opens a folder.
/// @return true when it cannot be read, which makes it an input with a fault.
bool CInputWalk::Enter(const CString& path, const CString& relative, SInput& input)
{
    SLevel level{path, relative, {}};
    const CString fault = ListFolder(path, level.names);
    m_levels.push_back(std::move(level));
    if (fault.IsEmpty())
    {
        return false;
    }
    input.path = path;
    input.isFound = true;
    input.fault = "cannot read the folder '" + path + "': " + fault;
    input.status = STATUS_UNREADABLE;
    return true;
}

/// Takes a step in the innermost folder: gets a file, enters a folder, or leaves this one.
bool CInputWalk::NextFound(SInput& input)
{
    SLevel& level = m_levels.back();
    if (level.next == level.names.size())
    {
        m_levels.pop_back();
        return false;
    }
    const CString& name = level.names[level.next++];
    const CString path = Joined(level.path, name);
    const CString relative = Joined(level.relative, name);
    const EFileKind kind = FileKindOf(path);
    if (kind == EFileKind::Folder)
    {
        const bool isEntered = !IsFolderLink(path) && !(m_inputs.intoFolder && IsSameFolder(path, m_inputs.output));
        return isEntered && Enter(path, relative, input);
    }
    if (kind != EFileKind::File || name.View().starts_with(kTemporary) || IsBackup(name.View(), level.names))
    {
        return false;
    }
    input.path = path;
    input.relative = relative;
    input.isFound = true;
    Place(input);
    return true;
}

void CInputWalk::Place(SInput& input)
{
    if (!m_inputs.namesOutputs)
    {
        return;
    }
    input.output = m_inputs.intoFolder ? Joined(m_inputs.output, input.relative) : m_inputs.output;
    if (m_inputs.intoFolder && !m_outputs.insert(OutputKey(input.output)).second)
    {
        input.fault =
            input.path + ": not written, because another input of the same name was written to " + input.output;
        input.status = STATUS_UNWRITTEN;
    }
}
