#include "deid/Patients.h"

#include "Varnotix/platform/Ascii.h"
#include "files/Input.h"
#include "object/Attributes.h"

#include <algorithm>
#include <vector>

namespace
{

constexpr DWORD kBirthDate = 0x00100030;

// Days by which dates are moved back: never few enough to be guessed, never more than ten years.
constexpr unsigned kFewestDays = 30;
constexpr unsigned kMostDays = 3650;

/// The fields of a line; a field in quotation marks may hold commas, and its marks twice.
/// @return nothing when a quotation mark is open at the end.
std::optional<std::vector<std::string>> FieldsOf(std::string_view line)
{
    std::vector<std::string> fields(1);
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i)
    {
        const bool isTwice = isQuoted && line.substr(i, 2) == "\"\"";
        if (line[i] == '"' && !isTwice)
        {
            isQuoted = !isQuoted;
        }
        else if (line[i] == ',' && !isQuoted)
        {
            fields.emplace_back();
        }
        else
        {
            fields.back() += line[i];
            i += isTwice ? 1 : 0;
        }
    }
    return isQuoted ? std::nullopt : std::optional(fields);
}

/// True for a text that is a value of VR LO and PN in every character set.
bool IsPlain(std::string_view text)
{
    constexpr std::size_t kLongest = 64;
    return !text.empty() && text.size() <= kLongest &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F' && c != '\\'; });
}

} // namespace

bool CPatients::ReadList(const CString& path, const CReport& report)
{
    CStringArray lines;
    if (!ReadScript(path, lines, report))
    {
        return false;
    }
    m_list.emplace();
    for (int i = 0; i < lines.GetSize(); ++i)
    {
        const std::string_view line = Varnotix::TrimBlanks(lines[i].View());
        if (!line.empty() && line.front() != '#' && !TakeLine(line))
        {
            CString number;
            number.Format(":%d: ", i + 1);
            report.Error(
                path + number +
                "not 'old ID,new ID,new name' with plain ASCII texts of 1 to 64 characters, or an old ID twice");
            return false;
        }
    }
    return true;
}

bool CPatients::TakeLine(std::string_view line)
{
    const auto fields = FieldsOf(line);
    if (!fields || fields->size() != 3 || !IsPlain((*fields)[1]) || !IsPlain((*fields)[2]))
    {
        return false;
    }
    const std::string old(Varnotix::TrimBlanks((*fields)[0]));
    SNewPatient patient = Make(old);
    patient.id = CString(std::string_view((*fields)[1]));
    patient.name = CString(std::string_view((*fields)[2]));
    return m_list->emplace(old, patient).second;
}

std::optional<SNewPatient> CPatients::Find(const CDcmElementSet& store) const
{
    const CString id = TextOf(store, Varnotix::Tag::kPatientId);
    if (m_list)
    {
        const auto place = m_list->find(id.View());
        return place == m_list->end() ? std::nullopt : std::optional(place->second);
    }
    if (!id.IsEmpty())
    {
        return Make(id.View());
    }
    const CString person = TextOf(store, Varnotix::Tag::kPatientName) + "\\" + TextOf(store, kBirthDate);
    return Make((person == "\\" ? TextOf(store, Varnotix::Tag::kStudyInstanceUid) : person).View());
}

CString CPatients::NewIdOf(std::string_view oldId) const
{
    const std::string_view id = Varnotix::TrimBlanks(oldId);
    if (id.empty())
    {
        return CString();
    }
    const auto place = m_list ? m_list->find(id) : decltype(m_list->end()){};
    return m_list && place != m_list->end() ? place->second.id : Make(id).id;
}

SNewPatient CPatients::Make(std::string_view identity) const
{
    constexpr std::size_t kIdDigits = 16;
    SNewPatient patient;
    patient.id = "P-" + m_key.HexOf("patient", identity, kIdDigits);
    patient.name = patient.id;
    const CDigest random = m_key.Hash("dates", identity);
    const unsigned number = random[0] | static_cast<unsigned>(random[1]) << 8U |
                            static_cast<unsigned>(random[2]) << 16U | static_cast<unsigned>(random[3] & 0x7FU) << 24U;
    patient.days = -static_cast<int>(kFewestDays + number % (kMostDays - kFewestDays + 1));
    return patient;
}
