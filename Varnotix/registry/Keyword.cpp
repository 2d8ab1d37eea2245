#include "Varnotix/registry/Keyword.h"

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace Varnotix
{

namespace
{

constexpr std::string_view kGroupLengthName = "Group Length";

/// The words of the name without marks and a possessive "'s", each with a capital: "Patient's Name" gives
/// "PatientName".
CString JoinWords(std::string_view name)
{
    std::string keyword;
    bool beginsWord = true;
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const char character = name[i];
        if (character == '\'' && i + 1 < name.size() && name[i + 1] == 's')
        {
            ++i;
        }
        else if (character == ' ' || character == '/')
        {
            beginsWord = true;
        }
        else if (const char upper = Upper(character);
                 (upper >= 'A' && upper <= 'Z') || (character >= '0' && character <= '9'))
        {
            keyword += beginsWord ? Upper(character) : character;
            beginsWord = false;
        }
    }
    return CString(std::string_view(keyword));
}

CString EntryKeyword(const CDcmEntry& entry)
{
    return entry.keyword.IsEmpty() ? JoinWords(entry.name.View()) : entry.keyword;
}

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
    return lower;
}

std::unordered_map<std::string, DWORD> MakeIndex()
{
    CStringArray lines;
    CDcmRegistry::Global().ExportPublicDictionary(lines);
    std::unordered_map<std::string, DWORD> index;
    index.reserve(static_cast<std::size_t>(lines.GetSize()));
    for (const CString& line : lines)
    {
        const std::optional<DWORD> tag = Tag::Parse(line.View().substr(0, 4), line.Mid(5, 4).View());
        const CString keyword = tag ? KeywordOf(*tag) : CString();
        if (!keyword.IsEmpty())
        {
            index.try_emplace(LowerCase(keyword.View()), *tag);
        }
    }
    return index;
}

} // namespace

CString KeywordOf(DWORD tag)
{
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(tag);
    return entry == nullptr || entry->name.View() == kGroupLengthName ? CString() : EntryKeyword(*entry);
}

std::optional<DWORD> TagOfKeyword(std::string_view keyword)
{
    static const std::unordered_map<std::string, DWORD> index = MakeIndex();
    const auto place = index.find(LowerCase(keyword));
    return place == index.end() ? std::nullopt : std::optional(place->second);
}

} // namespace Varnotix
