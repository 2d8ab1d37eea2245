// This file looks upwards, to a module: a script fills one, so that its elements merge into an object as any module's.

#include "Varnotix/script/DcmAttributeScript.h"

#include "Varnotix/asl/AslLine.h"
#include "Varnotix/asl/AslValues.h"
#include "Varnotix/codec/DcmParser.h"
#include "Varnotix/element/TagText.h"

#include <algorithm>

IMPLEMENT_DYNCREATE(CDcmAttributeScript, CObject)

namespace
{

constexpr std::string_view kSequenceBegin = "SEQUENCE_BEGIN";
constexpr std::string_view kSequenceEnd = "SEQUENCE_END";

std::string_view TrimmedLine(const CStringArray& lines, int index)
{
    return TrimBlanks(lines[index].CText());
}

bool IsCommand(std::string_view line)
{
    return line.starts_with('#');
}

bool OpensItem(std::string_view line)
{
    return IsCommand(line) && std::search(line.begin(), line.end(), kSequenceBegin.begin(), kSequenceBegin.end(),
                                          [](char character, char wanted) {
                                              return EqualNoCase({&character, 1}, {&wanted, 1});
                                          }) != line.end();
}

/// True for lines that the library's own documents hold for people, not for the reader.
bool IsHeader(std::string_view keyword)
{
    for (const std::string_view known :
         {"ATTRIBUTE_SET_BEGIN", "ATTRIBUTE_SET_END", "COUNT", "COUNT_ALL", "IOD_SYNTAX", "IOD_KIND"})
    {
        if (EqualNoCase(keyword, known))
        {
            return true;
        }
    }
    return keyword.starts_with("Attribute Script Language(ASL)") ||
           CRuntimeClass::FromName(CString(keyword)) != nullptr;
}

/// Appends the trimmed texts of a list.
void AppendItems(std::string_view list, CStringArray& items)
{
    for (std::string_view item; NextAslValue(list, item);)
    {
        items.Add(CString(TrimBlanks(item)));
    }
}

/// The element of the line's tag in the module, made when the dictionary knows the tag or it can be entered as a
/// private one; otherwise null. A number longer than 16 bits is no tag: cut, it would put the value into an attribute
/// that nobody named.
CDcmElement* ElementOfLine(const SAslElement& line, CDcmAttributeModule& module)
{
    const CString group(line.group);
    const CString element(line.element);
    if (IsTagNumber(group) && IsTagNumber(element) &&
        (module.Insert(group, element) || module.Insert(group, element, CString(line.vr), CString(line.multiplicity))))
    {
        return module.GetDcmElementSet().Find(group, element);
    }
    return nullptr;
}

} // namespace

CDcmAttributeScript::CDcmAttributeScript() = default;

CDcmAttributeScript::CDcmAttributeScript(const CDcmAttributeScript& other) = default;

CDcmAttributeScript& CDcmAttributeScript::operator=(const CDcmAttributeScript& other) = default;

CDcmAttributeScript::~CDcmAttributeScript() = default;

int CDcmAttributeScript::Run(const CStringArray& lines, CDcmAttributeModule& module, int first)
{
    m_notes.Clear();
    m_tooDeep = false;
    const int stopped = ReadLines(lines, module, std::clamp(first, 0, lines.GetSize()), 0);
    if (stopped < lines.GetSize())
    {
        m_notes.Add(stopped, SCRIPT_STRAY_END);
    }
    m_notes.Sort();
    return stopped;
}

/// Reads the lines of one item, or of the whole script.
/// @return the index of its "#SEQUENCE_END", or the number of lines.
int CDcmAttributeScript::ReadLines(const CStringArray& lines, CDcmAttributeModule& module, int index, int depth)
{
    for (; index < lines.GetSize(); ++index)
    {
        const std::string_view line = TrimmedLine(lines, index);
        if (line.empty() || line.starts_with(';'))
        {
            continue;
        }
        if (!IsCommand(line))
        {
            index = ReadElement(lines, module, index, depth);
            continue;
        }
        const SAslCommand command = SplitAslCommand(line);
        if (EqualNoCase(command.keyword, kSequenceEnd))
        {
            return index;
        }
        Record(command, index);
    }
    return lines.GetSize();
}

/// Reads an element line, and the item behind it when it is a sequence.
/// @return the index of the last line that belongs to it.
int CDcmAttributeScript::ReadElement(const CStringArray& lines, CDcmAttributeModule& module, int index, int depth)
{
    const SAslElement line = SplitAslElement(TrimmedLine(lines, index));
    const int before = module.GetCount();
    CDcmElement* element = ElementOfLine(line, module);
    if (element == nullptr)
    {
        m_notes.Add(index, SCRIPT_UNKNOWN_TAG);
        return index;
    }
    if (module.GetCount() == before)
    {
        m_notes.Add(index, SCRIPT_REPEATED_TAG);
    }
    // Pixel Data is OB or OW by what it holds.
    if (!line.vr.empty() && VrCode(line.vr) != element->Vr() && !element->IsPixelData())
    {
        m_notes.Add(index, SCRIPT_OTHER_VR);
    }
    if (line.isTextOutside)
    {
        m_notes.Add(index, SCRIPT_TEXT_OUTSIDE_LIST);
    }
    if (!line.isListClosed)
    {
        m_notes.Add(index, SCRIPT_OPEN_LIST);
    }
    if (element->HasVr(VR_SQ))
    {
        return ReadItem(lines, *element, index + 1, depth);
    }
    StoreAslValues(*element, line.values, m_notes, index);
    return index;
}

