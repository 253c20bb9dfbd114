#include "platform/arx/ArxApp.h"

#include <gtest/gtest.h>

using namespace AcRx;

namespace {

// Answers each message with a number of its own.
class Answering : public AcRxArxApp {
public:
    static AppRetCode Code(int number) { return static_cast<AppRetCode>(number + 100); }

    AppRetCode On_kInitAppMsg(void*) override { return Code(kInitAppMsg); }
    AppRetCode On_kUnloadAppMsg(void*) override { return Code(kUnloadAppMsg); }
    AppRetCode On_kLoadDwgMsg(void*) override { return Code(kLoadDwgMsg); }
    AppRetCode On_kUnloadDwgMsg(void*) override { return Code(kUnloadDwgMsg); }
    AppRetCode On_kInvkSubrMsg(void*) override { return Code(kInvkSubrMsg); }
    AppRetCode On_kCfgMsg(void*) override { return Code(kCfgMsg); }
    AppRetCode On_kEndMsg(void*) override { return Code(kEndMsg); }
    AppRetCode On_kQuitMsg(void*) override { return Code(kQuitMsg); }
    AppRetCode On_kSaveMsg(void*) override { return Code(kSaveMsg); }
    AppRetCode On_kDependencyMsg(void*) override { return Code(kDependencyMsg); }
    AppRetCode On_kNoDependencyMsg(void*) override { return Code(kNoDependencyMsg); }
    AppRetCode On_kOleUnloadAppMsg(void*) override { return Code(kOleUnloadAppMsg); }
    AppRetCode On_kPreQuitMsg(void*) override { return Code(kPreQuitMsg); }
    AppRetCode On_kInitDialogMsg(void*) override { return Code(kInitDialogMsg); }
    AppRetCode On_kEndDialogMsg(void*) override { return Code(kEndDialogMsg); }
};

const AppMsgCode kMessages[] = {kInitAppMsg,  kUnloadAppMsg,  kLoadDwgMsg,      kUnloadDwgMsg,
                                kInvkSubrMsg, kCfgMsg,        kEndMsg,          kQuitMsg,
                                kSaveMsg,     kDependencyMsg, kNoDependencyMsg, kOleUnloadAppMsg,
                                kPreQuitMsg,  kInitDialogMsg, kEndDialogMsg};

TEST(ArxApp, EachMessageReachesItsHandler)
{
    Answering app;
    for (const AppMsgCode message : kMessages)
        EXPECT_EQ(app.acrxEntryPoint(message, nullptr), Answering::Code(message)) << message;
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
