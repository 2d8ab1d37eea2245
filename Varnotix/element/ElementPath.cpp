#include "Varnotix/element/ElementPath.h"

#include "Varnotix/element/PrivateBlock.h"
#include "Varnotix/platform/Ascii.h"
#include "Varnotix/registry/Keyword.h"

#include <string>

namespace Varnotix
{

namespace
{

constexpr std::size_t kNumberLength = 4; // Digits of a group or element number.

/// Reads the text of a path from its beginning to its end.
class CPathReader
{
public:
    explicit CPathReader(std::string_view text) : m_rest(text) {}

    /// One step and the dot after it.
    std::optional<SPathStep> Step()
    {
        SPathStep step;
        SkipBlanks();
        if (!(Take('(') ? Tag(step) && (SkipBlanks(), Take(')')) : TagOrKeyword(step)) || !Item(step))
        {
            return std::nullopt;
        }
        SkipBlanks();
        m_more = Take('.');
        if (!m_more && !m_rest.empty())
        {
            return std::nullopt;
        }
        return step;
    }

    /// Whether a dot promised another step.
    bool HasMore() const { return m_more; }

private:
    void SkipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kWhiteSpace), m_rest.size())); }

    bool Take(char character)
    {
        const bool taken = !m_rest.empty() && m_rest.front() == character;
        m_rest.remove_prefix(taken ? 1 : 0);
        return taken;
    }

    /// The characters before the first of the stops.
    std::string_view Until(std::string_view stops)
    {
        const std::string_view word = m_rest.substr(0, m_rest.find_first_of(stops));
        m_rest.remove_prefix(word.size());
        return TrimBlanks(word);
    }

    /// "gggg,eeee" or "gggg,"creator",ee".
    bool Tag(SPathStep& step)
    {
        const std::optional<int> group = Number(Until(","), kNumberLength);
        if (!group || !Take(','))
        {
            return false;
        }
        SkipBlanks();
        const bool hasCreator = Take('"');
        if (hasCreator && !(Creator(step) && Tag::IsPrivate(Tag::Make(*group, 0))))
        {
            return false;
        }
        const std::optional<int> element = Number(Until(").["), hasCreator ? kNumberLength / 2 : kNumberLength);
        step.tag = Tag::Make(*group, element.value_or(0));
        return element.has_value();
    }

    bool Creator(SPathStep& step)
    {
        std::string creator;
        do
        {
            const std::size_t end = m_rest.find('"');
            if (end == std::string_view::npos)
            {
                return false;
            }
            creator += m_rest.substr(0, end);
            m_rest.remove_prefix(end + 1);
            if (!m_rest.empty() && m_rest.front() == '"')
            {
                creator += '"';
            }
        } while (Take('"'));
        step.creator = CString(TrimBlanks(creator));
        SkipBlanks();
        return !step.creator.IsEmpty() && Take(',');
    }

    bool TagOrKeyword(SPathStep& step)
    {
        if (m_rest.substr(0, m_rest.find_first_of(".[")).find(',') != std::string_view::npos)
        {
            return Tag(step);
        }
        const std::string_view word = Until(".[");
        const std::optional<DWORD> tag = word.size() == 2 * kNumberLength
                                             ? Tag::Parse(word.substr(0, kNumberLength), word.substr(kNumberLength))
                                             : std::nullopt;
        const std::optional<DWORD> named = tag ? tag : TagOfKeyword(word);
        step.tag = named.value_or(0);
        return named.has_value();
    }

    /// The brackets after an element, if there are any.
    bool Item(SPathStep& step)
    {
        SkipBlanks();
        if (!Take('['))
        {
            return true;
        }
        const std::string_view number = Until("]");
        if (!Take(']'))
        {
            return false;
        }
        if (number.empty() || number == "+")
        {
            step.item = number.empty() ? SPathStep::kEveryItem : SPathStep::kNewItem;
            return true;
        }
        constexpr int kGreatest = 0xFFFFFFF; // More items than any object has, and no overflow.
        for (const char digit : number)
        {
            if (digit < '0' || digit > '9' || step.item > kGreatest / 10)
            {
                return false;
            }
            step.item = step.item * 10 + (digit - '0');
        }
        return step.item > 0;
    }

    static std::optional<int> Number(std::string_view digits, std::size_t length)
    {
        return digits.size() == length ? Tag::ParseNumber(digits) : std::nullopt;
    }

    std::string_view m_rest;
    bool m_more = false;
};

