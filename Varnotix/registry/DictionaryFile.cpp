#include "Varnotix/registry/DictionaryFile.h"

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/registry/EntryTable.h"
#include "Varnotix/registry/NameList.h"

#include <climits>

#include <algorithm>
#include <cstdlib>
#include <string>

using namespace Varnotix;

namespace
{

/// Cuts the text up to the next comma off the front of the line.
std::string_view TakeField(std::string_view& line)
{
    const std::size_t comma = line.find(',');
    const std::string_view field = line.substr(0, comma);
    line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
    return TrimBlanks(field);
}

std::string UpperKey(std::string_view group, std::string_view element)
{
    std::string key;
    key.reserve(group.size() + element.size());
    key.append(group).append(element);
    std::transform(key.begin(), key.end(), key.begin(), Upper);
    return key;
}

/// What the VR field says beyond the VR code.
Varnotix::EVrChoice ChoiceOf(std::string_view vr)
{
    using Varnotix::EVrChoice;
    if (vr.size() <= 2)
    {
        return EVrChoice::None;
    }
    const CString text(vr);
    if (text.CompareNoCase("usss") == 0)
    {
        return EVrChoice::UsOrSs;
    }
    if (text.CompareNoCase("obow") == 0)
    {
        return EVrChoice::ObOrOw;
    }
    return text.CompareNoCase("usssow") == 0 ? EVrChoice::UsOrSsOrOw : EVrChoice::None;
}

/// Takes over what the list in brackets after the name says: a later VR, a keyword.
void ReadBrackets(std::string_view rest, CDcmEntry& entry)
{
    const std::size_t open = rest.find('[');
    const std::size_t close = rest.find(']');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
    {
        return;
    }
    std::string_view list = rest.substr(open + 1, close - open - 1);
    while (!list.empty())
    {
        const std::string_view word = TakeField(list);
        if (word.size() == 2)
        {
            entry.laterVr = LaterVrOfBytes(static_cast<BYTE>(word[0]), static_cast<BYTE>(word[1]));
        }
        else
        {
            entry.keyword = CString(word);
        }
    }
}

} // namespace

int LeadingNumber(std::string_view text, int otherwise)
{
    const std::string digits(text);
    char* end = nullptr;
    // A long has 32 bits on one system and 64 on another.
    const long long number = std::strtoll(digits.c_str(), &end, 10);
    return end == digits.c_str() ? otherwise : static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
}

void AddDictionaryLine(std::string_view line, CEntryTable& dictionary)
{
    if (line.empty())
    {
        return;
    }
    line = TrimBlanks(line);
    if (!line.empty() && line.front() == '#')
    {
        return;
    }
    const std::string_view group = TakeField(line);
    const std::string_view element = TakeField(line);
    const std::string_view vr = TakeField(line);
    const std::string_view multiplicity = TakeField(line);
    const std::string_view name = TakeField(line);
    const std::string key = UpperKey(group, element);
    if (dictionary.Find(key) == nullptr)
    {
        auto entry = std::make_unique<CDcmEntry>(VrCode(vr), LeadingNumber(multiplicity, 1), CString(name));
        entry->choice = ChoiceOf(vr);
        ReadBrackets(line, *entry);
        dictionary.Add(key, std::move(entry));
    }
}

CString DictionaryLine(std::string_view key, const CDcmEntry& entry)
{
    constexpr std::size_t kGroupLength = 4;
    std::string group(key.substr(0, kGroupLength));
    if (group.size() == kGroupLength && group.compare(2, 2, "XX") == 0)
    {
        group.replace(2, 2, "00");
    }
    const std::string element(key.size() > kGroupLength ? key.substr(kGroupLength) : std::string_view());
    CString line;
    line.Format("%s,%s,%s,%d,", group.c_str(), element.c_str(), VrText(static_cast<int>(entry.vr)), entry.multiplicity);
    line += entry.name;
    line += entry.retired != 0 ? ",ret" : ",";
    return line;
}

void AddUidLine(std::string_view line, CNameList& uids, CNameList& names)
{
    if (!line.empty())
    {
        const std::size_t blank = line.find(' ');
        uids.Add(CString(TrimBlanks(line.substr(0, blank))));
        names.Add(CString(TrimBlanks(blank == std::string_view::npos ? std::string_view() : line.substr(blank))));
    }
}
