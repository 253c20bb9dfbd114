#include "platform/windows/Guid.h"

#include <set>

#include <gtest/gtest.h>

TEST(Guid, NewOnesAreRandomOnesOfVersionFour)
{
    for (int i = 0; i < 1000; ++i) {
        const GUID guid = CoCreateGuid();
        EXPECT_EQ(guid.Data3 >> 12, 4);
        EXPECT_EQ(guid.Data4[0] >> 6, 2);
    }
}

TEST(Guid, NewOnesDiffer)
{
    std::set<std::uint64_t> seen;
    for (int i = 0; i < 10000; ++i) {
        const GUID guid = CoCreateGuid();
        seen.insert((std::uint64_t{guid.Data1} << 32) | (std::uint64_t{guid.Data2} << 16) |
                    guid.Data3);
    }
    EXPECT_EQ(seen.size(), 10000U);
}

TEST(Guid, EachFreeBitOfNewOnesIsSometimesSetAndSometimesNot)
{
    std::uint8_t ever[8] = {};
    std::uint8_t always[8] = {255, 255, 255, 255, 255, 255, 255, 255};
    std::uint32_t ever1 = 0;
    std::uint32_t always1 = 0xFFFFFFFFU;
    for (int i = 0; i < 200; ++i) {
        const GUID guid = CoCreateGuid();
        ever1 |= guid.Data1;
        always1 &= guid.Data1;
        for (int k = 0; k < 8; ++k) {
            ever[k] = static_cast<std::uint8_t>(ever[k] | guid.Data4[k]);
            always[k] = static_cast<std::uint8_t>(always[k] & guid.Data4[k]);
        }
    }
    EXPECT_EQ(ever1, 0xFFFFFFFFU);
    EXPECT_EQ(always1, 0U);
    for (int k = 0; k < 8; ++k) {
        EXPECT_EQ(ever[k], k == 0 ? 0xBF : 0xFF);
        EXPECT_EQ(always[k], k == 0 ? 0x80 : 0x00);
    }
}

TEST(Guid, IsAllZerosAtFirst)
{
    const GUID none;
    EXPECT_EQ(none.Data1, 0U);
    EXPECT_EQ(none.Data4[7], 0);
    EXPECT_EQ(none, GUID());
    GUID other;
    other.Data4[7] = 1;
    EXPECT_NE(none, other);
}
