/// Conditions that files must meet to be listed.
#pragma once

#include "table/Cell.h"

#include <memory>
#include <optional>

/// "Modality=MR": a path, an operator and what to compare with.
///
/// "=" and "<" and the like compare numbers where both sides are numbers, and texts otherwise; "~" searches for a
/// regular expression (that of ECMAScript) in the first kilobyte of a value. One of several values is enough, but for
/// "!=", which none may equal. An attribute without value is an empty text.
class CCondition
{
public:
    /// @param fault receives the reason when the text is not a condition.
    static std::optional<CCondition> Parse(std::string_view text, CString& fault);

    const Varnotix::CElementPath& Path() const { return m_path; }
    bool IsMetBy(CDcmElementSet& store) const;

private:
    struct SPattern;

    bool Matches(const std::string& value) const;
    std::optional<int> Order(const std::string& value) const;

    Varnotix::CElementPath m_path;
    std::string m_operator;
    std::string m_operand;
    std::shared_ptr<const SPattern> m_pattern; // Of "~".
};
