#include "Varnotix/registry/DcmEntry.h"

IMPLEMENT_DYNAMIC(CDcmEntry, CObject)
IMPLEMENT_DYNAMIC(CDcmType, CObject)

CDcmEntry::CDcmEntry(int vrCode, int valueMultiplicity, const CString& attributeName)
    : vr(static_cast<DWORD>(vrCode)), multiplicity(valueMultiplicity), name(attributeName), retired(0)
{
}

CDcmType::CDcmType(int vr)
    : text(Varnotix::VrRow(vr).description),
      maxLength(Varnotix::VrRow(vr).maxLength),
      // AS shares code 0 with AE: clients have stored these codes.
      code(vr == VR_AS ? 0U : static_cast<DWORD>(vr))
{
}
