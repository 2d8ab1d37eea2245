#include "Elements.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/modules/DcmPatientModule.h"
#include "Varnotix/platform/Archive.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

/// Patient Name and ID, and a sequence that nobody fills.
class CNameModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CNameModule)
    DCM_TEXT    (Name, "0010", "0010")
    DCM_TEXT    (ID,   "0010", "0020")
    DCM_SEQUENCE(Reference, CDcmSopSequence, "0008", "1120")
    // clang-format on
};

class CLongNameModule : public CNameModule
{
    DECLARE_DYNCREATE(CLongNameModule)
};

/// Opens what a derived IOD may do.
class CTestIod : public CDcmIOD
{
    DECLARE_DYNCREATE(CTestIod)

public:
    using CDcmIOD::AddIodModule;
    using CDcmIOD::FindIodModule;
    using CDcmIOD::RemoveIodModule;
    using CDcmIOD::RemoveIodModules;
};

IMPLEMENT_DCM_CLASS(CNameModule, CDcmModule)
IMPLEMENT_DYNCREATE(CLongNameModule, CNameModule)
IMPLEMENT_DYNCREATE(CTestIod, CDcmIOD)

namespace
{

using Texts = std::vector<std::string>;

constexpr const char* kExplicitLittle = "1.2.840.10008.1.2.1";
constexpr const char* kExplicitBig = "1.2.840.10008.1.2.2";

void Store(CDcmIOD& iod, std::initializer_list<CDcmElement*> elements)
{
    for (CDcmElement* element : elements)
    {
        iod.ElementStore().Add(element);
    }
}

CByteArray File(CDcmIOD& iod)
{
    CByteArray bytes;
    iod.ExportFileFormat(bytes);
    return bytes;
}

std::vector<int> Start(const CByteArray& bytes, int count)
{
    return {bytes.begin(), bytes.begin() + count};
}

/// An object with Patient Name, ID and Modality in its store and a registered module.
class Operators : public testing::Test
{
protected:
    Operators()
    {
        Store(m_iod,
              {MakeText(0x0008, 0x0060, "CT"), MakeText(0x0010, 0x0010, "STORE"), MakeText(0x0010, 0x0020, "7")});
        m_iod.AddIodModule(m_registered);
        m_registered.Name("REG");
        m_registered.ID("8");
        m_given.Name("GIVEN");
    }

    Texts StoreListing() { return Listing(m_iod.ElementStore()); }

    CTestIod m_iod;
    CNameModule m_registered;
    CNameModule m_given; ///< Its ID is empty.
};

} // namespace

TEST_F(Operators, PlusTakesEmptyElementsToo)
{
    m_iod += m_given;
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00081120=", "00100010=GIVEN", "00100020="}));
    EXPECT_STREQ(m_registered.Name(), "GIVEN");
    EXPECT_TRUE(m_registered.ID().IsEmpty());
}

TEST_F(Operators, MinusRemovesTagsAndEmptiesTheRegisteredModule)
{
    m_iod -= m_given;
    EXPECT_EQ(StoreListing(), Texts{"00080060=CT"});
    EXPECT_TRUE(m_registered.Name().IsEmpty());
    EXPECT_STREQ(m_given.Name(), "GIVEN");
    CDcmIOD other;
    Store(other, {MakeText(0x0008, 0x0060, "MR"), MakeText(0x0010, 0x0040, "M")});
    m_iod -= other;
    EXPECT_EQ(m_iod.GetCount(), 0);
    EXPECT_EQ(other.GetCount(), 2);
}

TEST_F(Operators, AndAddsNothing)
{
    m_iod.ElementStore().Remove(0x0010, 0x0010);
    m_given.ID("9");
    m_iod &= m_given;
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00100020=9"}));
    EXPECT_STREQ(m_registered.Name(), "GIVEN");
    EXPECT_STREQ(m_registered.ID(), "9");
}

TEST_F(Operators, LessDropsTagsThatAreEmptyInTheModule)
{
    m_iod < m_given;
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00100010=GIVEN"}));
    EXPECT_STREQ(m_registered.Name(), "GIVEN");
    EXPECT_STREQ(m_registered.ID(), "8");
}

