#include "Elements.h"
#include "Varnotix/iod/DcmNormalizedIOD.h"
#include "Varnotix/iod/IdentifyingTags.h"
#include "Varnotix/iod/ImageIODs.h"

#include <gtest/gtest.h>

namespace
{

std::string ModuleNames(const CDcmIOD& iod)
{
    std::string names;
    for (int i = 0; i < iod.ModuleCount(); ++i)
    {
        names += std::string(iod.ModuleAt(i).GetRuntimeClass()->m_lpszClassName) + " ";
    }
    return names;
}

CByteArray Stream(CDcmIOD& iod)
{
    CByteArray bytes;
    iod.ExportFileFormat(bytes);
    return bytes;
}

/// An object as it comes from elsewhere: no class of this library's typed ones.
CByteArray Stream(std::initializer_list<CDcmElement*> elements)
{
    CDcmIOD iod;
    Fill(iod.ElementStore(), elements);
    return Stream(iod);
}

CByteArray CtStream()
{
    return Stream({MakeText(0x0008, 0x1030, "HEAD"), MakeText(0x0008, 0x1090, "GT"),
                   MakeText(0x0010, 0x0010, "DOE^JANE"), MakeText(0x0010, 0x0020, "77"),
                   MakeText(0x0018, 0x0060, "80")});
}

/// What others find in the file that an object is written as.
CDcmIOD Reread(CDcmIOD& iod)
{
    CDcmIOD read;
    read.Import(Stream(iod));
    return read;
}

} // namespace

TEST(TypedIod, EmptyModuleElementsRemoveNothingUnlessTheyAreIncluded)
{
    CCTImageIOD ct;
    ct.Import(CtStream());
    ct.IodSyntax("1.2.840.10008.1.2.1");
    ct.Module<CDcmPatientModule>().EmptyModule();
    CDcmIOD read = Reread(ct);
    EXPECT_EQ(TextOf(read.ElementStore(), 0x0010, 0x0010), "DOE^JANE");
    EXPECT_EQ(read.GetCount(), 5);

    ct.EmptyElements(EMPTY_ELEMENTS_INCLUDED);
    read = Reread(ct);
    EXPECT_EQ(TextOf(read.ElementStore(), 0x0010, 0x0010), "");
    EXPECT_EQ(TextOf(read.ElementStore(), 0x0008, 0x1030), "HEAD");
    EXPECT_GT(read.GetCount(), 100);

    ct.EmptyElements(2);
    ct.Module<CDcmPatientModule>().PatientName("RO");
    EXPECT_EQ(TextOf(Reread(ct).ElementStore(), 0x0010, 0x0010), "");
}

TEST(TypedIod, UpdatesAStoreThatIsOutOfOrderOrRepeatsATag)
{
    CDcmCompositeIEIOD iod;
    iod.Module<CDcmPatientModule>().PatientName("N");
    iod.Module<CDcmGeneralStudyModule>().StudyID("S");
    Fill(iod.ElementStore(), {MakeText(0x0028, 0x0004, "RGB"), MakeText(0x0010, 0x0010, "A"),
                              MakeText(0x0010, 0x0010, "B"), MakeText(0x0008, 0x1030, "HEAD")});
    for (int round = 0; round < 2; ++round)
    {
        iod.UpdateIod(true);
        EXPECT_EQ(Listing(iod.ElementStore()),
                  (std::vector<std::string>{"00081030=HEAD", "00100010=N", "00200010=S", "00280004=RGB"}));
    }
}

TEST(TypedIod, EntityIsAttachedEmptiedAndRemovedAsOne)
{
    CDcmCompositeIEIOD iod;
    auto& patient = iod.Entity<CDcmCompositeIE::composite_patient_ie>();
    const std::string names = ModuleNames(iod);
    const std::string own = "CDcmPatientModule CDcmClinicalTrialSubjectModule ";
    const std::size_t place = names.find(own);
    ASSERT_NE(place, std::string::npos);
    iod.Module<CDcmPatientModule>().PatientName("N");
    iod.UpdateIod(true);
    patient.EmptyIE();
    EXPECT_TRUE(iod.Module<CDcmPatientModule>().PatientName().IsEmpty());
    EXPECT_EQ(iod.GetCount(), 1);
    patient.RemoveIE();
    EXPECT_EQ(iod.GetCount(), 0);
    // Detached and attached again it comes last.
    patient.DetachIE();
    EXPECT_EQ(ModuleNames(iod), std::string(names).erase(place, own.size()));
    patient.AttachIE();
    EXPECT_EQ(ModuleNames(iod), std::string(names).erase(place, own.size()) + own);
}

