#include "table/Condition.h"

#include "object/Attributes.h"
#include "object/NearestKeyword.h"

#include <algorithm>
#include <array>
#include <regex>

// The search of the standard library calls itself for each character.
constexpr std::size_t kSearched = 1000;

struct CCondition::SPattern
{
    std::regex expression;
};

namespace
{

constexpr std::array<std::string_view, 8> kOperators = {"!=", "<=", ">=", "==", "=", "<", ">", "~"};

std::string Trimmed(std::string_view text)
{
    CString trimmed(text);
    trimmed.Trim();
    return std::string(trimmed.View());
}

/// Where the path ends; a private creator may hold any character.
std::size_t FindOperator(std::string_view text)
{
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        isQuoted = isQuoted != (text[i] == '"');
        if (!isQuoted && std::string_view("!<>=~").find(text[i]) != std::string_view::npos)
        {
            return i;
        }
    }
    return std::string_view::npos;
}

} // namespace

std::optional<CCondition> CCondition::Parse(std::string_view text, CString& fault)
{
    const std::size_t place = FindOperator(text);
    const auto found = place == std::string_view::npos
                           ? kOperators.end()
                           : std::find_if(kOperators.begin(), kOperators.end(),
                                          [&](std::string_view each) { return text.substr(place).starts_with(each); });
    if (found == kOperators.end())
    {
        fault = "there is no operator in it: =, !=, <, <=, >, >= or ~";
        return std::nullopt;
    }
    CCondition condition;
    const std::optional<Varnotix::CElementPath> path = Varnotix::CElementPath::Parse(text.substr(0, place));
    if (!path.has_value())
    {
        fault = "'" + CString(text.substr(0, place)) + "' is not an attribute" + NearestKeywordHint(text);
        return std::nullopt;
    }
    condition.m_path = *path;
    condition.m_operator = *found;
    condition.m_operand = Trimmed(text.substr(place + found->size()));
    if (condition.m_operator == "~")
    {
        try
        {
            condition.m_pattern = std::make_shared<SPattern>(SPattern{std::regex(condition.m_operand)});
        }
        catch (const std::regex_error&)
        {
            fault = "'" + CString(std::string_view(condition.m_operand)) + "' is not a regular expression";
            return std::nullopt;
        }
    }
    return condition;
}

bool CCondition::IsMetBy(CDcmElementSet& store) const
{
    SCell cell = CellOf(store, m_path);
    if (cell.values.empty())
    {
        cell.values.emplace_back();
    }
    const bool matches = std::any_of(cell.values.begin(), cell.values.end(),
                                     [this](const std::string& value) { return Matches(value); });
    return m_operator == "!=" ? !matches : matches;
}

/// For "!=": whether the value equals the operand.
bool CCondition::Matches(const std::string& value) const
{
    if (m_pattern)
    {
        return std::regex_search(value.substr(0, kSearched), m_pattern->expression);
    }
    const std::optional<int> order = Order(value);
    if (!order.has_value())
    {
        return false;
    }
    const bool isLess = *order < 0;
    const bool isEqual = *order == 0;
    if (m_operator == "<" || m_operator == "<=")
    {
        return isLess || (isEqual && m_operator == "<=");
    }
    if (m_operator == ">" || m_operator == ">=")
    {
        return (!isLess && !isEqual) || (isEqual && m_operator == ">=");
    }
    return isEqual;
}

/// @return below, at or above 0 as the value is less than the operand, equal or greater; nothing for an empty value,
///         which is neither less nor greater than another one.
std::optional<int> CCondition::Order(const std::string& value) const
{
    if (value.empty() != m_operand.empty() && m_operator.front() != '=' && m_operator.front() != '!')
    {
        return std::nullopt;
    }
    const std::optional<double> left = DecimalNumber(CString(std::string_view(value)));
    const std::optional<double> right = DecimalNumber(CString(std::string_view(m_operand)));
    if (left.has_value() && right.has_value())
    {
        return *left < *right ? -1 : *left > *right ? 1 : 0;
    }
    return value.compare(m_operand);
}
