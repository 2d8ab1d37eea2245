#include "script/ScriptTree.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace
{

constexpr std::string_view kSequenceBegin = "SEQUENCE_BEGIN";
constexpr std::string_view kSequenceEnd = "SEQUENCE_END";

std::string_view TrimmedLine(const CStringArray& lines, int index)
{
    return TrimBlanks(lines[index].CText());
}

/// The value list as it stands: what follows the first five fields.
std::string_view BehindName(std::string_view line)
{
    constexpr int kFields = 5;
    for (int i = 0; i < kFields; ++i)
    {
        line.remove_prefix(std::min(line.find(','), line.size()));
        line.remove_prefix(std::min<std::size_t>(1, line.size()));
    }
    return line;
}

std::optional<DWORD> NumberOf(std::string_view digits)
{
    DWORD number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && number <= 0xFFFF ? std::optional(number) : std::nullopt;
}

std::optional<DWORD> TagOf(const SAslElement& parts)
{
    const std::optional<DWORD> group = NumberOf(parts.group);
    const std::optional<DWORD> element = NumberOf(parts.element);
    return group && element ? std::optional(*group << 16U | *element) : std::nullopt;
}

bool IsSequence(const SScriptLine& line)
{
    if (line.element != nullptr)
    {
        return line.element->HasVr(VR_SQ);
    }
    const CDcmEntry* entry =
        CDcmRegistry::Global().LookUpTag(static_cast<int>(line.tag >> 16U), static_cast<int>(line.tag & 0xFFFFU));
    return entry != nullptr ? entry->vr == VR_SQ : EqualNoCase(line.parts.vr, VrText(VR_SQ));
}

/// True for the command lines of every document that an object is printed as.
bool IsDocumentLine(std::string_view keyword)
{
    constexpr std::string_view kKeywords[] = {
        "SOURCE_FILE", "IOD_KIND", "IOD_SYNTAX", "COUNT", "COUNT_ALL", "ATTRIBUTE_SET_BEGIN", "ATTRIBUTE_SET_END"};
    return keyword.starts_with("Attribute Script Language") ||
           std::any_of(std::begin(kKeywords), std::end(kKeywords),
                       [&](std::string_view known) { return EqualNoCase(keyword, known); });
}

} // namespace

std::map<DWORD, std::vector<CDcmElement*>> ElementsByTag(const CDcmElementSet& set)
{
    std::map<DWORD, std::vector<CDcmElement*>> found;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        if (set.GetAt(i)->HasEntry())
        {
            found[set.GetAt(i)->Tag()].push_back(set.GetAt(i));
        }
    }
    return found;
}

bool IsOwnLine(const CStringArray& lines, int index, const CDcmElement& element, int& count)
{
    const CString own = AslElementLine(element);
    std::string_view rest = own.CText();
    for (count = 0;; ++count)
    {
        const std::size_t end = rest.find('\n');
        const std::string_view expected = TrimBlanks(rest.substr(0, end));
        if (index + count >= lines.GetSize())
        {
            return false;
        }
        const std::string_view line = TrimmedLine(lines, index + count);
        const bool isSame = count > 0 ? line == expected : BehindName(line) == BehindName(expected);
        if (!isSame || (count == 0 && !EqualNoCase(SplitAslElement(line).vr, VrText(element.Vr()))))
        {
            return false;
        }
        if (end == std::string_view::npos)
        {
            ++count;
            return true;
        }
        rest.remove_prefix(end + 1);
    }
}

CScriptTree::CScriptTree(const CStringArray& lines, const CDcmElementSet& store) : m_lines(lines)
{
    const int stopped = ReadLevel(0, &store, 0, m_tree);
    if (stopped < lines.GetSize())
    {
        AddFault(stopped, ScriptNoteText(SCRIPT_STRAY_END));
    }
}

/// @return the index of the level's "#SEQUENCE_END", or the number of lines.
int CScriptTree::ReadLevel(int index, const CDcmElementSet* set, int depth, std::vector<SScriptLine>& level)
{
    std::map<DWORD, std::vector<CDcmElement*>> own;
    if (set != nullptr)
    {
        own = ElementsByTag(*set);
    }
    std::map<DWORD, std::size_t> seen;
    for (; index < m_lines.GetSize(); ++index)
    {
        const std::string_view text = TrimmedLine(m_lines, index);
        if (text.empty() || text.starts_with(';'))
        {
            continue;
        }
        if (text.starts_with('#'))
        {
            const std::string_view keyword = SplitAslCommand(text).keyword;
            if (EqualNoCase(keyword, kSequenceEnd))
            {
                return index;
            }
            if (EqualNoCase(keyword, kSequenceBegin))
            {
                AddFault(index, ScriptNoteText(SCRIPT_STRAY_BEGIN));
            }
            else if (!IsDocumentLine(keyword))
            {
                m_commands.push_back(index);
            }
            continue;
        }
        SScriptLine line;
        line.line = index;
        line.parts = SplitAslElement(text);
        const std::optional<DWORD> tag = TagOf(line.parts);
        if (!tag)
        {
            AddFault(index, "the line does not begin with a tag");
            continue;
        }
        line.tag = *tag;
        const std::vector<CDcmElement*>& mine = own[line.tag];
        const std::size_t place = seen[line.tag]++;
        line.element = place < mine.size() ? mine[place] : nullptr;
        int count = 1;
        line.isUnchanged = line.element != nullptr && IsOwnLine(m_lines, index, *line.element, count);
        index += line.isUnchanged ? count - 1 : 0;
        if (IsSequence(line))
        {
            index = ReadItem(index, depth, line);
        }
        line.end = std::min(index + 1, m_lines.GetSize());
        level.push_back(std::move(line));
    }
    return m_lines.GetSize();
}

/// @return the index of the last line of the item behind a sequence's line.
int CScriptTree::ReadItem(int index, int depth, SScriptLine& sequence)
{
    const bool opens = index + 1 < m_lines.GetSize() && TrimmedLine(m_lines, index + 1).starts_with('#') &&
                       EqualNoCase(SplitAslCommand(TrimmedLine(m_lines, index + 1)).keyword, kSequenceBegin);
    if (!opens)
    {
        AddFault(sequence.line, "no #SEQUENCE_BEGIN follows the line of the sequence");
        return index;
    }
    if (depth == CDcmParser::kMaxDepth)
    {
        AddFault(index + 1, ScriptNoteText(SCRIPT_TOO_DEEP));
        return m_lines.GetSize();
    }
    const CDcmElementSet* items = sequence.element != nullptr ? sequence.element->Items() : nullptr;
    const int end = ReadLevel(index + 2, items, depth + 1, sequence.item);
    if (end == m_lines.GetSize())
    {
        AddFault(index + 1, ScriptNoteText(SCRIPT_OPEN_SEQUENCE));
    }
    return end;
}
