#include "script/GroupCommands.h"

#include "Varnotix/registry/Tag.h"
#include "rewrite/Identity.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>

namespace
{

constexpr const char* kDefaultText = "ANONYMOUS";

bool IsNumberFrom(int lowest, int highest, const CString& text)
{
    int number = 0;
    const std::string_view digits = text.CText();
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size() && number >= lowest && number <= highest;
}

void Anonymize(CDcmElement& element, const CString& text)
{
    if (CDcmElementSet* items = element.Items())
    {
        for (int i = 0; i < items->GetCount(); ++i)
        {
            Anonymize(*items->GetAt(i), text);
        }
        return;
    }
    const bool isKept = element.HasVr(VR_UI) || (element.HasVr(VR_CS) && !IsIdentifying(element.Tag()));
    if (Varnotix::VrKind(element.Vr()) != EVrKind::Text || isKept || element.IsEmptyValue())
    {
        return;
    }
    CDcmElement replaced(element.Group(), element.Element(), element.Vr());
    if (!text.IsEmpty() && TakesAnyText(element))
    {
        replaced.AddText(text);
    }
    element = replaced;
}

/// Applies one command to each element of its groups, and reports it.
class CGroupCommand
{
public:
    CGroupCommand(const char* command, const CStringArray& groups, const CString& name, const CReport& report)
        : m_command(command), m_groups(groups), m_name(name), m_report(report)
    {
    }

    /// @param act returns false for an element that it does not change.
    void Run(CDcmElementSet& store, const std::function<bool(CDcmElement&)>& act) const
    {
        std::map<int, CString> texts;
        for (const CString& text : m_groups)
        {
            if (const std::optional<int> group = Varnotix::Tag::ParseNumber(text.CText()))
            {
                texts.emplace(*group, text);
            }
        }
        for (int i = texts.empty() ? -1 : store.GetCount() - 1; i >= 0; --i)
        {
            const DWORD tag = store.GetAt(i)->Tag();
            const auto group = texts.find(store.GetAt(i)->Group());
            if (group != texts.end() && act(*store.GetAt(i)))
            {
                m_report.Detail(m_name + ": " + TagAndName(tag) + ": " + m_command + "=" + group->second);
            }
        }
    }

private:
    const char* m_command;
    const CStringArray& m_groups;
    const CString& m_name;
    const CReport& m_report;
};

} // namespace

bool CheckCommandArguments(const CDcmAttributeScript& script, const CString& name, const CReport& report)
{
    const struct
    {
        const char* command;
        const CString& text;
        int lowest;
        int highest;
    } numbers[] = {{"ANONYMIZE_55", script.Anonymize55First(), 0, 1},
                   {"REMOVE_EMPTY_ALL", script.RemoveEmptyAll(), 0, 1},
                   // A size may be negative; its sign is ignored.
                   {"PIXEL_DATA_ROWS", script.RowsText(), -0xFFFF, 0xFFFF},
                   {"PIXEL_DATA_COLS", script.ColsText(), -0xFFFF, 0xFFFF}};
    bool isGood = true;
    if (script.Anonymize55First().IsEmpty() && !script.Anonymize55Second().IsEmpty())
    {
        report.Error(name + ": ANONYMIZE_55: '" + script.Anonymize55Second() +
                     "' needs a 1 before it, so it would have no effect");
        isGood = false;
    }
    for (const auto& number : numbers)
    {
        if (!number.text.IsEmpty() && !IsNumberFrom(number.lowest, number.highest, number.text))
        {
            CString what;
            what.Format("' is not a number from 0 to %d, so it would have no effect", number.highest);
            report.Error(name + ": " + number.command + ": '" + number.text + what);
            isGood = false;
        }
    }
    for (const CStringArray* groups : {&script.AnonymizeGroups(), &script.RemoveGroups(), &script.RemoveEmptyGroups()})
    {
        for (const CString& text : *groups)
        {
            if (!Varnotix::Tag::ParseNumber(text.CText()))
            {
                report.Error(name + ": '" + text +
                             "' in a command is not a group: a group has four hexadecimal digits");
                isGood = false;
            }
        }
    }
    return isGood;
}

void ApplyGroupCommands(const CDcmAttributeScript& script, CDcmElementSet& store, const CString& name,
                        const CReport& report)
{
    const CString& given = script.Anonymize55Second();
    const CString text = given.IsEmpty() ? CString(kDefaultText) : given;
    const auto remove = [&](CDcmElement& element)
    {
        store.Remove(&element);
        return true;
    };
    CGroupCommand("ANONYMIZE_GROUP", script.AnonymizeGroups(), name, report)
        .Run(store,
             [&](CDcmElement& element)
             {
                 Anonymize(element, text);
                 return true;
             });
    CGroupCommand("REMOVE_GROUP", script.RemoveGroups(), name, report).Run(store, remove);
    CGroupCommand("REMOVE_EMPTY_GROUP", script.RemoveEmptyGroups(), name, report)
        .Run(store, [&](CDcmElement& element) { return element.IsEmptyValue() && remove(element); });
}
