/// A protocol data unit of the DICOM upper layer (PS3.8 section 9.3).
#pragma once

#include "Varnotix/pdu/DcmUserData.h"
#include "Varnotix/pdu/PduNames.h"
#include "Varnotix/pdu/PresentationContext.h"
#include "Varnotix/pdu/PresentationDataValue.h"

/// One PDU as typed fields and items, and as its byte image, the PDU field. It does no networking: the caller moves the
/// bytes.
///
/// To send, set fields, add items and call Create(); the bytes are then in the PDU field. Use a new object for each
/// PDU: encoding does not write reserved bytes, which keep the values that the PDU field held before. To receive, call
/// Create(bytes).
///
/// No operation reports an error. An item for which there is no memory is not added. Decoding stops quietly at the
/// first length that does not fit, or when memory runs out, and keeps what it has read. It scans byte by byte past item
/// types that it does not know. Item lengths of more than 16 bits are cut to their low 16 bits.
class VARNOTIX_EXPORT CDcmProtocolDataUnit : public CObject
{
    DECLARE_DYNCREATE(CDcmProtocolDataUnit)

public:
    CDcmProtocolDataUnit();
    /// Keeps a copy of the bytes as the PDU field and decodes nothing.
    explicit CDcmProtocolDataUnit(const CByteArray& bytes);
    /// Copies fields, byte image and every item.
    CDcmProtocolDataUnit(const CDcmProtocolDataUnit& other);
    ~CDcmProtocolDataUnit() override;
    CDcmProtocolDataUnit& operator=(const CDcmProtocolDataUnit& other);

    /// Encodes the fields and items into the PDU field. A PDU type outside 1 to 7 leaves it unchanged.
    void Create();
    /// Stores a copy of the bytes as the PDU field and decodes them.
    void Create(const CByteArray& bytes);
    /// Copies the PDU field out.
    void PduField(CByteArray& out) const { out = m_pduField; }

    /// Decodes the PDU field into fields and items. The PDVs of a P-DATA-TF are added to those already there; an
    /// A-ASSOCIATE PDU replaces all items.
    void DecodeProtocol();

    /// One of Varnotix::EPduType, or 0. Decoding takes any byte; only 1 to 7 are encoded.
    int PduType() const { return m_type; }
    void PduType(int type) { m_type = type; }
    /// Initially 0; PS3.8 requires 1, which the caller sets. The low 16 bits are encoded.
    int ProtocolVersion() const { return m_version; }
    void ProtocolVersion(int version) { m_version = version; }
    /// A-ASSOCIATE-RJ (PS3.8 table 9-21).
    int Result() const { return m_result; }
    void Result(int result) { m_result = result; }
    /// A-ASSOCIATE-RJ and A-ABORT (PS3.8 tables 9-21 and 9-26).
    int Source() const { return m_source; }
    void Source(int source) { m_source = source; }
    /// A-ASSOCIATE-RJ and A-ABORT (PS3.8 tables 9-21 and 9-26).
    int Reason() const { return m_reason; }
    void Reason(int reason) { m_reason = reason; }
    /// The value of the PDU length field, set by decoding, and by encoding an A-ASSOCIATE or P-DATA-TF.
    int PduLength() const { return m_length; }

    /// The titles are written without padding: a short one is followed by zero bytes in a new PDU. One of more than 16
    /// characters runs into the fields that follow, with a zero byte for its seventeenth character, as far as the fixed
    /// part reaches; encoding cuts the stored title to 16.
    void CalledAE(const CString& title) { m_calledAE = title; }
    void CallingAE(const CString& title) { m_callingAE = title; }
    const CString& CalledAE() const { return m_calledAE; }
    const CString& CallingAE() const { return m_callingAE; }

