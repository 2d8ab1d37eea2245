#if !defined(_WIN32)

#include "Varnotix/platform/FileSearch.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Varnotix
{

namespace
{

/// Its address is inside this library. The address of a function may be that of a stub in the host.
const char kInsideLibrary = 0;

struct SCloseFolder
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

struct SFreeText
{
    void operator()(char* text) const { std::free(text); }
};

bool Exists(const char* path)
{
    struct stat status = {};
    return ::stat(path, &status) == 0;
}

bool IsDots(std::string_view name)
{
    return name == "." || name == "..";
}

/// The names in a folder that match: "." and "..", which a root folder lacks, then the others in byte order.
std::vector<std::string> Names(const CString& folder, const CString& pattern)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, SCloseFolder> opened(::opendir(folder));
    if (opened != nullptr)
    {
        while (const dirent* entry = ::readdir(opened.get()))
        {
            const std::string name = entry->d_name;
            if (MatchesWildcard(pattern, name.c_str()) && !(IsDots(name) && folder == "/"))
            {
                names.push_back(name);
            }
        }
    }
    std::sort(names.begin(), names.end(),
              [](const std::string& left, const std::string& right)
              { return IsDots(left) != IsDots(right) ? IsDots(left) : left < right; });
    return names;
}

std::string WithSlashes(const CString& path)
{
    std::string text(path.CText());
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

CString RealFolder(const char* path)
{
    const std::unique_ptr<char, SFreeText> real(::realpath(path, nullptr));
    return CString(real.get());
}

/// The name in the folder that differs from `name` only in case; the first in byte order, or empty.
CString NameNoCase(const CString& folder, const CString& name)
{
    for (const std::string& candidate : Names(folder, "*"))
    {
        if (name.CompareNoCase(candidate.c_str()) == 0)
        {
            return candidate.c_str();
        }
    }
    return CString();
}

} // namespace

CString FindPathNoCase(const CString& path)
{
    if (Exists(path))
    {
        return CString(path.CText());
    }
    const std::string text = WithSlashes(path);
    CString found = text.starts_with('/') ? "/" : "";
    std::size_t start = 0;
    while (start < text.size())
    {
        const std::size_t end = std::min(text.find('/', start), text.size());
        if (end > start)
        {
            const CString name(std::string_view(text).substr(start, end - start));
            CString next = JoinPath(found, name);
            if (!Exists(next))
            {
                const CString other = NameNoCase(found.IsEmpty() ? CString(".") : found, name);
                if (other.IsEmpty())
                {
                    return CString();
                }
                next = JoinPath(found, other);
            }
            found = next;
        }
        start = end + 1;
    }
    return found;
}

bool FindFiles(const CString& pattern, CStringArray& names)
{
    const std::string text = WithSlashes(pattern);
    const std::size_t slash = text.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : slash == 0 ? "/" : text.substr(0, slash);
    const CString lastPart(std::string_view(text).substr(slash == std::string::npos ? 0 : slash + 1));
    const CString found = FindPathNoCase(CString(folder));
    if (lastPart.IsEmpty() || found.IsEmpty())
    {
        return false;
    }
    const std::vector<std::string> matching = Names(found, lastPart);
    for (const std::string& name : matching)
    {
        names.Add(name.c_str());
    }
    return !matching.empty();
}

bool FileExists(const CString& path)
{
    struct stat status = {};
    return ::stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

CString CurrentDirectory()
{
    return RealFolder(".");
}

CString LibraryDirectory()
{
    Dl_info info = {};
    if (::dladdr(&kInsideLibrary, &info) == 0 || info.dli_fname == nullptr)
    {
        return CString();
    }
    const std::string file = info.dli_fname;
    const std::size_t slash = file.rfind('/');
    return RealFolder(slash == std::string::npos ? "." : file.substr(0, slash + 1).c_str());
}

CString JoinPath(const CString& folder, const CString& name)
{
    if (folder.IsEmpty() || name.View().starts_with('/'))
    {
        return name;
    }
    return folder.View().ends_with('/') ? folder + name : folder + "/" + name;
}

bool SyncFile(const CString& path)
{
    const int file = ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0)
    {
        return false;
    }
    const bool isSafe = ::fsync(file) == 0 || errno == EINVAL; // Where a file cannot be synchronised, it need not be.
    ::close(file);
    return isSafe;
}

bool ReplaceFileByRename(const CString& from, const CString& to)
{
    return std::rename(from, to) == 0;
}

bool DeleteFileByPath(const CString& path)
{
    return ::unlink(path) == 0;
}

} // namespace Varnotix

#endif
