/// One presentation context of an association.
#pragma once

#include "Varnotix/platform/Arrays.h"

/// An abstract syntax with the transfer syntaxes in which its objects may travel (PS3.8 sections 9.3.2.2, 9.3.3.2).
class VARNOTIX_EXPORT CPresentationContext : public CObject
{
    DECLARE_DYNCREATE(CPresentationContext)

public:
    CPresentationContext() = default;
    CPresentationContext(const CString& abstractSyntax, const CStringArray& transferSyntaxes, int id, int result);
    CPresentationContext(const CPresentationContext&) = default;
    CPresentationContext& operator=(const CPresentationContext&) = default;

    const CString& AbstractSyntax() const { return m_abstractSyntax; }
    void AbstractSyntax(const CString& uid) { m_abstractSyntax = uid; }
    const CStringArray& TransferSyntaxes() const { return m_transferSyntaxes; }
    void AddTransferSyntax(const CString& uid) { m_transferSyntaxes.Add(uid); }
    /// Encoded as one byte; PS3.8 requires odd numbers from 1 to 255, which is not checked.
    int ContextID() const { return m_id; }
    void ContextID(int id) { m_id = id; }
    /// Encoded as one byte; 0 means acceptance (PS3.8 table 9-18).
    int Result() const { return m_result; }
    void Result(int result) { m_result = result; }

private:
    CString m_abstractSyntax;
    CStringArray m_transferSyntaxes;
    int m_id = 0;
    int m_result = 0;
};
