// Memory that runs out while information objects are read, copied and written, as bytes and as text.

#include "Starvation.h"
#include "StreamBytes.h"
#include "Varnotix/iod/ImageIODs.h"
#include "Varnotix/pdu/DcmProtocolDataUnit.h"

#include <memory>

namespace
{

/// An object of all that a read makes: meta information, items in items, numbers and texts, a private tag, frames of
/// several fragments.
CByteArray ObjectBytes()
{
    return Part10(Stream("0200 0000 'UL' 0400 1C000000 0200 1000 'UI' 1400 '1.2.840.10008.1.2.1' 00"
                         "0800 6000 'CS' 0200 'CT'"
                         "0800 4011 'SQ' 0000 FFFFFFFF"
                         "FEFF 00E0 3E000000 0800 5011 'UI' 0400 '1.2' 00 0800 5511 'UI' 0400 '1.3' 00"
                         "4000 70A1 'SQ' 0000 FFFFFFFF FEFF 00E0 0A000000 0800 0001 'SH' 0200 'AB' FEFF DDE0 00000000"
                         "FEFF DDE0 00000000"
                         "0D00 0110 'LO' 0200 'ab'"
                         "1000 1000 'PN' 0400 'A^B '"
                         "2000 3700 'DS' 0C00 '1\\0\\0\\0\\1\\0 '"
                         "2800 0200 'US' 0200 0100 2800 1000 'US' 0200 0100 2800 1100 'US' 0200 0200"
                         "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 08000000 00000000 14000000"
                         "FEFF 00E0 02000000 0102 FEFF 00E0 02000000 0304 FEFF 00E0 02000000 0506"
                         "FEFF DDE0 00000000"));
}

void Read(CDcmIOD& object, const CByteArray& bytes)
{
    CMemFile file;
    file.Attach(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
    CArchive archive(&file, CArchive::load);
    object.Serialize(archive);
}

template <class IOD>
std::unique_ptr<IOD> ReadObject(const CByteArray& bytes)
{
    auto object = std::make_unique<IOD>();
    Read(*object, bytes);
    return object;
}

std::string WrittenFile(CDcmIOD& object)
{
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    return HexText(bytes);
}

/// Looks at all that the object and its modules hold, whatever it is.
void LookAt(CDcmIOD& object)
{
    CStringArray lines;
    object.Export(lines);
    for (int i = 0; i < object.ModuleCount(); ++i)
    {
        object.ModuleAt(i).Export(lines);
    }
    EXPECT_FALSE(lines.IsEmpty());
}

} // namespace

/// A plain object under the standard stream rules.
class CStandardObject : public CDcmIOD
{
public:
    CStandardObject() { StreamRules(STREAM_RULES_STANDARD); }
};

template <class IOD>
class StarvedObject : public Starved
{
protected:
    const CByteArray m_bytes = ObjectBytes();
    const std::string m_written = WrittenFile(*ReadObject<IOD>(m_bytes));

