#include "platform/mfc/Object.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

class CSign : public CObject {
    DECLARE_DYNAMIC(CSign)

public:
    int m_speed = 0;
};

class CSpeedSign : public CSign {
    DECLARE_DYNCREATE(CSpeedSign)

public:
    CSpeedSign() { m_speed = 60; }
    double m_more[4] = {};
};

class CPost : public CObject {
    DECLARE_DYNAMIC(CPost)
};

IMPLEMENT_DYNAMIC(CSign, CObject)
IMPLEMENT_DYNCREATE(CSpeedSign, CSign)
IMPLEMENT_DYNAMIC(CPost, CObject)

} // namespace

TEST(Object, KnowsItsClassAtRunTime)
{
    const CSpeedSign sign;
    const CObject& object = sign;
    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(CSpeedSign));
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CSpeedSign");
    EXPECT_EQ(object.GetRuntimeClass()->m_nObjectSize, static_cast<int>(sizeof(CSpeedSign)));
    EXPECT_EQ(object.GetRuntimeClass()->m_wSchema, 0xFFFFU);
    EXPECT_EQ(object.GetRuntimeClass()->m_pBaseClass, RUNTIME_CLASS(CSign));
    EXPECT_STREQ(CObject::classCObject.m_lpszClassName, "CObject");
    EXPECT_EQ(CObject::classCObject.m_pBaseClass, nullptr);
}

TEST(Object, IsOfItsOwnKindAndOfEveryBase)
{
    const CSpeedSign sign;
    EXPECT_TRUE(sign.IsKindOf(RUNTIME_CLASS(CSpeedSign)));
    EXPECT_TRUE(sign.IsKindOf(RUNTIME_CLASS(CSign)));
    EXPECT_TRUE(sign.IsKindOf(RUNTIME_CLASS(CObject)));
}

TEST(Object, IsNotOfADerivedOrAnotherKind)
{
    const CSign sign;
    EXPECT_FALSE(sign.IsKindOf(RUNTIME_CLASS(CSpeedSign)));
    EXPECT_FALSE(sign.IsKindOf(RUNTIME_CLASS(CPost)));
    EXPECT_FALSE(CPost().IsKindOf(RUNTIME_CLASS(CSign)));
    EXPECT_FALSE(sign.IsKindOf(nullptr));
}

TEST(Object, IsCreatedByItsClassWhereThatWasDeclared)
{
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CSpeedSign)->CreateObject());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(CSpeedSign));
    EXPECT_EQ(static_cast<CSpeedSign&>(*made).m_speed, 60);
}

TEST(Object, IsNotCreatedByAClassThatOnlyHasAName)
{
    EXPECT_EQ(RUNTIME_CLASS(CSign)->CreateObject(), nullptr);
    EXPECT_EQ(CObject::classCObject.CreateObject(), nullptr);
}
