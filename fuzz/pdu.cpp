// Any bytes as a protocol data unit: decoded, shown, copied, and written and read again as the same.

#include "Promise.h"
#include "Varnotix/Varnotix.h"

namespace
{

// The smallest items of each kind, headers included.
constexpr int kSmallestItem = 4;

int ItemCount(const CDcmProtocolDataUnit& pdu)
{
    CStringArray names;
    pdu.ApplicationContextItems(names);
    int count = names.GetSize();
    CObArray items;
    pdu.UserDataItems(items);
    count += items.GetSize();
    pdu.PresentationDataItems(items);
    count += items.GetSize();
    pdu.PresentationContextItems(items);
    count += items.GetSize();
    for (const CObject* item : items)
    {
        const auto& context = static_cast<const CPresentationContext&>(*item);
        count += context.TransferSyntaxes().GetSize();
        Promise(pdu.FindPresentationContext(context.ContextID()) != nullptr, "a context is found by its ID");
        Promise(pdu.FindPresentationContext(context.AbstractSyntax()) != nullptr, "a context is found by its syntax");
        static_cast<void>(pdu.IsValidContextID(context.ContextID()));
    }
    return count;
}

void PromiseSameText(const CDcmProtocolDataUnit& left, const CDcmProtocolDataUnit& right, const char* what)
{
    CStringArray leftLines;
    CStringArray rightLines;
    left.Export(leftLines);
    right.Export(rightLines);
    Promise(leftLines.GetSize() == rightLines.GetSize(), what);
    for (int i = 0; i < leftLines.GetSize(); ++i)
    {
        Promise(leftLines[i].View() == rightLines[i].View(), what);
    }
}

CByteArray Encoded(CDcmProtocolDataUnit& pdu)
{
    pdu.Create();
    CByteArray bytes;
    pdu.PduField(bytes);
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CByteArray bytes = ToArray(data, size);
    CDcmProtocolDataUnit pdu;
    pdu.Create(bytes);
    Promise(ItemCount(pdu) <= bytes.GetSize() / kSmallestItem, "items are no more than the bytes hold");
    CDcmProtocolDataUnit copy(pdu);
    PromiseSameText(copy, pdu, "a copy shows what its source does");

    // A second unit on the same object: data values gather, associations replace.
    copy.Create(bytes);
    static_cast<void>(ItemCount(copy));

    if (pdu.PduType() >= Varnotix::PDU_ASSOCIATE_RQ && pdu.PduType() <= Varnotix::PDU_ABORT)
    {
        CDcmProtocolDataUnit again;
        again.Create(Encoded(pdu));
        const CByteArray once = Encoded(again);
        CDcmProtocolDataUnit third;
        third.Create(once);
        Promise(Same(Encoded(third), once), "what was written is read and written as the same bytes");
        PromiseSameText(third, again, "what was written is read as the same unit");
    }
    return 0;
}
