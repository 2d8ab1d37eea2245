#include "GoldenPdus.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <random>

// The allocation function can be stood in for only where the library takes it from the program.
#if !defined(_WIN32)

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

#endif

TEST(PduHostileTest, NoByteStringDoesHarm)
{
    std::mt19937 random(20240607);
    const std::vector<CByteArray> seeds = AllGoldenPdus();
    const BYTE telling[] = {0x00, 0x01, 0x04, 0x10, 0x20, 0x21, 0x30, 0x40, 0x50, 0x7F, 0x80, 0xFF};
    for (int round = 0; round < 20000; ++round)
    {
        CByteArray bytes = seeds[random() % seeds.size()];
        bytes.Append(seeds[random() % seeds.size()]);
        bytes.SetSize(static_cast<int>(random() % static_cast<unsigned>(bytes.GetSize() + 1)));
        for (auto change = random() % 6; change > 0 && !bytes.IsEmpty(); --change)
        {
            bytes[static_cast<int>(random() % static_cast<unsigned>(bytes.GetSize()))] =
                random() % 2 == 0 ? static_cast<BYTE>(random()) : telling[random() % std::size(telling)];
        }
        CDcmProtocolDataUnit pdu;
        pdu.Create(bytes);
        const std::vector<std::string> read = DumpOf(pdu);
        EXPECT_GE(read.size(), 9u);

        // What was read and is written by a PDU of one of the seven types is read again as the same.
        if (pdu.PduType() >= PDU_ASSOCIATE_RQ && pdu.PduType() <= PDU_ABORT)
        {
            CDcmProtocolDataUnit again;
            again.Create(Encoded(pdu));
            const CByteArray once = FieldOf(again);
            EXPECT_EQ(Encoded(again), once);
        }
    }
}
