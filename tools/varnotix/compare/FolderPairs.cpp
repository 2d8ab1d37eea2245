#include "compare/FolderPairs.h"

#include "files/Input.h"
#include "files/Inputs.h"
#include "object/Attributes.h"

#include <map>
#include <string>

namespace
{

struct SFile
{
    CString path;
    std::string key;
};

std::vector<SFile> FilesIn(const CString& folder, const CReport& report, int& status)
{
    SInputs inputs;
    inputs.names.push_back(folder);
    inputs.entersFolders = true;
    CInputWalk walk(inputs);
    std::vector<SFile> files;
    for (SInput input; walk.Next(input);)
    {
        if (!input.fault.IsEmpty())
        {
            report.Error(input.fault);
            status = STATUS_UNREADABLE;
            continue;
        }
        const auto read = [&]
        {
            CDcmIOD object;
            if (!IsDicomFile(input.path))
            {
                return true;
            }
            const bool isRead = ReadObject(input.path, object, report);
            const CString uid = TextOf(object.ElementStore(), Varnotix::Tag::kSopInstanceUid);
            if (isRead)
            {
                files.push_back({input.path, std::string(uid.IsEmpty() ? input.relative.View() : uid.View())});
            }
            return isRead;
        };
        if (!ReportReadFailures(input.path, report, read))
        {
            status = STATUS_UNREADABLE;
        }
    }
    return files;
}

} // namespace

SFolderPairs PairFolders(const CString& left, const CString& right, const CReport& report)
{
    SFolderPairs pairs;
    std::vector<SFile> rightFiles = FilesIn(right, report, pairs.status);
    std::map<std::string, std::vector<std::size_t>> waiting; // The last of each key is next.
    for (std::size_t i = rightFiles.size(); i > 0; --i)
    {
        waiting[rightFiles[i - 1].key].push_back(i - 1);
    }
    for (const SFile& file : FilesIn(left, report, pairs.status))
    {
        std::vector<std::size_t>& same = waiting[file.key];
        if (same.empty())
        {
            pairs.onlyLeft.push_back(file.path);
            continue;
        }
        pairs.both.emplace_back(file.path, rightFiles[same.back()].path);
        rightFiles[same.back()].path.Empty();
        same.pop_back();
    }
    for (const SFile& file : rightFiles)
    {
        if (!file.path.IsEmpty())
        {
            pairs.onlyRight.push_back(file.path);
        }
    }
    return pairs;
}