TEST(TypedIod, IsMadeOfAGenericObject)
{
    CDcmCompositeIOD generic;
    generic.Import(CtStream());
    CCTImageIOD ct(generic);
    EXPECT_STREQ(ct.Module<CDcmCTImageModule>().KVP(), "80");
    EXPECT_STREQ(CPatientInformationIOD(generic).PatientIdentification().PatientName(), "DOE^JANE");

    // Its own modules are registered again, whatever became of the list.
    CMRImageIOD mr;
    CDcmPatientModule stranger;
    stranger.SetOwner(&mr);
    stranger.AttachModule();
    mr.Entity<CDcmCompositeIE::image_ie_mr>().DetachIE();
    mr = static_cast<const CDcmCompositeIOD&>(ct);
    EXPECT_EQ(ModuleNames(mr), ModuleNames(CMRImageIOD()));
    EXPECT_TRUE(static_cast<CDcmIOD&>(mr) == ct);

    // Nothing of one object may be written as the next one's.
    CPatientInformationIOD patient(generic);
    ct = CDcmCompositeIOD();
    patient = CDcmCompositeIOD();
    EXPECT_TRUE(ct.Module<CDcmCTImageModule>().KVP().IsEmpty());
    EXPECT_TRUE(patient.PatientIdentification().PatientName().IsEmpty());
}

/// What stays of the object before in the file of a typed object that was assigned as one of its base classes.
template <class BASE, class TYPED>
std::vector<std::string> AfterAssignment(const BASE& other)
{
    TYPED typed;
    typed.Import(Stream({MakeText(0x0008, 0x0018, "1.2"), MakeText(0x0010, 0x0020, "77")}));
    static_cast<BASE&>(typed) = other;
    return Listing(Reread(typed).ElementStore());
}

TEST(TypedIod, KeepsNothingOfTheObjectBeforeWhenAssignedThroughABase)
{
    const std::vector<std::string> expected{"00100010=RO"};
    CCTImageIOD other;
    other.Import(Stream({MakeText(0x0010, 0x0010, "RO")}));
    EXPECT_EQ((AfterAssignment<CDcmIOD, CCTImageIOD>(other)), expected);
    EXPECT_EQ((AfterAssignment<CDcmCompositeIOD, CCTImageIOD>(other)), expected);
    EXPECT_EQ((AfterAssignment<CDcmCompositeIE, CCTImageIOD>(other)), expected);
    EXPECT_EQ((AfterAssignment<CDcmCompositeIEIOD, CCTImageIOD>(other)), expected);
    CPatientInformationIOD patient(other);
    EXPECT_EQ((AfterAssignment<CDcmIOD, CPatientInformationIOD>(patient)), expected);
    EXPECT_EQ((AfterAssignment<CDcmNormalizedIOD, CPatientInformationIOD>(patient)), expected);
    EXPECT_EQ((AfterAssignment<CDcmNormalizedIOD, CDcmNormalizedIOD>(patient)), expected);
}

TEST(TypedIod, KeepsTheOrderOfItemsWhenItTakesAndGivesValues)
{
    CDcmIOD source;
    source.ElementStore().Add(MakeSequence(0x0008, 0x1140,
                                           {MakeText(0x0008, 0x1155, "1"), MakeText(0x0008, 0x1150, "2"),
                                            MakeText(0x0008, 0x1155, "3"), MakeText(0x0008, 0x1150, "4")}));
    CCTImageIOD ct;
    static_cast<CDcmIOD&>(ct) = source;
    CCTImageIOD copy(ct);
    ct.UpdateIod(true);
    copy.UpdateIod(true);
    for (const CDcmIOD* iod : {static_cast<const CDcmIOD*>(&ct), static_cast<const CDcmIOD*>(&copy)})
    {
        EXPECT_EQ(Listing(*iod->ElementStore().Find(0x0008, 0x1140)->Items()),
                  (std::vector<std::string>{"00081155=1", "00081150=2", "00081155=3", "00081150=4"}));
    }
}

TEST(TypedIod, CopyTakesModuleValuesThatAreNotInTheStore)
{
    CCTImageIOD ct;
    ct.Import(CtStream());
    ct.Module<CDcmCTImageModule>().GantryDetectorTilt("5");
    ct.Module<CDcmPatientModule>().PatientName("RO"); // The store still has the name that was read.
    ct.MetaFileInformation().MediaInstanceUID("1.2");
    CCTImageIOD copy(ct);
    EXPECT_STREQ(copy.Module<CDcmPatientModule>().PatientName(), "DOE^JANE");
    EXPECT_STREQ(copy.MetaFileInformation().MediaInstanceUID(), "1.2");
    EXPECT_EQ(copy.ModuleAt(1).Owner(), &copy);
    copy = *&copy;
    EXPECT_STREQ(copy.Module<CDcmCTImageModule>().GantryDetectorTilt(), "5");

    CPatientInformationIOD patient;
    patient.PatientIdentification().PatientName("N");
    EXPECT_STREQ(CPatientInformationIOD(patient).PatientIdentification().PatientName(), "N");
}

