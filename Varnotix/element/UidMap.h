/// New UIDs for old ones, so that references between objects still hold.
#pragma once

#include "Varnotix/element/DcmElement.h"

#include <array>
#include <functional>
#include <string_view>

namespace Varnotix
{

/// The 16 bytes of a UUID, highest first.
using CUuid = std::array<BYTE, 16>;

/// The UID of a UUID (PS3.5 Annex B.2): "2.25." and the number that its bytes are.
VARNOTIX_EXPORT CString UidOfUuid(const CUuid& uuid);

/// Gives the same new UID for the same old one, as far as its hash function does.
///
/// A map has no list: what it gives depends on the function only. With a keyed hash, such as the first 16 bytes of
/// HMAC-SHA256 over the old UID, every run with the same key gives the same UIDs, and without the key the old ones
/// cannot be found by trying. A plain hash does not protect UIDs that can be guessed.
class VARNOTIX_EXPORT CUidMap
{
public:
    /// 16 bytes that depend on the whole text.
    using CHash = std::function<CUuid(std::string_view)>;

    explicit CUidMap(CHash hash) : m_hash(std::move(hash)) {}

    /// The new UID, in the form 2.25 with a UUID of version 8. UIDs that the UID table lists, such as those of SOP
    /// classes and well-known frames of reference, stay as they are, and so does an empty text.
    /// @param uid blanks and zero bytes at its ends do not count.
    CString NewUid(std::string_view uid) const;

    /// Replaces each UID in the element's value, whatever its VR.
    /// @return whether any was replaced.
    bool Replace(CDcmElement& element) const;

private:
    CHash m_hash;
};

} // namespace Varnotix
