#include "Bytes.h"
#include "Values.h"
#include "Varnotix/modules/Catalogue.h"

#include <gtest/gtest.h>

TEST(CatalogueNames, OfStudyAndSeriesReachTheAttributesOfTheirModule)
{
    CDcmGeneralStudyModule study;
    study.Accession_Number("A1");
    study.PhysicianOfRecord("RECORD");
    study.NameOfPhysicianReadingStudy("READER");
    study.ReferringPhysicianId().PersonAddress("REFERRING");
    study.PhysicianOfRecordId().InstitutionCode().CodeValue("C1");
    study.PhysicianReadingStudyId().PersonCode().CodeValue("C2");
    EXPECT_EQ(Values(study),
              "00080050=A1 00080096={00401102=REFERRING } 00081048=RECORD "
              "00081049={00080082={00080100=C1 } } 00081060=READER 00081062={00401101={00080100=C2 } } ");

    CDcmGeneralSeriesModule series;
    series.OperatorName(ArrayOf<CStringArray, CString>({"A", "B"}));
    series.SmallestPixelValue(1);
    series.LargestPixelValue(2);
    series.CommentOnThePerformedProcedureStep("C");
    series.Operator().PersonAddress("O");
    series.RequestAttributes().ScheduledProtocol().CodeMeaning("M");
    EXPECT_EQ(Values(series), "00081070=A\\B 00081072={00401102=O } 00280108=1 00280109=2 "
                              "00400275={00400008={00080104=M } } 00400280=C ");
}

TEST(CatalogueNames, OfThePatientReachTheAttributesOfTheirModule)
{
    CDcmPatientIdentificationModule identification;
    identification.IssuerOfPatientID("FIRST");
    identification.IssuerOfPatient(ArrayOf<CStringArray, CString>({"ISSUER"}));
    identification.OtherPatientID(ArrayOf<CStringArray, CString>({"1", "2"}));
    identification.PatientBirthName("BORN");
    identification.PatientMotherBirthName("MOTHER");
    identification.MedicalRecordLocator("LOCATOR");
    EXPECT_EQ(Values(identification), "00100021=ISSUER 00101000=1\\2 00101005=BORN 00101060=MOTHER 00101090=LOCATOR ");

    CDcmPatientDemographicModule demographic;
    demographic.ConfidentialityConstraint("C");
    demographic.InsurancePlan().CodeValue("PLAN");
    demographic.PrimaryLanguage().Code().CodeValue("fr");
    demographic.PrimaryLanguage().Modifier().CodeValue("CA");
    EXPECT_EQ(Values(demographic),
              "00100050={00080100=PLAN } 00100101={00080100=fr 00100102={00080100=CA } } 00403001=C ");
}

TEST(CatalogueNames, OfImagesReachTheAttributesOfTheirModule)
{
    CDcmCRImageModule cr;
    cr.ExposureMicroAmpereSeconds("7");
    cr.AcquisitionDeviceProcessing("P");
    cr.DistanceSourceDetector("1");
    cr.DistanceSourcePatient("2");
    EXPECT_EQ(Values(cr), "00181110=1 00181111=2 00181153=7 00181400=P ");

    CDcmMRImageModule mr;
    mr.dB_dt("3");
    mr.CardiacNumberImages("4");
    mr.PercentPhaseFieldView("5");
    mr.AcquisitionMatrix(Words({1, 0, 0, 2}));
    EXPECT_EQ(Values(mr), "00180094=5 00181090=4 00181310=1 0 0 2 00181318=3 ");

    CDcmUSImageModule us;
    us.UltraSoundColorDataPresent(1);
    us.PreprocessingFunction("F");
    us.OverlaySubtype("S");
    us.TransducerPosition().Modifier().CodeValue("P");
    us.TransducerOrientation().Modifier().CodeValue("O");
    us.StageCode().CodeValue("C");
    EXPECT_EQ(Values(us), "00082240={00082242={00080100=P } } 00082244={00082246={00080100=O } } 00185020=F 00280014=1 "
                          "0040000a={00080100=C } 60000045=S ");

    CDcmUSRegionSequence region;
    region.TMLinePosition_x1(1);
    region.TMLinePosition_y0(2);
    region.DopplerSampleVolumeXPosition(3);
    region.TranducerFrequency(4);
    region.TableOfXBreakPoints(ArrayOf<CUIntArray, UINT>({5, 6}));
    region.TableOfYBreakPoints(ArrayOf<CDoubleArray, double>({0.5}));
    region.TableOfParameterValues(ArrayOf<CFloatArray, float>({1.5F}));
    EXPECT_EQ(Values(region),
              "00186030=4 00186039=3 0018603f=2 00186041=1 00186052=5 6 00186054=0.500000 0018605a=1.500000 ");
}

