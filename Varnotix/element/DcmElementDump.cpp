// The diagnostic dump of an element.

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/platform/DumpContext.h"

namespace
{

template <class ARRAY>
void DumpNumbers(CDumpContext& context, const ARRAY* values)
{
    const int count = values != nullptr ? values->GetSize() : 0;
    context << "[sz=" << count << "]";
    for (int i = 0; i < count; ++i)
    {
        CString text;
        text.Format("[%u]", static_cast<unsigned>((*values)[i]));
        context << text;
    }
    context << "\n";
}

} // namespace

void CDcmElement::Dump(CDumpContext& context) const
{
    context << "[" << GroupText() << "][" << ElementText() << "][" << Vm() << "][" << VrName() << "][" << Name() << "]";
    context << "[vfl=" << EncodedValueSize() << "]";
    switch (Varnotix::VrKind(m_vr))
    {
    case EVrKind::Text:
        context << "[sz=" << (Texts() != nullptr ? Texts()->GetSize() : 0) << "][\"" << JoinedText() << "\"]\n";
        break;
    case EVrKind::Words:
        DumpNumbers(context, Words());
        break;
    case EVrKind::Integers:
        DumpNumbers(context, Integers());
        break;
    case EVrKind::Bytes:
    case EVrKind::OtherWords:
        if (m_frames)
        {
            m_frames->Dump(context);
        }
        else
        {
            context << "[sz=" << (Bytes() != nullptr ? Bytes()->GetSize() : 0) << "]";
        }
        context << "\n";
        break;
    case EVrKind::Items:
        context << "\nStart sequence items\n";
        if (m_items)
        {
            m_items->Dump(context);
        }
        context << "end sequence items\n";
        break;
    case EVrKind::Floats:
    case EVrKind::Doubles:
    case EVrKind::RawOnly:
        break;
    }
}
