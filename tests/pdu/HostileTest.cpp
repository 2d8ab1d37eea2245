// The allocation function can be stood in for only where the library takes it from the program.
#if !defined(_WIN32)

#include "GoldenPdus.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace
{
std::size_t bytesAskedFor = 0;
long allocationsLeft = -1; // Below 0: no limit.
} // namespace

// Not inlined: the compiler would take each for half of a mismatched pair.

[[gnu::noinline]] void* operator new(std::size_t size)
{
    bytesAskedFor += size;
    void* memory = allocationsLeft == 0 ? nullptr : std::malloc(size > 0 ? size : 1);
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
    if (memory == nullptr)
    {
        throw std::bad_alloc();
    }
    return memory;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

TEST(PduHostileTest, MemoryStaysInProportionToTheInput)
{
    CByteArray claims; // 16,000 sub-items that each claim 65,535 bytes.
    CByteArray empty;  // The smallest items of each kind: the most objects for their bytes.
    CByteArray contexts;
    CByteArray values;
    for (int i = 0; i < 16000; ++i)
    {
        claims.Append(Bytes({0x51, 0, 0xFF, 0xFF}));
        empty.Append(Bytes({0x51, 0, 0, 0}));
        contexts.Append(Bytes({0x20, 0, 0, 0, 1, 0, 0, 0}));
        values.Append(Bytes({0, 0, 0, 0}));
    }
    const CByteArray fixed = Join({Bytes({1}), Zeros(73)});
    for (const CByteArray& bytes :
         {Join({fixed, Bytes({0x50, 0, 0xFF, 0xFF}), claims}), Join({fixed, Bytes({0x50, 0, 0xFA, 0}), empty}),
          Join({fixed, Bytes({0x20, 0, 0xFF, 0xFF, 1, 0, 0, 0}), claims}), Join({fixed, contexts}),
          Join({Bytes({4, 0, 0, 0, 0, 0}), values}), Join({Bytes({4, 0, 0, 0, 0, 0}), claims})})
    {
        CDcmProtocolDataUnit pdu(bytes);
        bytesAskedFor = 0;
        pdu.DecodeProtocol();
        EXPECT_LE(bytesAskedFor, static_cast<std::size_t>(bytes.GetSize()) * 64);
    }
}

TEST(PduHostileTest, AnItemWithoutMemoryIsDroppedAndTheRestStays)
{
    CDcmProtocolDataUnit pdu;
    BuildRequest(pdu);
    const std::vector<std::string> before = DumpOf(pdu);
    const CString name('n', 100);
    const CString syntax('s', 100);
    const CStringArray syntaxes = Texts({"1.2.840.10008.1.2.4.100.99"});
    const CByteArray data = Zeros(100);
    allocationsLeft = 0;
    pdu.AddApplicationContextItem(name);
    pdu.AddPresentationContext(syntax, syntaxes, 1, 0);
    pdu.AddPresentationDataValue(data, 1, 0);
    pdu.AddUserDataItem(1, data);
    pdu.AddUserDataItem(1, name);
    pdu.AddUserDataItem(1, DWORD{1});
    allocationsLeft = -1;
    EXPECT_EQ(DumpOf(pdu), before);
}

TEST(PduHostileTest, DecodingWithoutMemoryStopsQuietly)
{
    CDcmProtocolDataUnit request;
    request.PduType(PDU_ASSOCIATE_RQ);
    request.AddApplicationContextItem(CString('n', 100));
    request.AddPresentationContext(CString('s', 100), Texts({"1.2.840.10008.1.2.4.100.99"}), 1, 0);
    request.AddUserDataItem(1, Zeros(100));
    for (const CByteArray& bytes : {Encoded(request), DataBytes()})
    {
        for (int granted = 0; granted < 32; ++granted)
        {
            CDcmProtocolDataUnit pdu(bytes);
            bool threw = false;
            allocationsLeft = granted;
            try
            {
                pdu.DecodeProtocol();
            }
            catch (...)
            {
                threw = true;
            }
            allocationsLeft = -1;
            EXPECT_FALSE(threw) << granted;
            EXPECT_EQ(pdu.PduType(), bytes[0]);
        }
    }
}

#endif
