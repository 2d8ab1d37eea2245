#include "object/ValueText.h"

#include "console/Report.h"

#include <algorithm>

namespace
{

constexpr int kShownValues = 16;

CString Printable(const CString& text)
{
    std::string shown(text.CText());
    std::replace_if(
        shown.begin(), shown.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) == 0x7F; }, '.');
    CString line(shown.c_str());
    line.TrimRight();
    return line;
}

/// The first values, followed by the total count if it is larger.
template <class ARRAY, class FORMAT>
CString List(const ARRAY& values, const char* separator, const FORMAT& format)
{
    CString text;
    for (int i = 0; i < std::min(values.GetSize(), kShownValues); ++i)
    {
        text += (i > 0 ? separator : "") + format(values[i]);
    }
    if (values.GetSize() > kShownValues)
    {
        CString count;
        count.Format("%s... (%d values)", separator, values.GetSize());
        text += count;
    }
    return text;
}

template <class NUMBER>
auto Format(const char* format)
{
    return [format](NUMBER number)
    {
        CString text;
        text.Format(format, number);
        return text;
    };
}

CString ShortNumbers(const CDcmElement& element, const CWordArray& words)
{
    if (element.HasVr(VR_SS))
    {
        return List(words, "\\", [](WORD word) { return Format<int>("%d")(static_cast<short>(word)); });
    }
    return List(words, "\\", Format<unsigned>(element.HasVr(VR_AT) ? "%04X" : "%u"));
}

CString LongNumbers(const CDcmElement& element, const CUIntArray& integers)
{
    if (element.HasVr(VR_SL))
    {
        return List(integers, "\\", [](DWORD number) { return Format<int>("%d")(static_cast<int>(number)); });
    }
    return List(integers, "\\", Format<unsigned>("%u"));
}

} // namespace

CString AttributeName(const CDcmElement& element)
{
    const CString name = element.Name();
    return (name.IsEmpty() ? CString() : name + " ") + TagName(element.Tag()) + " " + element.VrName();
}

CString ValueText(const CDcmElement& element)
{
    if (element.Items() != nullptr)
    {
        return CString();
    }
    if (const CDcmFrameList* frames = element.Frames())
    {
        CString text;
        text.Format(frames->GetCount() == 1 ? "%d frame, %llu bytes" : "%d frames, %llu bytes", frames->GetCount(),
                    static_cast<unsigned long long>(frames->TotalSize()));
        return text;
    }
    if (element.Texts() != nullptr)
    {
        return Printable(element.JoinedText());
    }
    if (const CWordArray* words = element.Words())
    {
        return ShortNumbers(element, *words);
    }
    if (const CUIntArray* integers = element.Integers())
    {
        return LongNumbers(element, *integers);
    }
    if (const CFloatArray* floats = element.Floats())
    {
        return List(*floats, "\\", Format<double>("%g"));
    }
    if (const CDoubleArray* doubles = element.Doubles())
    {
        return List(*doubles, "\\", Format<double>("%.15g"));
    }
    if (const CByteArray* bytes = element.Bytes())
    {
        return List(*bytes, " ", Format<unsigned>("%02X"));
    }
    CString size;
    size.Format("%llu bytes", static_cast<unsigned long long>(element.RawBytes().Size()));
    return size;
}
