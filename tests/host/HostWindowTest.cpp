#include "host/HostWindow.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <sys/stat.h>

#include "base/Text.h"
#include "host/ProjectFolders.h"
#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "platform/arx/Modules.h"
#include "tests/host/HostTest.h"

using namespace designspec;

namespace {

class HostWindowTest : public HostTest {
protected:
    // Waits until the watcher must have seen what happened.
    static void Settle() { QTest::qWait(600); }
    void Outside(const char* file, const std::string& bytes) const
    {
        project.Write(std::string("规范/") + file, bytes);
    }
    QStringList Recent() const { return RecentProjects().List(); }
};

TEST_F(HostWindowTest, IsTheFrameOfTheModulesDialogs)
{
    Have({L"a"});
    Start();
    EXPECT_EQ(acedGetAcadFrame(), host.get());
    ClickRow(L"a");
    ExpectModal dialog([this](QWidget* window) {
        EXPECT_EQ(window->parentWidget(), host.get());
        EXPECT_EQ(acDocManager->curDocument()->LockCount(), 1);
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_Return);
    EXPECT_EQ(acDocManager->curDocument()->LockCount(), 0);
}

TEST_F(HostWindowTest, UnloadsItsModulesAtTheEnd)
{
    Start();
    EXPECT_TRUE(IsModuleLoaded(L"FakeModule.arx"));
    host.reset();
    EXPECT_FALSE(IsModuleLoaded(L"FakeModule.arx"));
    EXPECT_FALSE(IsModuleLoaded(L"VMRDPrj.arx"));
}

TEST_F(HostWindowTest, UnloadsTheModuleFirstThatWasLoadedLast)
{
    install.Add("CountingModule.arx");
    QSettings().setValue(
        QStringLiteral("modulesAtStart"),
        QStringList{QStringLiteral("CountingModule.arx"), QStringLiteral("FakeModule.arx")});
    Start();
    CStringArray left;
    const Connection connection = ModulesChanged().Connect([&left] {
        for (const wchar_t* name : {L"CountingModule.arx", L"FakeModule.arx"})
            if (!IsModuleLoaded(name) && std::find(left.begin(), left.end(), name) == left.end())
                left.push_back(name);
    });
    host.reset();
    EXPECT_EQ(left, (CStringArray{L"FakeModule.arx", L"CountingModule.arx"}));
}

TEST_F(HostWindowTest, AMissingModuleIsToldAndTheHostGoesOn)
{
    QSettings().setValue(
        QStringLiteral("modulesAtStart"),
        QStringList{QStringLiteral("Missing.arx"), QStringLiteral("FakeModule.arx")});
    Have({L"a"});
    Start();
    EXPECT_EQ(BarText(ControlId::ErrorBar),
              install.Path() + L"/Missing.arx: 模块未加载: 文件不存在");
    EXPECT_EQ(Listed(), CStringArray{L"a"});
}

TEST_F(HostWindowTest, WithoutSettingsItLoadsTheModulesOfTheFamily)
{
    QSettings().clear();
    EXPECT_EQ(HostModules().AtStart(), (QStringList{QStringLiteral("DesignSpecification.arx"),
                                                    QStringLiteral("RoadCheck.arx")}));
}

TEST_F(HostWindowTest, AFileThatCannotBeReadIsNamedWithLineAndCause)
{
    Have({L"good"});
    Outside("broken.hds", "<?xml version=\"1.0\"?>\n<StyleLibrary>\n<Group\n");
    Start();
    const CString text = BarText(ControlId::ErrorBar);
    EXPECT_NE(text.find(L"broken.hds:"), CString::npos) << ToUtf8(text);
    EXPECT_EQ(Listed(), CStringArray{L"good"});
    Outside("broken2.hds", "");
    Key(Qt::Key_F5);
    EXPECT_NE(BarText(ControlId::ErrorBar).find(L"(另有 1 条)"), CString::npos) << "both, once";
}

TEST_F(HostWindowTest, DetailsOpenTheTracePanel)
{
    Outside("broken.hds", "oops");
    Start();
    QWidget* const bar = Control(host.get(), ControlId::ErrorBar);
    QWidget* const trace = Control(host.get(), ControlId::Trace);
    EXPECT_FALSE(trace->isVisible());
    Click(bar, ControlId::BarAction);
    EXPECT_TRUE(trace->isVisible());
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(HostWindowTest, AMessageIsClosedByItsButton)
{
    Outside("broken.hds", "oops");
    Start();
    Click(Control(host.get(), ControlId::ErrorBar), ControlId::BarClose);
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"");
}

TEST_F(HostWindowTest, AChangeOutsideIsToldAndReloadedWhenAsked)
{
    Have({L"a"});
    Start();
    const CString name = AddOutside(L"b");
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"“规范”中的文件在外部有变化: " + name);
    EXPECT_EQ(Listed(), CStringArray{L"a"}) << "nothing is loaded before it is asked for";
    Click(Control(host.get(), ControlId::ChangeBar), ControlId::BarAction);
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"b"}));
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
    Settle();
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
}

