#include "Varnotix/modules/Catalogue.h"

#include "Elements.h"
#include "Stream.h"
#include "Values.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace
{

template <class... CLASSES>
struct SClasses
{
    template <class CALL>
    static void ForEach(const CALL& call)
    {
        (call.template operator()<CLASSES>(), ...);
    }
    static constexpr std::size_t kCount = sizeof...(CLASSES);
};

using Modules =
    SClasses<CDcmAcquisitionContextModule, CDcmAudioModule, CDcmBitmapDisplayShutterModule, CDcmCRImageModule,
             CDcmCRSeriesModule, CDcmCTImageModule, CDcmCardiacSynchronizationModule, CDcmCineModule,
             CDcmClinicalTrialSeriesModule, CDcmClinicalTrialStudyModule, CDcmClinicalTrialSubjectModule,
             CDcmContrastBolusModule, CDcmCurveIdentificationModule, CDcmCurveModule, CDcmDeviceModule,
             CDcmDisplayShutterModule, CDcmFrameOfReferenceModule, CDcmFramePointersModule, CDcmGeneralEquipmentModule,
             CDcmGeneralImageModule, CDcmGeneralSeriesModule, CDcmGeneralStudyModule, CDcmImagePixelModule,
             CDcmImagePlaneModule, CDcmMRImageModule, CDcmMaskModule, CDcmModalityLUTModule,
             CDcmMultiFrameDimensionModule, CDcmMultiFrameModule, CDcmMultiFrameOverlayModule, CDcmNMDetectorModule,
             CDcmNMImageModule, CDcmNMImagePixelModule, CDcmNMIsotopeModule, CDcmNMMultiFrameModule,
             CDcmNMMultiGatedModule, CDcmNMPetOrientationModule, CDcmNMPhaseModule, CDcmNMReconstructionModule,
             CDcmNMTomoModule, CDcmOverLayPlaneModule, CDcmPalleteColorLookUpModule, CDcmPatientDemographicModule,
             CDcmPatientIdentificationModule, CDcmPatientMedicalModule, CDcmPatientModule,
             CDcmPatientRelationshipModule, CDcmPatientStudyModule, CDcmQueryRetrieveModule,
             CDcmRespiratorySynchronizationModule, CDcmSCEquipmentModule, CDcmSCImageModule,
             CDcmSCMultiFrameImageModule, CDcmSCMultiFrameVectorModule, CDcmSOPCommonModule, CDcmServiceModule,
             CDcmSynchronizationModule, CDcmTherapyModule, CDcmUSFrameOfReferenceModule, CDcmUSImageModule,
             CDcmUSRegionCalibrationModule, CDcmVioLutModule, CDcmVisitAdmissionModule, CDcmVisitDischargeModule,
             CDcmVisitIdentificationModule, CDcmVisitRelationshipModule, CDcmVisitSchedulingModule>;

using Sequences =
    SClasses<CDcmAcquisitionContextSequence, CDcmCalibrationDataSequence, CDcmCodeAndModifer, CDcmCodeSequenceMacroEx,
             CDcmCodingSchemeIdSequence, CDcmContrastAdministrationRouteSequence, CDcmContributingEquipmentSequence,
             CDcmDataSequence, CDcmDetectorSequence, CDcmDeviceSequence, CDcmDigitalSignatureSequence,
             CDcmDimensionIndexSequence, CDcmDimensionOrgSequence, CDcmEncryptedAttributesSequence, CDcmGatedSequence,
             CDcmIconImageSequence, CDcmImageSequence, CDcmInsurancePlanSequence, CDcmInterventionDrugSequence,
             CDcmLutSequence, CDcmMACParameterSequence, CDcmMaskSubtractionSequence, CDcmPersonIdentificationMacro,
             CDcmPhaseSequence, CDcmPrimaryLanguageSequence, CDcmRadioPharmaceuticalSequence,
             CDcmRequestAttributeSequence, CDcmRotationSequence, CDcmSeriesSequence, CDcmSopSequence,
             CDcmSpecimenSequence, CDcmTherapySequence, CDcmTimeSlotSequence, CDcmUSRegionSequence,
             CDcmWaveformSequence, CDcmWindowEnergyRangeSequence, CDcmWindowInformationSequence,
             CReferencedOverLaySequence>;

template <class CALL>
void ForEachClass(const CALL& call)
{
    const auto traced = [&call]<class CLASS>()
    {
        SCOPED_TRACE(CLASS().GetRuntimeClass()->m_lpszClassName);
        call.template operator()<CLASS>();
    };
    Modules::ForEach(traced);
    Sequences::ForEach(traced);
}

/// Gives every element a value of its VR, at every depth.
void Fill(CDcmElementSet& set)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        if (element.Items() != nullptr)
        {
            Fill(*element.Items());
        }
        else
        {
            EXPECT_TRUE(element.AddText("12") || element.AddWord(0x1234) || element.AddInteger(0x12345678) ||
                        element.AddFloat(1.5F) || element.AddDouble(2.5) || element.SetWords(Words({0x0201})))
                << (element.GroupText() + element.ElementText()).CText();
        }
    }
}

