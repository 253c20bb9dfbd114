#include "platform/vmrd/VMRDEnv/Styles.h"

#include <gtest/gtest.h>

#include "tests/platform/vmrd/VMRDEnv/SignStyles.h"

using namespace designspec;

namespace {

class Styles : public testing::Test {
protected:
    CSigns m_signs;
};

} // namespace

TEST_F(Styles, HaveNoDefaultAtFirst)
{
    m_signs.Add(L"甲", CoCreateGuid());
    EXPECT_EQ(m_signs.GetDefaultItem(), -1);
    EXPECT_EQ(m_signs.DefaultItem(), nullptr);
    EXPECT_TRUE(m_signs.IsKindOf(RUNTIME_CLASS(CStyles)));
}

TEST_F(Styles, TheDefaultIsSetByIdentity)
{
    const GUID first = CoCreateGuid();
    const GUID second = CoCreateGuid();
    m_signs.Add(L"甲", first);
    m_signs.Add(L"乙", second);
    EXPECT_TRUE(m_signs.SetDefaultItem(second));
    EXPECT_EQ(m_signs.GetDefaultItem(), 1);
    EXPECT_EQ(m_signs.DefaultItem(), m_signs.Item(1));
    EXPECT_FALSE(m_signs.SetDefaultItem(CoCreateGuid()));
    EXPECT_EQ(m_signs.GetDefaultItem(), 1);
}

TEST_F(Styles, ADefaultThatIsGoneIsNull)
{
    m_signs.Add(L"甲", CoCreateGuid());
    m_signs.SetDefaultItem(0);
    EXPECT_NE(m_signs.DefaultItem(), nullptr);
    m_signs.Clear();
    EXPECT_EQ(m_signs.GetDefaultItem(), 0);
    EXPECT_EQ(m_signs.DefaultItem(), nullptr);
    m_signs.SetDefaultItem(-7);
    EXPECT_EQ(m_signs.DefaultItem(), nullptr);
}

TEST_F(Styles, RefurbishTellsWhoeverIsConnected)
{
    std::vector<CStyles*> told;
    m_signs.Refurbish(); // nobody listens
    const auto first = CStyles::ConnectRefurbish([&](CStyles& styles) { told.push_back(&styles); });
    CSigns others;
    {
        const auto second = CStyles::ConnectRefurbish([&](CStyles&) { told.push_back(nullptr); });
        m_signs.Refurbish();
    }
    others.Refurbish();
    EXPECT_EQ(told, (std::vector<CStyles*>{&m_signs, nullptr, &others}));
}
