#include "Varnotix/asl/AslReader.h"

#include "Varnotix/platform/Object.h"

#include <algorithm>
#include <utility>

namespace Varnotix
{

namespace
{

constexpr std::string_view kSequenceBegin = "SEQUENCE_BEGIN";
constexpr std::string_view kSequenceEnd = "SEQUENCE_END";

bool IsEmptyOrComment(std::string_view text)
{
    return text.empty() || text.starts_with(';');
}

/// After the line of a sequence any command that contains the keyword opens the sequence.
bool OpensSequence(std::string_view text)
{
    return text.starts_with('#') && std::search(text.begin(), text.end(), kSequenceBegin.begin(), kSequenceBegin.end(),
                                                [](char character, char wanted) {
                                                    return EqualNoCase({&character, 1}, {&wanted, 1});
                                                }) != text.end();
}

/// True for the lines with which a document says what it is; those of a single set begin with the name of its class.
bool IsHeader(const SAslCommand& command)
{
    for (const std::string_view known :
         {"ATTRIBUTE_SET_BEGIN", "ATTRIBUTE_SET_END", "COUNT", "COUNT_ALL", "IOD_SYNTAX", "IOD_KIND"})
    {
        if (EqualNoCase(command.keyword, known))
        {
            return true;
        }
    }
    return command.keyword.starts_with("Attribute Script Language(ASL)") ||
           (command.argument.empty() && CRuntimeClass::FromName(CString(command.keyword)) != nullptr);
}

} // namespace

CAslReader::CAslReader(const CStringArray& lines, int first)
    : m_lines(lines), m_line(std::clamp(first, 0, lines.GetSize()))
{
}

std::optional<SAslEvent> CAslReader::Next()
{
    while (!m_isEnded && m_line < m_lines.GetSize())
    {
        const int line = m_line++;
        const std::string_view text = TextOf(line);
        const bool isAfterSequence = std::exchange(m_isAfterSequence, false);
        if (IsEmptyOrComment(text))
        {
            continue;
        }
        if (isAfterSequence)
        {
            return OpensSequence(text) ? OpenSequence(line) : SAslEvent{EAslEvent::LostLine, line};
        }
        return text.starts_with('#') ? ReadCommand(line, text) : ReadElement(line, text);
    }
    if (m_isEnded || m_begins.empty())
    {
        return std::nullopt;
    }
    const SAslEvent event{EAslEvent::MissingEnd, m_begins.back()};
    m_begins.pop_back();
    return event;
}

void CAslReader::GoOnAt(int line)
{
    m_isAfterSequence = false;
    if (!m_isEnded)
    {
        m_line = std::clamp(line, 0, m_lines.GetSize());
    }
}

std::string_view CAslReader::TextOf(int line) const
{
    return TrimBlanks(m_lines[line].CText());
}

SAslEvent CAslReader::ReadElement(int line, std::string_view text)
{
    SAslEvent event{EAslEvent::Element, line};
    event.element = SplitAslElement(text);
    event.isSequence = EqualNoCase(event.element.vr, "SQ");
    event.isOpened = event.isSequence && m_line < m_lines.GetSize() && OpensSequence(TextOf(m_line));
    m_isAfterSequence = event.isSequence;
    return event;
}

SAslEvent CAslReader::ReadCommand(int line, std::string_view text)
{
    SAslEvent event{EAslEvent::Command, line};
    event.command = SplitAslCommand(text);
    const std::string_view keyword = event.command.keyword;
    if (EqualNoCase(keyword, kSequenceBegin))
    {
        event.kind = EAslEvent::StrayBegin;
    }
    else if (EqualNoCase(keyword, kSequenceEnd) && m_begins.empty())
    {
        event.kind = EAslEvent::StrayEnd;
        m_line = line;
        m_isEnded = true;
    }
    else if (EqualNoCase(keyword, kSequenceEnd))
    {
        event.kind = EAslEvent::SequenceEnd;
        m_begins.pop_back();
    }
    else if (IsHeader(event.command))
    {
        event.kind = EAslEvent::Header;
    }
    return event;
}

SAslEvent CAslReader::OpenSequence(int line)
{
    if (static_cast<int>(m_begins.size()) == kMaxDepth)
    {
        m_line = m_lines.GetSize();
        m_isEnded = true;
        return {EAslEvent::TooDeep, line};
    }
    m_begins.push_back(line);
    return {EAslEvent::SequenceBegin, line};
}

} // namespace Varnotix