    /// Whatever happened, the object can be looked at, and another read makes it as good as new.
    void ExpectUsable(IOD& object) const
    {
        LookAt(object);
        Read(object, m_bytes);
        EXPECT_EQ(WrittenFile(object), m_written);
    }
};

// A plain object by both stream rules, and the one with modules that has the fewest: each request for memory is a
// round.
using ObjectKinds = testing::Types<CDcmIOD, CStandardObject, CDcmCompositeIE>;
TYPED_TEST_SUITE(StarvedObject, ObjectKinds);

TYPED_TEST(StarvedObject, ReadsAgainAfterARead)
{
    this->AtEveryRequest([] { return std::make_unique<TypeParam>(); },
                         [this](const std::unique_ptr<TypeParam>& object) { Read(*object, this->m_bytes); },
                         [this](const std::unique_ptr<TypeParam>& object) { this->ExpectUsable(*object); });
}

TYPED_TEST(StarvedObject, WritesAgainAfterAWrite)
{
    const auto make = [this]
    {
        auto object = ReadObject<TypeParam>(this->m_bytes);
        object->GroupLengths(true);
        return object;
    };
    const std::string written = WrittenFile(*make());
    EXPECT_NE(written, this->m_written);
    this->AtEveryRequest(
        make, [](const std::unique_ptr<TypeParam>& object) { WrittenFile(*object); },
        [&written](const std::unique_ptr<TypeParam>& object) { EXPECT_EQ(WrittenFile(*object), written); });
}

TYPED_TEST(StarvedObject, IsCopiedOrNot)
{
    const auto object = ReadObject<TypeParam>(this->m_bytes);
    this->AtEveryRequest([] { return std::make_unique<TypeParam>(); },
                         [&object](const std::unique_ptr<TypeParam>& other)
                         {
                             *other = *object;
                             TypeParam copy(*object);
                             LookAt(copy);
                         },
                         [&](const std::unique_ptr<TypeParam>& other)
                         {
                             this->ExpectUsable(*other);
                             EXPECT_TRUE(*object == *other);
                         });
    EXPECT_EQ(WrittenFile(*object), this->m_written);
}

using Starvation = Starved;

// Each read meets a private tag that it has to learn. What the dictionary then holds must outlive the read.
TEST_F(Starvation, LeavesTheDictionaryWhole)
{
    CByteArray bytes = Stream("0D00 0000 'LO' 0200 'ab' 0800 6000 'CS' 0200 'MR'");
    bool struck = true;
    for (int granted = 0; struck && !HasFailure(); ++granted)
    {
        bytes[2] = static_cast<BYTE>(granted);
        bytes[3] = static_cast<BYTE>(0x11 + granted / 256);
        CDcmIOD object;
        struck = RunsOut(granted, ERefuse::AllAfter, [&] { Read(object, bytes); });
        LookAt(object);
        const CDcmElement element(0x000D, bytes[2] | (bytes[3] << 8));
        EXPECT_EQ(std::string(element.Name()), object.GetCount() > 0 ? "Private Data Element" : "") << granted;
        Read(object, bytes);
        EXPECT_EQ(Show(object.ElementStore()).substr(9), "LO ab; 00080060 CS MR") << granted;
    }
}

TEST_F(Starvation, IsNotBroughtAboutByLengthsInTheStream)
{
    static const char* const kStreams[] = {
        "0800 6000 'CS' FFFF",
        "4000 60A1 'UT' 0000 FEFFFFFF",
        "0028 1201 'OW' 0000 7FFFFFFE",
        "E07F 1000 'OW' 0000 FEFFFF7F",
        "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 FCFFFF7F 00000000",
        "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 FEFFFF7F 0000",
        "7FE0 0010 'OW' 0000 FFFFFFFF FFFE E000 00000000 FFFE E000 7FFFFFFE 0000",
        "0800 4011 'SQ' 0000 FEFFFFFF FEFF 00E0 FEFFFFFF 0800 0001 'SH' FFFF",
        "0B00 1010 'UN' 0000 FEFFFF7F",
        "0200 0000 'UL' 0400 FFFFFFFF 0800 6000 'CS' FFFF",
    };
    constexpr std::size_t kProportionate = 4096;
    for (const char* text : kStreams)
    {
        const CByteArray stream = Stream(text);
        TakeRequests();
        const SRead read(stream);
        EXPECT_LE(TakeRequests().largest, kProportionate) << text;
        EXPECT_EQ(read.set.GetCount(), 0) << text;
    }
}

TEST_F(Starvation, IsNotBroughtAboutByLengthsInPdus)
{
    constexpr int kCount = 16000;
    // Sub-items that each claim 65,535 bytes, and the smallest items of each kind: the most objects for their bytes.
    const CByteArray claims = Repeated(Bytes({0x51, 0, 0xFF, 0xFF}), kCount);
    const CByteArray fixed = Join({Bytes({1}), Zeros(73)});
    const CByteArray data = Bytes({4, 0, 0, 0, 0, 0});
    for (const CByteArray& bytes : {Join({fixed, Bytes({0x50, 0, 0xFF, 0xFF}), claims}),
                                    Join({fixed, Bytes({0x50, 0, 0xFA, 0}), Repeated(Bytes({0x51, 0, 0, 0}), kCount)}),
                                    Join({fixed, Bytes({0x20, 0, 0xFF, 0xFF, 1, 0, 0, 0}), claims}),
                                    Join({fixed, Repeated(Bytes({0x20, 0, 0, 0, 1, 0, 0, 0}), kCount)}),
                                    Join({data, Zeros(4 * kCount)}), Join({data, claims})})
    {
        CDcmProtocolDataUnit pdu(bytes);
        TakeRequests();
        pdu.DecodeProtocol();
        EXPECT_LE(TakeRequests().total, static_cast<std::size_t>(bytes.GetSize()) * 64);
    }
}
