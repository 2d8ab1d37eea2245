#include "Elements.h"
#include "Varnotix/catalogue/DcmPatientModule.h"
#include "Varnotix/iod/DcmIOD.h"

#include <gtest/gtest.h>

/// Patient Name and ID, and a sequence that stays empty.
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
};

IMPLEMENT_DCM_CLASS(CNameModule, CDcmModule)
IMPLEMENT_DYNCREATE(CLongNameModule, CNameModule)
IMPLEMENT_DYNCREATE(CTestIod, CDcmIOD)

namespace
{

using Texts = std::vector<std::string>;

/// An object with Patient Name, ID and Modality in its store and a registered module.
class Operators : public testing::Test
{
protected:
    Operators()
    {
        Fill(m_iod.ElementStore(),
             {MakeText(0x0008, 0x0060, "CT"), MakeText(0x0010, 0x0010, "STORE"), MakeText(0x0010, 0x0020, "7")});
        m_iod.AddIodModule(m_registered);
        m_registered.Name("REG");
        m_registered.ID("8");
        m_given.Name("GIVEN");
    }

    /// The store, and after it name and ID of the registered module.
    Texts State()
    {
        Texts state = Listing(m_iod.ElementStore());
        state.emplace_back((m_registered.Name() + "/" + m_registered.ID()).View());
        return state;
    }

    CTestIod m_iod;
    CNameModule m_registered;
    CNameModule m_given; ///< Its ID is empty.
};

} // namespace

TEST_F(Operators, PlusTakesEmptyElementsToo)
{
    m_iod += m_given;
    EXPECT_EQ(State(), (Texts{"00080060=CT", "00081120=", "00100010=GIVEN", "00100020=", "GIVEN/"}));
}

TEST_F(Operators, MinusRemovesTagsAndEmptiesTheRegisteredModule)
{
    m_iod -= m_given;
    EXPECT_EQ(State(), (Texts{"00080060=CT", "/"}));
    EXPECT_STREQ(m_given.Name(), "GIVEN");
    CDcmIOD other;
    Fill(other.ElementStore(), {MakeText(0x0008, 0x0060, "MR"), MakeText(0x0010, 0x0040, "M")});
    m_iod -= other;
    EXPECT_EQ(m_iod.GetCount(), 0);
}

TEST_F(Operators, AndAddsNothing)
{
    m_iod.ElementStore().Remove(0x0010, 0x0010);
    m_given.ID("9");
    m_iod &= m_given;
    EXPECT_EQ(State(), (Texts{"00080060=CT", "00100020=9", "GIVEN/9"}));
}

TEST_F(Operators, LessDropsTagsThatAreEmptyInTheModule)
{
    m_iod < m_given;
    EXPECT_EQ(State(), (Texts{"00080060=CT", "00100010=GIVEN", "GIVEN/8"}));
}

TEST_F(Operators, UpdateCopiesByTheModeForEmptyElements)
{
    m_registered.ID("");
    const std::pair<int, Texts> cases[] = {
        {2, {"00080060=CT", "00100010=STORE", "00100020=7", "REG/"}},
        {EMPTY_ELEMENTS_EXCLUDED, {"00080060=CT", "00100010=REG", "00100020=7", "REG/"}},
        {EMPTY_ELEMENTS_INCLUDED, {"00080060=CT", "00081120=", "00100010=REG", "00100020=", "REG/"}}};
    for (const auto& [mode, state] : cases)
    {
        m_iod.EmptyElements(mode);
        m_iod.UpdateIod(true);
        EXPECT_EQ(State(), state) << mode;
    }
}

TEST_F(Operators, UpdateOfModulesTakesTheStoresValues)
{
    m_iod.ElementStore().Remove(0x0010, 0x0020);
    m_iod.UpdateIod(false);
    EXPECT_EQ(State(), (Texts{"00080060=CT", "00100010=STORE", "STORE/8"}));
    m_iod.RemoveAll();
    m_iod.UpdateIod(false);
    EXPECT_EQ(State(), Texts{"STORE/8"});
    Fill(m_iod.ElementStore(), {MakeText(0x0010, 0x0010, "KEPT")});
    m_iod.EmptyIodModules();
    EXPECT_EQ(State(), (Texts{"00100010=KEPT", "/"}));
}

TEST_F(Operators, AssignmentCopiesStoreAndSettingsAndUpdatesTheModules)
{
    CTestIod target;
    CNameModule module;
    target.AddIodModule(module);
    m_iod.EmptyElements(0);
    m_iod.GroupLengths(true);
    m_iod.FileFormat(false);
    m_iod.IodSyntax("1.2.840.10008.1.2.2");
    target = m_iod;
    EXPECT_TRUE(target == m_iod);
    EXPECT_STREQ(module.Name(), "STORE");
    EXPECT_EQ(target.EmptyElements(), 0);
    EXPECT_TRUE(target.GroupLengths());
    EXPECT_FALSE(target.FileFormat());
    EXPECT_EQ(target.IodSyntax(), SYNTAX_EXPLICIT_BIG);
    target.ElementStore().GetAt(0)->AddText("MR");
    EXPECT_TRUE(target != m_iod);
    module.Name("OWN");
    target = *&target;
    EXPECT_STREQ(module.Name(), "OWN");
}

TEST(Iod, SubSetNeedsEachElementWithAnEqualValue)
{
    CDcmIOD whole;
    Fill(whole.ElementStore(),
         {MakeText(0x0010, 0x0010, "A"), MakeText(0x0010, 0x0020, "1"), MakeText(0x0010, 0x0010, "B")});
    EXPECT_TRUE(whole.IsSubSet(whole)) << "a repeated tag";
    CDcmIOD part;
    EXPECT_TRUE(whole.IsSubSet(part));
    Fill(part.ElementStore(), {MakeText(0x0010, 0x0020, "1")});
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
    // A module of a derived class is kept beside one of its base class ...
    iod.AddIodModule(derived);
    EXPECT_EQ(iod.FindIodModule(second), &second);
    // ... and goes when one of the base class is added after it, be it the one that is there already.
    iod.AddIodModule(second);
    EXPECT_EQ(iod.FindIodModule(derived), nullptr);
    EXPECT_EQ(iod.FindIodModule(RUNTIME_CLASS(CDcmModule)), &patient);
    iod.RemoveIodModule(RUNTIME_CLASS(CDcmModule));
    EXPECT_EQ(iod.FindIodModule(patient), nullptr);
}

TEST(IodModules, AttachDetachAndRemoveThemselves)
{
    CTestIod iod;
    Fill(iod.ElementStore(), {MakeText(0x0010, 0x0010, "A"), MakeText(0x0008, 0x0060, "CT")});
    CNameModule registered;
    CNameModule module;
    module.SetOwner(&iod);
    iod.AddIodModule(registered);
    module.DetachModule(); // Another object of its class is registered: nothing to do.
    EXPECT_EQ(iod.FindIodModule(registered), &registered);
    module.AttachModule();
    EXPECT_EQ(iod.FindIodModule(registered), nullptr);
    module.Name("B");
    module.RemoveModule();
    EXPECT_TRUE(module.Name().IsEmpty());
    EXPECT_EQ(Listing(iod.ElementStore()), Texts{"00080060=CT"});
    EXPECT_EQ(iod.FindIodModule(module), &module);
    module.DetachModule();
    EXPECT_EQ(iod.ModuleCount(), 0);
}