TEST_F(HostWindowTest, ReloadingByKeyAnswersTheMessageToo)
{
    Have({L"a"});
    Start();
    AddOutside(L"b");
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    Key(Qt::Key_F5);
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"b"}));
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
}

TEST_F(HostWindowTest, AFileChangedInPlaceIsSeenEvenASecondTime)
{
    Have({L"a"});
    const CString name = FilesIn("规范").front();
    Start();
    for (int i = 0; i < 2; ++i) {
        Outside(ToUtf8(name).c_str(),
                "<StyleLibrary/>" + std::string(static_cast<size_t>(i), '\n'));
        ASSERT_TRUE(WaitForBar(ControlId::ChangeBar)) << i;
        Click(Control(host.get(), ControlId::ChangeBar), ControlId::BarAction);
        Settle();
    }
}

TEST_F(HostWindowTest, AFileThatIsAsItWasAgainTakesTheMessageBack)
{
    Have({L"a"});
    const std::filesystem::path file = project.Native() / "规范" / ToUtf8(FilesIn("规范").front());
    Start();
    std::filesystem::rename(file, project.Native("elsewhere"));
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    std::filesystem::rename(project.Native("elsewhere"), file);
    EXPECT_TRUE(WaitForNoBar(ControlId::ChangeBar));
}

TEST_F(HostWindowTest, WhatEditorsLeaveBesideAFileIsNoChange)
{
    Have({L"a"});
    Start();
    const std::string name = ToUtf8(FilesIn("规范").front());
    for (const std::string& file :
         {"." + name + ".swp", name + "~", ".~lock." + name + "#", std::string("4913")})
        Outside(file.c_str(), "x");
    std::filesystem::create_symlink("nobody@nowhere.123",
                                    project.Native() / "规范" / (".#" + name));
    Settle();
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
    Outside(("2" + name).c_str(), "x");
    EXPECT_TRUE(WaitForBar(ControlId::ChangeBar)) << "the others are still seen";
}

TEST_F(HostWindowTest, AFolderThatWasRemovedAndMadeAgainIsWatchedOn)
{
    Have({L"a"});
    Start();
    const std::filesystem::path folder = project.Native("规范");
    std::filesystem::remove_all(folder);
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"“规范”文件夹已不在原处: " + project.Path(L"规范"));
    std::filesystem::create_directory(folder);
    const CString removed = L"“规范”中的文件在外部有变化: ";
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return BarText(ControlId::ChangeBar).starts_with(removed); }, 5000));
    Key(Qt::Key_F5);
    EXPECT_EQ(Listed(), CStringArray());
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
    for (const wchar_t* name : {L"b", L"c"}) {
        AddOutside(name);
        ASSERT_TRUE(WaitForBar(ControlId::ChangeBar)) << ToUtf8(name);
        Key(Qt::Key_F5);
    }
    EXPECT_EQ(Listed(), (CStringArray{L"b", L"c"}));
}

