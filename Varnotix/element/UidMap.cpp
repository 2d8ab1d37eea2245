#include "Varnotix/element/UidMap.h"

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace Varnotix
{

namespace
{

std::string_view TrimPadding(std::string_view uid)
{
    constexpr std::string_view kPadding(" \0", 2);
    uid.remove_prefix(std::min(uid.find_first_not_of(kPadding), uid.size()));
    return uid.substr(0, uid.find_last_not_of(kPadding) + 1);
}

} // namespace

CString UidOfUuid(const CUuid& uuid)
{
    // The most digits that 128 bits can have.
    constexpr int kDigits = 39;
    CUuid rest = uuid;
    std::string digits(kDigits, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit)
    {
        unsigned remainder = 0;
        for (BYTE& byte : rest)
        {
            remainder = remainder << 8U | byte;
            byte = static_cast<BYTE>(remainder / 10);
            remainder %= 10;
        }
        *digit = static_cast<char>('0' + remainder);
    }
    return CString("2.25." + digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1)));
}

CString CUidMap::NewUid(std::string_view uid) const
{
    uid = TrimPadding(uid);
    CString old(uid);
    if (uid.empty() || CDcmRegistry::Global().UidEnum(old) >= 0)
    {
        return old;
    }
    CUuid uuid = m_hash(uid);
    uuid[6] = static_cast<BYTE>((uuid[6] & 0x0FU) | 0x80U); // Version 8: made as the maker likes.
    uuid[8] = static_cast<BYTE>((uuid[8] & 0x3FU) | 0x80U); // Variant.
    return UidOfUuid(uuid);
}

bool CUidMap::Replace(CDcmElement& element) const
{
    const CValueBytes value = element.ValueBytes();
    std::string_view rest = value.View();
    std::string replaced;
    bool isChanged = false;
    for (bool isFirst = true; isFirst || !rest.empty(); isFirst = false)
    {
        const std::size_t end = std::min(rest.find('\\'), rest.size());
        const std::string_view old = TrimPadding(rest.substr(0, end));
        const CString fresh = NewUid(old);
        isChanged = isChanged || fresh.View() != old;
        replaced += fresh.View();
        replaced += end < rest.size() ? "\\" : "";
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (isChanged)
    {
        replaced.append(replaced.size() % 2, '\0');
        CByteArray bytes;
        bytes.Assign(reinterpret_cast<const BYTE*>(replaced.data()), static_cast<int>(replaced.size()));
        element.SetRawBytes(bytes);
    }
    return isChanged;
}

} // namespace Varnotix
