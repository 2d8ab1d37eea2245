#include "files/OutputFolder.h"

#include <filesystem>
#include <string>

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

void MakeFolder(const CString& path)
{
    if (path.IsEmpty())
    {
        return;
    }
    try
    {
        fs::create_directories(std::string(path.CText()));
    }
    catch (const fs::filesystem_error&)
    {
        return;
    }
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
