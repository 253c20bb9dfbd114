#include "platform/arx/ArxApp.h"

#include <gtest/gtest.h>

using namespace AcRx;

namespace {

// Remembers which handler was called, and answers as no base handler does.
class Answering : public AcRxArxApp {
public:
    int m_handled = -1;

    AppRetCode On_kInitAppMsg(void*) override { return Handled(kInitAppMsg); }
    AppRetCode On_kUnloadAppMsg(void*) override { return Handled(kUnloadAppMsg); }

private:
    AppRetCode Handled(int message)
    {
        m_handled = message;
        return kRetError;
    }
};

TEST(ArxApp, EachMessageReachesItsHandler)
{
    Answering app;
    for (const AppMsgCode message : {kInitAppMsg, kUnloadAppMsg}) {
        EXPECT_EQ(app.acrxEntryPoint(message, nullptr), kRetError) << message;
        EXPECT_EQ(app.m_handled, message);
    }
}

TEST(ArxApp, TheBaseHandlersAnswerOK)
{
    AcRxArxApp app;
    for (const AppMsgCode message : {kInitAppMsg, kUnloadAppMsg})
        EXPECT_EQ(app.acrxEntryPoint(message, nullptr), kRetOK) << message;
}

TEST(ArxApp, AMessageWithoutAHandlerIsAnsweredOK)
{
    Answering app;
    EXPECT_EQ(app.acrxEntryPoint(kNullMsg, nullptr), kRetOK);
    EXPECT_EQ(app.m_handled, -1);
}

TEST(ArxApp, NumbersOfMessagesAndAnswers)
{
    EXPECT_EQ(kInitAppMsg, 1);
    EXPECT_EQ(kUnloadAppMsg, 2);
    EXPECT_EQ(kRetOK, 0);
    EXPECT_EQ(kRetError, 3);
}

} // namespace
