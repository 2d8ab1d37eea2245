// Any bytes as "UidTable.txt". The loader runs on lists of its own: the registry would add to its lists at every load.

#include "Promise.h"
#include "Varnotix/registry/DataFiles.h"
#include "Varnotix/registry/DictionaryFile.h"
#include "Varnotix/registry/NameList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CNameList uids;
    CNameList names;
    std::size_t bytes = 0;
    Varnotix::ReadDataLines({reinterpret_cast<const char*>(data), size},
                            [&](std::string_view line)
                            {
                                bytes += line.size();
                                AddUidLine(line, uids, names);
                            });
    Promise(bytes <= size, "lines hold no more than the file");
    Promise(uids.GetCount() == names.GetCount(), "each UID has a name");
    for (int row = 0; row < uids.GetCount(); ++row)
    {
        const CString uid = uids.At(row);
        Promise(names.At(row).GetLength() + uid.GetLength() <= static_cast<int>(size), "a row is a part of the file");
        const int found = uids.LastRowOf(uid);
        Promise(uid.IsEmpty() ? found == -1 : found >= row, "a UID is found in the last row that has it");
    }
    Promise(uids.At(-1).IsEmpty() && uids.At(uids.GetCount()).IsEmpty(), "there are no rows outside the table");
    return 0;
}
