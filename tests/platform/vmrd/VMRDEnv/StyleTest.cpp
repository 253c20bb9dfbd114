#include "platform/vmrd/VMRDEnv/Style.h"

#include <gtest/gtest.h>

#include "tests/platform/vmrd/VMRDEnv/SignStyles.h"

TEST(Style, IsAnObjectWithANameAndAnIdentity)
{
    const GUID id = CoCreateGuid();
    const CSign sign(L"限速 60", id);
    const CStyle& style = sign;
    EXPECT_EQ(style.Name(), L"限速 60");
    EXPECT_EQ(style.ID(), id);
    EXPECT_TRUE(style.IsKindOf(RUNTIME_CLASS(CStyle)));
    EXPECT_TRUE(style.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_STREQ(CStyle::classCStyle.m_lpszClassName, "CStyle");
    EXPECT_EQ(CStyle::classCStyle.CreateObject(), nullptr);
}
