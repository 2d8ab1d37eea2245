#include "object/ValueRules.h"

#include "object/ValueForms.h"

#include <algorithm>
#include <array>

namespace
{

using ESeverity = SValueFault::ESeverity;

/// What PS3.5 table 6.2-1 says of a VR.
struct SVrRule
{
    enum class EKind
    {
        Ascii,    ///< Values of the default repertoire, with backslashes between them, each of a form.
        Language, ///< Values in the character set of the object.
        Binary    ///< Numbers of a width.
    };

    const char* letters;
    EKind kind;
    /// Of one value: bytes, of a language characters, of PN characters of a component group. Of numbers the width in
    /// bytes. 0: no limit.
    std::size_t size;
    CString (*form)(std::string_view); ///< Of EKind::Ascii; null for any text.
    bool isSingle = false; ///< The backslash is part of the value, or the field is one value of many numbers.
};

using EKind = SVrRule::EKind;

constexpr SVrRule kRules[] = {
    {"AE", EKind::Ascii, 16, &FaultOfTitle},
    {"AS", EKind::Ascii, 4, &FaultOfAge},
    {"AT", EKind::Binary, 4, nullptr},
    {"CS", EKind::Ascii, 16, &FaultOfCode},
    {"DA", EKind::Ascii, 10, &FaultOfDate}, // 8, but for the older form with points.
    {"DS", EKind::Ascii, 16, &FaultOfDecimal},
    {"DT", EKind::Ascii, 26, &FaultOfDateTime},
    {"FD", EKind::Binary, 8, nullptr},
    {"FL", EKind::Binary, 4, nullptr},
    {"IS", EKind::Ascii, 12, &FaultOfInteger},
    {"LO", EKind::Language, 64, nullptr},
    {"LT", EKind::Language, 10240, nullptr, true},
    {"OB", EKind::Binary, 1, nullptr, true},
    {"OD", EKind::Binary, 8, nullptr, true},
    {"OF", EKind::Binary, 4, nullptr, true},
    {"OL", EKind::Binary, 4, nullptr, true},
    {"OV", EKind::Binary, 8, nullptr, true},
    {"OW", EKind::Binary, 2, nullptr, true},
    {"PN", EKind::Language, 64, nullptr},
    {"SH", EKind::Language, 16, nullptr},
    {"SL", EKind::Binary, 4, nullptr},
    {"SS", EKind::Binary, 2, nullptr},
    {"ST", EKind::Language, 1024, nullptr, true},
    {"SV", EKind::Binary, 8, nullptr},
    {"TM", EKind::Ascii, 16, &FaultOfTime},
    {"UC", EKind::Language, 0, nullptr},
    {"UI", EKind::Ascii, 64, &FaultOfUid},
    {"UL", EKind::Binary, 4, nullptr},
    {"UR", EKind::Ascii, 0, &FaultOfUri, true},
    {"US", EKind::Binary, 2, nullptr},
    {"UT", EKind::Language, 0, nullptr, true},
    {"UV", EKind::Binary, 8, nullptr},
};

const SVrRule* RuleOf(std::string_view vr)
{
    const auto* rule =
        std::find_if(std::begin(kRules), std::end(kRules), [&](const SVrRule& row) { return row.letters == vr; });
    return rule != std::end(kRules) ? rule : nullptr;
}

/// A size for a format.
unsigned long long Number(std::size_t size)
{
    return size;
}

/// Characters of a UTF-8 text.
std::size_t CountCharacters(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t end = 0; end != std::string_view::npos;)
    {
        end = text.find(separator);
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return parts;
}

/// Checks one value field and collects its faults.
class CValueCheck
{
public:
    CValueCheck(const SVrRule& rule, const SMultiplicity& multiplicity) : m_rule(rule), m_multiplicity(multiplicity) {}

    std::vector<SValueFault> faults;

    void CheckNumbers(std::size_t size)
    {
        if (size % m_rule.size != 0)
        {
            Add(ESeverity::Error, 0, "%llu bytes are not a whole number of values of %llu bytes", Number(size),
                Number(m_rule.size));
        }
        CheckCount(m_rule.isSingle ? 1 : size / m_rule.size);
    }

    void CheckAscii(std::string_view bytes)
    {
        bytes = WithoutPadding(bytes, std::string_view(m_rule.letters) == "UI" ? '\0' : ' ');
        if (bytes.empty())
        {
            return;
        }
        const std::vector<std::string_view> values =
            m_rule.isSingle ? std::vector<std::string_view>{bytes} : Split(bytes, '\\');
        CheckCount(values.size());
        int number = 0;
        for (const std::string_view value : values)
        {
            ++number;
            if (m_rule.size != 0 && value.size() > m_rule.size)
            {
                AddTooLong(number, value.size(), "bytes");
            }
            else if (const CString fault = value.empty() ? CString() : m_rule.form(value); !fault.IsEmpty())
            {
                const bool isOld = IsOlderForm(m_rule.letters, value);
                faults.push_back({isOld ? ESeverity::Warning : ESeverity::Error, number, Quoted(value) + ' ' + fault});
            }
        }
    }

