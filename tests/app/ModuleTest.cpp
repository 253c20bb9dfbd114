// The module as a host has it: a file that is loaded, told things, and unloaded.
#include <malloc.h>

#include <array>
#include <cstdio>
#include <memory>

#include <QPixmapCache>
#include <QTest>

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "platform/arx/Frame.h"
#include "platform/arx/Modules.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "tests/app/AppTest.h"
#include "tests/modules/ModuleFunction.h"

using namespace designspec;

namespace {

constexpr wchar_t kModule[] = L"DesignSpecification.arx";
constexpr wchar_t kProjectModule[] = L"VMRDPrj.arx";
const CString kOtherModule = ToWide(BINARY_DIR "/tests/modules/QueryingModule.arx");

std::string Output(const std::string& command)
{
    struct Close {
        void operator()(FILE* stream) const { pclose(stream); }
    };
    const std::unique_ptr<FILE, Close> pipe(popen(command.c_str(), "r"));
    std::string output;
    std::array<char, 4096> buffer;
    while (pipe && fgets(buffer.data(), static_cast<int>(buffer.size()), pipe.get()))
        output += buffer.data();
    return output;
}

bool IsMapped(const char* file)
{
    std::ifstream maps("/proc/self/maps");
    const std::string all{std::istreambuf_iterator<char>(maps), {}};
    return all.find(file) != std::string::npos;
}

// Bytes in use, without the pictures that Qt keeps for a while.
size_t BytesInUse()
{
    QPixmapCache::clear();
    return mallinfo2().uordblks;
}

ModuleInfo StateOf(const CString& name)
{
    for (const ModuleInfo& module : KnownModules())
        if (EqualNoCase(module.name, name)) return module;
    return {};
}

class Module : public AppTest {
protected:
    ~Module() override
    {
        if (IsModuleLoaded(kModule)) acrxUnloadModule(kModule, false);
        EXPECT_FALSE(IsModuleLoaded(kProjectModule));
        VMRDPub::SetInstallPath(L"");
    }

    static bool Load() { return acrxLoadModule(kModule, false, false); }
    static bool Unload() { return acrxUnloadModule(kModule, false); }
    static bool LoadOther() { return acrxLoadModule(kOtherModule.c_str(), false, false); }
    static bool UnloadOther() { return acrxUnloadModule(kOtherModule.c_str(), false); }
    // What the other module gets as an answer.
    static double Ask(const wchar_t* name)
    {
        const auto ask = ModuleFunction<double(const wchar_t*)>(kOtherModule, "LongestStraight");
        return ask ? ask(name) : -2;
    }
    static CStyleManager& Manager() { return *CPrjManager::GetInstance()->GetStyleManager(); }

    // An install path of the test's own that has these files of the real one.
    void Install(const std::vector<std::string>& files)
    {
        const std::filesystem::path real = std::filesystem::path(BINARY_DIR) / "bin";
        for (const std::string& file : files)
            std::filesystem::create_symlink(real / file, m_install.Native(file));
        VMRDPub::SetInstallPath(m_install.Path());
    }

    TemporaryFolder m_install;
};

} // namespace

TEST_F(Module, ExportsItsEntryPointAndTheViewFunctionsAlone)
{
    // Capitals: what others see.
    EXPECT_EQ(Output("nm -D --defined-only '" BINARY_DIR
                     "/bin/DesignSpecification.arx' | awk '$2 ~ /[A-Zuvw]/ {print $2, $3}' | sort"),
              "T ViewDesignSpecification\nT ViewDesignSpecificationOf\nT acrxEntryPoint\n");
}

TEST_F(Module, PublishesItsGroupWithTheEditor)
{
    ASSERT_TRUE(Load());
    EXPECT_TRUE(IsModuleLoaded(kProjectModule));
    ASSERT_EQ(Manager().GroupsCount(), 1);
    CStyleGroup* const group = Manager().GetGroup(0);
    EXPECT_EQ(group->Name(), L"设计规范");
    EXPECT_FALSE(group->Icon().isNull());
    ASSERT_EQ(group->StylesCount(), 1);
    EXPECT_EQ(group->GetStyles(0)->GetStyles(), &Library());
}

