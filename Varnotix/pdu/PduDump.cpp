// The text dump of a protocol data unit, for logs and diagnostics.

#include "Varnotix/pdu/DcmProtocolDataUnit.h"

#include <algorithm>

namespace
{

void AddNumber(CStringArray& lines, const char* format, int number)
{
    CString line;
    line.Format(format, number);
    lines.Add(line);
}

/// The texts, each followed by a comma.
CString Joined(const CStringArray& texts)
{
    CString joined;
    for (const CString& text : texts)
    {
        joined += text.CText();
        joined += ',';
    }
    return joined;
}

bool IsPrintable(BYTE byte)
{
    return byte >= 0x20 && byte <= 0x7E;
}

/// Text is shown after two blanks, numbers after one, so that a reader can distinguish the two.
CString UserDataLine(const CDcmUserData& item)
{
    const CByteArray& data = item.Data();
    CString line;
    if (std::all_of(data.begin(), data.end(), IsPrintable))
    {
        const CString text(reinterpret_cast<const char*>(data.GetData()), data.GetSize());
        line.Format("UDI [(%xh)  (%s)]", static_cast<unsigned>(item.Type()), static_cast<const char*>(text));
        return line;
    }
    CString numbers;
    for (const BYTE byte : data)
    {
        CString number;
        number.Format("%u,", static_cast<unsigned>(byte));
        numbers += number;
    }
    line.Format("UDI [(%xh) (%s)]", static_cast<unsigned>(item.Type()), static_cast<const char*>(numbers));
    return line;
}

} // namespace

void CDcmProtocolDataUnit::Export(CStringArray& lines) const
{
    CString line;
    line.Format("PDU Type [%x]", static_cast<unsigned>(m_type));
    lines.Add(line);
    AddNumber(lines, "PDU Length [%d]", m_length);
    AddNumber(lines, "Protocol Version [%d]", m_version);
    line.Format("Called AE [%s]", static_cast<const char*>(m_calledAE));
    lines.Add(line);
    line.Format("Calling AE [%s]", static_cast<const char*>(m_callingAE));
    lines.Add(line);
    AddNumber(lines, "Result [%d]", m_result);
    AddNumber(lines, "Source [%d]", m_source);
    AddNumber(lines, "Reason [%d]", m_reason);
    for (const CObject* object : m_presentationContexts)
    {
        const auto& context = static_cast<const CPresentationContext&>(*object);
        line.Format("PCI [(%s) (%s) (%d) (%d)]", static_cast<const char*>(context.AbstractSyntax()),
                    static_cast<const char*>(Joined(context.TransferSyntaxes())), context.ContextID(),
                    context.Result());
        lines.Add(line);
    }
    line.Format("ACI [%s]", static_cast<const char*>(Joined(m_applicationContexts)));
    lines.Add(line);
    for (const CObject* object : m_userData)
    {
        lines.Add(UserDataLine(static_cast<const CDcmUserData&>(*object)));
    }
    for (const CObject* object : m_dataValues)
    {
        const auto& value = static_cast<const CPresentationDataValue&>(*object);
        line.Format("PDV [(%d) (%d) (%d)]", value.ContextID(), value.MessageControl(), value.Data().GetSize());
        lines.Add(line);
    }
}
