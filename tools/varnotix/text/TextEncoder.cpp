#include "text/TextEncoder.h"

#include "text/CodeExtension.h"

#include <algorithm>

namespace
{

/// Sets that take the codes below 80H have the high bit of these taken away.
std::string LowerForm(std::string code)
{
    for (char& c : code)
    {
        c = static_cast<char>(c & 0x7F);
    }
    return code;
}

} // namespace

CTextEncoder::CTextEncoder(const CCharacterSet& set, std::string_view text, std::string_view vr)
    : m_set(set),
      m_active(set.m_initial),
      m_rest(text),
      m_hasManyValues(CCharacterSet::HasManyValues(vr)),
      m_isName(vr == "PN")
{
}

SEncodedText CTextEncoder::Run()
{
    const std::size_t size = m_rest.size();
    while (!m_rest.empty())
    {
        const std::size_t offset = size - m_rest.size();
        char32_t character = 0;
        if (!TakeUtf8(m_rest, character))
        {
            CString reason;
            reason.Format("the text is not UTF-8: byte %02X at offset %lu",
                          static_cast<unsigned>(static_cast<unsigned char>(*(m_rest.data() - 1))),
                          static_cast<unsigned long>(offset));
            return {{}, reason};
        }
        if (!Put(character))
        {
            return {{}, ReasonAgainst(character), true};
        }
    }
    Reset();
    return {std::move(m_bytes), CString()};
}

bool CTextEncoder::Put(char32_t character)
{
    if (m_set.IsUtf8())
    {
        AppendUtf8(m_bytes, character);
        return true;
    }
    if (character == 0x1B && m_set.m_hasExtensions)
    {
        return false; // It would begin an escape sequence.
    }
    if (Ends(character))
    {
        Reset();
        m_bytes += static_cast<char>(character);
        return true;
    }
    // Codes that the decoder takes for the end of a value.
    const bool isYenSign = character == 0xA5 && m_active.lower == ECodeSet::Roman && m_hasManyValues;
    if (character == ' ' || character == 0x7F)
    {
        LeavePairs();
        m_bytes += static_cast<char>(character);
        return true;
    }
    const ECodeSet whole = m_set.m_initial.lower;
    if (whole == ECodeSet::Gb18030 || whole == ECodeSet::Gbk)
    {
        const std::string code = CodeOf(whole, character);
        m_bytes += code;
        return !code.empty();
    }
    if (!isYenSign && PutFromSet(m_active.lower, character))
    {
        return true;
    }
    if (PutFromSet(m_active.upper, character))
    {
        return true;
    }
    return m_set.m_hasExtensions &&
           std::any_of(m_set.m_sets.begin(), m_set.m_sets.end(),
                       [&](ECodeSet set)
                       { return !(isYenSign && set == ECodeSet::Roman) && PutFromSet(set, character); });
}

/// Puts a character of a set, which becomes active.
bool CTextEncoder::PutFromSet(ECodeSet set, char32_t character)
{
    const std::string code = set != ECodeSet::None ? CodeOf(set, character) : std::string();
    if (code.empty())
    {
        return false;
    }
    const SEscape* escape = EscapeOf(set);
    const bool isUpper = escape != nullptr && escape->isUpper;
    if (isUpper)
    {
        LeavePairs();
    }
    else if (WidthOf(set) == 2)
    {
        Activate(m_active.upper, m_set.m_initial.upper);
    }
    Activate(isUpper ? m_active.upper : m_active.lower, set);
    m_bytes += isUpper ? code : LowerForm(code);
    return true;
}

/// Many decoders know one set between two escape sequences only, and no blanks in one of two bytes per character.
void CTextEncoder::LeavePairs()
{
    if (WidthOf(m_active.lower) == 2)
    {
        Activate(m_active.lower, m_set.m_initial.lower);
    }
}

void CTextEncoder::Activate(ECodeSet& active, ECodeSet set)
{
    const SEscape* escape = EscapeOf(set);
    if (active != set && escape != nullptr)
    {
        m_bytes += escape->sequence;
    }
    active = set;
}

/// The sets of the first term are active wherever a value, or a part of one, begins and ends.
void CTextEncoder::Reset()
{
    Activate(m_active.lower, m_set.m_initial.lower);
    Activate(m_active.upper, m_set.m_initial.upper);
}

bool CTextEncoder::Ends(char32_t character) const
{
    return character < ' ' || (character == '\\' && m_hasManyValues) ||
           ((character == '^' || character == '=') && m_isName);
}

CString CTextEncoder::ReasonAgainst(char32_t character) const
{
    std::string shown;
    AppendUtf8(shown, character);
    CString code;
    code.Format("U+%04lX", static_cast<unsigned long>(character));
    return "'" + CString(std::string_view(shown)) + "' (" + code + ") is not in the character set of the text, " +
           (m_set.Terms().empty() ? CString("ASCII") : CString(std::string_view(m_set.Terms())));
}