TEST_F(Operators, ShiftInLeavesTagsThatAreEmptyInTheModule)
{
    m_iod << m_given;
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00100010=GIVEN", "00100020=7"}));
    EXPECT_STREQ(m_registered.Name(), "GIVEN");
    EXPECT_STREQ(m_registered.ID(), "8");
}

TEST_F(Operators, ShiftOutGivesTheStoresValuesToTheModule)
{
    m_iod >> m_given;
    EXPECT_STREQ(m_given.Name(), "STORE");
    EXPECT_STREQ(m_given.ID(), "7");
    EXPECT_STREQ(m_registered.Name(), "REG");
}

TEST_F(Operators, WorkWithoutARegisteredModuleOfTheClass)
{
    m_iod.RemoveIodModules();
    CDcmPatientModule patient;
    patient.PatientName("NEW");
    m_iod << patient;
    EXPECT_STREQ(m_iod.ElementStore().Find(0x0010, 0x0010)->JoinedText(), "NEW");
    EXPECT_STREQ(m_registered.Name(), "REG");
}

TEST_F(Operators, UpdateCopiesByTheModeForEmptyElements)
{
    m_registered.ID("");
    m_iod.EmptyElements(2);
    m_iod.UpdateIod(true);
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00100010=STORE", "00100020=7"}));
    m_iod.EmptyElements(EMPTY_ELEMENTS_EXCLUDED);
    m_iod.UpdateIod(true);
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00100010=REG", "00100020=7"}));
    m_iod.EmptyElements(EMPTY_ELEMENTS_INCLUDED);
    m_iod.UpdateIod(true);
    EXPECT_EQ(StoreListing(), (Texts{"00080060=CT", "00081120=", "00100010=REG", "00100020="}));
    EXPECT_EQ(m_iod.GetCountAll(), 6);
    EXPECT_EQ(CDcmIOD().EmptyElements(), EMPTY_ELEMENTS_EXCLUDED);
}

TEST_F(Operators, UpdateOfModulesTakesTheStoresValues)
{
    m_iod.ElementStore().Remove(0x0010, 0x0020);
    m_iod.UpdateIod(false);
    EXPECT_STREQ(m_registered.Name(), "STORE");
    EXPECT_STREQ(m_registered.ID(), "8");
    m_iod.RemoveAll();
    m_iod.UpdateIod(false);
    EXPECT_STREQ(m_registered.Name(), "STORE");
    Store(m_iod, {MakeText(0x0010, 0x0010, "KEPT")});
    m_iod.EmptyIodModules();
    EXPECT_TRUE(m_registered.Name().IsEmpty());
    EXPECT_EQ(StoreListing(), Texts{"00100010=KEPT"});
}

TEST_F(Operators, AssignmentCopiesStoreAndSettingsAndUpdatesTheModules)
{
    CTestIod target;
    CNameModule module;
    target.AddIodModule(module);
    m_iod.EmptyElements(0);
    m_iod.GroupLengths(true);
    m_iod.FileFormat(false);
    m_iod.IodSyntax(kExplicitBig);
    target = m_iod;
    EXPECT_TRUE(target == m_iod);
    EXPECT_STREQ(module.Name(), "STORE");
    EXPECT_EQ(target.FindIodModule(module), &module);
    EXPECT_EQ(target.FindIodModule(m_registered), nullptr);
    EXPECT_EQ(target.EmptyElements(), 0);
    EXPECT_TRUE(target.GroupLengths());
    EXPECT_FALSE(target.FileFormat());
    EXPECT_EQ(target.IodSyntax(), SYNTAX_EXPLICIT_BIG);
    target.ElementStore().GetAt(0)->AddText("MR");
    EXPECT_TRUE(target != m_iod);

    module.Name("OWN");
    const CTestIod& itself = target;
    target = itself;
    EXPECT_STREQ(module.Name(), "OWN");
    EXPECT_EQ(target.GetCount(), 3);

    const CTestIod copy(m_iod);
    EXPECT_TRUE(copy == m_iod);
    EXPECT_EQ(copy.FindIodModule(RUNTIME_CLASS(CDcmModule)), nullptr);
}

