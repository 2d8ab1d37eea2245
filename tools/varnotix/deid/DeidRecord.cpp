#include "deid/DeidRecord.h"

void CDeidRecord::Add(EDeidDone done, const Varnotix::CElementPath& path)
{
    std::vector<DWORD> tags;
    tags.reserve(path.Steps().size());
    for (const Varnotix::SPathStep& step : path.Steps())
    {
        tags.push_back(step.tag);
    }
    ++m_counts[{done, std::move(tags)}];
}

int CDeidRecord::CountOf(EDeidDone done) const
{
    int count = 0;
    for (const auto& [key, times] : m_counts)
    {
        count += key.first == done ? times : 0;
    }
    return count;
}

std::vector<std::pair<CString, int>> CDeidRecord::ListOf(EDeidDone done) const
{
    std::vector<std::pair<CString, int>> list;
    for (const auto& [key, times] : m_counts)
    {
        if (key.first != done)
        {
            continue;
        }
        Varnotix::CElementPath path;
        for (const DWORD tag : key.second)
        {
            path.Append({tag, CString(), Varnotix::SPathStep::kNoItem});
        }
        list.emplace_back(path.Text(), times);
    }
    return list;
}
