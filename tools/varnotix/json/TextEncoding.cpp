#include "json/TextEncoding.h"

#include "json/JsonParser.h"
#include "object/Attributes.h"
#include "text/CharacterSet.h"

#include <algorithm>
#include <map>

namespace
{

constexpr DWORD kSpecificCharacterSet = 0x00080005;
constexpr std::string_view kUtf8Term = "ISO_IR 192";

CSharedBytes Shared(std::string_view bytes)
{
    return CSharedBytes::Copy(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
}

void EncodeText(CDcmElement& element, const CCharacterSet& characters)
{
    const CValueBytes value = element.ValueBytes();
    const SEncodedText text = characters.FromUtf8(value.View(), element.VrLetters());
    if (!text.reason.IsEmpty())
    {
        throw CJsonFault(std::string((TagName(element.Tag()) + ": " + text.reason).View()));
    }
    if (text.bytes != value.View())
    {
        element.SetRawBytes(Shared(text.bytes));
    }
}

void EncodeSet(CDcmElementSet& set, const CCharacterSet& around)
{
    std::map<int, CCharacterSet> named; // By item.
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (element.Tag() == kSpecificCharacterSet)
        {
            named.emplace(element.Item(), CCharacterSet(element.ValueBytes().View()));
        }
    }
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        const auto own = named.find(element.Item());
        const CCharacterSet& characters = own != named.end() ? own->second : around;
        if (element.Items() != nullptr)
        {
            EncodeSet(*element.Items(), characters);
        }
        else if (Varnotix::VrKind(element.Vr()) == EVrKind::Text)
        {
            EncodeText(element, characters);
        }
    }
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

void EncodeTexts(CDcmElementSet& store, const CString& terms)
{
    bool isAscii = true;
    const auto visit = [&](const Varnotix::SWalkPlace& place)
    {
        CDcmElement& element = place.element;
        if (element.Tag() == kSpecificCharacterSet && !terms.IsEmpty())
        {
            element.SetRawBytes(Shared(terms.View()));
        }
        isAscii = isAscii && (!CCharacterSet::AppliesTo(element.VrLetters()) || IsAscii(element.ValueBytes().View()));
        return Varnotix::EWalk::Enter;
    };
    Varnotix::WalkElements(store, visit);
    const CDcmElement* named = store.Find(kSpecificCharacterSet);
    if (!terms.IsEmpty() || (!isAscii && (named == nullptr || named->IsEmptyValue())))
    {
        SetText(store, kSpecificCharacterSet, terms.IsEmpty() ? kUtf8Term : terms.View(), ' ');
    }
    EncodeSet(store, CCharacterSet());
}
