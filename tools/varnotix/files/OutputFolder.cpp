#include "files/OutputFolder.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace
{

namespace fs = std::filesystem;

constexpr const char* kSeparators = fs::path::preferred_separator == '/' ? "/" : "/\\:";

} // namespace

bool IsFolderPath(const CString& path)
{
    const std::string text(path.CText());
    if (!text.empty() && text.find_last_of(kSeparators) == text.size() - 1)
    {
        return true;
    }
    try
    {
        return fs::is_directory(text);
    }
    catch (const fs::filesystem_error&)
    {
        return false;
    }
}

bool LeadsInto(const CString& path, const CString& folder)
{
    std::error_code error;
    const fs::path outer = fs::weakly_canonical(std::string(folder.CText()), error);
    // Of a path that cannot be followed, its text decides.
    const fs::path inner = error ? fs::path() : fs::weakly_canonical(std::string(path.CText()), error);
    const fs::path below = error ? fs::path(std::string(path.CText())).lexically_relative(std::string(folder.CText()))
                                 : inner.lexically_relative(outer);
    return !below.empty() && *below.begin() != "..";
}

CString MakeFolder(const CString& path)
{
    const std::string text(path.CText());
    std::error_code error;
    if (text.empty() || fs::create_directories(text, error) || !error)
    {
        return CString();
    }
    return CString(std::string_view("cannot make the folder '" + text + "': " + error.message()));
}

CString FileNameOf(const CString& path)
{
    return path.Mid(FolderNameOf(path).GetLength());
}

CString FolderNameOf(const CString& path)
{
    const std::string_view text = path.View();
    const std::size_t end = text.find_last_of(kSeparators);
    return end == std::string_view::npos ? CString() : CString(text.substr(0, end + 1));
}
