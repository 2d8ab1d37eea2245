#include "Varnotix/iod/DcmCompositeIEIOD.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

class CChildPatientModule : public CDcmPatientModule
{
    DECLARE_DYNCREATE(CChildPatientModule)
};

IMPLEMENT_DYNCREATE(CChildPatientModule, CDcmPatientModule)

namespace
{

class CTestEntity : public CDcmIE
{
public:
    using CDcmIE::AddIeModule;
    using CDcmIE::CDcmIE;
    using CDcmIE::FindIeModule;
    using CDcmIE::RemoveIeModule;
    using CDcmIE::RemoveIeModules;
};

using Names = std::vector<std::string>;

Names ModuleNames(const CDcmIOD& iod)
{
    Names names;
    for (int i = 0; i < iod.ModuleCount(); ++i)
    {
        names.emplace_back(iod.ModuleAt(i).GetRuntimeClass()->m_lpszClassName);
    }
    return names;
}

/// An entity of a composite object with three modules.
class Entity : public testing::Test
{
protected:
    Entity() : m_entity(&m_owner)
    {
        m_entity.AddIeModule(m_patient);
        m_entity.AddIeModule(m_study);
        m_entity.AddIeModule(m_series);
    }

    CDcmCompositeIE m_owner;
    CTestEntity m_entity;
    CDcmPatientModule m_patient;
    CDcmGeneralStudyModule m_study;
    CDcmGeneralSeriesModule m_series;
};

} // namespace

TEST_F(Entity, GivesItsModulesTheirOwnerAndKeepsTheirOrder)
{
    EXPECT_EQ(m_patient.Owner(), &m_owner);
    ASSERT_EQ(m_entity.GetCount(), 3);
    EXPECT_EQ(m_entity.GetAt(0), &m_patient);
    EXPECT_EQ(m_entity.GetAt(2), &m_series);
    EXPECT_EQ(m_entity.GetAt(3), nullptr);
    EXPECT_EQ(m_entity.GetAt(-1), nullptr);
    CTestEntity free;
    free.AddIeModule(m_study);
    EXPECT_EQ(m_study.Owner(), nullptr);
    free.AttachIE();
    EXPECT_EQ(ModuleNames(m_owner), Names{"CDcmMetaFileInformation"});
}

TEST_F(Entity, HoldsOneModuleOfAClass)
{
    CDcmGeneralStudyModule otherStudy;
    m_entity.AddIeModule(otherStudy);
    EXPECT_EQ(m_entity.GetCount(), 3);
    EXPECT_EQ(m_entity.GetAt(1), &m_series);
    EXPECT_EQ(m_entity.GetAt(2), &otherStudy);
    m_entity.AddIeModule(m_series); // Itself: it moves to the end.
    EXPECT_EQ(m_entity.GetAt(2), &m_series);

    // A module of a base class displaces one of a derived class, but not the other way round.
    CChildPatientModule child;
    m_entity.AddIeModule(child);
    EXPECT_EQ(m_entity.GetCount(), 4);
    m_entity.RemoveIeModule(m_patient);
    CDcmPatientModule other;
    m_entity.AddIeModule(other);
    EXPECT_EQ(m_entity.GetCount(), 3);
    EXPECT_EQ(m_entity.FindIeModule(child), nullptr);
    EXPECT_EQ(m_entity.FindIeModule(other), &other);
}

TEST_F(Entity, FindsAndRemovesByClassAndByObject)
{
    EXPECT_EQ(m_entity.FindIeModule(RUNTIME_CLASS(CDcmModule)), &m_patient);
    EXPECT_EQ(m_entity.FindIeModule(RUNTIME_CLASS(CDcmGeneralSeriesModule)), &m_series);
    EXPECT_EQ(m_entity.FindIeModule(RUNTIME_CLASS(CDcmSOPCommonModule)), nullptr);
    EXPECT_EQ(m_entity.FindIeModule(nullptr), nullptr);
    const CDcmGeneralSeriesModule stranger;
    EXPECT_EQ(m_entity.FindIeModule(stranger), nullptr);
    m_entity.RemoveIeModule(stranger);
    m_entity.RemoveIeModule(RUNTIME_CLASS(CDcmSOPCommonModule));
    EXPECT_EQ(m_entity.GetCount(), 3);
    m_entity.RemoveIeModule(RUNTIME_CLASS(CDcmModule));
    EXPECT_EQ(m_entity.GetAt(0), &m_study);
    m_entity.RemoveIeModule(m_series);
    EXPECT_EQ(m_entity.GetCount(), 1);
    m_entity.RemoveIeModules();
    EXPECT_EQ(m_entity.FindIeModule(RUNTIME_CLASS(CDcmModule)), nullptr);
}

