#include "json/JsonWriter.h"

#include "files/Input.h"
#include "json/Base64.h"
#include "json/BulkUri.h"
#include "json/JsonText.h"
#include "json/PixelItems.h"
#include "text/Numbers.h"

#include <algorithm>
#include <type_traits>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr std::size_t kPrintSize = 1U << 16U;
constexpr DWORD kSpecificCharacterSet = 0x00080005;

std::string TagDigits(DWORD tag)
{
    CString digits;
    digits.Format("%08lX", static_cast<unsigned long>(tag));
    return std::string(digits.View());
}

template <class NUMBER>
void AppendNumber(std::string& json, const NUMBER& number)
{
    if constexpr (std::is_same_v<NUMBER, STagNumber>)
    {
        json += '"' + TagDigits(number.tag) + '"';
    }
    else if constexpr (std::is_floating_point_v<NUMBER>)
    {
        AppendJsonNumber(json, number);
    }
    else if constexpr (std::is_signed_v<NUMBER>)
    {
        AppendJsonInteger(json, std::int64_t{number});
    }
    else
    {
        AppendJsonInteger(json, std::uint64_t{number});
    }
}

int ItemOf(const CDcmElement& element)
{
    return std::max(element.Item(), 1);
}

using CElementViews = std::vector<const CDcmElement*>;

/// The elements item by item, in the order of their tags. Those without an item count to the first one.
CElementViews SortedElements(const CDcmElementSet& set)
{
    CElementViews elements;
    elements.reserve(static_cast<std::size_t>(set.GetCount()));
    for (int i = 0; i < set.GetCount(); ++i)
    {
        elements.push_back(set.GetAt(i));
    }
    const auto place = [](const CDcmElement* element) { return std::pair(ItemOf(*element), element->Tag()); };
    std::stable_sort(elements.begin(), elements.end(),
                     [&](const CDcmElement* left, const CDcmElement* right) { return place(left) < place(right); });
    return elements;
}

} // namespace

CJsonWriter::CJsonWriter(const SJsonForm& form, const CString& path, CConsole& console, const CReport& report)
    : m_form(form), m_path(path), m_console(console), m_report(report)
{
}

void CJsonWriter::Write(const CDcmElementSet& store)
{
    WriteDataSet(SortedElements(store), CCharacterSet());
    m_json += '\n';
    Print(0);
    const CString name = ShownName(m_path);
    if (!m_unknownTerm.empty())
    {
        m_report.Say(name + ": the character set '" + CString(std::string_view(m_unknownTerm)) +
                     "' is not a defined term; its texts are read as ASCII");
    }
    if (m_replaced > 0)
    {
        CString text;
        text.Format(": bytes that are not in the character set are shown as U+FFFD (%d times, first in %s)", m_replaced,
                    m_firstReplaced.c_str());
        m_report.Say(name + text);
    }
}

/// @param elements in the order of their tags.
void CJsonWriter::WriteDataSet(CDataSet elements, const CCharacterSet& around)
{
    const auto named = std::find_if(elements.begin(), elements.end(),
                                    [](const CDcmElement* element) { return element->Tag() == kSpecificCharacterSet; });
    const CCharacterSet characters = named != elements.end() ? CCharacterSet((*named)->ValueBytes().View()) : around;
    if (m_unknownTerm.empty())
    {
        m_unknownTerm = characters.UnknownTerm();
    }
    m_json += '{';
    DWORD last = 0;
    bool isFirst = true;
    m_place.emplace_back();
    for (const CDcmElement* element : elements)
    {
        m_place.back() = TagDigits(element->Tag());
        if (!isFirst && element->Tag() == last)
        {
            m_report.Say(ShownName(m_path) + ": " + TagAndName(last) + " is there twice; the first one is written");
            continue;
        }
        if (!IsLeftOut(*element))
        {
            m_json += isFirst ? "" : ",";
            BeginLine(true);
            WriteElement(*element, characters);
            last = element->Tag();
            isFirst = false;
        }
    }
    m_place.pop_back();
    if (!isFirst)
    {
        BeginLine(false);
    }
    m_json += '}';
}

/// PS3.18 section F.2.2: group lengths are left out, and group 0002.
bool CJsonWriter::IsLeftOut(const CDcmElement& element) const
{
    return Tag::IsGroupLength(element.Tag()) || (element.HasGroup(Tag::kMetaGroup) && !m_form.hasMeta) ||
           (m_form.leavesOutBulk && BulkSize(element) > m_form.inlineLimit);
}

void CJsonWriter::WriteElement(const CDcmElement& element, const CCharacterSet& characters)
{
    const std::string letters = element.Items() != nullptr ? "SQ" : element.VrLetters();
    const std::string vr = letters.empty() ? "UN" : letters;
    const char* const blank = m_form.isIndented ? " " : "";
    m_json += '"' + m_place.back() + "\":" + blank + "{\"vr\":" + blank + '"' + vr + '"';
    if (element.Tag() == kSpecificCharacterSet && !characters.Terms().empty())
    {
        BeginValue("Value");
        m_json += "[\"ISO_IR 192\"]"; // That of the document.
    }
    else if (element.Items() != nullptr)
    {
        WriteItems(element, characters);
    }
    else if (Varnotix::VrKind(element.Vr()) == EVrKind::Text)
    {
        WriteTexts(element, vr, characters);
    }
    else if (!WriteNumbers(element, vr))
    {
        WriteBytes(element);
    }
    m_json += '}';
    Print(kPrintSize);
}

