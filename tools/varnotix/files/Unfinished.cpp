#include "files/Unfinished.h"

#include "Varnotix/platform/FileSearch.h"

#include <map>
#include <mutex>
#include <string>

namespace
{

/// The files by their paths. It is never destroyed, because an interrupt may come while the program ends.
struct SUnfinished
{
    std::mutex mutex;
    std::map<std::string, CFile*> files;
};

SUnfinished& Unfinished()
{
    static SUnfinished* const files = new SUnfinished;
    return *files;
}

std::string KeyOf(const CString& path)
{
    return std::string(path.View());
}

} // namespace

std::unique_ptr<CFile> CreateUnfinished(const CString& path)
{
    SUnfinished& all = Unfinished();
    const std::lock_guard lock(all.mutex);
    auto file = std::make_unique<CFile>(path, CFile::modeCreate | CFile::modeReadWrite);
    all.files[KeyOf(path)] = file.get();
    return file;
}

bool FinishFile(const CString& path, const CString& name)
{
    // Many file systems write a new name to the disk before the content: a power failure would leave neither file.
    if (Varnotix::FileExists(name) && !Varnotix::SyncFile(path))
    {
        return false;
    }
    SUnfinished& all = Unfinished();
    const std::lock_guard lock(all.mutex);
    if (!Varnotix::ReplaceFileByRename(path, name))
    {
        return false;
    }
    all.files.erase(KeyOf(path));
    return true;
}

void DeleteUnfinished(const CString& path, std::unique_ptr<CFile> file)
{
    SUnfinished& all = Unfinished();
    const std::lock_guard lock(all.mutex);
    file.reset();
    Varnotix::DeleteFileByPath(path);
    all.files.erase(KeyOf(path));
}

void EndUnfinished()
{
    SUnfinished& all = Unfinished();
    all.mutex.lock();
    for (const auto& [path, file] : all.files)
    {
        if (!Varnotix::DeleteFileByPath(path.c_str()))
        {
            // Some systems do not delete open files.
            file->Close();
            Varnotix::DeleteFileByPath(path.c_str());
        }
    }
}
