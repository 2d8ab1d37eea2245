/// The fields of a PDU, one by one with their bytes: what the library's decoder reads, and where it stops.
#pragma once

#include "Varnotix/Varnotix.h"

#include <vector>

struct SPduField
{
    /// From the start of the PDU.
    int offset;
    int size;
    CString name;
    /// Empty for bytes without meaning of their own.
    CString meaning;
    /// True for the bytes behind the place where the decoder stops.
    bool isUnread;
};

/// Every byte of the PDU lies in one field, and the fields are in order. Only the last one may be unread; its meaning
/// then is the reason.
std::vector<SPduField> ListPduFields(const CByteArray& pdu);
