/// Streams as the codec reads and writes them, and element sets as text.
#pragma once

#include "Bytes.h"
#include "Varnotix/codec/DcmParser.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/MemFile.h"

#include <algorithm>

/// A preamble of zero bytes and the prefix.
inline CByteArray Part10(const CByteArray& elements)
{
    return Zeros(128) + TextBytes("DICM") + elements;
}

/// The trials as "syntax:fault@offset", a blank between them.
inline std::string TrialsText(const std::vector<SReadTrial>& trials)
{
    std::string text;
    for (const SReadTrial& trial : trials)
    {
        text += (text.empty() ? "" : " ") + std::to_string(trial.syntax) + ":" + std::to_string(trial.fault) + "@" +
                std::to_string(trial.offset);
    }
    return text;
}

/// One read of a stream, with everything that it gave.
struct SRead
{
    explicit SRead(const CByteArray& stream, EStreamRules rules = STREAM_RULES_CLASSIC)
    {
        parser.StreamRules(rules);
        Again(stream);
    }

    void Again(const CByteArray& stream)
    {
        CMemFile file;
        file.Attach(stream.GetData(), static_cast<UINT>(stream.GetSize()));
        CArchive archive(&file, CArchive::load);
        parser.SerializeSet(archive, set);
    }

    std::string Trials() const { return TrialsText(parser.Trials()); }

    /// The notes as "note:ggggeeee@offset".
    std::string Notes() const
    {
        std::string text;
        for (const SReadNote& note : parser.Notes())
        {
            CString one;
            one.Format("%s%d:%08x@%u", text.empty() ? "" : " ", note.note, static_cast<unsigned>(note.tag),
                       static_cast<unsigned>(note.offset));
            text += one.View();
        }
        return text;
    }

    CDcmParser parser;
    CDcmElementSet set;
};

/// The bytes that a set is written as.
inline CByteArray Written(CDcmElementSet& set, int syntax, bool groupLengths = false,
                          EStreamRules rules = STREAM_RULES_CLASSIC)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    CDcmParser parser;
    parser.StreamRules(rules);
    parser.SetOutputSyntax(syntax);
    parser.SetGroupLengths(groupLengths);
    parser.SerializeSet(archive, set);
    archive.Close();
    CByteArray bytes;
    file.DetachTo(bytes);
    return bytes;
}

/// The value of an element: texts joined by backslashes (a zero byte is shown as ~, except the one that pads a UID),
/// numbers, and in hexadecimal bytes and frames.
inline std::string ShowValue(const CDcmElement& element)
{
    if (element.Texts() != nullptr)
    {
        std::string text(element.HasVr(VR_UI) ? element.JoinedText().CText() : element.JoinedText().View());
        std::replace(text.begin(), text.end(), '\0', '~');
        return text;
    }
    std::string value;
    const auto addNumbers = [&value](const auto* numbers)
    {
        for (int place = 0; numbers != nullptr && place < numbers->GetSize(); ++place)
        {
            CString number;
            number.Format(place > 0 ? " %.17g" : "%.17g", static_cast<double>((*numbers)[place]));
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
        value += (number > 0 ? " " : "") + std::to_string(frame.Number()) + ":" + HexText(frame.Data(), frame.Size());
    }
    if (frames == nullptr && element.HasVr(VR_UN))
    {
        return HexText(element.RawBytes().Data(), element.RawBytes().Size());
    }
    return value + (frames == nullptr && element.Bytes() != nullptr ? HexText(*element.Bytes()) : "");
}

/// The elements of a set as "ggggeeee VR value", with "; " between them; items are in braces.
/// @param onlyFilled leave out those without a value, which modules have many of.
inline std::string Show(const CDcmElementSet& set, bool onlyFilled = false)
{
    std::string text;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (onlyFilled && element.IsEmptyValue())
        {
            continue;
        }
        const CDcmElementSet* items = element.Items();
        const std::string value = items != nullptr ? "{" + Show(*items, onlyFilled) + "}" : ShowValue(element);
        text += (text.empty() ? "" : "; ") + std::string(element.GroupText()) + std::string(element.ElementText()) +
                " " + Varnotix::VrText(element.Vr()) + (value.empty() ? "" : " " + value);
    }
    return text;
}