TEST(Iod, SubSetNeedsEachElementWithAnEqualValue)
{
    CDcmIOD whole;
    Store(whole, {MakeText(0x0010, 0x0010, "A"), MakeText(0x0010, 0x0020, "1")});
    CDcmIOD part;
    EXPECT_TRUE(whole.IsSubSet(part));
    EXPECT_TRUE(whole.IsSubSet(whole));
    Store(part, {MakeText(0x0010, 0x0020, "1")});
    EXPECT_TRUE(whole.IsSubSet(part));
    EXPECT_FALSE(part.IsSubSet(whole));
    part.ElementStore().GetAt(0)->AddText("2");
    EXPECT_FALSE(whole.IsSubSet(part));
}

TEST(IodModules, OfAClassAreReplacedByTheirOwnKind)
{
    CTestIod iod;
    CNameModule first;
    CNameModule second;
    CLongNameModule derived;
    CDcmPatientModule patient;
    iod.AddIodModule(first);
    iod.AddIodModule(patient);
    iod.AddIodModule(second);
    EXPECT_EQ(iod.FindIodModule(first), nullptr);
    EXPECT_EQ(iod.FindIodModule(RUNTIME_CLASS(CNameModule)), &second);
    // A module of a derived class stands beside one of its base class ...
    iod.AddIodModule(derived);
    EXPECT_EQ(iod.FindIodModule(second), &second);
    EXPECT_EQ(iod.FindIodModule(RUNTIME_CLASS(CLongNameModule)), &derived);
    // ... and goes when one of the base class is added behind it.
    iod.RemoveIodModule(second);
    iod.AddIodModule(first);
    EXPECT_EQ(iod.FindIodModule(derived), nullptr);
    EXPECT_EQ(iod.FindIodModule(RUNTIME_CLASS(CNameModule)), &first);
    EXPECT_EQ(iod.FindIodModule(static_cast<const CRuntimeClass*>(nullptr)), nullptr);
    EXPECT_EQ(iod.FindIodModule(RUNTIME_CLASS(CDcmModule)), &patient);
    iod.RemoveIodModule(RUNTIME_CLASS(CDcmModule));
    EXPECT_EQ(iod.FindIodModule(patient), nullptr);
    EXPECT_EQ(iod.FindIodModule(first), &first);
}

TEST(IodModules, AttachDetachAndRemoveThemselves)
{
    CTestIod iod;
    Store(iod, {MakeText(0x0010, 0x0010, "A"), MakeText(0x0008, 0x0060, "CT")});
    CNameModule registered;
    CNameModule module;
    module.SetOwner(&iod);
    module.Name("B");
    iod.AddIodModule(registered);
    module.DetachModule(); // Another object of its class is registered: nothing to do.
    EXPECT_EQ(iod.FindIodModule(registered), &registered);
    module.AttachModule();
    module.AttachModule();
    EXPECT_EQ(iod.FindIodModule(registered), nullptr);
    EXPECT_EQ(iod.FindIodModule(module), &module);
    module.RemoveModule();
    EXPECT_TRUE(module.Name().IsEmpty());
    EXPECT_EQ(Listing(iod.ElementStore()), Texts{"00080060=CT"});
    EXPECT_EQ(iod.FindIodModule(module), &module);
    module.DetachModule();
    EXPECT_EQ(iod.FindIodModule(module), nullptr);
}