    void CheckLanguage(std::string_view bytes, const CCharacterSet& characters)
    {
        bytes = WithoutPadding(bytes, ' ');
        if (bytes.empty())
        {
            return;
        }
        const SDecodedText text = characters.ToUtf8(bytes, m_rule.letters);
        if (text.replaced > 0)
        {
            faults.push_back({ESeverity::Error, 0,
                              "it has bytes that are not characters of the Specific Character Set (0008,0005)"});
        }
        CheckCount(text.values.size());
        int number = 0;
        for (const std::string& value : text.values)
        {
            CheckText(value, ++number);
        }
    }

private:
    void CheckText(std::string_view value, int number)
    {
        const char* const allowed = m_rule.isSingle ? "\t\n\f\r\x1B" : "\x1B";
        const auto isForbidden = [&](char c)
        {
            const auto code = static_cast<unsigned char>(c);
            return (code < ' ' || code == 0x7F) && std::string_view(allowed).find(c) == std::string_view::npos;
        };
        if (const auto found = std::find_if(value.begin(), value.end(), isForbidden); found != value.end())
        {
            Add(ESeverity::Error, number, "there is a control character (%02XH) in it",
                static_cast<unsigned>(static_cast<unsigned char>(*found)));
        }
        if (std::string_view(m_rule.letters) == "PN")
        {
            CheckName(value, number);
        }
        else if (const std::size_t count = CountCharacters(value); m_rule.size != 0 && count > m_rule.size)
        {
            AddTooLong(number, count, "characters");
        }
    }

    /// PS3.5 section 6.2.1: up to three groups of up to five components.
    void CheckName(std::string_view value, int number)
    {
        const std::vector<std::string_view> groups = Split(value, '=');
        if (groups.size() > 3)
        {
            Add(ESeverity::Error, number, "%llu component groups are more than 3", Number(groups.size()));
        }
        for (const std::string_view group : groups)
        {
            if (const std::size_t count = CountCharacters(group); count > m_rule.size)
            {
                AddTooLong(number, count, "characters in a component group");
            }
            if (const std::size_t components = Split(group, '^').size(); components > 5)
            {
                Add(ESeverity::Error, number, "%llu components of a name are more than 5", Number(components));
            }
        }
    }

    /// A field without the character that makes its length even. Texts may end with further blanks, which do not count.
    std::string_view WithoutPadding(std::string_view bytes, char padding)
    {
        const std::size_t end = bytes.find_last_not_of(std::string_view("\0 ", 2));
        const std::string_view rest = bytes.substr(end == std::string_view::npos ? 0 : end + 1);
        const bool hasOther = rest.find(padding == ' ' ? '\0' : ' ') != std::string_view::npos;
        if (hasOther)
        {
            faults.push_back({ESeverity::Warning, 0,
                              padding == ' ' ? "it is padded with a zero byte instead of a blank"
                                             : "it is padded with a blank instead of a zero byte"});
        }
        // Of a UID one byte is padding; of more, the rest would be part of it.
        const bool keepsRest = padding == '\0' && rest.size() > 1;
        return keepsRest ? bytes : bytes.substr(0, bytes.size() - rest.size());
    }

    void CheckCount(std::size_t count)
    {
        if (!m_multiplicity.Allows(count))
        {
            CString what;
            what.Format(count == 1 ? "%llu value, where the multiplicity is "
                                   : "%llu values, where the multiplicity is ",
                        Number(count));
            faults.push_back({ESeverity::Error, 0, what + m_multiplicity.Text()});
        }
    }

    void AddTooLong(int number, std::size_t count, const char* unit)
    {
        Add(ESeverity::Error, number, "%llu %s are more than %llu", Number(count), unit, Number(m_rule.size));
    }

    template <class... ARGUMENTS>
    void Add(ESeverity severity, int number, const char* format, ARGUMENTS... arguments)
    {
        CString what;
        what.Format(format, arguments...);
        faults.push_back({severity, number, what});
    }

    const SVrRule& m_rule;
    const SMultiplicity& m_multiplicity;
};

} // namespace

std::vector<SValueFault> CheckValue(std::string_view vr, const SMultiplicity& multiplicity, std::string_view bytes,
                                    const CCharacterSet& characters)
{
    const SVrRule* rule = RuleOf(vr);
    if (rule == nullptr || bytes.empty())
    {
        return {};
    }
    CValueCheck check(*rule, multiplicity);
    switch (rule->kind)
    {
    case EKind::Ascii:
        check.CheckAscii(bytes);
        break;
    case EKind::Language:
        check.CheckLanguage(bytes, characters);
        break;
    case EKind::Binary:
        check.CheckNumbers(bytes.size());
        break;
    }
    return std::move(check.faults);
}

std::vector<SValueFault> CheckValue(const CDcmElement& element, const CCharacterSet& characters)
{
    return CheckValue(element.VrLetters(), MultiplicityOf(element.Tag()), element.ValueBytes().View(), characters);
}
