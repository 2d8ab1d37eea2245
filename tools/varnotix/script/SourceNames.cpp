#include "script/SourceNames.h"

#include "Varnotix/platform/FileSearch.h"
#include "files/FileKinds.h"

#include <algorithm>
#include <string>
#include <vector>

CString AmbiguousNames(const CString& path, bool exactWins)
{
    std::string text(path.CText());
    std::replace(text.begin(), text.end(), '\\', '/');
    CString folder = text.starts_with('/') ? "/" : "";
    for (std::size_t start = 0; start < text.size();)
    {
        const std::size_t end = std::min(text.find('/', start), text.size());
        const CString name(std::string_view(text).substr(start, end - start));
        start = end + 1;
        if (name.IsEmpty() || name == "." || name == "..")
        {
            folder = name.IsEmpty() ? folder : Varnotix::JoinPath(folder, name);
            continue;
        }
        const CString exact = Varnotix::JoinPath(folder, name);
        std::vector<CString> names;
        ListFolder(folder.IsEmpty() ? CString(".") : folder, names);
        std::erase_if(names, [&](const CString& found) { return found.CompareNoCase(name) != 0; });
        if (exactWins && FileKindOf(exact) != EFileKind::Missing)
        {
            folder = exact;
            continue;
        }
        if (names.size() > 1)
        {
            CString list;
            for (const CString& found : names)
            {
                list += (list.IsEmpty() ? "" : ", ") + Varnotix::JoinPath(folder, found);
            }
            return list;
        }
        folder = names.empty() ? exact : Varnotix::JoinPath(folder, names.front());
    }
    return CString();
}