TEST_F(Module, ReadsTheLibraryWhenItIsLoaded)
{
    AddSaved(Make(L"甲"));
    CDesignSpecifications::Destroy();
    ASSERT_TRUE(Load());
    EXPECT_EQ(Names(), L"甲");
}

TEST_F(Module, LeavesNothingBehind)
{
    ASSERT_TRUE(Load());
    Add(Make(L"甲"));
    m_trace.Clear();
    ASSERT_TRUE(Unload());
    EXPECT_EQ(m_trace.Text(), L"CRDDesignSpecificationApp::On_kUnloadAppMsg-341");
    EXPECT_EQ(CPrjManager::GetInstance(), nullptr);
    EXPECT_FALSE(IsModuleLoaded(kProjectModule));
    EXPECT_EQ(Library().Count(), 0); // a new library
    EXPECT_FALSE(IsMapped("DesignSpecification.arx"));
    EXPECT_FALSE(IsMapped("VMRDPrj.arx"));
}

TEST_F(Module, LeavesTheLibraryToAnotherThatWasLoadedAfterIt)
{
    AddSaved(Make(L"甲", 30));
    ASSERT_TRUE(Load());
    ASSERT_TRUE(LoadOther());
    EXPECT_EQ(Ask(L"甲"), 30);
    ASSERT_TRUE(Unload());
    EXPECT_EQ(Ask(L"甲"), 30);
    ASSERT_TRUE(UnloadOther());
    EXPECT_EQ(Library().Count(), 0); // a new library
}

TEST_F(Module, LeavesTheLibraryToAnotherThatWasLoadedBeforeIt)
{
    AddSaved(Make(L"甲", 30));
    ASSERT_TRUE(LoadOther());
    ASSERT_TRUE(Load());
    ASSERT_TRUE(Unload());
    EXPECT_EQ(Ask(L"甲"), 30);
    ASSERT_TRUE(UnloadOther());
    EXPECT_EQ(Library().Count(), 0); // a new library
}

TEST_F(Module, KeepsTheLibraryWhenTheOtherLeavesFirst)
{
    AddSaved(Make(L"甲", 30));
    ASSERT_TRUE(Load());
    ASSERT_TRUE(LoadOther());
    ASSERT_TRUE(UnloadOther());
    EXPECT_EQ(Ask(L"甲"), -2) << "it is gone";
    EXPECT_EQ(MarkOf(L"甲"), 30);
    EXPECT_EQ(Manager().GetGroup(0)->GetStyles(0)->GetStyles()->Count(), 1);
    ASSERT_TRUE(Unload());
    EXPECT_EQ(Library().Count(), 0); // a new library
}

TEST_F(Module, ALoadThatFailsTakesNoShareOfTheLibrary)
{
    Install({"DesignSpecification.arx", "StyleGroups.json", "VMRDRes.dll"});
    EXPECT_FALSE(Load());
    Add(Make(L"甲"));
    CDesignSpecifications::Destroy();
    EXPECT_EQ(Library().Count(), 0);
}

TEST_F(Module, ListsItsGroupAmongThoseOfType100)
{
    ASSERT_TRUE(Load());
    struct Other : CStyleGroup {
        CString Name() const override { return L"别的"; }
    } before, same, after;
    CStyleGroup* const ours = Manager().GetGroup(0);
    for (const auto& [type, group] : {std::pair{101, &after}, {99, &before}, {100, &same}})
        Manager().AddObject(static_cast<CStyleManager::EType>(type), group);
    const std::vector<CStyleGroup*> expected{&before, ours, &same, &after};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Manager().GetGroup(i), expected[static_cast<size_t>(i)]) << i;
    for (CStyleGroup* group : {&before, &same, &after})
        Manager().RemoveObject(group, false);
}