CString TextOf(const SPathStep& step)
{
    CString text;
    if (!step.creator.IsEmpty())
    {
        CString creator;
        for (const char character : step.creator.View())
        {
            creator += CString(character, character == '"' ? 2 : 1);
        }
        text.Format("(%04X,\"%s\",%02X)", static_cast<unsigned>(Tag::Group(step.tag)),
                    static_cast<const char*>(creator), static_cast<unsigned>(Tag::Element(step.tag) & 0xFF));
    }
    else if (text = KeywordOf(step.tag); text.IsEmpty())
    {
        text.Format("(%04X,%04X)", static_cast<unsigned>(Tag::Group(step.tag)),
                    static_cast<unsigned>(Tag::Element(step.tag)));
    }
    if (step.item != SPathStep::kNoItem)
    {
        CString item("[]");
        if (step.item == SPathStep::kNewItem)
        {
            item = "[+]";
        }
        else if (step.item > 0)
        {
            item.Format("[%d]", step.item);
        }
        text += item;
    }
    return text;
}

/// Follows a path through an object.
class CPathSearch
{
public:
    CPathSearch(const std::vector<SPathStep>& steps, bool firstOnly) : m_steps(steps), m_firstOnly(firstOnly) {}

    std::vector<SFoundElement> found;

    void Search(CDcmElementSet& set, int item, std::size_t index)
    {
        const SPathStep& step = m_steps[index];
        const std::optional<DWORD> tag =
            step.creator.IsEmpty() ? std::optional(step.tag) : FindPrivateTag(set, item, step.tag, step.creator.View());
        CDcmElement* element = tag ? FindInSet(set, item, *tag) : nullptr;
        if (element == nullptr)
        {
            return;
        }
        m_path.Append({*tag, CString(), SPathStep::kNoItem});
        const bool isLast = index + 1 == m_steps.size();
        if (isLast && step.item == SPathStep::kNoItem)
        {
            found.push_back({element, &set, item, m_path});
        }
        else if (CDcmElementSet* items = element->Items(); items != nullptr)
        {
            const bool every = step.item == SPathStep::kEveryItem;
            const int count = items->ItemCount();
            const int first = every || step.item == SPathStep::kNoItem ? 1 : step.item;
            const int last = every ? count : first;
            for (int i = first; i >= 1 && i <= last && i <= count && !(m_firstOnly && !found.empty()); ++i)
            {
                m_path.SelectItem(i);
                if (isLast)
                {
                    found.push_back({element, &set, item, m_path});
                }
                else
                {
                    Search(*items, i, index + 1);
                }
            }
        }
        m_path.RemoveLast();
    }

private:
    const std::vector<SPathStep>& m_steps;
    bool m_firstOnly;
    CElementPath m_path;
};

} // namespace

std::optional<CElementPath> CElementPath::Parse(std::string_view text)
{
    CPathReader reader(text);
    CElementPath path;
    do
    {
        std::optional<SPathStep> step = reader.Step();
        if (!step)
        {
            return std::nullopt;
        }
        path.Append(std::move(*step));
    } while (reader.HasMore());
    return path;
}

CString CElementPath::Text() const
{
    CString text;
    for (const SPathStep& step : m_steps)
    {
        if (!text.IsEmpty())
        {
            text += '.';
        }
        text += TextOf(step);
    }
    return text;
}

CDcmElement* CElementPath::Find(CDcmElementSet& set) const
{
    if (IsEmpty())
    {
        return nullptr;
    }
    CPathSearch search(m_steps, true);
    search.Search(set, 0, 0);
    return search.found.empty() ? nullptr : search.found.front().element;
}

std::vector<SFoundElement> CElementPath::FindAll(CDcmElementSet& set) const
{
    if (IsEmpty())
    {
        return {};
    }
    CPathSearch search(m_steps, false);
    search.Search(set, 0, 0);
    return std::move(search.found);
}

} // namespace Varnotix
