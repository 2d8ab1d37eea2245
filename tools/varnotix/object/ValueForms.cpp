#include "object/ValueForms.h"

#include <algorithm>
#include <string>

namespace
{

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view TrimSpaces(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view TrimEnd(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Takes parts of a value from its beginning.
class CFormReader
{
public:
    explicit CFormReader(std::string_view text) : m_rest(text) {}

    bool IsAtEnd() const { return m_rest.empty(); }

    bool Take(char character)
    {
        const bool taken = !m_rest.empty() && m_rest.front() == character;
        m_rest.remove_prefix(taken ? 1 : 0);
        return taken;
    }

    void TakeSign()
    {
        if (!Take('-'))
        {
            Take('+');
        }
    }

    /// How many digits there are; they are taken.
    std::size_t Digits()
    {
        const std::size_t count =
            static_cast<std::size_t>(std::find_if_not(m_rest.begin(), m_rest.end(), &IsDigit) - m_rest.begin());
        m_rest.remove_prefix(count);
        return count;
    }

    /// Takes a number of so many digits from a range.
    bool Number(std::size_t digits, int least, int most)
    {
        const std::string_view text = m_rest.substr(0, digits);
        if (text.size() != digits || !std::all_of(text.begin(), text.end(), &IsDigit))
        {
            return false;
        }
        m_number = 0;
        for (const char digit : text)
        {
            m_number = m_number * 10 + (digit - '0');
        }
        m_rest.remove_prefix(digits);
        return m_number >= least && m_number <= most;
    }

    /// Takes year, month and day.
    bool Date(std::string_view separator)
    {
        if (!Number(4, 0, 9999) || !Skip(separator))
        {
            return false;
        }
        const int year = m_number;
        if (!Number(2, 1, 12) || !Skip(separator))
        {
            return false;
        }
        constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        const int days = m_number == 2 && isLeap ? 29 : kDays[m_number - 1];
        return Number(2, 1, days);
    }

    /// Takes hours, and minutes, seconds and fraction as far as there are any.
    bool Time(std::string_view separator)
    {
        constexpr int kLeapSecond = 60;
        if (!Number(2, 0, 23))
        {
            return false;
        }
        for (const int most : {59, kLeapSecond})
        {
            if (!StartsWithDigit(separator))
            {
                return true;
            }
            if (!Skip(separator) || !Number(2, 0, most))
            {
                return false;
            }
        }
        if (!Take('.'))
        {
            return true;
        }
        const std::size_t digits = Digits();
        return digits >= 1 && digits <= 6;
    }

    /// Takes an offset from UTC.
    bool Zone()
    {
        constexpr int kWest = 1200;
        constexpr int kEast = 1400;
        const bool isEast = Take('+');
        return (isEast || Take('-')) && Number(4, 0, isEast ? kEast : kWest) && m_number % 100 < 60;
    }

private:
    bool Skip(std::string_view separator)
    {
        const bool skipped = m_rest.substr(0, separator.size()) == separator;
        m_rest.remove_prefix(skipped ? separator.size() : 0);
        return skipped;
    }

    bool StartsWithDigit(std::string_view separator) const
    {
        return !m_rest.empty() && (separator.empty() ? IsDigit(m_rest.front()) : m_rest.front() == separator.front());
    }

    std::string_view m_rest;
    int m_number = 0;
};

bool IsDate(std::string_view value, std::string_view separator)
{
    CFormReader reader(TrimEnd(value));
    return reader.Date(separator) && reader.IsAtEnd();
}

bool IsTime(std::string_view value, std::string_view separator)
{
    CFormReader reader(TrimEnd(value));
    return reader.Time(separator) && reader.IsAtEnd();
}

/// Year, then month, day and time as far as there are any, and the offset.
bool IsDateTime(std::string_view value)
{
    value = TrimEnd(value);
    const std::size_t end = std::min(value.find_first_of("+-"), value.size());
    const std::string_view local = value.substr(0, end);
    CFormReader zone(value.substr(end));
    if (end < value.size() && !(zone.Zone() && zone.IsAtEnd()))
    {
        return false;
    }
    CFormReader reader(local);
    if (local.size() < 8)
    {
        return reader.Number(4, 0, 9999) && (reader.IsAtEnd() || reader.Number(2, 1, 12)) && reader.IsAtEnd();
    }
    return reader.Date("") && (reader.IsAtEnd() || reader.Time("")) && reader.IsAtEnd();
}

CString Unless(bool hasForm, const char* fault)
{
    return hasForm ? CString() : CString(fault);
}

} // namespace

CString FaultOfTitle(std::string_view value)
{
    const bool isText = std::all_of(value.begin(), value.end(), [](char c) { return c >= ' ' && c <= '~'; });
    if (!isText)
    {
        return "has characters that an application entity title cannot have";
    }
    return Unless(!TrimSpaces(value).empty(), "is an application entity title of blanks only");
}

CString FaultOfAge(std::string_view value)
{
    CFormReader reader(value);
    const bool isAge = reader.Digits() == 3 && value.size() == 4 && value.find_first_of("DWMY") == 3;
    return Unless(isAge, "is not an age (nnnD, nnnW, nnnM or nnnY)");
}

CString FaultOfCode(std::string_view value)
{
    const auto isAllowed = [](char c) { return (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' || c == ' '; };
    return Unless(std::all_of(value.begin(), value.end(), isAllowed),
                  "has other characters than capital letters, digits, blank and underline");
}

CString FaultOfDate(std::string_view value)
{
    return Unless(IsDate(value, ""), "is not a date (YYYYMMDD)");
}

CString FaultOfDecimal(std::string_view value)
{
    CFormReader reader(TrimSpaces(value));
    reader.TakeSign();
    std::size_t digits = reader.Digits();
    digits += reader.Take('.') ? reader.Digits() : 0;
    bool isNumber = digits > 0;
    if (reader.Take('E') || reader.Take('e'))
    {
        reader.TakeSign();
        isNumber = isNumber && reader.Digits() > 0;
    }
    return Unless(isNumber && reader.IsAtEnd(), "is not a decimal number");
}

CString FaultOfDateTime(std::string_view value)
{
    return Unless(IsDateTime(value), "is not a date and time (YYYYMMDDHHMMSS.FFFFFF+ZZXX)");
}

CString FaultOfInteger(std::string_view value)
{
    const std::string_view text = TrimSpaces(value);
    CFormReader reader(text);
    reader.TakeSign();
    if (reader.Digits() == 0 || !reader.IsAtEnd())
    {
        return "is not a whole number";
    }
    // At most 12 characters: no overflow.
    const long long number = std::stoll(std::string(text));
    constexpr long long kLimit = 1LL << 31;
    return Unless(number >= -kLimit && number < kLimit, "is out of range (-2147483648 to 2147483647)");
}

CString FaultOfTime(std::string_view value)
{
    return Unless(IsTime(value, ""), "is not a time (HHMMSS.FFFFFF)");
}

CString FaultOfUid(std::string_view value)
{
    CFormReader reader(value);
    std::string_view rest = value;
    int components = 0;
    do
    {
        ++components;
        const bool startsWithZero = !rest.empty() && rest.front() == '0';
        const std::size_t digits = reader.Digits();
        if (digits == 0)
        {
            return "is not a UID (digits with points between them)";
        }
        if (startsWithZero && digits > 1)
        {
            return "is not a UID: a component begins with 0";
        }
        rest.remove_prefix(std::min(digits + 1, rest.size()));
    } while (reader.Take('.'));
    if (reader.IsAtEnd() && (components == 1 || value[0] > '2' || value[1] != '.'))
    {
        // PS3.5 section 9.1: a root that ISO 9834-1 registers, which begins with 0, 1 or 2, and a suffix.
        return "is not a UID: it has no registered root";
    }
    return Unless(reader.IsAtEnd(), "is not a UID (digits with points between them)");
}

CString FaultOfUri(std::string_view value)
{
    if (value.front() == ' ')
    {
        return "begins with a blank";
    }
    const auto isAllowed = [](char c)
    { return c > ' ' && c < 0x7F && std::string_view("\"<>\\^`{|}").find(c) == std::string_view::npos; };
    return Unless(std::all_of(value.begin(), value.end(), isAllowed), "has characters that a URI cannot have");
}

bool IsOlderForm(std::string_view vr, std::string_view value)
{
    return (vr == "DA" && IsDate(value, ".")) || (vr == "TM" && IsTime(value, ":"));
}

CString Quoted(std::string_view value)
{
    constexpr std::size_t kShown = 40;
    std::string shown(value.substr(0, kShown));
    std::replace_if(
        shown.begin(), shown.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) >= 0x7F; }, '.');
    shown += value.size() > kShown ? "..." : "";
    return CString("'") + shown.c_str() + "'";
}
