/// One sub-item of the user information item.
#pragma once

#include "Varnotix/platform/Arrays.h"

/// A user data sub-item (PS3.8 Annex D), for example 51H, the maximum length.
class VARNOTIX_EXPORT CDcmUserData : public CObject
{
    DECLARE_DYNCREATE(CDcmUserData)

public:
    /// The maximum number of bytes that an item keeps.
    static constexpr int kMaxSize = 255;

    CDcmUserData() = default;
    /// Data beyond the first 255 bytes is cut off.
    CDcmUserData(int type, const CByteArray& data);
    CDcmUserData(const CDcmUserData&) = default;
    CDcmUserData& operator=(const CDcmUserData&) = default;

    /// One of Varnotix::EPduItem, for example; encoded as one byte.
    int Type() const { return m_type; }
    const CByteArray& Data() const { return m_data; }

private:
    int m_type = 0;
    CByteArray m_data;
};
