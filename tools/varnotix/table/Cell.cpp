#include "table/Cell.h"

#include "json/JsonText.h"
#include "text/Numbers.h"

#include <type_traits>

namespace
{

/// The character set of an item that a path leads to.
CCharacterSet CharactersAt(const CDcmElementSet& store, const Varnotix::CElementPath& path)
{
    CCharacterSet characters = CCharacterSet::Of(store, 0, CCharacterSet());
    const CDcmElementSet* set = &store;
    int item = 0;
    for (std::size_t i = 0; i + 1 < path.Steps().size(); ++i)
    {
        const Varnotix::SPathStep& step = path.Steps()[i];
        const int group = Varnotix::Tag::Group(step.tag);
        const int element = Varnotix::Tag::Element(step.tag);
        const CDcmElement* sequence = item == 0 ? set->Find(step.tag) : set->FindInItem(item, group, element);
        if (sequence == nullptr || sequence->Items() == nullptr)
        {
            break;
        }
        set = sequence->Items();
        item = step.item;
        characters = CCharacterSet::Of(*set, item, characters);
    }
    return characters;
}

void AppendNumber(SCell& cell, const auto& number)
{
    using CNumber = std::remove_cvref_t<decltype(number)>;
    std::string text;
    if constexpr (std::is_same_v<CNumber, STagNumber>)
    {
        CString tag;
        tag.Format("%08lX", static_cast<unsigned long>(number.tag));
        text = tag.View();
        cell.areNumbers = false;
    }
    else if constexpr (std::is_floating_point_v<CNumber>)
    {
        AppendJsonNumber(text, number);
    }
    else
    {
        text = std::to_string(number);
    }
    cell.values.push_back(std::move(text));
}

CString Count(std::uint64_t count, const char* what)
{
    CString text;
    text.Format("%llu %s%s", static_cast<unsigned long long>(count), what, count == 1 ? "" : "s");
    return text;
}

void Append(SCell& cell, const CDcmElement& element, const CCharacterSet& characters)
{
    const std::string vr = element.VrLetters();
    const CValueBytes value = element.ValueBytes();
    if (element.Items() != nullptr)
    {
        cell.values.emplace_back(Count(static_cast<std::uint64_t>(element.Items()->ItemCount()), "item").View());
        cell.areNumbers = false;
    }
    else if (element.Frames() != nullptr)
    {
        cell.values.emplace_back(Count(element.Frames()->TotalSize(), "byte").View());
        cell.areNumbers = false;
    }
    else if (Varnotix::VrKind(element.Vr()) == EVrKind::Text)
    {
        cell.areNumbers = cell.areNumbers && (vr == "DS" || vr == "IS");
        for (const std::string& text : characters.ToUtf8(value.View(), vr).values)
        {
            const std::string_view shown = CCharacterSet::WithoutPadding(text, vr);
            cell.areNumbers = cell.areNumbers && JsonNumberOfDecimal(shown) == std::string(shown);
            cell.values.emplace_back(shown);
        }
    }
    else if (!ForNumbersOf(vr, value.View(), [&](const auto& number) { AppendNumber(cell, number); }))
    {
        cell.values.emplace_back(Count(value.Size(), "byte").View());
        cell.areNumbers = false;
    }
}

} // namespace

std::string SCell::Text() const
{
    std::string text;
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        text += (i > 0 ? "\\" : "") + values[i];
    }
    return text;
}

SCell CellOf(CDcmElementSet& store, const Varnotix::CElementPath& path)
{
    SCell cell;
    cell.areNumbers = true;
    for (const Varnotix::SFoundElement& found : path.FindAll(store))
    {
        Append(cell, *found.element, CharactersAt(store, found.path));
    }
    return cell;
}
