#include "platform/arx/Frame.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace {

TEST(Frame, IsNullBeforeAndAfterTheWindowThatTheHostNamed)
{
    EXPECT_EQ(acedGetAcadFrame(), nullptr);
    {
        QWidget window;
        designspec::SetFrame(&window);
        EXPECT_EQ(acedGetAcadFrame(), &window);
    }
    EXPECT_EQ(acedGetAcadFrame(), nullptr);
}

} // namespace
