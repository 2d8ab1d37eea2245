#include "deid/Values.h"

#include <algorithm>
#include <array>

namespace
{

/// Texts of VRs that have a form of their own.
constexpr std::pair<int, std::string_view> kDummyTexts[] = {
    {VR_AS, "000Y"}, {VR_DA, "19000101"}, {VR_DS, "0"},      {VR_DT, "19000101000000"},
    {VR_IS, "0"},    {VR_TM, "000000"},   {VR_UI, "2.25.0"},
};

/// Sizes of one value of VRs that are no texts.
constexpr std::pair<int, std::size_t> kSizes[] = {
    {VR_AT, 4}, {VR_FL, 4}, {VR_FD, 8}, {VR_OF, 4}, {VR_OW, 2}, {VR_OB, 2},
    {VR_SL, 4}, {VR_SS, 2}, {VR_UL, 4}, {VR_US, 2}, {VR_UN, 2},
};

template <class ROWS>
auto FindVr(const ROWS& rows, int vr)
{
    return std::find_if(std::begin(rows), std::end(rows), [vr](const auto& row) { return row.first == vr; });
}

} // namespace

int VrOf(const CDcmElement& element)
{
    const CDcmEntry* entry = element.HasVr(VR_UN) ? CDcmRegistry::Global().LookUpPublicTag(element.Tag()) : nullptr;
    return entry != nullptr ? static_cast<int>(entry->vr) : element.Vr();
}

bool HoldsWords(const CDcmElement& element)
{
    constexpr std::array kVrs = {VR_AE, VR_LO, VR_LT, VR_PN, VR_SH, VR_ST, VR_UT};
    return std::find(kVrs.begin(), kVrs.end(), VrOf(element)) != kVrs.end();
}

void SetValue(CDcmElement& element, std::string_view text)
{
    if (element.Items() != nullptr)
    {
        element.Items()->RemoveAll();
        return;
    }
    CDcmElement fresh(element.Group(), element.Element(), element.Vr());
    fresh.SetLaterVr(element.LaterVr());
    if (!text.empty())
    {
        CByteArray bytes;
        bytes.Assign(reinterpret_cast<const BYTE*>(text.data()), static_cast<int>(text.size()));
        if (bytes.GetSize() % 2 == 1)
        {
            bytes.Add(VrOf(element) == VR_UI ? BYTE{0} : BYTE{' '});
        }
        fresh.SetRawBytes(bytes);
    }
    element = fresh;
}

std::string DummyText(const CDcmElement& element)
{
    // Later VRs of numbers have up to eight bytes a value.
    constexpr std::size_t kWidest = 8;
    const int vr = VrOf(element);
    const int count = std::max(element.Vm(), 1);
    if (const auto* size = FindVr(kSizes, vr); size != std::end(kSizes))
    {
        const bool isLater = element.LaterVr() != Varnotix::ELaterVr::None;
        return std::string((isLater ? kWidest : size->second) * static_cast<std::size_t>(count), '\0');
    }
    const auto* own = FindVr(kDummyTexts, vr);
    std::string text(own == std::end(kDummyTexts) ? kDummyWord : own->second);
    const std::size_t single = text.size();
    for (int i = 1; i < count; ++i)
    {
        text += '\\' + text.substr(0, single);
    }
    return text;
}