/// Reads the item that opens at an index. Any other line there is used up.
/// @return the index of the last line that belongs to it.
int CDcmAttributeScript::ReadItem(const CStringArray& lines, CDcmElement& sequence, int index, int depth)
{
    if (index >= lines.GetSize())
    {
        return index;
    }
    const std::string_view opening = TrimmedLine(lines, index);
    if (!OpensItem(opening))
    {
        if (!opening.empty() && !opening.starts_with(';'))
        {
            m_notes.Add(index, SCRIPT_LINE_LOST);
        }
        return index;
    }
    if (depth == CDcmParser::kMaxDepth)
    {
        m_notes.Add(index, SCRIPT_TOO_DEEP);
        m_tooDeep = true;
        return lines.GetSize();
    }
    CDcmAttributeModule item;
    const int end = ReadLines(lines, item, index + 1, depth + 1);
    if (end == lines.GetSize() && !m_tooDeep)
    {
        m_notes.Add(index, SCRIPT_OPEN_SEQUENCE);
    }
    CDcmElementSet* items = sequence.Items();
    if (depth > 0 && items != nullptr)
    {
        // A sequence of this reader's own takes the item over: with a copy at each level, the time would grow with the
        // depth too.
        items->CopyByReference(item.GetDcmElementSet());
    }
    else
    {
        sequence.SetItems(item.GetDcmElementSet());
    }
    return end;
}

void CDcmAttributeScript::Record(const SAslCommand& command, int index)
{
    enum class EForm
    {
        Text,
        Path
    };
    static constexpr struct
    {
        std::string_view keyword;
        CString CDcmAttributeScript::*field;
        EForm form;
    } kSingle[] = {{"SOURCE_FILE", &CDcmAttributeScript::m_sourceFile, EForm::Path},
                   {"TARGET_FILE", &CDcmAttributeScript::m_targetFile, EForm::Path},
                   {"PIXEL_DATA_ROWS", &CDcmAttributeScript::m_rowsText, EForm::Text},
                   {"PIXEL_DATA_COLS", &CDcmAttributeScript::m_colsText, EForm::Text},
                   {"REMOVE_EMPTY_ALL", &CDcmAttributeScript::m_removeEmptyAll, EForm::Text}};
    static constexpr struct
    {
        std::string_view keyword;
        CStringArray CDcmAttributeScript::*field;
        EForm form;
    } kLists[] = {{"PIXEL_DATA_FILE", &CDcmAttributeScript::m_pixelDataFiles, EForm::Path},
                  {"PIXEL_DATA_DIR", &CDcmAttributeScript::m_pixelDataDirectories, EForm::Path},
                  {"REMOVE_EMPTY_GROUP", &CDcmAttributeScript::m_removeEmptyGroups, EForm::Text},
                  {"REMOVE_GROUP", &CDcmAttributeScript::m_removeGroups, EForm::Text},
                  {"ANONYMIZE_GROUP", &CDcmAttributeScript::m_anonymizeGroups, EForm::Text}};
    CString argument(command.argument);
    for (const auto& single : kSingle)
    {
        if (EqualNoCase(command.keyword, single.keyword))
        {
            if (single.form == EForm::Path)
            {
                argument.MakeLower();
            }
            this->*single.field = argument;
            return;
        }
    }
    for (const auto& list : kLists)
    {
        if (EqualNoCase(command.keyword, list.keyword))
        {
            if (list.form == EForm::Path)
            {
                argument.MakeLower();
                (this->*list.field).Add(argument);
            }
            else
            {
                AppendItems(command.argument, this->*list.field);
            }
            return;
        }
    }
    if (EqualNoCase(command.keyword, "ANONYMIZE_55"))
    {
        CStringArray items;
        AppendItems(command.argument, items);
        if (!items.IsEmpty())
        {
            m_anonymize55First = items[0];
        }
        if (items.GetSize() > 1)
        {
            m_anonymize55Second = items[1];
        }
    }
    else if (EqualNoCase(command.keyword, kSequenceBegin))
    {
        m_notes.Add(index, SCRIPT_STRAY_BEGIN);
    }
    else if (!IsHeader(command.keyword))
    {
        m_notes.Add(index, SCRIPT_UNKNOWN_COMMAND);
    }
}
