#include "Varnotix/codec/TransferSyntax.h"

#include "Varnotix/registry/DcmRegistry.h"

namespace
{

constexpr int kDeflatedRow = 3;
constexpr int kFirstEncapsulatedRow = 5;
constexpr int kLastEncapsulatedRow = 27;

bool IsEncapsulatedRow(int row)
{
    return row >= kFirstEncapsulatedRow && row <= kLastEncapsulatedRow;
}

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
    return row == kDeflatedRow || IsEncapsulatedRow(row) ? SYNTAX_EXPLICIT_LITTLE : SYNTAX_UNKNOWN;
}

namespace Varnotix
{

EPixelForm PixelFormOfUid(const CString& uid)
{
    const int row = CDcmRegistry::Global().UidEnum(uid);
    if (IsEncapsulatedRow(row))
    {
        return EPixelForm::Encapsulated;
    }
    return row == kDeflatedRow || IsSyntaxCode(row) ? EPixelForm::Native : EPixelForm::Unknown;
}

bool IsDeflatedUid(const CString& uid)
{
    return CDcmRegistry::Global().UidEnum(uid) == kDeflatedRow;
}

CString UidOfSyntax(int syntax)
{
    return IsSyntaxCode(syntax) ? CString(CDcmRegistry::Global().UidString(syntax)) : CString();
}

} // namespace Varnotix
