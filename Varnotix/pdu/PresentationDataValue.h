/// One presentation data value of a P-DATA-TF PDU.
#pragma once

#include "Varnotix/platform/Arrays.h"

/// A fragment of a command or data set (PS3.8 section 9.3.5.1 and Annex E).
class VARNOTIX_EXPORT CPresentationDataValue : public CObject
{
    DECLARE_DYNCREATE(CPresentationDataValue)

public:
    CPresentationDataValue() = default;
    CPresentationDataValue(const CByteArray& data, int id, int messageControl);
    CPresentationDataValue(const CPresentationDataValue&) = default;
    CPresentationDataValue& operator=(const CPresentationDataValue&) = default;

    /// The presentation context; encoded as one byte.
    int ContextID() const { return m_id; }
    /// Encoded as one byte: bit 0 set for a command, bit 1 set for the last fragment. Passed through, not interpreted.
    int MessageControl() const { return m_messageControl; }
    const CByteArray& Data() const { return m_data; }

private:
    int m_id = 0;
    int m_messageControl = 0;
    CByteArray m_data;
};
