#include "Varnotix/asl/AslWriter.h"

#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/Exceptions.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>
#include <vector>

namespace Varnotix
{

namespace
{

constexpr int kIndent = 3;
constexpr int kLongestBytes = 5000;

void AppendNumber(std::string& line, int number)
{
    char text[16];
    line.append(text, std::to_chars(std::begin(text), std::end(text), number).ptr);
}

/// Six digits after the point, in every locale.
void AppendNumber(std::string& line, double number)
{
    // The longest float of 64 bits has 309 digits before the point.
    char text[352];
    line.append(text, std::to_chars(std::begin(text), std::end(text), number, std::chars_format::fixed, 6).ptr);
}

/// A number of a tag, in four digits.
void AppendHex(std::string& line, int number)
{
    for (int shift = 12; shift >= 0; shift -= 4)
    {
        line += "0123456789abcdef"[(number >> shift) & 0xF];
    }
}

void AppendNumber(std::string& line, DWORD number)
{
    char text[16];
    line.append(text, std::to_chars(std::begin(text), std::end(text), number).ptr);
}

template <class NUMBER, class ARRAY>
void AppendNumbers(std::string& line, const ARRAY* values)
{
    if (values != nullptr)
    {
        for (const auto value : *values)
        {
            AppendNumber(line, static_cast<NUMBER>(value));
            line += ',';
        }
    }
}

void AppendTexts(std::string& line, const CStringArray& texts)
{
    for (const CString& text : texts)
    {
        line += text.CText();
        line += ',';
    }
}

bool IsPrintable(BYTE byte)
{
    return byte >= 32 && byte <= 126;
}

void AppendBytes(std::string& line, const CByteArray& bytes)
{
    if (bytes.GetSize() > kLongestBytes)
    {
        AppendNumber(line, bytes.GetSize());
        line += ',';
    }
    else if (std::all_of(bytes.begin(), bytes.end(), IsPrintable))
    {
        line.append(bytes.begin(), bytes.end());
    }
    else
    {
        AppendNumbers<int>(line, &bytes);
    }
}

void AppendFrames(std::string& line, const CDcmFrameList& frames)
{
    CStringArray texts;
    frames.Describe(texts);
    AppendTexts(line, texts);
}

/// The values between the brackets. False for an element whose line has no value list.
bool AppendValues(std::string& line, const CDcmElement& element, bool isStandard)
{
    const EVrKind kind = VrKind(element.Vr());
    if (element.Frames() != nullptr &&
        (kind == EVrKind::Words || kind == EVrKind::OtherWords || kind == EVrKind::Bytes))
    {
        AppendFrames(line, *element.Frames());
        return true;
    }
    switch (kind)
    {
    case EVrKind::Text:
        AppendTexts(line, *element.Texts());
        return true;
    case EVrKind::Words:
    case EVrKind::OtherWords:
        if (isStandard && element.HasVr(VR_SS))
        {
            AppendNumbers<short>(line, element.Words());
            return true;
        }
        AppendNumbers<int>(line, element.Words());
        return true;
    case EVrKind::Integers:
        if (isStandard && element.HasVr(VR_UL))
        {
            AppendNumbers<DWORD>(line, element.Integers());
            return true;
        }
        // UL is printed signed, for compatibility.
        AppendNumbers<int>(line, element.Integers());
        return true;
    case EVrKind::Floats:
        AppendNumbers<double>(line, element.Floats());
        return true;
    case EVrKind::Doubles:
        AppendNumbers<double>(line, element.Doubles());
        return true;
    case EVrKind::Bytes:
        AppendBytes(line, *element.Bytes());
        return true;
    case EVrKind::Items:
        if (element.Items() != nullptr)
        {
            AppendNumber(line, element.Items()->GetCount());
        }
        return element.Items() != nullptr;
    case EVrKind::RawOnly:
        break;
    }
    return false;
}

void AppendElements(const CDcmElementSet& set, int depth, bool isStandard, CStringArray& lines);

void AppendElement(const CDcmElement& element, int depth, bool isStandard, CStringArray& lines)
{
    const CString indent(' ', depth * kIndent);
    lines.Add(indent + AslElementLine(element, isStandard));
    if (element.HasVr(VR_SQ))
    {
        lines.Add(indent + "#SEQUENCE_BEGIN");
        if (element.Items() != nullptr)
        {
            AppendElements(*element.Items(), depth + 1, isStandard, lines);
        }
        lines.Add(indent + "#SEQUENCE_END");
    }
}

/// True for a set of several items, or of an empty one, which its elements do not show.
bool NeedsMarks(const CDcmElementSet& set)
{
    return set.KeepsItems() && (set.ItemCount() > 1 || (set.ItemCount() == 1 && set.IsEmpty()));
}

/// Appends the lines of each item after its mark.
void AppendItems(const CDcmElementSet& set, int depth, bool isStandard, CStringArray& lines)
{
    const int count = set.ItemCount();
    std::vector<std::pair<int, const CDcmElement*>> elements;
    elements.reserve(static_cast<std::size_t>(set.GetCount()));
    for (int i = 0; i < set.GetCount(); ++i)
    {
        elements.emplace_back(std::clamp(set.GetAt(i)->Item(), 1, count), set.GetAt(i));
    }
    std::stable_sort(elements.begin(), elements.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    const CString indent(' ', depth * kIndent);
    auto next = elements.begin();
    for (int item = 1; item <= count; ++item)
    {
        CString mark;
        mark.Format("#ITEM=%d", item);
        lines.Add(indent + mark);
        for (; next != elements.end() && next->first == item; ++next)
        {
            AppendElement(*next->second, depth, isStandard, lines);
        }
    }
}

void AppendElements(const CDcmElementSet& set, int depth, bool isStandard, CStringArray& lines)
{
    if (NeedsMarks(set))
    {
        AppendItems(set, depth, isStandard, lines);
        return;
    }
    for (int i = 0; i < set.GetCount(); ++i)
    {
        AppendElement(*set.GetAt(i), depth, isStandard, lines);
    }
}

} // namespace

CString AslElementLine(const CDcmElement& element)
{
    return AslElementLine(element, false);
}

CString AslElementLine(const CDcmElement& element, bool isStandard)
{
    if (!element.HasEntry() || element.HasVr(VR_UNKNOWN))
    {
        return CString();
    }
    std::string line;
    AppendHex(line, element.Group());
    line += ',';
    AppendHex(line, element.Element());
    line += ',';
    const bool hasOwnVr =
        isStandard && element.LaterVr() != ELaterVr::None && element.Entry()->laterVr == element.LaterVr();
    line += hasOwnVr ? LaterVrText(element.LaterVr()) : VrText(element.Vr());
    line += ',';
    AppendNumber(line, element.Vm());
    line += ',';
    line += element.Name().CText();
    const std::size_t beforeList = line.size();
    line += ",[";
    if (AppendValues(line, element, isStandard))
    {
        line += ']';
    }
    else
    {
        line.resize(beforeList);
    }
    return CString(line);
}

void AslLines(const CDcmElementSet& set, CStringArray& lines, bool isStandard)
{
    AppendElements(set, 0, isStandard, lines);
}

void WriteAslFile(const CString& path, const CStringArray& lines)
{
    try
    {
        CFile file(path, CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store, 4096);
        for (const CString& line : lines)
        {
            archive.WriteString(line);
            archive.WriteString("\n");
        }
        archive.Close();
        file.Close();
    }
    catch (const CFileException&)
    {
        // Failures are not reported; callers can check the file.
    }
}

} // namespace Varnotix
