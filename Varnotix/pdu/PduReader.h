/// Reads the byte image of a protocol data unit field by field, for decoders and for programs that show captured PDUs.
#pragma once

#include "Varnotix/platform/Arrays.h"

namespace Varnotix
{

/// What a field of a PDU holds (PS3.8 section 9.3).
enum class EPduField
{
    PduType,
    PduLength,
    Reserved,
    ProtocolVersion,
    CalledTitle,     ///< 16 bytes with their padding.
    CallingTitle,    ///< 16 bytes with their padding.
    Result,          ///< Of an A-ASSOCIATE-RJ.
    Source,          ///< Of an A-ASSOCIATE-RJ or A-ABORT.
    Reason,          ///< Of an A-ASSOCIATE-RJ or A-ABORT.
    ItemType,        ///< Of an item of an A-ASSOCIATE PDU.
    ItemLength,      ///< Of such an item, 16 bits.
    ApplicationName, ///< The value of an application context item.
    ContextId,       ///< Of a presentation context item or a data value.
    ContextResult,   ///< Of a presentation context item; a request has a reserved byte here.
    SubItemType,     ///< Of a sub-item of a presentation context or of the user information.
    SubItemLength,   ///< Of such a sub-item, 16 bits.
    ContextValue,    ///< The value of a sub-item of a presentation context.
    UserData,        ///< The value of a sub-item of the user information.
    ValueLength,     ///< Of a data value of a P-DATA-TF, 32 bits.
    MessageControl,  ///< Of a data value.
    Fragment,        ///< The data of a data value.
    Skipped          ///< Bytes at which no known item starts.
};

/// One field where it lies in the PDU.
struct SPduField
{
    EPduField kind;
    /// The type byte of the sub-item, the item or, outside of items, the PDU that the field belongs to.
    int type;
    /// From the start of the PDU.
    int offset;
    /// The number of the PDU's bytes that the field takes; 0 for an empty value. The context ID and message control of
    /// a data value shorter than two bytes lie outside it and have the size 0 here.
    int size;
    /// The field's bytes, in the array that is read. Those of a fixed-size field can be read even where size is 0.
    const BYTE* bytes;
};

/// Why a reader of a PDU stopped.
enum class EPduStop
{
    Complete,         ///< Every byte belongs to a field.
    NoHeader,         ///< Fewer bytes than a PDU header has.
    LengthTooLarge,   ///< The PDU length exceeds the number of bytes, header included.
    UnknownType,      ///< The PDU type is not 1 to 7.
    NoReason,         ///< Too short for the result, source and reason of an A-ASSOCIATE-RJ or A-ABORT.
    BytesAfterEnd,    ///< Bytes follow a PDU of ten bytes.
    NoTitles,         ///< Too short for the version and titles of an A-ASSOCIATE PDU.
    NoFixedPart,      ///< Too short for the fixed part of an A-ASSOCIATE PDU.
    ItemTooLong,      ///< An item or sub-item runs past the end.
    DataValueTooLong, ///< A data value runs past the end.
    NoDataValueHeader ///< Fewer bytes are left than the header of a data value has.
};

/// Where a reader stopped.
struct SPduEnd
{
    EPduStop reason;
    /// The first byte that belongs to no field.
    int offset;
};

/// Takes the fields of a PDU in the order of their bytes. What a call throws leaves ReadPdu.
class VARNOTIX_EXPORT CPduVisitor
{
public:
    CPduVisitor() = default;
    CPduVisitor(const CPduVisitor&) = delete;
    CPduVisitor& operator=(const CPduVisitor&) = delete;
    virtual ~CPduVisitor();

    virtual void OnField(const SPduField& field) = 0;
    /// An A-ASSOCIATE PDU whose length fits: the fields after its header follow, as far as there are bytes for them.
    virtual void OnAssociation();
    /// The end of a presentation context of which at least the header was there.
    virtual void OnContextEnd();
};

/// Reads one PDU as CDcmProtocolDataUnit::DecodeProtocol does: up to the first length that does not fit, and byte by
/// byte past item types that it does not know. Each byte before the end belongs to exactly one field. Allocates
/// nothing.
/// @param bytes any bytes; they must stay unchanged while the visitor is called.
VARNOTIX_EXPORT SPduEnd ReadPdu(const CByteArray& bytes, CPduVisitor& visitor);

} // namespace Varnotix