// It may be given the number of the one before; here it is, where the file system does that at all.
TEST_F(HostWindowTest, AFolderThatIsMadeAgainAtOnceIsWatchedOn)
{
    Have({L"a"});
    const std::string file = ToUtf8(FilesIn("规范").front());
    const std::string bytes = project.Read("规范/" + file);
    const std::filesystem::path folder = project.Native("规范");
    const auto numberOf = [](const std::filesystem::path& path) {
        struct stat status = {};
        return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
    };
    const ino_t before = numberOf(folder);
    Start();
    std::filesystem::remove_all(folder);
    std::filesystem::path made;
    for (int i = 0; i < 1000 && numberOf(made) != before; ++i) {
        made = project.Native(std::to_string(i));
        std::filesystem::create_directory(made);
    }
    std::filesystem::rename(made, folder);
    Outside(file.c_str(), bytes);
    Settle();
    Key(Qt::Key_F5);
    Outside(file.c_str(), bytes + "\n");
    EXPECT_TRUE(WaitForBar(ControlId::ChangeBar)) << "in place, without a change of the folder";
}

TEST_F(HostWindowTest, AProjectThatIsMovedAwayIsTold)
{
    Have({L"a"});
    Start();
    const std::filesystem::path elsewhere = project.Native().string() + "-moved";
    std::filesystem::rename(project.Native(), elsewhere);
    EXPECT_TRUE(WaitForBar(ControlId::ChangeBar));
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"“规范”文件夹已不在原处: " + project.Path(L"规范"));
    Key(Qt::Key_F5);
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"“规范”文件夹已不在原处: " + project.Path(L"规范"))
        << "reading anew does not bring it back";
    EXPECT_FALSE(std::filesystem::exists(project.Native()));
    std::filesystem::rename(elsewhere, project.Native());
    Key(Qt::Key_F5);
    EXPECT_TRUE(WaitForNoBar(ControlId::ChangeBar));
    EXPECT_EQ(Listed(), CStringArray{L"a"});
    AddOutside(L"b");
    EXPECT_TRUE(WaitForBar(ControlId::ChangeBar));
}

TEST_F(HostWindowTest, AnErrorThatIsMendedGoesWithTheNextReading)
{
    Outside("broken.hds", "oops");
    Start();
    ASSERT_NE(BarText(ControlId::ErrorBar), L"");
    std::filesystem::remove(project.Native() / "规范/broken.hds");
    Key(Qt::Key_F5);
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"");
}

TEST_F(HostWindowTest, AFileThatCannotBeReadIsStillToldWhenSomethingElseIsDone)
{
    Have({L"a"});
    Outside("broken.hds", "oops");
    Start();
    ClickRow(L"a");
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_NE(BarText(ControlId::ErrorBar), L"");
}

TEST_F(HostWindowTest, AMessageDoesNotMoveTheRows)
{
    Have({L"a", L"b"});
    Start();
    const auto place = [this] { return Table()->viewport()->mapToGlobal(RowPlace(L"b")); };
    const QPoint before = place();
    AddOutside(L"c");
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    QTest::qWait(1);
    EXPECT_EQ(place(), before);
}

TEST_F(HostWindowTest, AProjectOpensWithARowSelected)
{
    Have({L"a", L"b"});
    Start();
    EXPECT_EQ(Selected(), CStringArray{L"a"}) << "the first one";
    ClickRow(L"b");
    Key(Qt::Key_D, Qt::ControlModifier);
    host.reset();
    Start();
    EXPECT_EQ(Selected(), CStringArray{L"b"}) << "the default one";
    const TemporaryFolder other;
    ASSERT_TRUE(host->NewProject(ToQString(other.Path())));
    ASSERT_TRUE(host->OpenProject(ToQString(project.Path())));
    EXPECT_EQ(Selected(), CStringArray{L"b"});
}

TEST_F(HostWindowTest, AnEditorCanHaveAStyleSelected)
{
    Have({L"a", L"b"});
    Start();
    TypeInto(host.get(), ControlId::Filter, L"a");
    CStyleEditor::SelectWanted().Tell(files.Item(L"b")->id);
    EXPECT_EQ(Selected(), CStringArray{L"b"});
    EXPECT_TRUE(Table()->hasFocus());
}