    /// Appends a name, usually "1.2.840.10008.3.1.1.1", the only one of the standard.
    void AddApplicationContextItem(const CString& name);
    /// Appends a context. IDs and results are not checked, and encoded as one byte each.
    void AddPresentationContext(const CString& abstractSyntax, const CStringArray& transferSyntaxes, int id,
                                int result);
    /// Appends a copy of the context with another ID and result; null is ignored.
    void AddPresentationContext(const CPresentationContext* context, int id, int result);
    /// Appends a data value with a copy of the data. See CPresentationDataValue for the message control header.
    void AddPresentationDataValue(const CByteArray& data, int id, int messageControl);
    /// Appends an item with the first 255 bytes of the data.
    void AddUserDataItem(int type, const CByteArray& data);
    /// Appends an item with the first 255 characters of the text, without a terminator.
    void AddUserDataItem(int type, const CString& text);
    /// Appends an item of four bytes, least significant first, for compatibility. PS3.8 requires network byte order;
    /// for that, add the bytes.
    void AddUserDataItem(int type, DWORD value);

    /// Copies of the lists. Objects are copied as pointers: the PDU owns them, until it is changed or destroyed.
    void ApplicationContextItems(CStringArray& names) const { names = m_applicationContexts; }
    void PresentationContextItems(CObArray& contexts) const { contexts = m_presentationContexts; }
    void UserDataItems(CObArray& items) const { items = m_userData; }
    void PresentationDataItems(CObArray& values) const { values = m_dataValues; }

    /// The first context with the ID, or null.
    CPresentationContext* FindPresentationContext(int id) const;
    /// The first context with the abstract syntax, case ignored, or null.
    CPresentationContext* FindPresentationContext(const CString& abstractSyntax) const;
    /// The ID of that context, or -1.
    int FindPresentationContextID(const CString& abstractSyntax) const;
    /// The result of the context with the ID, or -1 when there is none.
    int GetContextIDResult(int id) const;
    /// True for a context that exists and whose result is 0, acceptance.
    bool IsValidContextID(int id) const { return GetContextIDResult(id) == 0; }

    /// Appends a text dump, one line per field and item.
    void Export(CStringArray& lines) const;

protected:
    void EncodeProtocol();
    // The two association PDUs share a layout, as do the two release PDUs. Each name is part of the interface, and none
    // is inline, so that each is a symbol of the library.
    void CreateARequestProtocol();
    void CreateAAceptProtocol();
    void CreateRejectField();
    void CreateTFField();
    void CreateReleaseRequestField();
    void CreateReleaseReplyField();
    void CreateAbortField();

    /// Appends all variable items of an association PDU to the PDU field.
    void CreateARequestVariableItems();
    // Each of these replaces the contents of out.
    void CreateItemField(int type, const CByteArray& data, CByteArray& out) const;
    void CreateItemField(int type, const CStringArray& strings, CByteArray& out) const;
    void CreatePresentationContextField(const CByteArray& subItems, CByteArray& out, int id, int result) const;
    void CreatePresentationContextItems(CByteArray& out) const;
    void CreateUserDataItems(CByteArray& out) const;
    void CreatePresentationDataItem(const CPresentationDataValue& value, CByteArray& out) const;

    void DestroyPresentationContextItems();
    void DestroyUserDataItems();
    void DestroyPresentationDataItems();

private:
    class CDecoder;

    void CopyFrom(const CDcmProtocolDataUnit& other);
    void WriteHeader(int fixedSize, int length);
    void WriteTitle(CString& title, int offset);

    CByteArray m_pduField;
    int m_type = 0;
    int m_version = 0;
    int m_result = 0;
    int m_source = 0;
    int m_reason = 0;
    int m_length = 0;
    CString m_calledAE;
    CString m_callingAE;
    CStringArray m_applicationContexts;
    CObArray m_presentationContexts; // Owned CPresentationContext.
    CObArray m_userData;             // Owned CDcmUserData.
    CObArray m_dataValues;           // Owned CPresentationDataValue.
};