void CJsonWriter::WriteItems(const CDcmElement& element, const CCharacterSet& characters)
{
    const CElementViews elements = SortedElements(*element.Items());
    const std::string sequence = m_place.back();
    const int count = element.Items()->ItemCount();
    auto begin = elements.begin();
    for (int item = 1; item <= count; ++item)
    {
        if (item == 1)
        {
            BeginValue("Value");
        }
        m_json += item == 1 ? "[" : ",";
        m_place.back() = sequence + '[' + std::to_string(item) + ']';
        BeginLine(false);
        const auto end =
            std::find_if(begin, elements.end(), [item](const CDcmElement* inner) { return ItemOf(*inner) != item; });
        WriteDataSet({begin, end}, characters);
        begin = end;
    }
    m_place.back() = sequence;
    if (count > 0)
    {
        m_json += ']';
    }
}

void CJsonWriter::WriteTexts(const CDcmElement& element, const std::string& vr, const CCharacterSet& characters)
{
    const SDecodedText text = characters.ToUtf8(element.ValueBytes().View(), vr);
    NoteReplaced(text.replaced);
    if (text.values.size() == 1 && CCharacterSet::WithoutPadding(text.values.front(), vr).empty())
    {
        return;
    }
    BeginValue("Value");
    char separator = '[';
    for (const std::string& value : text.values)
    {
        m_json += separator;
        WriteText(CCharacterSet::WithoutPadding(value, vr), vr);
        separator = ',';
    }
    m_json += ']';
}

void CJsonWriter::WriteText(std::string_view value, const std::string& vr)
{
    if (value.empty())
    {
        m_json += "null";
    }
    else if (vr == "PN")
    {
        WriteName(value);
    }
    else if (vr == "DS" || vr == "IS")
    {
        const std::optional<std::string> number = vr == "DS" ? JsonNumberOfDecimal(value) : JsonNumberOfInteger(value);
        if (number.has_value())
        {
            m_json += *number;
        }
        else
        {
            AppendJsonString(m_json, value);
        }
    }
    else
    {
        AppendJsonString(m_json, value);
    }
}

/// The groups of components (PS3.5 section 6.2.1) are members of their own.
void CJsonWriter::WriteName(std::string_view name)
{
    bool isFirst = true;
    m_json += '{';
    for (const char* const group : {"Alphabetic", "Ideographic", "Phonetic"})
    {
        const bool isLast = std::string_view(group) == "Phonetic";
        const std::string_view part = isLast ? name : name.substr(0, name.find('='));
        name.remove_prefix(std::min(part.size() + 1, name.size()));
        if (!part.empty())
        {
            m_json += isFirst ? "" : m_form.isIndented ? ", " : ",";
            m_json += '"';
            m_json += group;
            m_json += m_form.isIndented ? "\": " : "\":";
            AppendJsonString(m_json, part);
            isFirst = false;
        }
    }
    m_json += '}';
}

/// @return false for a VR that does not hold numbers.
bool CJsonWriter::WriteNumbers(const CDcmElement& element, const std::string& vr)
{
    char separator = '[';
    const auto write = [&](const auto& number)
    {
        if (separator == '[')
        {
            BeginValue("Value");
        }
        m_json += separator;
        separator = ',';
        AppendNumber(m_json, number);
    };
    const CValueBytes value = element.ValueBytes();
    const bool areNumbers = ForNumbersOf(vr, value.View(), write);
    m_json += separator == ',' ? "]" : "";
    return areNumbers;
}

void CJsonWriter::WriteBytes(const CDcmElement& element)
{
    const std::uint64_t size = BulkSize(element);
    if (size == 0)
    {
        return;
    }
    if (size > m_form.inlineLimit && m_path != "-")
    {
        WriteUri();
        return;
    }
    BeginValue("InlineBinary");
    m_json += '"';
    CBase64Encoder encoder;
    std::size_t written = 0;
    ForBulk(element,
            [&](std::string_view bytes)
            {
                written += bytes.size();
                for (; !bytes.empty(); bytes.remove_prefix(std::min(kPrintSize, bytes.size())))
                {
                    encoder.Append(bytes.substr(0, kPrintSize), m_json);
                    Print(kPrintSize);
                }
            });
    encoder.Append(std::string_view("\0", written % 2), m_json); // Value fields have even lengths.
    encoder.Finish(m_json);
    m_json += '"';
}

void CJsonWriter::WriteUri()
{
    std::string place;
    for (const std::string& step : m_place)
    {
        place += (place.empty() ? "" : ".") + step;
    }
    BeginValue("BulkDataURI");
    AppendJsonString(m_json, BulkUri(m_path, place));
}

/// @param inside the line is one of the members of the data set that was begun last.
void CJsonWriter::BeginLine(bool inside)
{
    constexpr std::size_t kIndentation = 2;
    if (m_form.isIndented)
    {
        m_json += '\n';
        m_json.append(2 * kIndentation * m_place.size() - (inside ? kIndentation : 0), ' ');
    }
}

void CJsonWriter::BeginValue(const char* name)
{
    m_json += m_form.isIndented ? ", \"" : ",\"";
    m_json += name;
    m_json += m_form.isIndented ? "\": " : "\":";
}

void CJsonWriter::NoteReplaced(int count)
{
    if (count > 0 && m_replaced == 0)
    {
        m_firstReplaced = m_place.back();
    }
    m_replaced += count;
}

void CJsonWriter::Print(std::size_t least)
{
    if (m_json.size() >= least)
    {
        m_console.Print(m_json);
        m_json.clear();
    }
}