TEST_F(HostWindowTest, ADeletedFileIsSeen)
{
    Have({L"a"});
    Start();
    std::filesystem::remove(project.Native() / "规范" / ToUtf8(FilesIn("规范").front()));
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    Click(Control(host.get(), ControlId::ChangeBar), ControlId::BarAction);
    EXPECT_EQ(Listed(), CStringArray());
}

TEST_F(HostWindowTest, ManyChangedFilesAreCounted)
{
    Start();
    for (const char* file : {"1.hds", "2.hds", "3.hds", "4.hds"})
        Outside(file, "x");
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    Settle();
    EXPECT_EQ(BarText(ControlId::ChangeBar),
              L"“规范”中的文件在外部有变化: 1.hds、2.hds、3.hds 等 4 个");
}

TEST_F(HostWindowTest, OwnSavesAreNoChangeOutside)
{
    Have({L"a", L"b"});
    Start();
    ClickRow(L"a");
    {
        ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"c");
            Click(window, IDOK);
        });
        Key(Qt::Key_Return);
    }
    Key(Qt::Key_D, Qt::ControlModifier);
    ClickRow(L"b");
    {
        ExpectModal box([](QWidget* window) { ClickMessageButton(window, L"是"); });
        Key(Qt::Key_Delete);
    }
    Settle();
    EXPECT_EQ(Listed(), CStringArray{L"*c"});
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
}

// Before the host has had time to look at what it saved; in place, of the same time.
TEST_F(HostWindowTest, OurOwnSaveHidesNoChangeOfTheSameInstant)
{
    Have({L"a", L"b"});
    Start();
    ClickRow(L"a");
    {
        ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"c");
            Click(window, IDOK);
        });
        Key(Qt::Key_Return);
    }
    CString saved, other;
    for (const CString& file : FilesIn("规范"))
        (file.starts_with(L"c") ? saved : other) = file;
    for (const CString& file : {saved, other}) {
        const auto path = project.Native() / "规范" / ToUtf8(file);
        const auto time = std::filesystem::last_write_time(path);
        std::string bytes = project.Read("规范/" + ToUtf8(file));
        ASSERT_FALSE(bytes.empty());
        bytes.back() = bytes.back() == '\n' ? ' ' : '\n';
        Outside(ToUtf8(file).c_str(), bytes);
        std::filesystem::last_write_time(path, time);
        ASSERT_TRUE(WaitForBar(ControlId::ChangeBar)) << ToUtf8(file);
        EXPECT_EQ(BarText(ControlId::ChangeBar), L"“规范”中的文件在外部有变化: " + file);
        if (file == saved) Key(Qt::Key_F5);
    }
}

TEST_F(HostWindowTest, UnderAnOpenDialogAChangeWaits)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    ExpectModal dialog(
        [this](QWidget* window) {
            Outside("new.hds", "x");
            Settle();
            EXPECT_EQ(BarText(ControlId::ChangeBar), L"");
            TypeInto(window, 108, L"b"); // an own save does not hide the other's change
            Click(window, IDOK);
        },
        5000);
    Key(Qt::Key_Return);
    ASSERT_TRUE(WaitForBar(ControlId::ChangeBar));
    EXPECT_EQ(BarText(ControlId::ChangeBar), L"“规范”中的文件在外部有变化: new.hds");
}

TEST_F(HostWindowTest, AProjectIsRememberedAndOpenedFromTheMenu)
{
    Have({L"a"});
    Start();
    const TemporaryFolder other;
    ASSERT_TRUE(host->NewProject(ToQString(other.Path())));
    EXPECT_TRUE(std::filesystem::is_directory(other.Native() / "规范"));
    EXPECT_EQ(Listed(), CStringArray());
    EXPECT_EQ(Recent(), (QStringList{ToQString(other.Path()), ToQString(project.Path())}));
    EXPECT_TRUE(
        FromQString(host->windowTitle()).starts_with(ToWide(other.Native().filename().string())));

    ExpectModal menu([this](QWidget* window) { ChooseMenuItem(window, L"&2  " + project.Path()); });
    Key(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Listed() == CStringArray{L"a"}; }));
    EXPECT_EQ(Recent().front(), ToQString(project.Path()));
}

