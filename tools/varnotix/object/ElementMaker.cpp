#include "object/ElementMaker.h"

using namespace Varnotix;

namespace
{

ELaterVr LaterVrOf(std::string_view vr)
{
    return vr.size() == 2 ? LaterVrOfBytes(static_cast<BYTE>(vr[0]), static_cast<BYTE>(vr[1])) : ELaterVr::None;
}

} // namespace

int CarrierCode(std::string_view vr)
{
    const ELaterVr later = LaterVrOf(vr);
    if (later != ELaterVr::None)
    {
        return CarrierVr(later);
    }
    return vr.size() == 2 ? VrCodeOfBytes(static_cast<BYTE>(vr[0]), static_cast<BYTE>(vr[1])) : VR_UNKNOWN;
}

bool IsVr(std::string_view letters)
{
    return CarrierCode(letters) < kNamedVrCount;
}

std::unique_ptr<CDcmElement> MakeElement(DWORD tag, std::string_view vr)
{
    const int code = IsVr(vr) ? CarrierCode(vr) : static_cast<int>(VR_UN);
    const CDcmEntry* listed = CDcmRegistry::Global().LookUpPublicTag(tag);
    const CDcmEntry* entry = listed != nullptr ? listed : &CDcmRegistry::UnlistedEntry(code);
    auto element = std::make_unique<CDcmElement>(Tag::Group(tag), Tag::Element(tag), code, entry);
    element->SetLaterVr(LaterVrOf(vr));
    return element;
}

std::unique_ptr<CDcmElement> MakeElement(DWORD tag, std::string_view vr, std::string_view bytes)
{
    std::unique_ptr<CDcmElement> element = MakeElement(tag, vr);
    element->SetRawBytes(CSharedBytes::Copy(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size()));
    return element;
}

CString ListedVr(DWORD tag, bool isSigned)
{
    constexpr int kFirstCreator = 0x10;
    constexpr int kLastCreator = 0xFF;
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(tag);
    if (entry == nullptr)
    {
        const bool isCreator =
            Tag::IsPrivate(tag) && Tag::Element(tag) >= kFirstCreator && Tag::Element(tag) <= kLastCreator;
        return isCreator ? "LO" : "";
    }
    if (entry->laterVr != ELaterVr::None)
    {
        return LaterVrText(entry->laterVr);
    }
    return entry->choice == EVrChoice::UsOrSs && isSigned ? "SS" : VrText(static_cast<int>(entry->vr));
}
