#include "platform/arx/Commands.h"

#include <new>
#include <stdexcept>

#include <gtest/gtest.h>

#include "platform/arx/Modules.h"
#include "tests/modules/TestInstall.h"

using namespace designspec;

namespace {

CString g_log;

void A()
{
    g_log += L"A";
}

void B()
{
    g_log += L"B";
}

void OpenA(const wchar_t* path)
{
    g_log += L"A:" + CString(path);
}

void OpenB(const wchar_t* path)
{
    g_log += L"B:" + CString(path);
}

class CommandsTest : public ::testing::Test {
protected:
    CommandsTest() { g_log.clear(); }
    ~CommandsTest() override
    {
        for (const ModuleCommand& command : Commands())
            RemoveCommands(command.group.c_str());
    }

    // The names in their order, joined by blanks.
    static CString Names()
    {
        CString names;
        for (const ModuleCommand& command : Commands())
            names += (names.empty() ? L"" : L" ") + command.name;
        return names;
    }

    TraceCapture m_trace;
};

TEST_F(CommandsTest, StandByGroupsInTheOrderInWhichTheyCame)
{
    for (const auto& [group, name] : {std::pair{L"乙", L"1"}, {L"甲", L"2"}, {L"乙", L"3"}})
        EXPECT_TRUE(AddCommand({group, name, name, A, {}, nullptr}));
    EXPECT_EQ(Names(), L"1 3 2");
}

TEST_F(CommandsTest, ANameIsTakenOnceInAnyCase)
{
    EXPECT_TRUE(AddCommand({L"甲", L"Check", L"", A, {}, nullptr}));
    EXPECT_FALSE(AddCommand({L"乙", L"CHECK", L"", B, {}, nullptr}));
    EXPECT_TRUE(RunCommand(L"check"));
    EXPECT_EQ(g_log, L"A");
}

TEST_F(CommandsTest, NeedANameAndSomethingToRun)
{
    EXPECT_FALSE(AddCommand({L"甲", L"", L"", A, {}, nullptr}));
    EXPECT_FALSE(AddCommand({L"甲", L"x", L"", nullptr, {}, OpenA}));
    EXPECT_EQ(Names(), L"");
}

TEST_F(CommandsTest, OneThatThereIsNotDoesNotRun)
{
    EXPECT_FALSE(RunCommand(L"none"));
    EXPECT_EQ(m_trace.Text(), L"");
}

TEST_F(CommandsTest, GoWithTheirGroup)
{
    AddCommand({L"甲", L"1", L"", A, {}, nullptr});
    AddCommand({L"乙", L"2", L"", A, {}, nullptr});
    AddCommand({L"甲", L"3", L"", A, {}, nullptr});
    RemoveCommands(L"甲");
    EXPECT_EQ(Names(), L"2");
    EXPECT_FALSE(RunCommand(L"1"));
}

TEST_F(CommandsTest, EachChangeIsTold)
{
    CString told;
    const Connection connection = CommandsChanged().Connect([&] { told += L"[" + Names() + L"]"; });
    AddCommand({L"甲", L"1", L"", A, {}, nullptr});
    AddCommand({L"甲", L"1", L"", A, {}, nullptr});
    RemoveCommands(L"乙");
    RemoveCommands(L"甲");
    EXPECT_EQ(told, L"[1][]");
}

TEST_F(CommandsTest, AFileGoesToTheFirstThatOpensItsEnding)
{
    AddCommand({L"甲", L"1", L"", A, {L".none"}, nullptr});
    AddCommand({L"甲", L"2", L"", A, {L".landxml", L".xml"}, OpenA});
    AddCommand({L"乙", L"3", L"", B, {L".XML"}, OpenB});
    EXPECT_TRUE(CanOpenWithCommand(L"/a/路.Xml"));
    EXPECT_TRUE(OpenWithCommand(L"/a/路.Xml"));
    EXPECT_EQ(g_log, L"A:/a/路.Xml");
    for (const wchar_t* other : {L"/a/b.none", L"/a/xml", L"/a/b.xmlx", L".xml"}) {
        EXPECT_FALSE(CanOpenWithCommand(other)) << ToUtf8(other);
        EXPECT_FALSE(OpenWithCommand(other)) << ToUtf8(other);
    }
}

TEST_F(CommandsTest, WhatOneThrowsIsTraced)
{
    AddCommand({L"甲", L"1", L"一", [] { throw std::runtime_error("坏了"); }, {}, nullptr});
    AddCommand({L"甲", L"2", L"二", [] { throw std::bad_alloc(); }, {}, nullptr});
    AddCommand({L"甲", L"3", L"三", [] { throw 3; }, {L".x"}, [](const wchar_t*) { throw 4; }});
    for (const wchar_t* name : {L"1", L"2", L"3"})
        EXPECT_FALSE(RunCommand(name));
    EXPECT_FALSE(OpenWithCommand(L"a.x"));
    EXPECT_EQ(m_trace.Text(), L"命令“一”没有完成: 坏了\n命令“二”没有完成: 内存不足\n"
                              L"命令“三”没有完成: 原因不明\n命令“三”没有完成: 原因不明");
    EXPECT_EQ(m_trace.Lines().back().severity, TraceLevel::Error);
}

TEST_F(CommandsTest, OneMayTakeItselfAway)
{
    AddCommand({L"甲",
                L"1",
                L"一",
                [] {
                    RemoveCommands(L"甲");
                    throw 1;
                },
                {},
                nullptr});
    EXPECT_FALSE(RunCommand(L"1"));
    EXPECT_EQ(m_trace.Text(), L"命令“一”没有完成: 原因不明");
    EXPECT_EQ(Names(), L"");
}

TEST_F(CommandsTest, GoWithTheModuleThatHasLeftThem)
{
    const TestInstall install({"CommandModule.arx"});
    AddCommand({L"试验", L"own", L"", A, {}, nullptr});
    ASSERT_TRUE(acrxLoadModule(L"CommandModule.arx", false, false));
    EXPECT_EQ(Names(), L"own TEST_RUN TEST_THROW");
    EXPECT_TRUE(CanOpenWithCommand(L"a.tst"));
    ASSERT_TRUE(acrxUnloadModule(L"CommandModule.arx", false));
    EXPECT_EQ(Names(), L"own") << "those of others stay";
    EXPECT_FALSE(CanOpenWithCommand(L"a.tst"));
}

TEST_F(CommandsTest, AModulesFunctionIsFoundWhileItIsLoaded)
{
    const TestInstall install({"CommandModule.arx"});
    EXPECT_EQ(FindModuleFunction(L"CommandModule.arx", "RunCount"), nullptr);
    ASSERT_TRUE(acrxLoadModule(L"CommandModule.arx", false, false));
    RunCommand(L"TEST_RUN");
    const auto count =
        reinterpret_cast<int (*)()>(FindModuleFunction(L"COMMANDMODULE.ARX", "RunCount"));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(FindModuleFunction(L"CommandModule.arx", "NoSuchFunction"), nullptr);
    ASSERT_TRUE(acrxUnloadModule(L"CommandModule.arx", false));
    EXPECT_EQ(FindModuleFunction(L"CommandModule.arx", "RunCount"), nullptr);
}

} // namespace