TEST_F(HostWindowTest, AnotherProjectDoesNotInheritTheDefaultStyle)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    Key(Qt::Key_D, Qt::ControlModifier);
    const TemporaryFolder other;
    std::filesystem::create_directories(other.Native() / "规范");
    for (const CString& file : FilesIn("规范"))
        if (file.ends_with(L".hds"))
            std::filesystem::copy(project.Native() / "规范" / ToUtf8(file),
                                  other.Native() / "规范" / ToUtf8(file));
    ASSERT_TRUE(host->OpenProject(ToQString(other.Path())));
    EXPECT_EQ(Listed(), CStringArray{L"a"});
}

TEST_F(HostWindowTest, AFolderWithoutALibraryIsNoProject)
{
    Start();
    const TemporaryFolder other;
    EXPECT_FALSE(host->OpenProject(ToQString(other.Path())));
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"不是项目, 没有“规范”文件夹: " + other.Path());
    EXPECT_EQ(VMRDPub::GetCurPrjPath(), project.Path());
    Click(Control(host.get(), ControlId::ErrorBar), ControlId::BarAction);
    EXPECT_EQ(VMRDPub::GetCurPrjPath(), other.Path());
    EXPECT_TRUE(IsProject(ToQString(other.Path())));
}

TEST_F(HostWindowTest, AProjectThatIsGoneLeavesTheRecentOnes)
{
    const QString other = ToQString(settings.Path(L"other"));
    Start();
    ASSERT_TRUE(host->NewProject(other));
    ASSERT_TRUE(host->OpenProject(ToQString(project.Path())));
    std::filesystem::remove_all(settings.Native("other"));
    EXPECT_FALSE(host->OpenProject(other));
    EXPECT_EQ(Recent(), QStringList(ToQString(project.Path())));
}

TEST_F(HostWindowTest, OpenStartsBesideTheLastProject)
{
    Start();
    const auto expectStart = [this](const QString& folder, Qt::KeyboardModifiers modifiers) {
        const ExpectModal dialog([&](QWidget* window) {
            auto* const asking = dynamic_cast<QFileDialog*>(window);
            ASSERT_NE(asking, nullptr);
            EXPECT_EQ(asking->directory().absolutePath(), folder);
            PressKey(window, Qt::Key_Escape);
        });
        Key(Qt::Key_O, modifiers);
    };
    const QString beside = QFileInfo(ToQString(project.Path())).path();
    expectStart(beside, Qt::ControlModifier);
    expectStart(beside, Qt::ControlModifier | Qt::ShiftModifier);
    RecentProjects().Remove(ToQString(project.Path()));
    expectStart(QDir::homePath(), Qt::ControlModifier);
}

TEST_F(HostWindowTest, WithoutAProjectItSaysWhatToDo)
{
    host = std::make_unique<HostWindow>();
    Show();
    auto* const hint = Control<QLabel>(host.get(), ControlId::Hint);
    EXPECT_EQ(FromQString(hint->text()), L"还没有打开项目。项目是含有“规范”文件夹的文件夹。");
    EXPECT_TRUE(hint->isVisible());
    host->LoadModules();
    EXPECT_TRUE(hint->isVisible());
    EXPECT_FALSE(host->Styles().Actions().Action(kCommandNewStyle)->isEnabled());
    ExpectModal dialog([](QWidget* window) { PressKey(window, Qt::Key_Escape); });
    Click(host.get(), ControlId::HintButton);
}

TEST_F(HostWindowTest, StylesThatAreOpenedAreOfferedForImport)
{
    Have({L"甲"});
    Start();
    const QString file = ToQString(StyleFile(L"乙"));
    {
        ExpectModal dialog(Import({L"乙"}));
        host->OpenFiles({file});
    }
    EXPECT_EQ(Listed(), (CStringArray{L"甲", L"乙"}));
    EXPECT_EQ(Selected(), CStringArray{L"乙"});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导入: 新增 1 个, 覆盖 0 个。");
    EXPECT_EQ(HdsFiles("规范"), 2u);
}

