#include "Varnotix/registry/DataFiles.h"

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Exceptions.h"
#include "Varnotix/platform/File.h"
#include "Varnotix/platform/FileSearch.h"

#include <vector>

namespace Varnotix
{

namespace
{

constexpr ULONGLONG kLargestFile = 64U << 20U; // The dictionary of the whole standard has a quarter of a megabyte.

/// The folders to search, in order. The empty one is the current directory.
std::vector<CString> DataFolders()
{
    std::vector<CString> folders{CString()};
    const CString configured = EnvironmentVariable("VARNOTIX_DATA");
    if (!configured.IsEmpty())
    {
        folders.push_back(configured);
    }
    const CString library = LibraryDirectory();
    if (!library.IsEmpty())
    {
        folders.push_back(library);
        // An installed tree may be moved as a whole, so its share folder is found from the library: lib/ or bin/
        // beside share/, and lib/<architecture>/ one level deeper.
        folders.push_back(JoinPath(library, "../share/varnotix"));
        folders.push_back(JoinPath(library, "../../share/varnotix"));
    }
    return folders;
}

bool ReadWhole(const CString& path, CByteArray& bytes)
{
    try
    {
        CFile file(path, CFile::modeRead);
        // Tables are read while the library is loaded, where no caller could catch an exception.
        if (file.GetLength() > kLargestFile)
        {
            return false;
        }
        bytes.SetSize(static_cast<int>(file.GetLength()));
        bytes.SetSize(static_cast<int>(file.Read(bytes.GetData(), static_cast<UINT>(bytes.GetSize()))));
        return true;
    }
    catch (const CFileException&)
    {
        return false;
    }
}

} // namespace

void ReadDataLines(std::string_view text, const std::function<void(std::string_view)>& takeLine)
{
    while (!text.empty())
    {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!line.empty() && line.back() == '\r')
        {
            line.remove_suffix(1);
        }
        takeLine(line);
    }
}

CString ReadDataFile(const CString& name, const std::function<void(std::string_view)>& takeLine)
{
    for (const CString& folder : DataFolders())
    {
        CString path = folder.IsEmpty() ? name : JoinPath(folder, name);
        CByteArray bytes;
        if (!ReadWhole(path, bytes))
        {
            continue;
        }
        ReadDataLines({reinterpret_cast<const char*>(bytes.GetData()), static_cast<std::size_t>(bytes.GetSize())},
                      takeLine);
        return path;
    }
    return CString();
}

} // namespace Varnotix
