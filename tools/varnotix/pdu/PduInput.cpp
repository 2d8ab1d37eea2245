#include "pdu/PduInput.h"

#include "Varnotix/platform/Ascii.h"
#include "files/Input.h"

#include <algorithm>

namespace
{

bool IsTextByte(BYTE byte)
{
    return (byte >= 0x20 && byte <= 0x7E) || (byte >= '\t' && byte <= '\r');
}

bool IsFiller(BYTE byte)
{
    return byte <= ' ' || byte == ',' || byte == ':';
}

int Digit(BYTE byte)
{
    return Varnotix::HexDigit(static_cast<char>(byte));
}

/// Converts pairs of hexadecimal digits.
/// @return the offset of the first character that does not fit, or -1.
int FromHexadecimal(const CByteArray& text, CByteArray& bytes)
{
    const int size = text.GetSize();
    for (int i = 0; i < size;)
    {
        if (text[i] == '#')
        {
            while (i < size && text[i] != '\n')
            {
                ++i;
            }
        }
        else if (IsFiller(text[i]))
        {
            ++i;
        }
        else if (i + 1 < size && text[i] == '0' && (text[i + 1] | 0x20) == 'x')
        {
            i += 2;
        }
        else if (i + 1 < size && Digit(text[i]) >= 0 && Digit(text[i + 1]) >= 0)
        {
            bytes.Add(static_cast<BYTE>(Digit(text[i]) << 4 | Digit(text[i + 1])));
            i += 2;
        }
        else
        {
            return i;
        }
    }
    return -1;
}

} // namespace

bool ReadPduBytes(const CString& path, CByteArray& bytes, const CReport& report)
{
    const auto read = [&]
    {
        ReadBytes(path, bytes);
        if (std::all_of(bytes.begin(), bytes.end(), IsTextByte))
        {
            CByteArray text;
            text.Swap(bytes);
            const int wrong = FromHexadecimal(text, bytes);
            if (wrong >= 0)
            {
                const int line = 1 + static_cast<int>(std::count(text.begin(), text.begin() + wrong, BYTE{'\n'}));
                CString place;
                place.Format(": offset %d, line %d: not a pair of hexadecimal digits", wrong, line);
                report.Error(ShownName(path) + place);
                return false;
            }
        }
        if (bytes.IsEmpty())
        {
            report.Error(ShownName(path) + ": it is empty");
            return false;
        }
        return true;
    };
    return ReportReadFailures(path, report, read);
}
