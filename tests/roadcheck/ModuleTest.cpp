// The module as a host has it, alone and beside the editor's.
#include <fstream>
#include <iterator>

#include "platform/arx/Commands.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "tests/roadcheck/RoadCheckTest.h"
#include "tests/support/Process.h"

using namespace roadcheck;

namespace {

constexpr wchar_t kModule[] = L"RoadCheck.arx";

bool IsMapped(const char* file)
{
    std::ifstream maps("/proc/self/maps");
    const std::string all{std::istreambuf_iterator<char>(maps), {}};
    return all.find(file) != std::string::npos;
}

class RoadCheckModule : public RoadCheckTest {
protected:
    ~RoadCheckModule() override
    {
        if (IsModuleLoaded(kModule)) acrxUnloadModule(kModule, false);
    }
    static bool Load(const wchar_t* module) { return acrxLoadModule(module, false, false); }
    static bool Unload(const wchar_t* module) { return acrxUnloadModule(module, false); }
    QWidget* Open(const char* file) const
    {
        EXPECT_TRUE(OpenWithCommand(FromQString(File(file)).c_str()));
        QWidget* const window = Window();
        EXPECT_TRUE(window && WaitDone(window));
        return window;
    }
};

TEST_F(RoadCheckModule, OffersItsCommandAndTheFilesThatItOpens)
{
    ASSERT_TRUE(Load(kModule));
    ASSERT_EQ(Commands().size(), 1U);
    EXPECT_EQ(Commands()[0].group, L"道路");
    EXPECT_EQ(Commands()[0].caption, L"道路检核(&R)…");
    EXPECT_TRUE(CanOpenWithCommand(L"/a/路.xml"));
    EXPECT_TRUE(CanOpenWithCommand(L"/a/路.LandXML"));
    EXPECT_FALSE(CanOpenWithCommand(L"/a/路.hds"));
    EXPECT_TRUE(RunCommand(L"ROADCHECK"));
    EXPECT_EQ(Text(Window(), ControlId::Message),
              L"请选择道路文件 (LandXML), 或把它拖到主机窗口上");
}

TEST_F(RoadCheckModule, WorksAlone)
{
    ASSERT_TRUE(Load(kModule));
    EXPECT_EQ(CPrjManager::GetInstance(), nullptr);
    EXPECT_EQ(Rows(Open("违规.xml")), 26);
}

TEST_F(RoadCheckModule, WorksLoadedBeforeTheEditorAndAfterIt)
{
    for (const bool isFirst : {true, false}) {
        ASSERT_TRUE(Load(isFirst ? kModule : kEditor));
        ASSERT_TRUE(Load(isFirst ? kEditor : kModule));
        QWidget* const window = Open("违规.xml");
        EXPECT_EQ(Rows(window), 26) << isFirst;
        ClickRow(window, 0);
        window->activateWindow();
        {
            const ExpectModal dialog([](QWidget* shown) { Click(shown, IDOK); });
            PressKey(window, Qt::Key_Return);
        }
        ASSERT_TRUE(Unload(isFirst ? kEditor : kModule));
        ASSERT_TRUE(Unload(isFirst ? kModule : kEditor));
        EXPECT_EQ(CDesignSpecifications::GetInstance()->Count(), 0) << "a new library";
        CDesignSpecifications::Destroy();
    }
}

TEST_F(RoadCheckModule, LeavesNothingBehind)
{
    ASSERT_TRUE(Load(kEditor));
    ASSERT_TRUE(Load(kModule));
    Open("违规.xml");
    ASSERT_TRUE(Unload(kModule));
    EXPECT_TRUE(Windows().empty());
    EXPECT_TRUE(Commands().empty());
    EXPECT_FALSE(IsMapped("RoadCheck.arx"));
    EXPECT_GT(CDesignSpecifications::GetInstance()->Count(), 0) << "the editor still has it";
    QTest::qWait(50); // what was left to be done later would find its code gone
    // The library tells of changes: nobody who is gone is told.
    CDesignSpecifications::GetInstance()->Update();
    QTest::qWait(50);
}

TEST_F(RoadCheckModule, StaysWithItsWindowsWhenTheEditorGoes)
{
    ASSERT_TRUE(Load(kEditor));
    ASSERT_TRUE(Load(kModule));
    QWidget* const window = Open("违规.xml");
    ASSERT_TRUE(Unload(kEditor));
    PressKey(window, Qt::Key_F5);
    ASSERT_TRUE(WaitDone(window));
    EXPECT_EQ(Rows(window), 26);
    ClickRow(window, 0);
    PressKey(window, Qt::Key_Return);
    EXPECT_EQ(Text(window, ControlId::Status),
              L"限值所在的页无法打开: 没有加载模块 DesignSpecification.arx");
}

TEST_F(RoadCheckModule, CanBeUnloadedWhileAWindowReads)
{
    const CString slow = FromQString(SlowFile());
    ASSERT_TRUE(Load(kModule));
    ASSERT_TRUE(OpenWithCommand(slow.c_str()));
    ASSERT_TRUE(Control(Window(), ControlId::Progress)->isVisible());
    ASSERT_TRUE(Unload(kModule));
    EXPECT_TRUE(Windows().empty());
    EXPECT_FALSE(IsMapped("RoadCheck.arx"));
    QTest::qWait(50);
}

TEST_F(RoadCheckModule, LoadsAndUnloadsTenTimes)
{
    for (int i = 0; i < 10; ++i) {
        ASSERT_TRUE(Load(kModule));
        EXPECT_EQ(Rows(Open("违规.xml")), 26);
        ASSERT_TRUE(Unload(kModule));
        ASSERT_FALSE(IsMapped("RoadCheck.arx"));
    }
}

TEST_F(RoadCheckModule, TheHostOpensFilesWithItAndTakesPictures)
{
    const ProcessResult result =
        RunProcess({BINARY_DIR "/bin/roadhost", m_project.Native().string(), "--snapshot",
                    m_project.Native("pictures").string(), "--open", "违规.xml", "--open",
                    m_project.Native("合格.xml").string()},
                   m_project.Native());
    EXPECT_EQ(result.status, 0) << result.err;
    int windows = 0;
    for (const char* title : {"道路检核 — 违规.xml.png", "道路检核 — 合格.xml.png"})
        windows += result.out.find(title) != std::string::npos;
    EXPECT_EQ(windows, 2) << result.out;
}

} // namespace
