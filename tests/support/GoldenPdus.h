// One PDU of each type, byte by byte (PS3.8 section 9.3), with the object that it encodes.
#pragma once

#include "Bytes.h"
#include "Varnotix/pdu/DcmProtocolDataUnit.h"

#include <string>
#include <vector>

inline CByteArray FieldOf(const CDcmProtocolDataUnit& pdu)
{
    CByteArray bytes;
    pdu.PduField(bytes);
    return bytes;
}

inline CByteArray Encoded(CDcmProtocolDataUnit& pdu)
{
    pdu.Create();
    return FieldOf(pdu);
}

inline std::vector<std::string> DumpOf(const CDcmProtocolDataUnit& pdu)
{
    CStringArray texts;
    pdu.Export(texts);
    std::vector<std::string> lines;
    for (const CString& text : texts)
    {
        lines.emplace_back(text.View());
    }
    return lines;
}

inline CStringArray Texts(std::initializer_list<const char*> values)
{
    CStringArray texts;
    for (const char* value : values)
    {
        texts.Add(value);
    }
    return texts;
}

inline CByteArray RequestBytes()
{
    return Join({Bytes({0x01, 0x00,               // PDU type 1, reserved
                        0x00, 0x00, 0x00, 0x78,   // PDU length: 120
                        0x00, 0x01, 0x00, 0x00}), // protocol version 1, reserved
                 TextBytes("B"), Zeros(15),       // called AE title, no padding
                 TextBytes("A"), Zeros(15),       // calling AE title
                 Zeros(32),                       // reserved
                 Bytes({0x10, 0x00, 0x00, 0x05}), // application context item, 5 bytes
                 TextBytes("1.2.3"),
                 Bytes({0x20, 0x00, 0x00, 0x1B,                       // presentation context item, 27 bytes
                        0x03, 0x00, 0x00, 0x00,                       // context ID 3, three reserved bytes
                        0x30, 0x00, 0x00, 0x05}),                     // abstract syntax sub-item
                 TextBytes("1.2.4"), Bytes({0x40, 0x00, 0x00, 0x03}), // transfer syntax sub-items
                 TextBytes("1.5"), Bytes({0x40, 0x00, 0x00, 0x03}), TextBytes("1.6"),
                 Bytes({0x50, 0x00, 0x00, 0x08,     // user information item, 8 bytes
                        0x51, 0x00, 0x00, 0x04,     // maximum length sub-item
                        0x00, 0x40, 0x00, 0x00})}); // low byte first
}

inline void BuildRequest(CDcmProtocolDataUnit& pdu)
{
    pdu.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    pdu.ProtocolVersion(1);
    pdu.CalledAE("B");
    pdu.CallingAE("A");
    pdu.AddApplicationContextItem("1.2.3");
    pdu.AddPresentationContext("1.2.4", Texts({"1.5", "1.6"}), 3, 0);
    pdu.AddUserDataItem(0x51, 16384UL);
}

inline CByteArray AcceptBytes()
{
    return Join({Bytes({0x02, 0x00, 0x00, 0x00, 0x00, 0x6B, // PDU type 2, reserved, PDU length 107
                        0x00, 0x01, 0x00, 0x00}),           // protocol version 1, reserved
                 TextBytes("B"), Zeros(15), TextBytes("A"), Zeros(15), Zeros(32), Bytes({0x10, 0x00, 0x00, 0x05}),
                 TextBytes("1.2.3"),
                 Bytes({0x21, 0x00, 0x00, 0x12, // presentation context item, 18 bytes
                        0x03, 0x00, 0x04, 0x00, // context ID 3, reserved, result 4, reserved
                        0x40, 0x00, 0x00, 0x03}),
                 TextBytes("1.5"), Bytes({0x40, 0x00, 0x00, 0x03}), TextBytes("1.6"),
                 Bytes({0x50, 0x00, 0x00, 0x04}), // user information item, one empty sub-item
                 Bytes({0x55, 0x00, 0x00, 0x00})});
}

inline CByteArray RejectBytes()
{
    return Bytes({0x03, 0x00, 0x00, 0x00, 0x00, 0x04, // PDU type 3, reserved, PDU length 4
                  0x00, 0x01, 0x02, 0x07});           // reserved, result 1, source 2, reason 7
}

inline CByteArray DataBytes()
{
    return Join({Bytes({0x04, 0x00, 0x00, 0x00, 0x00, 0x16,   // PDU type 4, reserved, PDU length 22
                        0x00, 0x00, 0x00, 0x0C, 0x01, 0x03}), // item length 12, context ID 1, last command fragment
                 TextBytes("0123456789"),
                 Bytes({0x00, 0x00, 0x00, 0x02, 0x05, 0x00})}); // item length 2, context ID 5, data set fragment
}

inline CByteArray ReleaseBytes(int type)
{
    return Bytes({type, 0x00, 0x00, 0x00, 0x00, 0x04, // PDU type 5 or 6, reserved, PDU length 4
                  0x00, 0x00, 0x00, 0x00});           // reserved
}

inline CByteArray AbortBytes()
{
    return Bytes({0x07, 0x00, 0x00, 0x00, 0x00, 0x04, // PDU type 7, reserved, PDU length 4
                  0x00, 0x00, 0x02, 0x06});           // reserved, reserved, source 2, reason 6
}
