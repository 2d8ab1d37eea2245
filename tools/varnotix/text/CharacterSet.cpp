#include "text/CharacterSet.h"

#include "text/CodeExtension.h"
#include "text/TextDecoder.h"
#include "text/TextEncoder.h"

#include <algorithm>
#include <array>

namespace
{

constexpr DWORD kSpecificCharacterSet = 0x00080005;

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks(" \t\r\n\0", 5);
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

template <std::size_t COUNT>
bool IsAmong(std::string_view vr, const std::array<std::string_view, COUNT>& vrs)
{
    return std::find(vrs.begin(), vrs.end(), vr) != vrs.end();
}

} // namespace

std::string SDecodedText::Joined() const
{
    std::string text = values.front();
    for (std::size_t i = 1; i < values.size(); ++i)
    {
        text += '\\' + values[i];
    }
    return text;
}

CCharacterSet::CCharacterSet(std::string_view terms)
{
    const auto add = [this](ECodeSet set)
    {
        if (set != ECodeSet::None && std::find(m_sets.begin(), m_sets.end(), set) == m_sets.end())
        {
            m_sets.push_back(set);
        }
    };
    bool isFirst = true;
    for (std::string_view rest = terms; isFirst || !rest.empty();)
    {
        const std::size_t end = std::min(rest.find('\\'), rest.size());
        const std::string term(Trimmed(rest.substr(0, end)));
        const bool hasMore = end < rest.size();
        rest.remove_prefix(hasMore ? end + 1 : end);

        STermSets sets{ECodeSet::Ascii, ECodeSet::None, false};
        if (!term.empty() && !FindTerm(term, sets) && m_unknown.empty())
        {
            m_unknown = term;
        }
        m_terms += (isFirst ? "" : "\\") + term;
        m_hasExtensions = m_hasExtensions || sets.hasExtensions || (isFirst && hasMore);
        add(sets.lower);
        add(sets.upper);
        if (isFirst)
        {
            // Two bytes per character below 80H would leave no codes for the delimiters of values.
            m_initial = {WidthOf(sets.lower) == 2 ? ECodeSet::Ascii : sets.lower, sets.upper};
            add(m_initial.lower);
        }
        isFirst = false;
    }
    const bool isWhole =
        m_initial.lower == ECodeSet::Utf8 || m_initial.lower == ECodeSet::Gb18030 || m_initial.lower == ECodeSet::Gbk;
    m_hasExtensions = m_hasExtensions && !isWhole;
}

CCharacterSet CCharacterSet::Of(const CDcmElementSet& set, int item, const CCharacterSet& around)
{
    const CDcmElement* own = item == 0 ? set.Find(kSpecificCharacterSet)
                                       : set.FindInItem(item, Varnotix::Tag::Group(kSpecificCharacterSet),
                                                        Varnotix::Tag::Element(kSpecificCharacterSet));
    return own != nullptr ? CCharacterSet(own->ValueBytes().View()) : around;
}

SDecodedText CCharacterSet::ToUtf8(std::string_view bytes, std::string_view vr) const
{
    static const CCharacterSet kDefault;
    return CTextDecoder(AppliesTo(vr) ? *this : kDefault, bytes, vr).Run();
}

SEncodedText CCharacterSet::FromUtf8(std::string_view text, std::string_view vr) const
{
    static const CCharacterSet kDefault;
    return CTextEncoder(AppliesTo(vr) ? *this : kDefault, text, vr).Run();
}

bool CCharacterSet::AppliesTo(std::string_view vr)
{
    return IsAmong(vr, std::array<std::string_view, 7>{"SH", "LO", "ST", "PN", "LT", "UC", "UT"});
}

bool CCharacterSet::HasManyValues(std::string_view vr)
{
    return !IsAmong(vr, std::array<std::string_view, 4>{"ST", "LT", "UT", "UR"});
}

std::string_view CCharacterSet::WithoutPadding(std::string_view value, std::string_view vr)
{
    constexpr std::string_view kPadding(" \0", 2);
    value = value.substr(0, value.find_last_not_of(kPadding) + 1);
    if (!IsAmong(vr, std::array<std::string_view, 5>{"LT", "ST", "UC", "UR", "UT"}))
    {
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    }
    return value;
}
