#include "platform/arx/Modules.h"

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/Text.h"
#include "platform/arx/AppMessages.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "tests/modules/ModuleFunction.h"
#include "tests/modules/TestInstall.h"

using namespace designspec;

namespace {

ModuleInfo StateOf(const CString& name)
{
    for (const ModuleInfo& module : KnownModules())
        if (module.name == name) return module;
    return {};
}

int MessageCount(int message)
{
    const auto count = ModuleFunction<int(int)>(L"CountingModule.arx", "MessageCount");
    return count ? count(message) : -1;
}

void SetBusy(bool busy)
{
    ModuleFunction<void(bool)>(L"CountingModule.arx", "SetBusy")(busy);
}

bool Load(const wchar_t* name)
{
    return acrxLoadModule(name, false, false);
}

bool Unload(const wchar_t* name)
{
    return acrxUnloadModule(name, false);
}

TEST(Modules, TheSecondLoadOnlyCounts)
{
    const TestInstall install({"CountingModule.arx"});
    ASSERT_TRUE(Load(L"CountingModule.arx"));
    EXPECT_EQ(MessageCount(AcRx::kInitAppMsg), 1);
    ASSERT_TRUE(Load(L"COUNTINGMODULE.ARX"));
    EXPECT_EQ(MessageCount(AcRx::kInitAppMsg), 1);
    EXPECT_EQ(StateOf(L"CountingModule.arx").count, 2);

    EXPECT_TRUE(Unload(L"countingmodule.arx"));
    EXPECT_EQ(MessageCount(AcRx::kUnloadAppMsg), 0);
    EXPECT_TRUE(IsModuleLoaded(L"CountingModule.arx"));
    EXPECT_TRUE(Unload(L"CountingModule.arx"));
    EXPECT_FALSE(IsModuleLoaded(L"CountingModule.arx"));
    EXPECT_EQ(StateOf(L"CountingModule.arx").state, ModuleState::Unloaded);
}

TEST(Modules, AnUnloadedModuleLeavesTheMemory)
{
    const TestInstall install({"CountingModule.arx"});
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(Load(L"CountingModule.arx"));
        EXPECT_EQ(MessageCount(AcRx::kInitAppMsg), 1) << "the counters start anew";
        ASSERT_TRUE(Unload(L"CountingModule.arx"));
        EXPECT_EQ(MessageCount(AcRx::kInitAppMsg), -1) << "its function is gone";
    }
}

TEST(Modules, AMissingFileIsNamedWithItsPath)
{
    const TestInstall install({});
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"Missing.arx"));
    EXPECT_EQ(lines.Text(), install.Path() + L"/Missing.arx: 模块未加载: 文件不存在");
    EXPECT_EQ(lines.Lines().back().severity, TraceLevel::Error);
    EXPECT_EQ(StateOf(L"Missing.arx").state, ModuleState::Failed);
    EXPECT_EQ(StateOf(L"Missing.arx").reason, L"文件不存在");
}

TEST(Modules, AFileThatIsNoSharedObjectSaysSo)
{
    const TestInstall install({});
    install.Write("Text.arx", "not a module at all");
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"Text.arx"));
    EXPECT_NE(lines.Text().find(L"Text.arx: 模块未加载: "), CString::npos) << ToUtf8(lines.Text());
}

TEST(Modules, ASharedObjectWithoutAnEntryPointIsNoModule)
{
    const TestInstall install({"NoModule.arx"});
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"NoModule.arx"));
    EXPECT_EQ(StateOf(L"NoModule.arx").reason, L"不是模块: 没有导出 acrxEntryPoint");
}

TEST(Modules, AModuleThatRefusesIsClosedAgain)
{
    const TestInstall install({"RefusingModule.arx"});
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"RefusingModule.arx"));
    EXPECT_FALSE(IsModuleLoaded(L"RefusingModule.arx"));
    EXPECT_EQ(ModuleFunction<int()>(L"RefusingModule.arx", "acrxEntryPoint"), nullptr);
    EXPECT_EQ(StateOf(L"RefusingModule.arx").reason, L"模块拒绝初始化 (返回值 3)");
    EXPECT_EQ(lines.Lines().size(), 1u);
}

TEST(Modules, AnExceptionOfAModuleIsARefusal)
{
    const TestInstall install({"ThrowingModule.arx"});
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"ThrowingModule.arx"));
    EXPECT_EQ(StateOf(L"ThrowingModule.arx").reason, L"模块拒绝初始化 (返回值 3)");
}

