#include "text/TextDecoder.h"

#include "text/CodeExtension.h"

#include <algorithm>

namespace
{

constexpr char kEscapeCharacter = '\x1B';

bool IsLower(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

} // namespace

CTextDecoder::CTextDecoder(const CCharacterSet& set, std::string_view bytes, std::string_view vr)
    : m_set(set),
      m_active(set.m_initial),
      m_rest(bytes),
      m_hasManyValues(CCharacterSet::HasManyValues(vr)),
      m_isName(vr == "PN")
{
}

SDecodedText CTextDecoder::Run()
{
    m_text.values.emplace_back();
    m_text.values.back().reserve(m_rest.size());
    const ECodeSet set = m_set.m_initial.lower;
    const bool isWhole = set == ECodeSet::Utf8 || set == ECodeSet::Gb18030 || set == ECodeSet::Gbk;
    while (!m_rest.empty())
    {
        if (isWhole)
        {
            TakeWhole();
        }
        else
        {
            TakeExtended();
        }
    }
    return std::move(m_text);
}

/// Takes a character of an encoding that has codes of several sizes.
void CTextDecoder::TakeWhole()
{
    if (TakeDelimiter())
    {
        return;
    }
    if (m_set.IsUtf8())
    {
        char32_t character = 0;
        m_text.replaced += TakeUtf8(m_rest, character) ? 0 : 1;
        AppendUtf8(m_text.values.back(), character);
        return;
    }
    if (IsLower(m_rest.front()))
    {
        AppendUtf8(m_text.values.back(), static_cast<unsigned char>(m_rest.front()));
        m_rest.remove_prefix(1);
        return;
    }
    const std::size_t size = SizeOfChineseCode();
    const char32_t character = CharacterOf(m_set.m_initial.lower, m_rest.substr(0, size));
    m_rest.remove_prefix(character != 0 ? size : 1);
    Append(character);
}

/// GB18030 has codes of four bytes, whose second one is a digit.
std::size_t CTextDecoder::SizeOfChineseCode() const
{
    const bool isLong =
        m_set.m_initial.lower == ECodeSet::Gb18030 && m_rest.size() > 1 && m_rest[1] >= '0' && m_rest[1] <= '9';
    return std::min<std::size_t>(isLong ? 4 : 2, m_rest.size());
}

/// Takes a character, or an escape sequence, of the sets that are active.
void CTextDecoder::TakeExtended()
{
    if (m_set.m_hasExtensions && m_rest.front() == kEscapeCharacter)
    {
        if (const SEscape* escape = EscapeAt(m_rest))
        {
            (escape->isUpper ? m_active.upper : m_active.lower) = escape->set;
            m_rest.remove_prefix(escape->sequence.size());
            return;
        }
    }
    if (TakeControl() || (WidthOf(m_active.lower) == 1 && TakeDelimiter()))
    {
        return;
    }
    TakeCode(IsLower(m_rest.front()) ? m_active.lower : m_active.upper);
}

/// Takes a character that ends a value, or a part of a name.
bool CTextDecoder::TakeDelimiter()
{
    const char c = m_rest.front();
    if (!(c == '\\' && m_hasManyValues) && !((c == '^' || c == '=') && m_isName))
    {
        return false;
    }
    m_active = m_set.m_initial;
    if (c == '\\')
    {
        m_text.values.emplace_back();
    }
    else
    {
        m_text.values.back() += c;
    }
    m_rest.remove_prefix(1);
    return true;
}

/// Takes a blank or a control character, which every set has.
bool CTextDecoder::TakeControl()
{
    const char c = m_rest.front();
    if (!IsLower(c) || (c > ' ' && c != '\x7F'))
    {
        return false;
    }
    if (c < ' ')
    {
        m_active = m_set.m_initial;
    }
    m_text.values.back() += c;
    m_rest.remove_prefix(1);
    return true;
}

void CTextDecoder::TakeCode(ECodeSet set)
{
    std::string code(m_rest.substr(0, static_cast<std::size_t>(WidthOf(set))));
    if (WidthOf(set) == 2)
    {
        for (char& c : code)
        {
            c = static_cast<char>(static_cast<unsigned char>(c) | 0x80U);
        }
    }
    const bool isWhole = set != ECodeSet::None && code.size() == static_cast<std::size_t>(WidthOf(set)) &&
                         std::all_of(m_rest.begin(), m_rest.begin() + static_cast<std::ptrdiff_t>(code.size()),
                                     [this](char c) { return IsLower(c) == IsLower(m_rest.front()); });
    const char32_t character = isWhole ? CharacterOf(set, code) : 0;
    m_rest.remove_prefix(character != 0 ? code.size() : 1);
    Append(character);
}

void CTextDecoder::Append(char32_t character)
{
    m_text.replaced += character == 0 ? 1 : 0;
    AppendUtf8(m_text.values.back(), character == 0 ? kReplacement : character);
}
