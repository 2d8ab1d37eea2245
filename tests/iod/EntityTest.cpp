#include "Varnotix/iod/DcmCompositeIEIOD.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

class CTestEntity : public CDcmIE
{
public:
    using CDcmIE::AddIeModule;
    using CDcmIE::CDcmIE;
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
    // A copy holds the same modules for the same owner.
    CTestEntity assigned;
    assigned = m_entity;
    for (const CTestEntity& each : {m_entity, assigned, CTestEntity(m_entity)})
    {
        ASSERT_EQ(each.GetCount(), 3);
        EXPECT_TRUE(each.GetAt(0) == &m_patient && each.GetAt(1) == &m_study && each.GetAt(3) == nullptr);
    }
    CDcmSOPCommonModule common;
    assigned.AddIeModule(common);
    EXPECT_EQ(common.Owner(), &m_owner);
    EXPECT_EQ(m_entity.GetCount(), 3);
    CTestEntity free;
    free.AddIeModule(m_study);
    EXPECT_EQ(m_study.Owner(), nullptr);
    free.AttachIE();
    EXPECT_EQ(ModuleNames(m_owner), Names{"CDcmMetaFileInformation"});
}

TEST_F(Entity, DetachedAndAttachedAgainComesLast)
{
    m_entity.AttachIE();
    CDcmSOPCommonModule common;
    common.SetOwner(&m_owner);
    common.AttachModule();
    m_entity.DetachIE();
    EXPECT_EQ(ModuleNames(m_owner), (Names{"CDcmMetaFileInformation", "CDcmSOPCommonModule"}));
    m_entity.AttachIE();
    EXPECT_EQ(ModuleNames(m_owner), (Names{"CDcmMetaFileInformation", "CDcmSOPCommonModule", "CDcmPatientModule",
                                           "CDcmGeneralStudyModule", "CDcmGeneralSeriesModule"}));
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
