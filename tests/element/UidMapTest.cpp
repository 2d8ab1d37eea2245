#include "Varnotix/element/UidMap.h"

#include "Elements.h"

#include <gtest/gtest.h>

namespace
{

/// A map whose new UIDs show the length of the old one.
Varnotix::CUidMap LengthMap()
{
    return Varnotix::CUidMap(
        [](std::string_view uid)
        {
            Varnotix::CUuid uuid{};
            uuid.back() = static_cast<BYTE>(uid.size());
            return uuid;
        });
}

} // namespace

TEST(UidMap, AUuidIsOneNumber)
{
    Varnotix::CUuid uuid{};
    EXPECT_STREQ(Varnotix::UidOfUuid(uuid), "2.25.0");
    uuid.fill(0xFF);
    EXPECT_STREQ(Varnotix::UidOfUuid(uuid), "2.25.340282366920938463463374607431768211455");
    uuid = {0xF8, 0x1D, 0x4F, 0xAE, 0x7D, 0xEC, 0x11, 0xD0, 0xA7, 0x65, 0x00, 0xA0, 0xC9, 0x1E, 0x6B, 0xF6};
    EXPECT_STREQ(Varnotix::UidOfUuid(uuid), "2.25.329800735698586629295641978511506172918"); // PS3.5 Annex B.2.
}

TEST(UidMap, ReplacesEachUidButThoseOfTheStandard)
{
    const Varnotix::CUidMap map = LengthMap();
    const CString five = map.NewUid("1.2.3");
    EXPECT_EQ(map.NewUid(std::string_view(" 1.2.3\0", 7)), five);
    EXPECT_NE(map.NewUid("1.2.34"), five);
    EXPECT_TRUE(five.View().starts_with("2.25."));
    EXPECT_STREQ(map.NewUid(""), "");
    EXPECT_STREQ(map.NewUid("1.2.840.10008.1.2.1"), "1.2.840.10008.1.2.1");

    CDcmElement element(0x00080018);
    element.AddText("1.2.3");
    EXPECT_TRUE(map.Replace(element));
    EXPECT_STREQ(element.JoinedText(), five);
    // A value of several UIDs, of a VR that the stream did not give.
    const CByteArray list = TextBytes("1.2.840.10008.1.2.1\\1.2.3\\\\1.2.3");
    CDcmElement unknown(0x0008, 0x1155, VR_UN);
    unknown.SetRawBytes(list);
    EXPECT_TRUE(map.Replace(unknown));
    const std::string expected = "1.2.840.10008.1.2.1\\" + std::string(five) + "\\\\" + std::string(five);
    EXPECT_EQ(unknown.RawBytes().Text().substr(0, expected.size()), expected);
    CDcmElement sopClass(0x00080016);
    sopClass.AddText("1.2.840.10008.5.1.4.1.1.4");
    EXPECT_FALSE(map.Replace(sopClass));
}