TEST_F(Module, LoadsAndUnloadsTwentyTimes)
{
    AddSaved(Make(L"甲"));
    size_t before = 0;
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(Load());
        ASSERT_EQ(Manager().GroupsCount(), 1);
        ASSERT_EQ(Names(), L"甲");
        {
            const ExpectModal dialog([](QWidget* window) { Click(window, IDOK); });
            Manager().GetGroup(0)->GetStyles(0)->Edit(Library().Item(0));
        }
        ASSERT_TRUE(Unload());
        ASSERT_FALSE(IsMapped("DesignSpecification.arx"));
        ASSERT_EQ(CPrjManager::GetInstance(), nullptr);
        m_trace.Clear();
        QTest::qWait(20);
        if (i == 9) before = BytesInUse();
    }
    // What malloc and Qt keep for later moves by some 4 KB each time; a page is more than that.
    EXPECT_LT(BytesInUse(), before + 100000);
}

TEST_F(Module, OffersTheViewFunctionToOthers)
{
    AddSaved(Make(L"甲"));
    ASSERT_TRUE(Load());
    Library().SetDefaultItem(0);
    const auto view = ModuleFunction<void(const wchar_t*)>(kModule, "ViewDesignSpecification");
    ASSERT_NE(view, nullptr);
    const ExpectModal dialog([](QWidget* window) {
        EXPECT_EQ(SelectedItem(window), "圆曲线半径");
        Click(window, IDOK);
    });
    view(L"平面\\圆曲线半径");
}

TEST_F(Module, RefusesWithoutTheProjectModule)
{
    Install({"DesignSpecification.arx", "StyleGroups.json", "VMRDRes.dll"});
    EXPECT_FALSE(Load());
    EXPECT_FALSE(IsModuleLoaded(kModule));
    const ModuleInfo state = StateOf(kModule);
    EXPECT_EQ(state.state, ModuleState::Failed);
    EXPECT_EQ(state.reason, L"模块拒绝初始化 (返回值 3)");
    EXPECT_EQ(StateOf(kProjectModule).reason, L"文件不存在");
    EXPECT_NE(m_trace.Text().find(L"项目模块 VMRDPrj.arx 无法加载, 设计规范模块不能使用"),
              CString::npos)
        << ToUtf8(m_trace.Text());
    EXPECT_EQ(CPrjManager::GetInstance(), nullptr);
    EXPECT_FALSE(IsMapped("DesignSpecification.arx"));
}

TEST_F(Module, RunsWithoutAConfiguredGroup)
{
    Install({"DesignSpecification.arx", "VMRDPrj.arx", "VMRDRes.dll"});
    m_install.Write("StyleGroups.json", R"({"groups": [{"name": "Other"}]})");
    ASSERT_TRUE(Load());
    EXPECT_EQ(Manager().GroupsCount(), 0);
    m_trace.Clear();
    EXPECT_TRUE(Unload());
    EXPECT_EQ(m_trace.Text(), L"CRDDesignSpecificationApp::On_kUnloadAppMsg-341");
}

TEST_F(Module, RunsWithoutAConfiguration)
{
    Install({"DesignSpecification.arx", "VMRDPrj.arx", "VMRDRes.dll"});
    ASSERT_TRUE(Load());
    EXPECT_EQ(Manager().GroupsCount(), 0);
}

TEST_F(Module, PublishesAGroupWithoutAnEditorWhenNoneIsConfigured)
{
    Install({"DesignSpecification.arx", "VMRDPrj.arx", "VMRDRes.dll"});
    m_install.Write("StyleGroups.json", R"({"groups": [{"name": "CDesignSpecificationGroup"}]})");
    ASSERT_TRUE(Load());
    ASSERT_EQ(Manager().GroupsCount(), 1);
    EXPECT_EQ(Manager().GetGroup(0)->StylesCount(), 0);
}

TEST_F(Module, RunsWithoutItsIcons)
{
    Install({"DesignSpecification.arx", "VMRDPrj.arx", "StyleGroups.json"});
    ASSERT_TRUE(Load());
    ASSERT_EQ(Manager().GroupsCount(), 1);
    EXPECT_TRUE(Manager().GetGroup(0)->Icon().isNull());
}
