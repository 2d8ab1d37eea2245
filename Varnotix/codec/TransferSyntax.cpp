#include "Varnotix/codec/TransferSyntax.h"

#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/UidRow.h"

namespace Varnotix
{

namespace
{

bool IsSyntaxCode(int number)
{
    return number == SYNTAX_IMPLICIT_LITTLE || number == SYNTAX_EXPLICIT_LITTLE || number == SYNTAX_EXPLICIT_BIG;
}

} // namespace

int SyntaxOfUid(const CString& uid)
{
    const int row = CDcmRegistry::Global().UidEnum(uid);
    if (IsSyntaxCode(row))
    {
        return row;
    }
    return row == UID_DEFLATED_LITTLE || IsEncapsulated(row) ? SYNTAX_EXPLICIT_LITTLE : SYNTAX_UNKNOWN;
}

EPixelForm PixelFormOfUid(const CString& uid)
{
    const int row = CDcmRegistry::Global().UidEnum(uid);
    if (IsEncapsulated(row))
    {
        return EPixelForm::Encapsulated;
    }
    return IsNative(row) ? EPixelForm::Native : EPixelForm::Unknown;
}

bool IsDeflatedUid(const CString& uid)
{
    return CDcmRegistry::Global().UidEnum(uid) == UID_DEFLATED_LITTLE;
}

CString UidOfSyntax(int syntax)
{
    return IsSyntaxCode(syntax) ? CString(CDcmRegistry::Global().UidString(syntax)) : CString();
}

} // namespace Varnotix
