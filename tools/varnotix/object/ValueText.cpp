#include "object/ValueText.h"

#include "console/Report.h"

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr int kShownValues = 16;

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

/// The numbers of 64 bits that a later VR has.
CString HugeNumbers(const CDcmElement& element, const CByteArray& bytes)
{
    constexpr int kWidth = 8;
    std::vector<unsigned long long> numbers(static_cast<std::size_t>(bytes.GetSize() / kWidth));
    for (int i = 0; i < static_cast<int>(numbers.size()) * kWidth; ++i)
    {
        numbers[static_cast<std::size_t>(i / kWidth)] |= static_cast<unsigned long long>(bytes[i]) << (i % kWidth * 8);
    }
    const bool isSigned = element.LaterVr() == Varnotix::ELaterVr::SV;
    CString text;
    for (std::size_t i = 0; i < numbers.size() && i < kShownValues; ++i)
    {
        const std::string digits =
            isSigned ? std::to_string(static_cast<long long>(numbers[i])) : std::to_string(numbers[i]);
        text += (i > 0 ? "\\" : "") + CString(std::string_view(digits));
    }
    if (numbers.size() > kShownValues)
    {
        text += CString(std::string_view("\\... (" + std::to_string(numbers.size()) + " values)"));
    }
    return text;
}

} // namespace

CString AttributeName(const CDcmElement& element)
{
    const CString name = element.Name();
    return (name.IsEmpty() ? CString() : name + " ") + TagName(element.Tag()) + " " +
           (element.LaterVr() == Varnotix::ELaterVr::None ? element.VrName()
                                                          : CString(Varnotix::LaterVrText(element.LaterVr())));
}

std::string Printable(std::string text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) == 0x7F; }, '.');
    return text;
}

CString ValueText(const CDcmElement& element, const CCharacterSet& characters)
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
        const CString text = element.JoinedText();
        const std::string_view value = CCharacterSet::WithoutPadding(text.View(), element.VrLetters());
        return CString(std::string_view(Printable(characters.ToUtf8(value, element.VrLetters()).Joined())));
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
        if (element.LaterVr() == Varnotix::ELaterVr::SV || element.LaterVr() == Varnotix::ELaterVr::UV)
        {
            return HugeNumbers(element, *bytes);
        }
        return List(*bytes, " ", Format<unsigned>("%02X"));
    }
    CString size;
    size.Format("%llu bytes", static_cast<unsigned long long>(element.RawBytes().Size()));
    return size;
}
