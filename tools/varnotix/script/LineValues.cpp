#include "script/LineValues.h"

#include "object/ElementMaker.h"

namespace
{

/// The values of a list as a reader puts them into one element.
CString Divided(std::string_view list)
{
    CString text;
    for (std::string_view value; Varnotix::NextAslValue(list, value);)
    {
        text += (text.IsEmpty() ? "" : "\\") + CString(value);
    }
    text.TrimRight();
    return text;
}

void RestoreText(std::string_view list, CDcmElement& element)
{
    if (!IsSingleText(element) || CountValues(list) < 2)
    {
        return;
    }
    CString text = element.JoinedText();
    text.TrimRight();
    if (text == Divided(list))
    {
        element.SetRawBytes(WithSingleText(element, list).RawBytes());
    }
}

void RestoreVr(std::string_view letters, CDcmElement& element, CDcmElementSet& set)
{
    if (!IsVr(letters) || letters == element.VrLetters())
    {
        return;
    }
    std::unique_ptr<CDcmElement> made = MakeElement(element.Tag(), letters, element.ValueBytes().View());
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(element.Tag());
    const bool isSigned =
        made->HasVr(VR_SS) && element.HasVr(VR_US) && entry != nullptr && entry->choice != Varnotix::EVrChoice::None;
    if (isSigned || (made->LaterVr() != Varnotix::ELaterVr::None && made->Vr() == element.Vr()))
    {
        set.SelectItem(element.Item());
        set.Remove(&element);
        set.Add(made.release());
    }
}

} // namespace

int CountValues(std::string_view list)
{
    int count = 0;
    for (std::string_view value; Varnotix::NextAslValue(list, value);)
    {
        ++count;
    }
    return count;
}

bool IsSingleText(const CDcmElement& shape)
{
    const bool isLong = shape.HasVr(VR_LT) || shape.HasVr(VR_ST) || shape.HasVr(VR_UT);
    return Varnotix::VrKind(shape.Vr()) == EVrKind::Text && (shape.Vm() == 1 || isLong) && !shape.HasVr(VR_UI);
}

CDcmElement WithSingleText(const CDcmElement& shape, std::string_view list)
{
    list = Varnotix::TrimBlanks(list);
    std::string text(list.substr(0, list.size() - (list.ends_with(',') ? 1 : 0)));
    if (text.size() % 2 == 1)
    {
        text += ' ';
    }
    CDcmElement made(shape.Group(), shape.Element(), shape.Vr());
    made.SetRawBytes(CSharedBytes::Copy(reinterpret_cast<const BYTE*>(text.data()), text.size()));
    return made;
}

void RestoreLines(const SScriptLine& around, CDcmElementSet& set)
{
    for (const SScriptLine& line : around.inner)
    {
        if (line.element == nullptr)
        {
            continue;
        }
        if (line.element->Items() != nullptr)
        {
            RestoreLines(line, *line.element->Items());
            continue;
        }
        RestoreText(line.parts.values, *line.element);
        RestoreVr(Varnotix::TrimBlanks(line.parts.vr), *line.element, set);
    }
}