TEST(TypedIod, DifferenceInMetaInformationAloneIsNeitherEqualNorUnequal)
{
    CDcmCompositeIE one;
    CDcmCompositeIE two;
    EXPECT_TRUE(one == two);
    one.MetaFileInformation().TransferSyntaxUID("1.2");
    EXPECT_FALSE(one == two);
    EXPECT_FALSE(one != two);
    two.ElementStore().Add(MakeText(0x0010, 0x0010, "N"));
    EXPECT_TRUE(one != two);
}

TEST(NormalizedIod, MergesWhatIsNotEmptyWhateverTheMode)
{
    CPatientInformationIOD patient;
    patient.Import(Stream({MakeText(0x0008, 0x0018, "1.22"), MakeText(0x0010, 0x0010, "JD"),
                           MakeText(0x0010, 0x2000, "ALERT"), MakeText(0x0028, 0x0004, "RB")}));
    EXPECT_STREQ(patient.SOPCommon().SOPInstanceUID(), "1.22");
    EXPECT_STREQ(patient.PatientIdentification().PatientName(), "JD");
    patient.SOPCommon().EmptyModule();
    patient.PatientIdentification().PatientName("RO");
    patient.PatientIdentification().PatientID("99");
    for (const int mode : {EMPTY_ELEMENTS_INCLUDED + 0, EMPTY_ELEMENTS_EXCLUDED + 0, 2})
    {
        patient.EmptyElements(mode);
        EXPECT_EQ(
            Listing(Reread(patient).ElementStore()),
            (std::vector<std::string>{"00080018=1.22", "00100010=RO", "00100020=99", "00102000=ALERT ", "00280004=RB"}))
            << mode;
    }
}

/// An object that holds every identifying element and a few others.
class Anonymisation : public testing::Test
{
protected:
    Anonymisation()
    {
        for (const DWORD tag : Varnotix::kIdentifyingTags)
        {
            m_iod.ElementStore().AddKnown(tag)->AddText("WHO");
        }
        m_iod.ElementStore().Add(MakeText(0x0008, 0x0060, "CT"));
        m_iod.ElementStore().Add(MakeSequence(0x0008, 0x1120, {MakeText(0x0010, 0x0010, "NESTED")}));
        m_iod.UpdateIod(false);
    }

    CDcmCompositeIEIOD m_iod;
};

TEST_F(Anonymisation, ReplacesEveryElementThatIsThere)
{
    m_iod.ElementStore().Remove(0x0010, 0x1000);
    m_iod.ElementStore().Find(0x0008, 0x0050)->EmptyValue();
    m_iod.Anonymize55((*m_iod.ElementStore().Find(0x0008, 0x0060)->Texts())[0]); // A text of the object itself: "CT".
    EXPECT_EQ(m_iod.GetCount(), 33);
    for (const DWORD tag : Varnotix::kIdentifyingTags)
    {
        const CDcmElement* element = m_iod.ElementStore().Find(tag);
        EXPECT_STREQ(element != nullptr ? element->JoinedText() : CString("CT"), "CT") << std::hex << tag;
    }
    EXPECT_EQ(TextOf(m_iod.ElementStore(), 0x0010, 0x1000), "none");
    EXPECT_EQ(TextOf(*m_iod.ElementStore().Find(0x0008, 0x1120)->Items(), 0x0010, 0x0010), "NESTED");
    EXPECT_STREQ(m_iod.Module<CDcmPatientModule>().PatientName(), "WHO");
    m_iod.UpdateIod(false);
    EXPECT_STREQ(m_iod.Module<CDcmPatientModule>().PatientName(), "CT");
    m_iod.Anonymize55("");
    EXPECT_EQ(Listing(m_iod.ElementStore()), (std::vector<std::string>{"00080060=CT", "00081120="}));
}

TEST_F(Anonymisation, OverlooksNeitherARepeatedElementNorOneOfAnotherVr)
{
    CDcmIOD source;
    for (const int vr : {VR_PN, VR_LO, VR_PN, VR_OB, VR_UN})
    {
        auto name = std::make_unique<CDcmElement>(0x0010, vr == VR_OB || vr == VR_UN ? 0x0020 : 0x0010, vr);
        name->SetRawBytes(TextBytes("DOE7"));
        source.ElementStore().Add(name.release());
    }
    source.IodSyntax("1.2.840.10008.1.2.1");
    for (const char* text : {"X", ""})
    {
        CDcmIOD built(source);
        CDcmIOD read; // Its values are still in the bytes of the stream.
        read.Import(Stream(source));
        for (CDcmIOD* object : {&built, &read})
        {
            EXPECT_EQ(object->GetCount(), 5);
            object->Anonymize55(text);
            EXPECT_EQ(object->GetCount(), *text != '\0' ? 5 : 0);
            EXPECT_EQ(HexText(Stream(*object)).find(HexText(TextBytes("DOE"))), std::string::npos);
        }
    }
}
