/// What the codec tests share: streams written out by hand, and element sets told as text.
#pragma once

#include "Varnotix/codec/DcmParser.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/MemFile.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

using Bytes = std::vector<BYTE>;

/// Bytes from text: pairs of hexadecimal digits, and 'quoted' characters that stand for themselves. Blanks between
/// them are ignored: Stream("08 00 60 00 'CS' 02 00 'MR'").
inline Bytes Stream(std::string_view text)
{
    const auto nibble = [](char digit) { return std::isdigit(digit) ? digit - '0' : std::toupper(digit) - 'A' + 10; };
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == '\'')
        {
            for (++i; text[i] != '\''; ++i)
            {
                bytes.push_back(static_cast<BYTE>(text[i]));
            }
        }
        else if (text[i] != ' ')
        {
            bytes.push_back(static_cast<BYTE>(nibble(text[i]) * 16 + nibble(text[i + 1])));
            ++i;
        }
    }
    return bytes;
}

inline Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

inline std::string HexText(const BYTE* bytes, std::size_t size)
{
    std::string text;
    char digits[3];
    for (std::size_t i = 0; i < size; ++i)
    {
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(bytes[i]));
        text += digits;
    }
    return text;
}

/// The hexadecimal text of bytes, so that a difference shows in a failed comparison.
inline std::string HexText(const Bytes& bytes)
{
    return HexText(bytes.data(), bytes.size());
}

inline std::string HexText(const CByteArray& bytes)
{
    return HexText(bytes.GetData(), static_cast<std::size_t>(bytes.GetSize()));
}

/// A preamble of zero bytes and the magic.
inline Bytes Part10(const Bytes& elements)
{
    return Bytes(128, BYTE{0}) + Stream("'DICM'") + elements;
}

/// One read of a stream, with everything that it gave.
struct SRead
{
    explicit SRead(const Bytes& stream)
    {
        CMemFile file;
        file.Attach(stream.data(), static_cast<UINT>(stream.size()));
        CArchive archive(&file, CArchive::load);
        parser.SerializeSet(archive, set);
    }

    /// The trials as "syntax:fault@offset", a blank between them.
    std::string Trials() const
    {
        std::string text;
        for (const SReadTrial& trial : parser.Trials())
        {
            text += (text.empty() ? "" : " ") + std::to_string(trial.syntax) + ":" + std::to_string(trial.fault) + "@" +
                    std::to_string(trial.offset);
        }
        return text;
    }

    CDcmParser parser;
    CDcmElementSet set;
};

/// The bytes that a set is written as.
inline Bytes Written(CDcmElementSet& set, int syntax, bool groupLengths = false)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    CDcmParser parser;
    parser.SetOutputSyntax(syntax);
    parser.SetGroupLengths(groupLengths);
    parser.SerializeSet(archive, set);
    archive.Close();
    CByteArray bytes;
    file.DetachTo(bytes);
    return Bytes(bytes.begin(), bytes.end());
}

/// Every element of a set as "ggggeeee VR value", with "; " between them: texts joined by backslashes (a zero byte is
/// shown as ~), numbers, bytes and frames in hexadecimal, items in braces.
inline std::string Show(const CDcmElementSet& set)
{
    std::string text;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        text += i > 0 ? "; " : "";
        text += std::string(element.GroupText()) + std::string(element.ElementText()) + " " + VrText(element.Vr());
        std::string value(element.Texts() != nullptr ? element.JoinedText().View() : "");
        std::replace(value.begin(), value.end(), '\0', '~');
        const auto addNumbers = [&value](const auto* numbers)
        {
            for (int place = 0; numbers != nullptr && place < numbers->GetSize(); ++place)
            {
                CString number;
                number.Format(place > 0 ? " %g" : "%g", static_cast<double>((*numbers)[place]));
                value += number.View();
            }
        };
        addNumbers(element.Words());
        addNumbers(element.Integers());
        addNumbers(element.Floats());
        addNumbers(element.Doubles());
        const CDcmFrameList* frames = element.Frames();
        for (int number = 0; frames != nullptr && number < frames->GetCount(); ++number)
        {
            const CDcmFrame& frame = *frames->GetFrame(number);
            value +=
                (number > 0 ? " " : "") + std::to_string(frame.Number()) + ":" + HexText(frame.Data(), frame.Size());
        }
        if (const CDcmElementSet* items = element.Items())
        {
            value = "{" + Show(*items) + "}";
        }
        else if (const CByteArray* bytes = element.Bytes(); bytes != nullptr && frames == nullptr)
        {
            value += HexText(*bytes);
        }
        text += value.empty() ? "" : " " + value;
    }
    return text;
}
