#include "EchoMessage.h"

#include <memory>

namespace
{

// Group 0000 (PS3.7 Annex E).
constexpr int kSopClass = 0x0002;
constexpr int kCommandField = 0x0100;
constexpr int kMessageId = 0x0110;
constexpr int kRespondedMessageId = 0x0120;
constexpr int kDataSetType = 0x0800;
constexpr int kStatus = 0x0900;

constexpr WORD kNoDataSet = 0x0101;

std::unique_ptr<CDcmElement> Command(int element)
{
    return std::make_unique<CDcmElement>(0x0000, element);
}

void AddWord(CDcmIOD& set, int element, WORD value)
{
    std::unique_ptr<CDcmElement> made = Command(element);
    made->AddWord(value);
    set.ElementStore().Add(made.release());
}

bool ReadWord(const CDcmIOD& set, int element, WORD& value)
{
    const CDcmElement* found = set.ElementStore().Find(0x0000, element);
    const CWordArray* words = found != nullptr ? found->Words() : nullptr;
    if (words == nullptr || words->IsEmpty())
    {
        return false;
    }
    value = words->GetAt(0);
    return true;
}

} // namespace

void EncodeMessage(const SEchoMessage& message, CByteArray& bytes)
{
    const bool isRequest = message.command == kEchoRequest;
    CDcmIOD set;
    std::unique_ptr<CDcmElement> sopClass = Command(kSopClass);
    sopClass->AddText(kVerificationClass);
    set.ElementStore().Add(sopClass.release());
    AddWord(set, kCommandField, message.command);
    AddWord(set, isRequest ? kMessageId : kRespondedMessageId, message.messageId);
    AddWord(set, kDataSetType, kNoDataSet);
    if (!isRequest)
    {
        AddWord(set, kStatus, message.status);
    }

    // A command set has no preamble; its group length is mandatory, unlike those of data sets.
    set.FileFormat(false);
    set.GroupLengths(true);
    set.IodSyntax(kImplicitLittleEndian);
    set.ExportFileFormat(bytes);
}

bool DecodeMessage(const CByteArray& bytes, SEchoMessage& message)
{
    CDcmIOD set;
    set.Import(bytes);
    SEchoMessage read;
    if (!ReadWord(set, kCommandField, read.command))
    {
        return false;
    }
    bool isWhole = false;
    if (read.command == kEchoRequest)
    {
        isWhole = ReadWord(set, kMessageId, read.messageId);
    }
    else if (read.command == kEchoResponse)
    {
        isWhole = ReadWord(set, kRespondedMessageId, read.messageId) && ReadWord(set, kStatus, read.status);
    }
    if (isWhole)
    {
        message = read;
    }
    return isWhole;
}
