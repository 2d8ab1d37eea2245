#include "compare/DiffText.h"

#include "console/Report.h"
#include "console/Terminal.h"
#include "object/ValueText.h"

#include <algorithm>
#include <cstdlib>

using namespace Varnotix;

namespace
{

constexpr const char* kRed = "\x1B[31m";
constexpr const char* kGreen = "\x1B[32m";
constexpr const char* kPlain = "\x1B[0m";

using EKind = SDifference::EKind;

/// The beginning of a UTF-8 text, with dots for control characters, those of 80H to 9FH among them.
std::string Shown(const std::string& text)
{
    constexpr std::size_t kLongest = 100;
    std::string shown;
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const auto code = static_cast<unsigned char>(text[i]);
        const bool isContinued = (code & 0xC0U) == 0x80U;
        count += isContinued ? 0 : 1;
        if (count > kLongest)
        {
            continue;
        }
        const bool isControl = code < ' ' || code == 0x7F;
        const bool isHighControl =
            code == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        shown += isControl || isHighControl ? '.' : text[i];
        i += isHighControl ? 1 : 0;
    }
    return count > kLongest ? shown + "... (" + std::to_string(count) + " characters)" : shown;
}

std::string CountText(int count, const char* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

/// What a side has.
std::string SideText(const CDcmElement& element, const CCharacterSet& characters, const CElementPath& path)
{
    if (const CDcmElementSet* items = element.Items())
    {
        if (const int item = path.Steps().back().item; item > 0)
        {
            CObList elements;
            items->GetItem(item, elements);
            return "item with " + CountText(elements.GetCount(), "attribute");
        }
        return CountText(items->ItemCount(), "item");
    }
    if (VrKind(element.Vr()) != EVrKind::Text)
    {
        return std::string(ValueText(element, characters).View());
    }
    const CValueBytes bytes = element.ValueBytes();
    const std::size_t end = bytes.View().find_last_not_of(std::string_view("\0 ", 2));
    return '\'' + Shown(characters.ToUtf8(bytes.View().substr(0, end + 1), element.VrLetters()).Joined()) + '\'';
}

std::string Line(char sign, const std::string& text, bool isColoured)
{
    const std::string line = std::string("  ") + sign + ' ' + text;
    return isColoured ? (sign == '-' ? kRed : kGreen) + line + kPlain + '\n' : line + '\n';
}

std::string Heading(const SDifference& difference)
{
    const CDcmElement& element = difference.left != nullptr ? *difference.left : *difference.right;
    CString heading = PathText(difference.path);
    if (heading.ReverseFind(')') != heading.GetLength() - 1 && !KeywordOf(element.Tag()).IsEmpty())
    {
        heading += ' ' + TagName(element.Tag());
    }
    else if (!difference.creator.IsEmpty())
    {
        heading += " of '" + CString(std::string_view(Shown(std::string(difference.creator.View())))) + "'";
    }
    const bool hasOneVr = difference.kind != EKind::Vr;
    heading += CString(" ") + (hasOneVr ? element.VrLetters() : "");
    heading.TrimRight();
    return std::string(heading.View());
}

} // namespace

CString PathText(const CElementPath& path)
{
    CElementPath step;
    CString text;
    for (const SPathStep& one : path.Steps())
    {
        step = CElementPath();
        step.Append(one);
        CString part = step.Text();
        const std::optional<CElementPath> read = CElementPath::Parse(part.View());
        if (!read || read->Steps().front().tag != one.tag)
        {
            part = TagName(one.tag) + (one.item > 0 ? part.Mid(part.ReverseFind('[')) : CString());
        }
        text += (text.IsEmpty() ? "" : ".") + part;
    }
    return text;
}

std::string DifferenceText(const SDifference& difference, bool isColoured)
{
    std::string text = Heading(difference);
    if (difference.kind == EKind::Frames)
    {
        return text + ": " + std::string(difference.note.View()) + '\n';
    }
    text += '\n';
    std::string shown;
    const auto add = [&](char sign, const CDcmElement* element, const CCharacterSet& characters)
    {
        if (element != nullptr)
        {
            const std::string vr = difference.kind == EKind::Vr ? std::string(element->VrLetters()) + ' ' : "";
            std::string side = vr + SideText(*element, characters, difference.path);
            // A text in another character set, or what follows the part that is shown.
            const char* note = side == shown ? " (its bytes differ)" : "";
            text += Line(sign, side + note, isColoured);
            shown = std::move(side);
        }
    };
    add('-', difference.left, *difference.leftCharacters);
    add('+', difference.right, *difference.rightCharacters);
    return text;
}

bool UsesColour()
{
    const auto isSet = [](const char* name)
    {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    const char* terminal = std::getenv("TERM");
    return IsTerminal(EStandardStream::Output) && !isSet("NO_COLOR") &&
           (terminal == nullptr || std::string_view(terminal) != "dumb");
}
