// Elements and sets written out in tests.
#pragma once

#include "Bytes.h"
#include "Varnotix/element/DcmElementSet.h"

#include <memory>
#include <string>
#include <vector>

/// An element of a dictionary tag that holds one text.
inline CDcmElement* MakeText(int group, int element, const char* text)
{
    auto made = std::make_unique<CDcmElement>(group, element);
    made->AddText(text);
    return made.release();
}

inline CDcmElement* MakeWord(int group, int element, WORD value)
{
    auto made = std::make_unique<CDcmElement>(group, element);
    made->AddWord(value);
    return made.release();
}

/// Appends the elements; the set owns them.
inline void Fill(CDcmElementSet& set, std::initializer_list<CDcmElement*> elements)
{
    for (CDcmElement* element : elements)
    {
        set.Add(element);
    }
}

/// An SQ element that holds the given elements and owns them.
inline CDcmElement* MakeSequence(int group, int element, std::initializer_list<CDcmElement*> items)
{
    auto made = std::make_unique<CDcmElement>(group, element);
    Fill(*made->Items(), items);
    return made.release();
}

/// Tag and joined text of each element in list order: "00100010=DOE".
inline std::vector<std::string> Listing(const CDcmElementSet& set)
{
    std::vector<std::string> lines;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        CString line(element.GroupText() + element.ElementText());
        line += "=";
        line += element.JoinedText();
        lines.emplace_back(line.CText());
    }
    return lines;
}

/// The text of an element; "none" without the element.
inline std::string TextOf(const CDcmElementSet& set, int group, int element)
{
    const CDcmElement* found = set.Find(group, element);
    return found != nullptr ? std::string(found->JoinedText().CText()) : "none";
}

/// The texts of an array as standard texts, so that a failed comparison prints them.
inline std::vector<std::string> Lines(const CStringArray& texts)
{
    std::vector<std::string> lines;
    for (const CString& text : texts)
    {
        lines.emplace_back(text.View());
    }
    return lines;
}
