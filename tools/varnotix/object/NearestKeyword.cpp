#include "object/NearestKeyword.h"

#include "console/NearestWord.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace
{

/// The first step of the path that is a word without being a keyword; empty when there is none.
std::string_view FirstUnknownWord(std::string_view text)
{
    const auto isLetter = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    while (!text.empty())
    {
        const auto end = std::find_if_not(text.begin(), text.end(), isLetter);
        const std::string_view word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        const bool isWord = !word.empty() && std::isalpha(static_cast<unsigned char>(word.front())) != 0;
        if (isWord && !Varnotix::CElementPath::Parse(word))
        {
            return word;
        }
        // A creator in quotation marks may hold any character.
        bool isQuoted = false;
        const auto step =
            std::find_if(text.begin(), text.end(),
                         [&](char c)
                         {
                             isQuoted = isQuoted != (c == '"');
                             return !isQuoted && std::string_view(".=!<>~").find(c) != std::string_view::npos;
                         });
        const bool hasNext = step != text.end() && *step == '.';
        text = hasNext ? text.substr(static_cast<std::size_t>(step - text.begin()) + 1) : std::string_view();
    }
    return text;
}

} // namespace

CString NearestKeywordHint(std::string_view text)
{
    const std::string_view unknown = FirstUnknownWord(text);
    if (unknown.empty())
    {
        return CString();
    }
    CStringArray lines;
    CDcmRegistry::Global().ExportPublicDictionary(lines);
    std::vector<std::string> keywords;
    for (const CString& line : lines)
    {
        constexpr std::size_t kNumber = 4; // A line begins with "gggg,eeee,".
        const std::string_view view = line.View();
        const std::optional<DWORD> tag =
            Varnotix::Tag::Parse(view.substr(0, kNumber), view.substr(kNumber + 1, kNumber));
        const CString keyword = tag ? Varnotix::KeywordOf(*tag) : CString();
        if (!keyword.IsEmpty())
        {
            keywords.emplace_back(keyword.View());
        }
    }
    const CString nearest(std::string_view(NearestWord(unknown, keywords)));
    return nearest.IsEmpty() ? CString() : "; the keyword nearest to '" + CString(unknown) + "' is '" + nearest + "'";
}