TEST(IodFile, KeepsAPreambleOf128BytesOnly)
{
    CDcmIOD source;
    Store(source, {MakeText(0x0010, 0x0010, "AB")});
    CByteArray file = File(source);
    EXPECT_EQ(Start(file, 132), Numbers(Join({Zeros(128), TextBytes("DICM")})));
    // Implicit little endian: (0010,0010), length 2, the value.
    EXPECT_EQ(Numbers(file),
              Numbers(Join({Zeros(128), TextBytes("DICM"), Bytes({0x10, 0, 0x10, 0, 2, 0, 0, 0}), TextBytes("AB")})));
    file[0] = 'P';
    file[127] = 'E';
    CDcmIOD read;
    read.Import(file);
    EXPECT_TRUE(read == source);
    EXPECT_EQ(read.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    EXPECT_EQ(Numbers(File(read)), Numbers(file));
    CDcmIOD copy(read);
    EXPECT_EQ(Numbers(File(copy)), Numbers(file));

    // Fewer bytes than a preamble: all of them are kept, and none is written.
    CByteArray bare(Bytes({0x10, 0, 0x10, 0, 2, 0, 0, 0, 'A', 'B'}));
    read.Import(bare);
    EXPECT_EQ(read.GetCount(), 1);
    EXPECT_EQ(Start(File(read), 128), Numbers(Zeros(128)));
    read.FileFormat(false);
    EXPECT_EQ(Numbers(File(read)), Numbers(bare));
    read.Import(Bytes({0x10, 0, 0x10, 0, 2}));
    EXPECT_EQ(read.GetCount(), 0);
    EXPECT_FALSE(read.ReadTrials().empty());
}

TEST(IodFile, WritesABareDataSetsOwnStartAsPreamble)
{
    const std::string name(200, 'N');
    CDcmIOD source;
    Store(source, {MakeText(0x0010, 0x0010, name.c_str())});
    source.FileFormat(false);
    const CByteArray bare = File(source);
    CDcmIOD read;
    read.Import(bare);
    EXPECT_TRUE(read == source);
    EXPECT_EQ(Start(File(read), 128), Start(bare, 128));
}

TEST(IodFile, SyntaxNamedInTheStoreWinsOverTheRequestedOne)
{
    CDcmIOD iod;
    iod.FileFormat(false);
    Store(iod, {MakeText(0x0002, 0x0010, kExplicitBig), MakeWord(0x0028, 0x0010, 0x0102)});
    // The meta group is explicit little endian whatever follows: its length, then the UID padded to 20 bytes.
    const CByteArray meta = Join({Bytes({2, 0, 0, 0, 'U', 'L', 4, 0, 28, 0, 0, 0}),
                                  Bytes({2, 0, 0x10, 0, 'U', 'I', 20, 0}), TextBytes(kExplicitBig), Zeros(1)});
    EXPECT_EQ(Numbers(File(iod)), Numbers(Join({meta, Bytes({0, 0x28, 0, 0x10, 'U', 'S', 0, 2, 1, 2})})));
    EXPECT_EQ(iod.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    CDcmIOD read;
    read.Import(File(iod));
    EXPECT_EQ(read.IodSyntax(), SYNTAX_EXPLICIT_BIG);

    // A UID that the table lacks leaves the choice to the request; it is written as it is.
    iod.ElementStore().Find(0x0002, 0x0010)->AddText("1.2.3.4");
    iod.IodSyntax(kExplicitLittle);
    const CByteArray bytes = File(iod);
    EXPECT_EQ(std::vector<int>(bytes.end() - 10, bytes.end()),
              Numbers(Bytes({0x28, 0, 0x10, 0, 'U', 'S', 2, 0, 2, 1})));
    EXPECT_STREQ(iod.ElementStore().Find(0x0002, 0x0010)->JoinedText(), "1.2.3.4");
}

TEST(IodFile, SyntaxIsSetByKnownUidsOnly)
{
    CDcmIOD iod;
    EXPECT_EQ(iod.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    const std::pair<const char*, int> uids[] = {
        {kExplicitBig, 4},          {"1.2.840.10008.1.1", 4}, // No transfer syntax: unchanged.
        {"1.2.840.10008.1.2", 1},   {"1.2.840.10008.1.2.1.99", 2}, {"1.2.840.10008.1.2", 1},
        {"1.2.840.10008.1.2.5", 2}, {"1.2.840.10008.1.2.1.98", 2}, // Row 28: unchanged.
        {"1.2.840.10008.1.2", 1},   {"1.2.840.10008.1.2.4.50", 2}, {"", 2}};
    for (const auto& [uid, syntax] : uids)
    {
        iod.IodSyntax(uid);
        EXPECT_EQ(iod.IodSyntax(), syntax) << uid;
    }
}

TEST(IodFile, ExportWritesTheElementsAloneInTheSyntaxAskedFor)
{
    CDcmIOD iod;
    iod.GroupLengths(true);
    Store(iod, {MakeWord(0x0028, 0x0010, 0x0102)});
    CByteArray bytes(Bytes({9, 9}));
    iod.Export(bytes, kExplicitLittle);
    EXPECT_EQ(Numbers(bytes), Numbers(Bytes({0x28, 0, 0x10, 0, 'U', 'S', 2, 0, 2, 1})));
    iod.Export(bytes, kExplicitBig);
    EXPECT_EQ(Numbers(bytes), Numbers(Bytes({0, 0x28, 0, 0x10, 'U', 'S', 0, 2, 1, 2})));
    EXPECT_EQ(iod.IodSyntax(), SYNTAX_IMPLICIT_LITTLE);
    iod.Export(bytes, "1.2.3.4");
    EXPECT_TRUE(bytes.IsEmpty());
    EXPECT_EQ(iod.GetCount(), 1);
}

TEST(IodFile, WritingRemakesGroupLengthsInTheStore)
{
    CDcmIOD iod;
    iod.FileFormat(false);
    CDcmElement* stale = new CDcmElement(0x0028, 0x0000);
    stale->AddInteger(999);
    Store(iod, {MakeWord(0x0028, 0x0010, 1), stale});
    EXPECT_EQ(File(iod).GetSize(), 10);
    EXPECT_EQ(iod.GetCount(), 1);
    iod.GroupLengths(true);
    EXPECT_EQ(Numbers(File(iod)),
              Numbers(Bytes({0x28, 0, 0, 0, 4, 0, 0, 0, 10, 0, 0, 0, 0x28, 0, 0x10, 0, 2, 0, 0, 0, 1, 0})));
    EXPECT_EQ(iod.GetCount(), 2);
}

TEST(IodFile, RemembersThePathOfTheLastReadOrWrite)
{
    CDcmIOD iod;
    Store(iod, {MakeText(0x0010, 0x0010, "AB")});
    {
        CFile file("object.dcm", CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store);
        iod.Serialize(archive);
    }
    EXPECT_NE(std::string(iod.PathName().View()).find("object.dcm"), std::string::npos);
    CDcmIOD read;
    {
        CFile file("object.dcm", CFile::modeRead);
        CArchive archive(&file, CArchive::load);
        read.Serialize(archive);
    }
    EXPECT_EQ(read.PathName(), iod.PathName());
    EXPECT_TRUE(read == iod);
    EXPECT_TRUE(CDcmIOD(read).PathName().IsEmpty());
    read.Import(File(iod));
    EXPECT_TRUE(read.PathName().IsEmpty());
    std::filesystem::remove("object.dcm");
}

TEST(IodText, DocumentTellsKindSyntaxAndCounts)
{
    CTestIod iod;
    iod.IodSyntax(kExplicitBig);
    Store(iod, {MakeSequence(0x0008, 0x1120, {MakeText(0x0008, 0x1150, "1.2")}), MakeText(0x0010, 0x0020, "7")});
    CStringArray lines;
    lines.Add("old");
    iod.Export(lines);
    const Texts document = Lines(lines);
    ASSERT_EQ(document.size(), 13U);
    EXPECT_EQ(document[0].rfind("#Attribute Script Language(ASL) ", 0), 0U);
    EXPECT_EQ(Texts(document.begin() + 1, document.end()),
              (Texts{"#SOURCE_FILE=", "#IOD_KIND=CTestIod", "#IOD_SYNTAX=explicit_big_endian", "#COUNT=2",
                     "#COUNT_ALL=3", "#ATTRIBUTE_SET_BEGIN", "0008,1120,SQ,1,Referenced Patient Sequence,[1]",
                     "#SEQUENCE_BEGIN", "   0008,1150,UI,1,Referenced SOP Class UID,[1.2,]", "#SEQUENCE_END",
                     "0010,0020,LO,1,Patient ID,[7,]", "#ATTRIBUTE_SET_END"}));

    iod.Export(CString("document.asl"));
    std::ifstream file("document.asl", std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), {}};
    file.close();
    std::filesystem::remove("document.asl");
    EXPECT_EQ(written.substr(0, document[0].size() + 1), document[0] + "\n");
    EXPECT_TRUE(written.ends_with("[7,]\n#ATTRIBUTE_SET_END\n\n"));
    EXPECT_NO_THROW(iod.Export(CString("no such folder/document.asl")));
}

TEST(IodText, NamesEachSyntax)
{
    const auto word = [](CDcmIOD& iod)
    {
        CStringArray lines;
        iod.Export(lines);
        return std::string(lines[3].View());
    };
    CDcmIOD iod;
    EXPECT_EQ(word(iod), "#IOD_SYNTAX=implicit_little_endian");
    iod.IodSyntax(kExplicitLittle);
    EXPECT_EQ(word(iod), "#IOD_SYNTAX=explicit_little_endian");
    iod.Import(Bytes({1, 2, 3}));
    EXPECT_EQ(word(iod), "#IOD_SYNTAX=unknown");
}
