#include "pdu/PduVerb.h"

#include "files/Input.h"
#include "pdu/PduFields.h"
#include "pdu/PduInput.h"
#include "pdu/PduMeanings.h"

#include <algorithm>

namespace
{

constexpr int kHeaderSize = 6;
constexpr int kBytesALine = 16;

/// The size of the PDU that starts here. A PDU that is cut off, or of an unknown type, whose length means nothing,
/// takes all remaining bytes.
int PduSize(const CByteArray& stream, int start)
{
    const int left = stream.GetSize() - start;
    const BYTE* header = stream.GetData() + start;
    if (left < kHeaderSize || header[0] < Varnotix::PDU_ASSOCIATE_RQ || header[0] > Varnotix::PDU_ABORT)
    {
        return left;
    }
    DWORD length = 0;
    for (int i = 2; i < kHeaderSize; ++i)
    {
        length = length << 8U | header[i];
    }
    return length > static_cast<DWORD>(left - kHeaderSize) ? left : kHeaderSize + static_cast<int>(length);
}

CString Hexadecimal(const BYTE* bytes, int count)
{
    CString text;
    for (int i = 0; i < count; ++i)
    {
        CString byte;
        byte.Format(i == 0 ? "%02x" : " %02x", static_cast<unsigned>(bytes[i]));
        text += byte;
    }
    return text;
}

/// Prints the field's bytes in lines of sixteen, with name and meaning in the first.
void PrintField(const SShownField& field, const CByteArray& pdu, int start, CConsole& console)
{
    for (int done = 0; done < field.size; done += kBytesALine)
    {
        const CString bytes =
            Hexadecimal(pdu.GetData() + field.offset + done, std::min(kBytesALine, field.size - done));
        CString line;
        if (done > 0)
        {
            line.Format("%8d  %s\n", start + field.offset + done, static_cast<const char*>(bytes));
        }
        else
        {
            line.Format("%8d  %-47s  %s%s%s\n", start + field.offset, static_cast<const char*>(bytes),
                        static_cast<const char*>(field.name), field.meaning.IsEmpty() ? "" : ": ",
                        static_cast<const char*>(field.meaning));
        }
        console.Print(line.View());
    }
}

void PrintDump(const CByteArray& bytes, CConsole& console)
{
    CDcmProtocolDataUnit pdu;
    pdu.Create(bytes);
    CStringArray lines;
    pdu.Export(lines);
    for (const CString& line : lines)
    {
        console.Print(line.View());
        console.Print("\n");
    }
}

void ShowPdu(const CByteArray& bytes, const std::vector<SShownField>& fields, int number, int start, bool showFields,
             CConsole& console)
{
    CString heading;
    heading.Format("# PDU %d at offset %d, %s: %s\n", number, start,
                   static_cast<const char*>(SizeText(bytes.GetSize())), Varnotix::PduTypeName(bytes[0]));
    console.Print(heading.View());
    if (!showFields)
    {
        PrintDump(bytes, console);
        return;
    }
    for (const SShownField& field : fields)
    {
        PrintField(field, bytes, start, console);
    }
}

} // namespace

int ShowPdus(const SJob& job, bool showFields)
{
    const CString& path = job.input.path;

    CByteArray stream;
    if (!ReadPduBytes(path, stream, job.report))
    {
        return STATUS_UNREADABLE;
    }
    int status = STATUS_DONE;
    int number = 0;
    for (int start = 0; start < stream.GetSize();)
    {
        CByteArray pdu;
        pdu.Assign(stream.GetData() + start, PduSize(stream, start));
        ++number;
        const std::vector<SShownField> fields = ListPduFields(pdu);
        ShowPdu(pdu, fields, number, start, showFields, job.console);
        const SShownField& last = fields.back();
        if (last.isUnread)
        {
            CString message;
            message.Format(": PDU %d: unread from offset %d on, %s: %s", number, start + last.offset,
                           static_cast<const char*>(SizeText(last.size)), static_cast<const char*>(last.meaning));
            job.report.Error(ShownName(path) + message);
            status = STATUS_UNREADABLE;
        }
        start += pdu.GetSize();
    }
    job.console.Flush();
    return status;
}
