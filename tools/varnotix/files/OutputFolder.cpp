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
    // A path none of which exists would stay relative.
    const auto followed = [](const CString& of) { return fs::weakly_canonical(fs::absolute(std::string(of.CText()))); };
    try
    {
        const fs::path below = followed(path).lexically_relative(followed(folder));
        return !below.empty() && *below.begin() != "..";
    }
    catch (const fs::filesystem_error&)
    {
        return false;
    }
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