TEST(Modules, AFailureIsForgottenAfterALoadThatSucceeds)
{
    const TestInstall install({});
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"CountingModule.arx"));
    install.Add("CountingModule.arx");
    EXPECT_TRUE(Load(L"CountingModule.arx"));
    EXPECT_EQ(StateOf(L"CountingModule.arx").state, ModuleState::Loaded);
    EXPECT_EQ(StateOf(L"CountingModule.arx").reason, L"");
    EXPECT_TRUE(Unload(L"CountingModule.arx"));
}

TEST(Modules, OneThatIsNotLoadedCannotBeUnloaded)
{
    const TraceCapture lines;
    EXPECT_FALSE(Unload(L"Never.arx"));
    EXPECT_EQ(lines.Text(), L"Never.arx: 模块未卸载: 没有加载");
}

TEST(Modules, AModuleThatWillNotBeUnloadedStays)
{
    const TestInstall install({"CountingModule.arx"});
    const TraceCapture lines;
    ASSERT_TRUE(Load(L"CountingModule.arx"));
    SetBusy(true);
    EXPECT_FALSE(Unload(L"CountingModule.arx"));
    EXPECT_TRUE(IsModuleLoaded(L"CountingModule.arx"));
    EXPECT_NE(lines.Text().find(L"模块拒绝卸载 (返回值 3)"), CString::npos);
    SetBusy(false);
    EXPECT_TRUE(Unload(L"CountingModule.arx"));
}

TEST(Modules, APathLoadsFromOutsideTheInstallFolder)
{
    const TestInstall install({});
    const CString path = ToWide(BINARY_DIR "/tests/modules/CountingModule.arx");
    EXPECT_TRUE(Load(path.c_str()));
    EXPECT_TRUE(IsModuleLoaded(L"CountingModule.arx"));
    EXPECT_TRUE(Unload(L"CountingModule.arx"));
}

TEST(Modules, PrintingLeavesATraceLine)
{
    const TestInstall install({"CountingModule.arx"});
    const TraceCapture lines;
    ASSERT_TRUE(acrxLoadModule(L"CountingModule.arx", true, false));
    EXPECT_EQ(lines.Text(), install.Path() + L"/CountingModule.arx: 模块已加载");
    EXPECT_EQ(lines.Lines().back().severity, TraceLevel::Note);
    Unload(L"CountingModule.arx");
    EXPECT_EQ(lines.Lines().size(), 1u);
}

TEST(Modules, AListenerIsToldOfEachChange)
{
    const TestInstall install({"CountingModule.arx"});
    const TraceCapture lines;
    int told = 0;
    const Connection connection = ModulesChanged().Connect([&told] { ++told; });
    Load(L"CountingModule.arx");
    EXPECT_EQ(told, 1);
    Load(L"CountingModule.arx");
    EXPECT_EQ(told, 2);
    Unload(L"CountingModule.arx");
    Unload(L"CountingModule.arx");
    EXPECT_EQ(told, 4);
    Load(L"Missing.arx");
    EXPECT_EQ(told, 5);
}

TEST(Modules, AModuleLoadsTheProjectModuleAndReleasesIt)
{
    const TestInstall install({"FakeModule.arx", "VMRDPrj.arx"});
    install.Write("StyleGroups.json", kFakeGroups);
    ASSERT_TRUE(Load(L"FakeModule.arx"));
    EXPECT_EQ(StateOf(L"VMRDPrj.arx").count, 1);
    ASSERT_NE(CPrjManager::GetInstance(), nullptr);
    EXPECT_EQ(CPrjManager::GetInstance()->GetStyleManager()->GroupsCount(), 1);
    ASSERT_TRUE(Unload(L"FakeModule.arx"));
    EXPECT_FALSE(IsModuleLoaded(L"VMRDPrj.arx"));
    EXPECT_EQ(CPrjManager::GetInstance(), nullptr);
}

TEST(Modules, WithoutTheProjectModuleAModuleIsNotLoaded)
{
    const TestInstall install({"FakeModule.arx"});
    const TraceCapture lines;
    EXPECT_FALSE(Load(L"FakeModule.arx"));
    ASSERT_EQ(lines.Lines().size(), 2u);
    EXPECT_NE(lines.Lines()[0].Text().find(L"VMRDPrj.arx: 模块未加载: 文件不存在"), CString::npos);
    EXPECT_NE(lines.Lines()[1].Text().find(L"FakeModule.arx: 模块未加载: 模块拒绝初始化"),
              CString::npos);
}

} // namespace
