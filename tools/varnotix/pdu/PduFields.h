/// The fields of a PDU with their names and meanings, as the library reads them, and where the reading stops.
#pragma once

#include "Varnotix/Varnotix.h"

#include <vector>

struct SShownField
{
    /// From the start of the PDU.
    int offset;
    int size;
    CString name;
    /// Empty for bytes without meaning of their own.
    CString meaning;
    /// True for the bytes after the place where the decoder stops.
    bool isUnread;
};

/// Every byte of the PDU is in one field, and the fields are in order. Only the last one may be unread; its meaning is
/// then the reason.
std::vector<SShownField> ListPduFields(const CByteArray& pdu);
