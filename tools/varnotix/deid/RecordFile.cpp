#include "deid/RecordFile.h"

#include <array>
#include <nlohmann/json.hpp>
#include <string>

namespace
{

constexpr std::array<const char*, static_cast<std::size_t>(EDeidDone::Count)> kNames = {
    "removed", "emptied", "replaced", "uids", "shifted", "cleaned", "keptByOption", "kept"};

nlohmann::ordered_json JsonOf(const CDeidRecord& record, EDeidDone done)
{
    nlohmann::ordered_json attributes = nlohmann::ordered_json::object();
    for (const auto& [path, count] : record.ListOf(done))
    {
        attributes[std::string(path.View())] = count;
    }
    return {{"count", record.CountOf(done)}, {"attributes", std::move(attributes)}};
}

} // namespace

void CRecordFile::Open(const CString& path)
{
    m_path = path;
    m_file.emplace(path);
}

void CRecordFile::Add(const SDeidOutcome& outcome, CConsole& console)
{
    if (!m_file)
    {
        return;
    }
    nlohmann::ordered_json line = {{"input", outcome.input.View()}, {"state", outcome.state.View()}};
    for (const auto& [name, text] :
         {std::pair("output", &outcome.output), std::pair("reason", &outcome.reason), std::pair("left", &outcome.left)})
    {
        if (!text->IsEmpty())
        {
            line[name] = text->View();
        }
    }
    for (std::size_t i = 0; i < kNames.size() && !outcome.output.IsEmpty(); ++i)
    {
        line[kNames[i]] = JsonOf(outcome.record, static_cast<EDeidDone>(i));
    }
    // Names of files are bytes; those that are not UTF-8 are shown as far as they are.
    const std::string text = line.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
    console.Do(
        [this, text]
        {
            try
            {
                m_file->File().Write(text.data(), static_cast<UINT>(text.size()));
            }
            catch (const CFileException& failure)
            {
                throw WriteFailureOf(failure, m_path);
            }
        });
}

void CRecordFile::Commit()
{
    if (m_file)
    {
        m_file->Commit();
    }
}
