#include "host/ToolMenu.h"

#include <QDir>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>

#include "platform/arx/Modules.h"
#include "tests/host/HostTest.h"
#include "tests/modules/ModuleFunction.h"

using namespace designspec;

namespace {

constexpr wchar_t kModule[] = L"CommandModule.arx";

class ToolMenuTest : public HostTest {
protected:
    ToolMenuTest() { install.Add("CommandModule.arx"); }

    void StartWithCommands()
    {
        QSettings().setValue(QStringLiteral("modulesAtStart"),
                             QStringList(QStringLiteral("CommandModule.arx")));
        Start();
    }
    QAction* Menu() const
    {
        for (QAction* action : host->menuBar()->actions())
            if (action->text() == QStringLiteral("工具(&T)")) return action;
        return nullptr;
    }
    static int Runs() { return ModuleFunction<int()>(kModule, "RunCount")(); }
    static CString Opened() { return ModuleFunction<const wchar_t*()>(kModule, "OpenedFiles")(); }

    // Drags files over the middle of the window and lets them go if it takes them; whether it did.
    bool Drop(const QStringList& paths) const
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : paths)
            urls << QUrl::fromLocalFile(file);
        data.setUrls(urls);
        const QPoint place = host->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QApplication::sendEvent(host.get(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(host.get(), &drop);
        return drop.isAccepted();
    }
};

TEST_F(ToolMenuTest, IsThereWhileThereAreCommands)
{
    Start();
    ASSERT_NE(Menu(), nullptr);
    EXPECT_FALSE(Menu()->isVisible());
    acrxLoadModule(kModule, false, false);
    EXPECT_TRUE(Menu()->isVisible());
    acrxUnloadModule(kModule, false);
    EXPECT_FALSE(Menu()->isVisible());
}

TEST_F(ToolMenuTest, ShowsTheCommandsBelowTheirGroup)
{
    StartWithCommands();
    QStringList texts;
    for (const QAction* action : Menu()->menu()->actions())
        texts << action->text();
    EXPECT_EQ(texts, (QStringList{QStringLiteral("试验"), QStringLiteral("运行(&R)…"),
                                  QStringLiteral("失败(&F)")}));
    EXPECT_TRUE(Menu()->menu()->actions().front()->isSeparator());
}

TEST_F(ToolMenuTest, RunsACommandByKeys)
{
    StartWithCommands();
    ExpectModal menu([](QWidget* window) { PressKey(window, Qt::Key_R); });
    Key(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return Runs() == 1; }));
}

TEST_F(ToolMenuTest, ACommandThatThrowsIsTold)
{
    StartWithCommands();
    ExpectModal menu([](QWidget* window) { PressKey(window, Qt::Key_F); });
    Key(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(WaitForBar(ControlId::ErrorBar));
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"命令“失败”没有完成: broken");
}

TEST_F(ToolMenuTest, FilesThatACommandOpensCanBeDropped)
{
    StartWithCommands();
    EXPECT_TRUE(Drop(
        {QStringLiteral("/a/1.tst"), QStringLiteral("/a/2.txt"), QStringLiteral("/a/路.TEST")}));
    EXPECT_EQ(Opened(), L"/a/1.tst /a/路.TEST");
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"");
}

TEST_F(ToolMenuTest, StylesThatAreDroppedAreOfferedForImport)
{
    Have({L"甲"});
    Start();
    const QStringList dropped = {ToQString(StyleFile(L"乙")), ToQString(StyleFile(L"丙"))};
    {
        ExpectModal dialog(Import({L"乙", L"丙"}));
        EXPECT_TRUE(Drop(dropped));
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "whoever drops does not wait";
    }
    EXPECT_EQ(Selected(), (CStringArray{L"丙", L"乙"}));
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导入: 新增 2 个, 覆盖 0 个。");
}

TEST_F(ToolMenuTest, OtherFilesCannotBeDropped)
{
    StartWithCommands();
    EXPECT_FALSE(Drop({QStringLiteral("/a/1.txt")}));
    EXPECT_FALSE(Drop({}));
    acrxUnloadModule(kModule, false);
    EXPECT_FALSE(Drop({QStringLiteral("/a/1.tst")}));
}

TEST_F(ToolMenuTest, ARoadThatIsDroppedOpensItsWindow)
{
    install.Add("RoadCheck.arx");
    install.Add("libroadcheck.so.1"); // beside the module, wherever that is
    QSettings().setValue(QStringLiteral("modulesAtStart"),
                         QStringList(QStringLiteral("RoadCheck.arx")));
    Start();
    EXPECT_TRUE(Drop({QStringLiteral(SOURCE_DIR "/examples/roads/违规.xml")}));
    const auto isOpen = [] {
        for (const QWidget* const window : QApplication::topLevelWidgets())
            if (window->isVisible() &&
                window->windowTitle() == QStringLiteral("道路检核 — 违规.xml"))
                return true;
        return false;
    };
    EXPECT_TRUE(isOpen());
    host.reset();
    EXPECT_FALSE(isOpen()) << "it goes with its module";
}

TEST_F(ToolMenuTest, AFileThatNothingOpensIsTold)
{
    StartWithCommands();
    host->OpenFiles({QStringLiteral("1.tst")});
    EXPECT_EQ(Opened(), FromQString(QDir::currentPath()) + L"/1.tst");
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"");
    host->OpenFiles({QStringLiteral("1.txt")});
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"没有已加载的模块能打开这种文件: 1.txt");
    Click(Control(host.get(), ControlId::ErrorBar), ControlId::BarAction);
    EXPECT_TRUE(Control(host.get(), ControlId::Modules)->isVisible());
}

} // namespace
