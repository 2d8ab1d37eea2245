/// One entry of the data dictionary.
#pragma once

#include "Varnotix/platform/Object.h"
#include "Varnotix/platform/String.h"
#include "Varnotix/registry/LaterVr.h"
#include "Varnotix/registry/VrTable.h"

/// What the dictionary holds about a tag (PS3.6). Entries are owned by the registry's tables; callers hold them by
/// constant pointer.
class VARNOTIX_EXPORT CDcmEntry : public CObject
{
    DECLARE_DYNAMIC(CDcmEntry)

public:
    CDcmEntry(int vrCode, int valueMultiplicity, const CString& attributeName);

    DWORD vr;         ///< VR code (see EVr).
    int multiplicity; ///< Value multiplicity; -1 means one or more without bound, 0 no value.
    CString name;     ///< The attribute's name, or "Private Data Element" for a tag learned from a stream.
    BYTE retired;     ///< Retired mark; no loader of the library sets it.

    /// The VR of the standard where `vr` only carries its values.
    Varnotix::ELaterVr laterVr = Varnotix::ELaterVr::None;
    /// The choice of VRs of the standard where `vr` is one of them.
    Varnotix::EVrChoice choice = Varnotix::EVrChoice::None;
    /// The attribute's keyword where it cannot be formed from the name; otherwise empty. See Varnotix::KeywordOf.
    CString keyword;
};

/// One row of the registry's VR type table, for a client that lists the VRs.
class VARNOTIX_EXPORT CDcmType : public CObject
{
    DECLARE_DYNAMIC(CDcmType)

public:
    explicit CDcmType(int vr);

    CString text;    ///< Two letters, a blank and the long name.
    DWORD maxLength; ///< Maximum value length in bytes; 0 where none is stated.
    DWORD code;      ///< The VR code, except for AS, which carries 0.
};
