#include "edit/TextConversion.h"

#include "edit/ValueEncoder.h"

#include <algorithm>

namespace
{

constexpr DWORD kSpecificCharacterSet = 0x00080005;

bool IsAscii(std::string_view bytes)
{
    constexpr char kEscape = 0x1B;
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != kEscape; });
}

CString Convert(CDcmElement& element, const CCharacterSet& from, const CCharacterSet& to)
{
    const CString vr = element.VrLetters();
    const std::string bytes(element.ValueBytes().View());
    if (!CCharacterSet::AppliesTo(vr.View()) || IsAscii(bytes))
    {
        return CString();
    }
    const CString name = Varnotix::CElementPath(element.Tag()).Text();
    const SDecodedText text = from.ToUtf8(bytes, vr.View());
    if (text.replaced > 0)
    {
        return name + " has bytes that are not characters of the present set";
    }
    std::string joined = text.Joined();
    joined.resize(joined.find_last_not_of(' ') + 1);
    const SEncodedText encoded = EncodeValue(joined, vr.View(), to);
    if (!encoded.reason.IsEmpty())
    {
        return name + ": " + encoded.reason;
    }
    element.SetRawBytes(CSharedBytes::Copy(reinterpret_cast<const BYTE*>(encoded.bytes.data()), encoded.bytes.size()));
    return CString();
}

} // namespace

CString ConvertTextsOf(CDcmElementSet& set, int item, const CCharacterSet& from, const CCharacterSet& to)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        if (item > 0 && std::max(element.Item(), 1) != item)
        {
            continue;
        }
        CString fault = Convert(element, from, to);
        CDcmElementSet* items = element.Items();
        for (int inner = 1; items != nullptr && inner <= items->ItemCount() && fault.IsEmpty(); ++inner)
        {
            if (Varnotix::FindInSet(*items, inner, kSpecificCharacterSet) == nullptr)
            {
                fault = ConvertTextsOf(*items, inner, from, to);
            }
        }
        if (!fault.IsEmpty())
        {
            return fault;
        }
    }
    return CString();
}
