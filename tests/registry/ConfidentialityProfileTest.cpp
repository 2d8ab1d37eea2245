#include "Varnotix/registry/ConfidentialityProfile.h"

#include <gtest/gtest.h>

using namespace Varnotix;

TEST(ConfidentialityProfile, RepeatingAndPrivateGroupsHaveOneRowEach)
{
    ASSERT_EQ(ProfileSize(), 621);
    const std::pair<DWORD, EProfileAction> rows[] = {
        {0x00100010, EProfileAction::Empty},  {0x00100020, EProfileAction::EmptyOrDummy},
        {0x00080018, EProfileAction::NewUid}, {0x00080060, EProfileAction::None},
        {0x50040102, EProfileAction::Remove}, {0x601E3000, EProfileAction::Remove},
        {0x60000010, EProfileAction::None},   {0x00091001, EProfileAction::Remove},
        {0x50010010, EProfileAction::Remove}, {0x00081140, EProfileAction::RemoveEmptyOrUids},
    };
    for (const auto& [tag, action] : rows)
    {
        EXPECT_EQ(ProfileAction(tag, 0), action) << std::hex << tag;
    }
    EXPECT_EQ(ProfileAction(0x601E3000, PROFILE_CLEAN_GRAPHICS), EProfileAction::Clean);
    EXPECT_EQ(ProfileAction(0x00091001, PROFILE_RETAIN_SAFE_PRIVATE), EProfileAction::Clean);
}

TEST(ConfidentialityProfile, CleaningGoesBeforeKeeping)
{
    constexpr DWORD kCalibrationDate = 0x0014407E;
    EXPECT_EQ(ProfileAction(kCalibrationDate, PROFILE_RETAIN_UIDS), EProfileAction::Remove);
    EXPECT_EQ(ProfileAction(kCalibrationDate, PROFILE_RETAIN_DEVICE), EProfileAction::Keep);
    EXPECT_EQ(ProfileAction(kCalibrationDate, PROFILE_RETAIN_DEVICE | PROFILE_RETAIN_MODIFIED_DATES),
              EProfileAction::Clean);
}

TEST(ConfidentialityProfile, TheTypeDecidesWhereThereIsAChoice)
{
    using enum EProfileAction;
    const struct
    {
        EProfileAction action;
        EProfileAction optional;
        EProfileAction present;
        EProfileAction value; // Also where the need is not known.
    } rows[] = {
        {EmptyOrDummy, Empty, Empty, Dummy},
        {RemoveOrEmpty, Remove, Empty, Empty},
        {RemoveOrDummy, Remove, Dummy, Dummy},
        {RemoveEmptyOrDummy, Remove, Empty, Dummy},
        {RemoveEmptyOrUids, Remove, Empty, NewUid},
        {Remove, Remove, Remove, Remove},
        {Dummy, Dummy, Dummy, Dummy},
        {Keep, Keep, Keep, Keep},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(ProfileActionText(row.action));
        EXPECT_EQ(ActionForType(row.action, EAttributeNeed::Optional), row.optional);
        EXPECT_EQ(ActionForType(row.action, EAttributeNeed::Present), row.present);
        EXPECT_EQ(ActionForType(row.action, EAttributeNeed::Value), row.value);
        EXPECT_EQ(ActionForType(row.action, EAttributeNeed::Unknown), row.value);
    }
}