/// The sets that the bound sequences of a fresh object show, at every depth: those of its member objects. A sequence
/// without a member has no items.
using BoundSets = std::vector<std::unique_ptr<CDcmElementSet>>;

void CollectBound(const CDcmElementSet& set, BoundSets& bound)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (element.Items() != nullptr && !element.Items()->IsEmpty())
        {
            bound.push_back(std::make_unique<CDcmElementSet>());
            bound.back()->CopyByReference(*element.Items());
            CollectBound(*element.Items(), bound);
        }
    }
}

} // namespace

TEST(Catalogue, HoldsEveryClassByName)
{
    InitDicomDLL();
    EXPECT_EQ(Modules::kCount, 67U);
    EXPECT_EQ(Sequences::kCount, 38U);
    ForEachClass(
        []<class CLASS>()
        {
            const CRuntimeClass* expected = CLASS().GetRuntimeClass();
            const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(expected->m_lpszClassName));
            ASSERT_NE(object, nullptr);
            EXPECT_EQ(object->GetRuntimeClass(), expected);
            EXPECT_EQ(object->IsKindOf(RUNTIME_CLASS(CDcmModule)), (std::is_base_of_v<CDcmModule, CLASS>));
        });
}

TEST(Catalogue, DeclaresAttributesThatTheDictionaryKnowsInTagOrder)
{
    ForEachClass(
        []<class CLASS>()
        {
            CLASS object;
            const CDcmElementSet& set = object.GetDcmElementSet();
            ASSERT_GT(set.GetCount(), 0);
            EXPECT_TRUE(set.IsEmptyOfValues());
            for (int i = 0; i < set.GetCount(); ++i)
            {
                EXPECT_TRUE(set.GetAt(i)->HasEntry()) << set.GetAt(i)->GroupText().CText();
                EXPECT_TRUE(i == 0 || set.GetAt(i - 1)->Tag() < set.GetAt(i)->Tag());
            }
            // One line an element and two more a sequence, after the three lines of the head.
            CStringArray lines;
            object.Export(lines);
            const auto brackets = std::count_if(lines.begin(), lines.end(),
                                                [](const CString& line)
                                                { return line.View().find("#SEQUENCE_") != std::string_view::npos; });
            EXPECT_EQ(lines.GetSize(), 3 + object.GetCountAll() + brackets);
        });
}

TEST(Catalogue, CopiesToMembersOfItsOwn)
{
    ForEachClass(
        []<class CLASS>()
        {
            CLASS source;
            Fill(source.GetDcmElementSet());
            CLASS assigned;
            BoundSets members;
            CollectBound(assigned.GetDcmElementSet(), members);
            assigned = source;
            EXPECT_TRUE(assigned == source);
            BoundSets shown;
            CollectBound(assigned.GetDcmElementSet(), shown);
            ASSERT_EQ(shown.size(), members.size());
            for (std::size_t i = 0; i < shown.size(); ++i)
            {
                EXPECT_TRUE(shown[i]->SharesBodyWith(*members[i])) << i;
            }
            const CLASS copy(assigned);
            EXPECT_TRUE(copy == source);
            assigned.GetDcmElementSet().EmptyValues();
            EXPECT_TRUE(copy == source);
        });
}

TEST(IncludedMacro, FollowsItsItemThroughReadsAndCopies)
{
    CDcmGeneralImageModule source;
    CDcmImagePixelModule& icon = source.IconImage().ImagePixelModule();
    icon.Rows(64);
    icon.SetPixelData(Bytes({1, 2, 3, 4}));
    CDcmGeneralImageModule again;
    WriteAndRead(source.GetDcmElementSet(), again.GetDcmElementSet());
    CDcmGeneralImageModule copy(again);
    again.GetDcmElementSet().EmptyValues();
    EXPECT_EQ(copy.IconImage().ImagePixelModule().Rows(), 64);
    CObList frames;
    copy.IconImage().ImagePixelModule().GetPixelData(frames);
    ASSERT_EQ(frames.GetCount(), 1);
    EXPECT_EQ(Numbers(static_cast<const CByteArray&>(*frames.GetHead())), (std::vector<int>{1, 2, 3, 4}));
    copy.IconImage().ImagePixelModule().Columns(32);
    EXPECT_EQ(copy.GetDcmElementSet().Find(0x0088, 0x0200)->Items()->Find(0x0028, 0x0011)->Words()->GetAt(0), 32);
}
