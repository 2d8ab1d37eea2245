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
    const std::string text(path.CText());
    const std::size_t end = text.find_last_of(kSeparators);
    return CString(end == std::string::npos ? text.c_str() : text.c_str() + end + 1);
}
