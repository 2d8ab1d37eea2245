#include "object/NewUid.h"

#include <random>

CString NewUid()
{
    std::random_device device;
    Varnotix::CUuid uuid{};
    for (BYTE& byte : uuid)
    {
        byte = static_cast<BYTE>(device());
    }
    uuid[6] = static_cast<BYTE>((uuid[6] & 0x0FU) | 0x40U); // Version: random.
    uuid[8] = static_cast<BYTE>((uuid[8] & 0x3FU) | 0x80U); // Variant.
    return Varnotix::UidOfUuid(uuid);
}