TEST_F(HostWindowTest, WhatIsOfferedCanBeDeclined)
{
    Have({L"甲"});
    Start();
    const QString file = ToQString(StyleFile(L"乙"));
    {
        ExpectModal dialog([](QWidget* window) { PressKey(window, Qt::Key_Escape); });
        host->OpenFiles({file});
    }
    EXPECT_EQ(Listed(), CStringArray{L"甲"});
    EXPECT_EQ(HdsFiles("规范"), 1u);
    // It is not offered again.
    Key(Qt::Key_F5);
    QTest::qWait(50);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(HostWindowTest, WithoutAProjectStylesWaitUntilOneIsOpened)
{
    const QString file = ToQString(StyleFile(L"乙"));
    host = std::make_unique<HostWindow>();
    host->LoadModules();
    Show();
    host->OpenFiles({file});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"打开或新建项目后导入: " + FromQString(file));
    {
        ExpectModal folder(ChooseFile(project.Path()));
        ExpectModal dialog(Import({L"乙"}));
        Key(Qt::Key_O, Qt::ControlModifier);
    }
    EXPECT_EQ(Listed(), CStringArray{L"乙"});
}

TEST_F(HostWindowTest, AFileOfTheProjectItselfIsShownInTheList)
{
    Have({L"甲", L"乙"});
    Start();
    ASSERT_EQ(Selected(), CStringArray{L"甲"});
    for (const CString& name : FilesIn("规范"))
        if (name.starts_with(L"乙"))
            host->OpenFiles({ToQString(project.Path() + L"/规范/" + name)});
    EXPECT_TRUE(QTest::qWaitFor([&] { return Selected() == CStringArray{L"乙"}; }));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "there is nothing to import";
}

TEST_F(HostWindowTest, AStyleFileThatCannotBeReadIsTold)
{
    Start();
    settings.Write("broken.hds", "<x");
    const CString file = ToWide((settings.Native() / "broken.hds").string());
    host->OpenFiles({ToQString(file)});
    ASSERT_TRUE(WaitForBar(ControlId::ErrorBar));
    EXPECT_TRUE(BarText(ControlId::ErrorBar).starts_with(L"无法导入: " + file + L"\n"))
        << ToUtf8(BarText(ControlId::ErrorBar));
}

TEST_F(HostWindowTest, WithoutTheirModuleStylesCannotBeOpened)
{
    QSettings().setValue(QStringLiteral("modulesAtStart"), QStringList());
    Start();
    host->OpenFiles({QStringLiteral("a.hds")});
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"没有已加载的模块能打开这种文件: a.hds");
}

TEST(ProjectFolders, RememberTheLastTenOnce)
{
    QSettings().clear();
    RecentProjects recent;
    for (int i = 0; i < 12; ++i)
        recent.Add(QStringLiteral("/p%1").arg(i));
    recent.Add(QStringLiteral("/p5/"));
    EXPECT_EQ(recent.List().size(), RecentProjects::kMost);
    EXPECT_EQ(recent.List().front(), QStringLiteral("/p5"));
    EXPECT_EQ(recent.List().count(QStringLiteral("/p5")), 1);
    recent.Remove(QStringLiteral("/p5"));
    EXPECT_EQ(recent.List().front(), QStringLiteral("/p11"));
}

TEST(ProjectFolders, AProjectHoldsTheLibraryFolder)
{
    const TemporaryFolder folder;
    const QString path = ToQString(folder.Path());
    EXPECT_FALSE(IsProject(path));
    EXPECT_FALSE(IsProject(QString()));
    EXPECT_TRUE(CreateProject(path + QStringLiteral("/new/one")));
    EXPECT_TRUE(IsProject(path + QStringLiteral("/new/one")));
    folder.Write("规范", "a file");
    EXPECT_FALSE(IsProject(path));
    const TraceCapture lines;
    EXPECT_FALSE(CreateProject(path));
    EXPECT_EQ(lines.Lines().size(), 1u);
}

} // namespace
