#include "text/CodeExtension.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace
{

constexpr std::array<SEscape, 18> kEscapes = {{{"\x1B(B", ECodeSet::Ascii, false},
                                               {"\x1B(J", ECodeSet::Roman, false},
                                               {"\x1B)I", ECodeSet::Katakana, true},
                                               {"\x1B-A", ECodeSet::Latin1, true},
                                               {"\x1B-B", ECodeSet::Latin2, true},
                                               {"\x1B-C", ECodeSet::Latin3, true},
                                               {"\x1B-D", ECodeSet::Latin4, true},
                                               {"\x1B-L", ECodeSet::Cyrillic, true},
                                               {"\x1B-G", ECodeSet::Arabic, true},
                                               {"\x1B-F", ECodeSet::Greek, true},
                                               {"\x1B-H", ECodeSet::Hebrew, true},
                                               {"\x1B-M", ECodeSet::Latin5, true},
                                               {"\x1B-b", ECodeSet::Latin9, true},
                                               {"\x1B-T", ECodeSet::Thai, true},
                                               {"\x1B$B", ECodeSet::Kanji, false},
                                               {"\x1B$(D", ECodeSet::Kanji2, false},
                                               {"\x1B$)C", ECodeSet::Korean, true},
                                               {"\x1B$)A", ECodeSet::Chinese, true}}};

struct STerm
{
    std::string_view number;
    ECodeSet lower;
    ECodeSet upper;
    bool needsExtensions; ///< Only the form with "ISO 2022" is a term.
};

constexpr std::array<STerm, 18> kTerms = {{{"6", ECodeSet::Ascii, ECodeSet::None, false},
                                           {"100", ECodeSet::Ascii, ECodeSet::Latin1, false},
                                           {"101", ECodeSet::Ascii, ECodeSet::Latin2, false},
                                           {"109", ECodeSet::Ascii, ECodeSet::Latin3, false},
                                           {"110", ECodeSet::Ascii, ECodeSet::Latin4, false},
                                           {"144", ECodeSet::Ascii, ECodeSet::Cyrillic, false},
                                           {"127", ECodeSet::Ascii, ECodeSet::Arabic, false},
                                           {"126", ECodeSet::Ascii, ECodeSet::Greek, false},
                                           {"138", ECodeSet::Ascii, ECodeSet::Hebrew, false},
                                           {"148", ECodeSet::Ascii, ECodeSet::Latin5, false},
                                           {"203", ECodeSet::Ascii, ECodeSet::Latin9, false},
                                           {"13", ECodeSet::Roman, ECodeSet::Katakana, false},
                                           {"166", ECodeSet::Ascii, ECodeSet::Thai, false},
                                           {"192", ECodeSet::Utf8, ECodeSet::None, false},
                                           {"87", ECodeSet::Kanji, ECodeSet::None, true},
                                           {"159", ECodeSet::Kanji2, ECodeSet::None, true},
                                           {"149", ECodeSet::Ascii, ECodeSet::Korean, true},
                                           {"58", ECodeSet::Ascii, ECodeSet::Chinese, true}}};

} // namespace

const SEscape* EscapeAt(std::string_view text)
{
    const auto found = std::find_if(kEscapes.begin(), kEscapes.end(),
                                    [text](const SEscape& escape) { return text.starts_with(escape.sequence); });
    return found != kEscapes.end() ? &*found : nullptr;
}

const SEscape* EscapeOf(ECodeSet set)
{
    const auto found =
        std::find_if(kEscapes.begin(), kEscapes.end(), [set](const SEscape& escape) { return escape.set == set; });
    return found != kEscapes.end() ? &*found : nullptr;
}

bool FindTerm(std::string_view term, STermSets& sets)
{
    std::string form;
    for (const char c : term)
    {
        if (c != ' ' && c != '-' && c != '_')
        {
            form += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
    }
    if (form == "GB18030" || form == "GBK")
    {
        sets = {form == "GBK" ? ECodeSet::Gbk : ECodeSet::Gb18030, ECodeSet::None, false};
        return true;
    }
    constexpr std::string_view kPlain = "ISOIR";
    constexpr std::string_view kExtended = "ISO2022IR";
    const bool isExtended = form.starts_with(kExtended);
    if (!isExtended && !form.starts_with(kPlain))
    {
        return false;
    }
    const std::string_view number = std::string_view(form).substr(isExtended ? kExtended.size() : kPlain.size());
    const auto found =
        std::find_if(kTerms.begin(), kTerms.end(), [number](const STerm& row) { return row.number == number; });
    if (found == kTerms.end() || (found->needsExtensions && !isExtended))
    {
        return false;
    }
    sets = {found->lower, found->upper, isExtended};
    return true;
}
