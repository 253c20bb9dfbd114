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
    AppRetCode On_kLoadDwgMsg(void*) override { return Handled(kLoadDwgMsg); }
    AppRetCode On_kUnloadDwgMsg(void*) override { return Handled(kUnloadDwgMsg); }
    AppRetCode On_kInvkSubrMsg(void*) override { return Handled(kInvkSubrMsg); }
    AppRetCode On_kCfgMsg(void*) override { return Handled(kCfgMsg); }
    AppRetCode On_kEndMsg(void*) override { return Handled(kEndMsg); }
    AppRetCode On_kQuitMsg(void*) override { return Handled(kQuitMsg); }
    AppRetCode On_kSaveMsg(void*) override { return Handled(kSaveMsg); }
    AppRetCode On_kDependencyMsg(void*) override { return Handled(kDependencyMsg); }
    AppRetCode On_kNoDependencyMsg(void*) override { return Handled(kNoDependencyMsg); }
    AppRetCode On_kOleUnloadAppMsg(void*) override { return Handled(kOleUnloadAppMsg); }
    AppRetCode On_kPreQuitMsg(void*) override { return Handled(kPreQuitMsg); }
    AppRetCode On_kInitDialogMsg(void*) override { return Handled(kInitDialogMsg); }
    AppRetCode On_kEndDialogMsg(void*) override { return Handled(kEndDialogMsg); }

private:
    AppRetCode Handled(int message)
    {
        m_handled = message;
        return kRetError;
    }
};

const AppMsgCode kMessages[] = {kInitAppMsg,  kUnloadAppMsg,  kLoadDwgMsg,      kUnloadDwgMsg,
                                kInvkSubrMsg, kCfgMsg,        kEndMsg,          kQuitMsg,
                                kSaveMsg,     kDependencyMsg, kNoDependencyMsg, kOleUnloadAppMsg,
                                kPreQuitMsg,  kInitDialogMsg, kEndDialogMsg};

TEST(ArxApp, EachMessageReachesItsHandler)
{
    Answering app;
    for (const AppMsgCode message : kMessages) {
        EXPECT_EQ(app.acrxEntryPoint(message, nullptr), kRetError) << message;
        EXPECT_EQ(app.m_handled, message);
    }
}

TEST(ArxApp, TheBaseHandlersAnswerOK)
{
    AcRxArxApp app;
    for (const AppMsgCode message : kMessages)
        EXPECT_EQ(app.acrxEntryPoint(message, nullptr), kRetOK) << message;
}

TEST(ArxApp, AnUnknownMessageIsAnsweredOK)
{
    Answering app;
    EXPECT_EQ(app.acrxEntryPoint(kNullMsg, nullptr), kRetOK);
}

TEST(ArxApp, NumbersOfMessagesAndAnswers)
{
    EXPECT_EQ(kInitAppMsg, 1);
    EXPECT_EQ(kUnloadAppMsg, 2);
    EXPECT_EQ(kRetOK, 0);
    EXPECT_EQ(kRetError, 3);
}

} // namespace
