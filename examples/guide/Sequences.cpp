#include "Guide.h"

namespace
{

/// Nested sequences are indented.
void PrintTree(const CDcmElementSet& set, int depth)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        std::cout << std::string(2 * static_cast<std::size_t>(depth), ' ') << element.Name().CText() << ' '
                  << element.JoinedText().CText() << '\n';
        if (element.Items() != nullptr)
        {
            PrintTree(*element.Items(), depth + 1);
        }
    }
}

} // namespace

void Sequences()
{
    CCTImageIOD ct;
    ReadFile("guide.dcm", ct);
    CDcmCodeSequenceMacroEx& code = ct.Module<CDcmGeneralStudyModule>().ProcedureCode();
    std::cout << code.CodeValue().CText() << ": " << code.CodeMeaning().CText() << '\n';

    CDcmElement sequence(0x0008, 0x1032); // Procedure Code Sequence
    CDcmElementSet& items = *sequence.Items();
    for (const char* value : {"CTHEAD", "CTNECK"})
    {
        auto* const made = new CDcmElement(0x0008, 0x0100);
        made->AddText(value);
        items.BeginItem();
        items.Add(made); // The set owns it.
    }

    CDcmCodeSequenceMacroEx one; // Of its own, bound to no module.
    for (int item = 1; item <= items.ItemCount(); ++item)
    {
        one.TakeItem(items, item);
        std::cout << "item " << item << ": " << one.CodeValue().CText() << '\n';
    }

    CDcmElementSet part;
    part.Add(new CDcmElement(sequence));
    PrintTree(part, 0);
}