TEST_F(Entity, DetachedAndAttachedAgainComesLast)
{
    m_entity.AttachIE();
    CDcmSOPCommonModule common;
    common.SetOwner(&m_owner);
    common.AttachModule();
    const Names mine = {"CDcmPatientModule", "CDcmGeneralStudyModule", "CDcmGeneralSeriesModule"};
    m_entity.DetachIE();
    EXPECT_EQ(ModuleNames(m_owner), (Names{"CDcmMetaFileInformation", "CDcmSOPCommonModule"}));
    m_entity.AttachIE();
    EXPECT_EQ(ModuleNames(m_owner),
              (Names{"CDcmMetaFileInformation", "CDcmSOPCommonModule", mine[0], mine[1], mine[2]}));
    EXPECT_EQ(m_entity.GetCount(), 3);
    m_entity.DetachIE();
    common.DetachModule();
    m_owner.MetaFileInformation().DetachModule();
    EXPECT_EQ(m_owner.ModuleCount(), 0);
}

TEST_F(Entity, EmptyKeepsTheStoreAndRemoveTakesItsTagsOut)
{
    m_entity.AttachIE();
    m_patient.PatientName("N");
    m_study.StudyID("S");
    m_owner.UpdateIod(true);
    ASSERT_EQ(m_owner.GetCount(), 2);
    m_entity.EmptyIE();
    EXPECT_TRUE(m_patient.PatientName().IsEmpty());
    EXPECT_EQ(m_owner.GetCount(), 2);
    m_study.StudyID("T");
    m_entity.RemoveIE();
    EXPECT_TRUE(m_study.StudyID().IsEmpty());
    EXPECT_EQ(m_owner.GetCount(), 0);
}

TEST_F(Entity, CopyHoldsTheSameModulesForTheSameOwner)
{
    const CTestEntity copy(m_entity);
    EXPECT_EQ(copy.GetCount(), 3);
    EXPECT_EQ(copy.GetAt(1), &m_study);
    CTestEntity assigned;
    assigned = m_entity;
    CDcmSOPCommonModule common;
    assigned.AddIeModule(common);
    EXPECT_EQ(common.Owner(), &m_owner);
    EXPECT_EQ(m_entity.GetCount(), 3);
}

TEST(NestedEntities, AddTheirModulesBehindThoseOfTheirBase)
{
    CDcmCompositeIE owner;
    CDcmCompositeIE::series_ie_cr series(&owner);
    series.AttachIE();
    CDcmCompositeIE::image_ie_mr image(&owner);
    image.AttachIE();
    EXPECT_EQ(ModuleNames(owner),
              (Names{"CDcmMetaFileInformation", "CDcmGeneralSeriesModule", "CDcmClinicalTrialSeriesModule",
                     "CDcmCRSeriesModule", "CDcmGeneralImageModule", "CDcmImagePixelModule", "CDcmSOPCommonModule",
                     "CDcmImagePlaneModule", "CDcmContrastBolusModule", "CDcmOverLayPlaneModule", "CDcmVioLutModule",
                     "CDcmMRImageModule"}));
    EXPECT_EQ(owner.FindModule(RUNTIME_CLASS(CDcmSOPCommonModule)), &image.Module<CDcmSOPCommonModule>());
    EXPECT_EQ(image.Module<CDcmVioLutModule>().Owner(), &owner);
    InitDicomDLL();
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("series_ie_cr"));
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->GetRuntimeClass()->m_pBaseClass->m_lpszClassName, "composite_series_ie");
}