TEST(CatalogueNames, OfNuclearMedicineReachTheAttributesOfTheirModule)
{
    CDcmNMImageModule image;
    image.TableTraverse("1");
    image.AnatomicRegion().Code().CodeValue("A");
    image.AnatomicRegion().Modifier().CodeValue("B");
    image.PrimaryAnatomicStructure().Modifier().CodeValue("C");
    EXPECT_EQ(Values(image),
              "00082218={00080100=A 00082220={00080100=B } } 00082228={00082230={00080100=C } } 00181131=1 ");

    CDcmNMMultiGatedModule gated;
    gated.GatedInformation().FramingType("F");
    gated.GatedInformation().DataInformation().TimeSlot().TimeSlotTime("1");
    gated.GatedInformation().DataInformation().TimeSlot().FrameTime("2");
    EXPECT_EQ(Values(gated), "00540062={00181064=F 00540063={00540072={00181063=2 00540073=1 } } } ");
}

TEST(CatalogueNames, OfCommonAttributesReachTheAttributesOfTheirModule)
{
    CDcmSOPCommonModule sop;
    sop.OffsetFromUTC("+01");
    sop.SOPAuthDateAndTime("2000");
    sop.MACParameters().IDNumber(3);
    sop.MACParameters().DataElementsSigned(Words({8, 5}));
    sop.DigitalSignatures().CertificateOfSigner(Bytes({1, 2}));
    sop.EncryptedAttributes().TransferSyntaxUID("1.2");
    sop.CodingScheme().CodingSchemeExternalUID("9");
    EXPECT_EQ(Values(sop), "00080110={00080114=9 } 00080201=+01 01000420=2000 04000500={04000510=1.2 } "
                           "4ffe0001={04000005=3 04000020=8 5 } fffafffa={04000115=1 2 } ");
}

TEST(CatalogueNames, OfThePaletteReadAndWriteOneAttributeUnderTwoNames)
{
    CDcmPalleteColorLookUpModule palette;
    palette.BluePaletteData(Words({1, 2}));
    palette.SegmentedRedPaletteData(Words({3}));
    EXPECT_EQ(palette.BlueTableData().GetSize(), 2);
    EXPECT_EQ(Values(palette), "00281203=1 2 00281221=3 ");
}

TEST(RepeatingGroup, IsTheOneThatTheModuleWasMadeFor)
{
    CDcmOverLayPlaneModule overlay("6002");
    overlay.OverlayOrigin(Words({1, 0xFFFF}));
    EXPECT_EQ(Values(overlay), "60020050=1 65535 ");
    EXPECT_NE(CDcmOverLayPlaneModule().GetDcmElementSet().Find(0x6000, 0x3000), nullptr);
    EXPECT_NE(CDcmMultiFrameOverlayModule("6004").GetDcmElementSet().Find(0x6004, 0x0051), nullptr);
    EXPECT_STREQ(kDefaultCurveGroup, "5000");
    EXPECT_STREQ(kDefaultOverlayGroup, "6000");

    for (const char* group : {"", "sound", "50FF"})
    {
        EXPECT_NE(CDcmAudioModule(group).GetDcmElementSet().Find(0x50FF, 0x2000), nullptr) << group;
    }
    CDcmAudioModule audio("5002");
    audio.SampleRate(8000);
    audio.ReferencedImage().ReferencedSOPClassUID("1.2");
    EXPECT_EQ(Values(audio), "00081140={00081150=1.2 } 50022008=8000 ");
}

TEST(RepeatingGroup, IsTakenOverByACopyWithItsSequence)
{
    CDcmCurveModule source("5004");
    source.CurveLabel("LABEL");
    source.ReferencedOverlay().GetDcmElementSet().Find(0x5004, 0x2610)->AddWord(0x6000);
    CDcmCurveModule assigned;
    EXPECT_NE(assigned.GetDcmElementSet().Find(0x5000, 0x2600), nullptr);
    assigned = source;
    EXPECT_EQ(Values(assigned), "50042500=LABEL 50042600={50042610=24576 } ");
    EXPECT_EQ(Values(CDcmCurveModule(source)), Values(source));
    assigned.ReferencedOverlay().GetDcmElementSet().EmptyValues();
    EXPECT_EQ(Values(assigned), "50042500=LABEL ");
    EXPECT_EQ(Values(source), "50042500=LABEL 50042600={50042610=24576 } ");
}

TEST(CodeAndModifier, KeepsTheModifierTagOfItsOwnSequence)
{
    CDcmCodeAndModifer view("0054", "0222");
    view.Code().CodeValue("V");
    view.Modifier().CodeValue("M");
    EXPECT_EQ(Values(view), "00080100=V 00540222={00080100=M } ");
    EXPECT_EQ(Values(CDcmCodeAndModifer(view)), Values(view));
    CDcmNMImageModule image;
    image.AnatomicRegion() = view;
    EXPECT_EQ(Values(image), "00082218={00080100=V 00082220={00080100=M } } ");
    image.AnatomicRegion().Modifier().CodeValue("N");
    EXPECT_EQ(Values(image), "00082218={00080100=V 00082220={00080100=N } } ");
}
