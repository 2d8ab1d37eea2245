#include "json/JsonWriter.h"

#include "files/Input.h"
#include "json/Base64.h"
#include "json/BulkUri.h"
#include "json/JsonText.h"
#include "json/PixelItems.h"

#include <algorithm>
#include <array>
#include <bit>
#include <type_traits>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr std::size_t kPrintSize = 1U << 16U;
constexpr DWORD kSpecificCharacterSet = 0x00080005;

bool IsAmong(std::string_view vr, std::string_view vrs)
{
    const std::size_t found = vrs.find(vr);
    return vr.size() == 2 && found != std::string_view::npos && found % 3 == 0;
}

bool IsText(std::string_view vr)
{
    return IsAmong(vr, "AE AS CS DA DS DT IS LO LT PN SH ST TM UC UI UR UT");
}

/// Blanks do not count around values, but for the VRs in which those at the beginning do (PS3.5 table 6.2-1).
std::string_view WithoutPadding(std::string_view value, std::string_view vr)
{
    constexpr std::string_view kPadding(" \0", 2);
    value = value.substr(0, value.find_last_not_of(kPadding) + 1);
    if (!IsAmong(vr, "LT ST UC UR UT"))
    {
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    }
    return value;
}

/// Calls the action with each number of a little-endian value; a partial one at the end is left out.
template <class NUMBER, class ACTION>
void ForNumbers(std::string_view bytes, const ACTION& action)
{
    using CBits = std::conditional_t<sizeof(NUMBER) == 2, std::uint16_t,
                                     std::conditional_t<sizeof(NUMBER) == 4, std::uint32_t, std::uint64_t>>;
    for (; bytes.size() >= sizeof(NUMBER); bytes.remove_prefix(sizeof(NUMBER)))
    {
        CBits bits = 0;
        for (std::size_t i = sizeof(NUMBER); i-- > 0;)
        {
            bits = static_cast<CBits>(static_cast<CBits>(bits << 8U) | static_cast<unsigned char>(bytes[i]));
        }
        action(std::bit_cast<NUMBER>(bits));
    }
}

std::string TagDigits(DWORD tag)
{
    CString digits;
    digits.Format("%08lX", static_cast<unsigned long>(tag));
    return std::string(digits.View());
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
    else if (IsText(vr))
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
    if (text.values.size() == 1 && WithoutPadding(text.values.front(), vr).empty())
    {
        return;
    }
    BeginValue("Value");
    char separator = '[';
    for (const std::string& value : text.values)
    {
        m_json += separator;
        WriteText(WithoutPadding(value, vr), vr);
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
    const CValueBytes value = element.ValueBytes();
    const auto begin = [&]
    {
        if (separator == '[')
        {
            BeginValue("Value");
        }
        m_json += separator;
        separator = ',';
    };
    const auto number = [&](auto each)
    {
        begin();
        if constexpr (std::is_floating_point_v<decltype(each)>)
        {
            AppendJsonNumber(m_json, each);
        }
        else if constexpr (std::is_signed_v<decltype(each)>)
        {
            AppendJsonInteger(m_json, std::int64_t{each});
        }
        else
        {
            AppendJsonInteger(m_json, std::uint64_t{each});
        }
    };
    DWORD group = 0;
    bool isGroup = true;
    const auto halfTag = [&](std::uint16_t word)
    {
        if (!isGroup)
        {
            begin();
            m_json += '"' + TagDigits(group << 16U | word) + '"';
        }
        group = word;
        isGroup = !isGroup;
    };
    const std::string_view bytes = value.View();
    if (vr == "AT")
    {
        ForNumbers<std::uint16_t>(bytes, halfTag);
    }
    else if (vr == "US")
    {
        ForNumbers<std::uint16_t>(bytes, number);
    }
    else if (vr == "SS")
    {
        ForNumbers<std::int16_t>(bytes, number);
    }
    else if (vr == "UL")
    {
        ForNumbers<std::uint32_t>(bytes, number);
    }
    else if (vr == "SL")
    {
        ForNumbers<std::int32_t>(bytes, number);
    }
    else if (vr == "UV")
    {
        ForNumbers<std::uint64_t>(bytes, number);
    }
    else if (vr == "SV")
    {
        ForNumbers<std::int64_t>(bytes, number);
    }
    else if (vr == "FL")
    {
        ForNumbers<float>(bytes, number);
    }
    else if (vr == "FD")
    {
        ForNumbers<double>(bytes, number);
    }
    else
    {
        return false;
    }
    if (separator == ',')
    {
        m_json += ']';
    }
    return true;
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
