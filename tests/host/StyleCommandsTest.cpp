#include "host/StyleCommands.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeWidget>

#include "base/Text.h"
#include "platform/arx/Modules.h"
#include "tests/host/HostTest.h"

using namespace designspec;

namespace {

constexpr int kNameField = 108;

class StyleCommandsTest : public HostTest {
protected:
    void Disable(const char* keys)
    {
        install.Write("FakeModule.ini", std::string("[Enable]\n") + keys);
    }
    void ChooseFromContextMenu(const CString& text) const
    {
        ExpectModal menu([text](QWidget* window) { ChooseMenuItem(window, text); });
        OpenContextMenu();
    }
    static ModalAction AnswerName(const CString& name, const CString& proposed)
    {
        return [=](QWidget* window) {
            EXPECT_EQ(FromQString(Control<QLineEdit>(window, kNameField)->text()), proposed);
            TypeInto(window, kNameField, name);
            Click(window, IDOK);
        };
    }
    // Deletes the selected styles, answering yes to the question.
    void Delete(const CString& question) const
    {
        ExpectMessage box(question + L"\n\n删除后可以用“已删除…”恢复。", L"删除", MB_ICONQUESTION,
                          IDYES);
        Key(Qt::Key_Delete);
    }
    CString Outside(const char* file) const { return ToWide((settings.Native() / file).string()); }
};

TEST_F(StyleCommandsTest, TheMenuOffersWhatTheEditorEnables)
{
    Have({L"甲", L"乙"});
    Start();
    ClickRow(L"甲");
    ExpectModal menu([](QWidget* window) {
        EXPECT_EQ(
            MenuLines(window),
            (CStringArray{L"新建\tCtrl+N", L"复制新建\tCtrl+Shift+N", L"---", L"编辑\tEnter",
                          L"查看\tF4", L"重命名\tF2", L"删除\tDel", L"---", L"设为默认试验\tCtrl+D",
                          L"---", L"导入…\tCtrl+I", L"从项目导入…\tCtrl+Shift+J", L"导出…\tCtrl+E",
                          L"另存为模板…\tCtrl+Shift+S", L"---", L"已删除…\tCtrl+Shift+D",
                          L"重新加载\tF5", L"试验命令"}));
        PressKey(window, Qt::Key_Escape);
    });
    OpenContextMenu();
}

TEST_F(StyleCommandsTest, WithoutASelectionOnlyTheLibrarysCommandsAreEnabled)
{
    Have({L"甲"});
    Start();
    ClickNoRow();
    ExpectModal menu([](QWidget* window) {
        CStringArray enabled;
        for (const ShownMenuItem& item : ReadMenu(window))
            if (item.enabled && !item.separator) enabled.push_back(item.text);
        EXPECT_EQ(enabled,
                  (CStringArray{L"新建\tCtrl+N", L"导入…\tCtrl+I", L"从项目导入…\tCtrl+Shift+J",
                                L"导出…\tCtrl+E", L"另存为模板…\tCtrl+Shift+S",
                                L"已删除…\tCtrl+Shift+D", L"重新加载\tF5", L"试验命令"}));
        PressKey(window, Qt::Key_Escape);
    });
    OpenContextMenu();
}

TEST_F(StyleCommandsTest, WhatTheEditorRefusesIsGrey)
{
    Disable("New=0\nNewFrom=0\nEdit=0\nView=0\nDel=0\nDefault=0\nExport=0\n");
    Have({L"甲"});
    Start();
    ClickRow(L"甲");
    ExpectModal menu([](QWidget* window) {
        CStringArray enabled;
        for (const ShownMenuItem& item : ReadMenu(window))
            if (item.enabled && !item.separator) enabled.push_back(item.text);
        EXPECT_EQ(enabled, (CStringArray{L"导入…\tCtrl+I", L"从项目导入…\tCtrl+Shift+J",
                                         L"另存为模板…\tCtrl+Shift+S", L"已删除…\tCtrl+Shift+D",
                                         L"重新加载\tF5", L"试验命令"}));
        PressKey(window, Qt::Key_Escape);
    });
    OpenContextMenu();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_F4, Qt::Key_Delete})
        Key(key);
    Key(Qt::Key_N, Qt::ControlModifier);
    ClickRow(L"甲");
    QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, RowPlace(L"甲"));
}

TEST_F(StyleCommandsTest, OfSeveralSelectedOnesOnlyDeleteAndExportAreOffered)
{
    Have({L"甲", L"乙"});
    Start();
    Key(Qt::Key_A, Qt::ControlModifier);
    Table()->setFocus();
    Key(Qt::Key_A, Qt::ControlModifier);
    const StyleActions& actions = host->Styles().Actions();
    EXPECT_TRUE(actions.Action(kCommandDeleteStyle)->isEnabled());
    EXPECT_TRUE(actions.Action(kCommandExportStyles)->isEnabled());
    for (const unsigned command : {kCommandEditStyle, kCommandViewStyle, kCommandRenameStyle,
                                   kCommandNewStyleFrom, kCommandSetAsDefaultStyle})
        EXPECT_FALSE(actions.Action(command)->isEnabled()) << command;
}

TEST_F(StyleCommandsTest, TheDefaultOneCannotBeMadeTheDefaultOneAgain)
{
    Have({L"a", L"b"});
    Start();
    const QAction& command = *host->Styles().Actions().Action(kCommandSetAsDefaultStyle);
    ClickRow(L"a");
    EXPECT_TRUE(command.isEnabled());
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_FALSE(command.isEnabled());
    {
        ExpectModal menu([](QWidget* window) {
            const CStringArray lines = MenuLines(window);
            EXPECT_NE(std::find(lines.begin(), lines.end(), L"(设为默认试验\tCtrl+D)"),
                      lines.end());
            PressKey(window, Qt::Key_Escape);
        });
        OpenContextMenu();
    }
    ClickRow(L"b");
    EXPECT_TRUE(command.isEnabled());
}

TEST_F(StyleCommandsTest, TheEditorsCaptionIsShownEverywhere)
{
    Have({L"甲"});
    Start();
    EXPECT_EQ(FromQString(host->Styles().Actions().Action(kCommandSetAsDefaultStyle)->text()),
              L"设为默认试验");
}

TEST_F(StyleCommandsTest, AnUnknownCommandGoesToTheEditor)
{
    Have({L"甲"});
    Start();
    ClickRow(L"甲");
    ChooseFromContextMenu(L"试验命令");
    EXPECT_EQ(Listed(), CStringArray{L"甲!"});
}

TEST_F(StyleCommandsTest, TheEditorsOwnCommandsStandInTheMenus)
{
    Disable("Own=1\n");
    Have({L"甲", L"乙"});
    Start();
    ClickRow(L"甲");
    ExpectModal menu([](QWidget* window) {
        const CStringArray lines = MenuLines(window);
        EXPECT_EQ(CStringArray(lines.begin() + 8, lines.begin() + 13),
                  (CStringArray{L"设为默认试验\tCtrl+D", L"---", L"数一数…\tCtrl+Shift+X",
                                L"标记\tCtrl+Shift+Y", L"---"}));
        PressKey(window, Qt::Key_Escape);
    });
    OpenContextMenu();
    CStringArray shown;
    for (const QAction* action : host->menuBar()->actions()[1]->menu()->actions())
        if (action->isVisible() && !action->isSeparator())
            shown.push_back(FromQString(action->text()));
    EXPECT_EQ(std::count(shown.begin(), shown.end(), L"标记"), 1);
}

TEST_F(StyleCommandsTest, TheEditorsOwnCommandsGetTheSelectionAndTellWhatTheyDid)
{
    Disable("Own=1\n");
    Have({L"甲", L"乙", L"丙"});
    Start();
    ClickNoRow();
    const StyleActions& actions = host->Styles().Actions();
    EXPECT_FALSE(actions.Action(kCommandsOfEditor + 1)->isEnabled()) << "none is selected";
    Key(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"0");
    Table()->setFocus();
    Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(actions.Action(kCommandsOfEditor + 1)->isEnabled()) << "three are selected";
    Key(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"3");
    ClickRow(L"甲");
    Key(Qt::Key_Y, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"");
    EXPECT_EQ(Selected(), CStringArray{L"甲?"});
}

TEST_F(StyleCommandsTest, TheEditorsOwnCommandsGoWithIt)
{
    Disable("Own=1\n");
    Have({L"甲"});
    Start();
    const QMenu* const menu = host->menuBar()->actions()[1]->menu();
    const auto before = menu->actions().size();
    acrxUnloadModule(L"FakeModule.arx", false);
    EXPECT_EQ(menu->actions().size(), before - 2);
    Key(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"");
}

TEST_F(StyleCommandsTest, ANewStyleIsSelectedAndAFilterThatHidesItGoes)
{
    Have({L"a"});
    Start();
    TypeInto(host.get(), ControlId::Filter, L"a");
    ExpectModal dialog(AnswerName(L"new one", L"新样式"));
    Key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"new one"}));
    EXPECT_EQ(Selected(), CStringArray{L"new one"});
    EXPECT_EQ(HdsFiles("规范"), 2u);
}

TEST_F(StyleCommandsTest, ACancelledNewStyleLeavesEverything)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    ExpectModal dialog([](QWidget* window) { Click(window, IDCANCEL); });
    Key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Listed(), CStringArray{L"a"});
    EXPECT_EQ(Selected(), CStringArray{L"a"});
}

TEST_F(StyleCommandsTest, ACopyIsProposedFromTheSelectedOne)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    ExpectModal dialog(AnswerName(L"b", L"a[副本]"));
    Key(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"b"}));
}

TEST_F(StyleCommandsTest, EnterAndDoubleClickAndF2OpenTheEditor)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    {
        ExpectModal dialog(AnswerName(L"b", L"a"));
        Key(Qt::Key_Return);
    }
    EXPECT_EQ(Listed(), CStringArray{L"b"});
    EXPECT_EQ(Selected(), CStringArray{L"b"});
    {
        ExpectModal dialog(AnswerName(L"c", L"b"));
        ClickRow(L"b");
        QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, RowPlace(L"b"));
    }
    {
        ExpectModal dialog(AnswerName(L"d", L"c"));
        Key(Qt::Key_F2);
    }
    EXPECT_EQ(Listed(), CStringArray{L"d"});
    EXPECT_EQ(HdsFiles("规范"), 1u);
}

TEST_F(StyleCommandsTest, ViewOpensTheEditorsView)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    ExpectModal dialog([](QWidget* window) {
        EXPECT_EQ(FromQString(window->windowTitle()), L"查看");
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_F4);
}

TEST_F(StyleCommandsTest, DeleteAsksFirstAndNoKeepsTheStyle)
{
    Have({L"a"});
    Start();
    ClickRow(L"a");
    {
        ExpectModal box([](QWidget* window) {
            const ShownMessage message = ReadMessage(window);
            EXPECT_EQ(message.text, L"要删除“a”吗?\n\n删除后可以用“已删除…”恢复。");
            EXPECT_EQ(message.caption, L"删除");
            PressKey(window, Qt::Key_Return);
        });
        Key(Qt::Key_Delete);
    }
    EXPECT_EQ(Listed(), CStringArray{L"a"}) << "Enter answers no";
    EXPECT_EQ(HdsFiles("规范/已删除"), 0u);
}

TEST_F(StyleCommandsTest, ADeletedStyleIsSetAsideAndCanBeBroughtBack)
{
    Have({L"a", L"b"});
    const CString file = L"a" + VMRDPub::GUIDToStr(files.Item(L"a")->id) + L".hds";
    Start();
    ClickRow(L"a");
    Delete(L"要删除“a”吗?");
    EXPECT_EQ(Listed(), CStringArray{L"b"});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已删除 1 个样式, 可以用“已删除…”恢复。");
    EXPECT_EQ(FilesIn("规范/已删除"), CStringArray{file});
    Key(Qt::Key_F5);
    EXPECT_EQ(Listed(), CStringArray{L"b"});

    ExpectModal dialog([&](QWidget* window) {
        auto* const list = Control<QTreeWidget>(window, ControlId::Deleted);
        ASSERT_EQ(list->topLevelItemCount(), 1);
        EXPECT_EQ(FromQString(list->topLevelItem(0)->text(0)), L"a");
        const auto deleted = QDateTime::fromString(list->topLevelItem(0)->text(1),
                                                   QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        EXPECT_LT(std::abs(deleted.secsTo(QDateTime::currentDateTime())), 60);
        EXPECT_EQ(FromQString(list->topLevelItem(0)->text(2)), file);
        EXPECT_EQ(list->window()->findChildren<QPushButton*>().size(), 2) << "not this editor";
        Click(window, ControlId::BringBack);
        EXPECT_EQ(list->topLevelItemCount(), 0);
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"b"}));
    EXPECT_EQ(HdsFiles("规范/已删除"), 0u);
}

TEST_F(StyleCommandsTest, ADeletedStyleIsLookedAtWhereTheEditorCan)
{
    Disable("Own=1\n");
    Have({L"a"});
    const CString id = VMRDPub::GUIDToStr(files.Item(L"a")->id);
    Start();
    ClickRow(L"a");
    Delete(L"要删除“a”吗?");
    ExpectModal dialog([&](QWidget* window) {
        auto* const list = Control<QTreeWidget>(window, ControlId::Deleted);
        {
            const ExpectModal shown([&](QWidget* view) {
                EXPECT_EQ(view->windowTitle(), QStringLiteral("查看已删除的"));
                EXPECT_EQ(FromQString(Control<QLineEdit>(view, 108)->text()), id);
                Click(view, IDCANCEL);
            });
            Click(window, ControlId::ViewDeleted);
        }
        {
            const ExpectModal shown([](QWidget* view) { Click(view, IDCANCEL); });
            const QPoint place = list->visualItemRect(list->topLevelItem(0)).topLeft();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place + QPoint(8, 4));
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place + QPoint(8, 4));
        }
        EXPECT_EQ(list->topLevelItemCount(), 1);
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST_F(StyleCommandsTest, WhatWasSavedCanBeTakenBackFromTheBar)
{
    Disable("Own=1\n");
    Have({L"甲"});
    Start();
    ClickRow(L"甲");
    {
        const ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"乙");
            Click(window, IDOK);
        });
        Key(Qt::Key_F2);
    }
    EXPECT_EQ(Listed(), CStringArray{L"乙"});
    ASSERT_EQ(BarText(ControlId::NoteBar), L"已保存。");
    QWidget* const bar = Control(host.get(), ControlId::NoteBar);
    EXPECT_EQ(Control<QPushButton>(bar, ControlId::BarAction)->text(), QStringLiteral("撤销(&U)"));
    Click(bar, ControlId::BarAction);
    EXPECT_EQ(Listed(), CStringArray{L"甲"});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已撤销。");
    EXPECT_FALSE(Control(bar, ControlId::BarAction)->isVisible());
}

TEST_F(StyleCommandsTest, AnImportCanBeTakenBackFromTheBar)
{
    Disable("Own=1\n");
    Have({L"a"});
    CFakeStyles other;
    other.Update();
    const CString file = Outside("in.hds");
    ASSERT_TRUE(other.Export(file.c_str(), {L"a"}, nullptr));
    Start();
    {
        const ExpectModal choice(ChooseFile(file));
        const ExpectModal dialog([](QWidget* window) {
            Click(window, ControlId::ImportOverwrite);
            Click(window, IDOK);
        });
        Key(Qt::Key_I, Qt::ControlModifier);
    }
    ASSERT_EQ(BarText(ControlId::NoteBar), L"已导入: 新增 0 个, 覆盖 1 个。");
    Click(Control(host.get(), ControlId::NoteBar), ControlId::BarAction);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已撤销导入。");
}

TEST_F(StyleCommandsTest, AStyleThatTheLibraryHasIsNotBroughtBackASecondTime)
{
    Have({L"a"});
    Start();
    std::filesystem::create_directories(project.Native() / "规范/已删除");
    for (const CString& file : FilesIn("规范"))
        std::filesystem::copy(project.Native() / "规范" / ToUtf8(file),
                              project.Native() / "规范/已删除" / ToUtf8(file));
    ExpectModal dialog([](QWidget* window) {
        auto* const list = Control<QTreeWidget>(window, ControlId::Deleted);
        ASSERT_EQ(list->topLevelItemCount(), 1);
        EXPECT_EQ(FromQString(list->topLevelItem(0)->text(0)), L"a  (库中已有)");
        EXPECT_FALSE(Control(window, ControlId::BringBack)->isEnabled());
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST_F(StyleCommandsTest, SeveralStylesAreDeletedAfterOneQuestion)
{
    Have({L"a", L"b", L"c"});
    Start();
    ClickRow(L"a");
    ClickRow(L"c", Qt::ShiftModifier);
    ClickRow(L"b", Qt::ControlModifier);
    Delete(L"要删除选中的 2 个样式吗?");
    EXPECT_EQ(Listed(), CStringArray{L"b"});
    EXPECT_EQ(HdsFiles("规范/已删除"), 2u);
}

TEST_F(StyleCommandsTest, TheDefaultStyleStaysTheSameWhenOneBeforeItIsDeleted)
{
    Have({L"a", L"b", L"c"});
    Start();
    ClickRow(L"b");
    Key(Qt::Key_D, Qt::ControlModifier);
    ClickRow(L"a");
    Delete(L"要删除“a”吗?");
    EXPECT_EQ(Listed(), (CStringArray{L"*b", L"c"}));
}

TEST_F(StyleCommandsTest, ADeletedDefaultLeavesNoneAndSaysSo)
{
    Have({L"a", L"b"});
    Start();
    ClickRow(L"a");
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"*a", L"b"}));
    Delete(L"要删除“a”吗?");
    EXPECT_EQ(Listed(), CStringArray{L"b"});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"默认样式已删除, 请另设一个默认样式。");
}

TEST_F(StyleCommandsTest, ExportWritesTheSelectedStylesAndImportTakesThem)
{
    Have({L"a", L"b"});
    Start();
    ClickRow(L"b");
    const CString file = Outside("out.hds");
    {
        ExpectModal dialog(ChooseFile(file));
        Key(Qt::Key_E, Qt::ControlModifier);
    }
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导出: " + file);
    CStringArray names;
    CArray<GUID> ids;
    ASSERT_TRUE(files.StyleNames(file.c_str(), names, ids));
    EXPECT_EQ(names, CStringArray{L"b"});

    Delete(L"要删除“b”吗?");
    ExpectModal choice(ChooseFile(file));
    ExpectModal dialog([](QWidget* window) {
        auto* const list = Control<QListWidget>(window, ControlId::ImportNames);
        ASSERT_EQ(list->count(), 1);
        EXPECT_EQ(FromQString(list->item(0)->text()), L"b");
        EXPECT_FALSE(Control(window, ControlId::ImportOverwrite)->isEnabled());
        Click(window, IDOK);
    });
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"b"}));
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导入: 新增 1 个, 覆盖 0 个。");
    EXPECT_EQ(HdsFiles("规范"), 2u) << "what was imported is saved";
}

TEST_F(StyleCommandsTest, WithoutASelectionEverythingIsExported)
{
    Have({L"a", L"b"});
    Start();
    ClickNoRow();
    const CString file = Outside("all.hds");
    ExpectModal dialog(ChooseFile(Outside("all"))); // the ending is added
    Key(Qt::Key_E, Qt::ControlModifier);
    CStringArray names;
    CArray<GUID> ids;
    ASSERT_TRUE(files.StyleNames(file.c_str(), names, ids));
    EXPECT_EQ(names.size(), 2u);
}

TEST_F(StyleCommandsTest, APointInTheNameIsNoEnding)
{
    Have({L"规范1.5"});
    Start();
    ClickRow(L"规范1.5");
    const auto accept = [this](const CString& typed) {
        ExpectModal dialog([&](QWidget* window) {
            dynamic_cast<QFileDialog*>(window)->setDirectory(ToQString(settings.Path()));
            auto* const name = window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            EXPECT_EQ(name->text(), QStringLiteral("规范1.5.hds"));
            name->setFocus();
            if (!typed.empty()) name->setText(ToQString(typed));
            QTest::keyClick(name, Qt::Key_Return);
        });
        Key(Qt::Key_E, Qt::ControlModifier);
    };
    accept({});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导出: " + Outside("规范1.5.hds"));
    accept(L"规范2.5");
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导出: " + Outside("规范2.5.hds"));
    accept(L"other.xml");
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导出: " + Outside("other.xml"));
}

TEST_F(StyleCommandsTest, SeveralFilesAreImportedAtOnceAndWhatCameIsSelected)
{
    Have({L"a", L"b", L"c"});
    Start();
    for (const wchar_t* const name : {L"b", L"c"}) {
        ClickRow(name);
        ExpectModal dialog(ChooseFile(Outside((ToUtf8(name) + ".hds").c_str())));
        Key(Qt::Key_E, Qt::ControlModifier);
    }
    Delete(L"要删除“c”吗?");
    settings.Write("broken.hds", "<x");
    ExpectModal choice([this](QWidget* window) {
        auto* const name = window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setText(ToQString(L"\"" + Outside("b.hds") + L"\" \"" + Outside("broken.hds") +
                                L"\" \"" + Outside("c.hds") + L"\""));
        QTest::keyClick(name, Qt::Key_Return);
    });
    ExpectModal dialog([this](QWidget* window) {
        auto* const list = Control<QListWidget>(window, ControlId::ImportNames);
        ASSERT_EQ(list->count(), 2);
        EXPECT_EQ(FromQString(list->item(0)->text()), L"b  (库中已有)");
        EXPECT_EQ(FromQString(list->item(1)->text()), L"c");
        EXPECT_TRUE(BarText(ControlId::ErrorBar).find(L"broken.hds") != CString::npos)
            << "what cannot be read is told";
        Click(window, ControlId::ImportOverwrite);
        Click(window, IDOK);
    });
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导入: 新增 1 个, 覆盖 1 个。");
    EXPECT_EQ(Selected(), (CStringArray{L"b", L"c"}));
}

TEST_F(StyleCommandsTest, AProjectsFolderIsImportedWhole)
{
    Have({L"a"});
    const TemporaryFolder elsewhere;
    VMRDPub::SetCurPrjPath(elsewhere.Path());
    {
        CFakeStyles others;
        others.Add(L"b");
        others.Add(L"c");
    }
    VMRDPub::SetCurPrjPath(project.Path());
    Start();
    const auto import = [&](const CString& folder, const ModalAction& answer) {
        const ExpectModal choice(ChooseFile(folder));
        const ExpectModal dialog(answer);
        Key(Qt::Key_J, Qt::ControlModifier | Qt::ShiftModifier);
    };
    import(elsewhere.Path(L"规范"), [](QWidget* window) {
        EXPECT_EQ(Control<QListWidget>(window, ControlId::ImportNames)->count(), 2);
    Click(window, IDCANCEL);
});
    import(elsewhere.Path(), [](QWidget* window) {
        const auto* const list = Control<QListWidget>(window, ControlId::ImportNames);
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(FromQString(list->item(0)->text()), L"b") << "without its identity";
    Click(window, IDOK);
    } // namespace
);
EXPECT_EQ(Listed(), (CStringArray{L"a", L"b", L"c"}));
EXPECT_EQ(Selected(), (CStringArray{L"b", L"c"}));
const TemporaryFolder empty;
const ExpectModal choice(ChooseFile(empty.Path()));
Key(Qt::Key_J, Qt::ControlModifier | Qt::ShiftModifier);
EXPECT_EQ(BarText(ControlId::ErrorBar), L"文件夹中没有样式文件: " + empty.Path());
}

TEST_F(StyleCommandsTest, WhatIsImportedIsSelected)
{
    Have({L"a", L"b", L"c"});
    CFakeStyles other;
    other.Update();
    const CString file = Outside("in.hds");
    ASSERT_TRUE(other.Export(file.c_str(), {L"a", L"c"}, nullptr));
    Start();
    ClickRow(L"a");
    Delete(L"要删除“a”吗?");
    ClickRow(L"b");
    TypeInto(host.get(), ControlId::Filter, L"b");
    ExpectModal choice(ChooseFile(file));
    ExpectModal dialog([](QWidget* window) {
        Click(window, ControlId::ImportOverwrite);
        Click(window, IDOK);
    });
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (CStringArray{L"a", L"c"}));
}

TEST_F(StyleCommandsTest, AStyleThatCannotBeMovedAwayIsNotDeleted)
{
    Have({L"a", L"b"});
    project.Write("规范/已删除", "a file where the folder should be");
    Start();
    ClickRow(L"a");
    Delete(L"要删除“a”吗?");
    EXPECT_EQ(BarText(ControlId::NoteBar), L"") << "nothing can be brought back";
    EXPECT_TRUE(BarText(ControlId::ErrorBar).starts_with(L"没有删除: a。它的文件无法移走。"))
        << ToUtf8(BarText(ControlId::ErrorBar));
    EXPECT_EQ(Listed(), (CStringArray{L"a", L"b"}));
    EXPECT_EQ(HdsFiles("规范"), 2u);
    std::filesystem::remove(project.Native("规范/已删除"));
    ClickRow(L"a");
    Delete(L"要删除“a”吗?");
    EXPECT_EQ(Listed(), CStringArray{L"b"});
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"") << "the one before has nothing to do with it";
}

TEST_F(StyleCommandsTest, ADefaultThatIsBackIsNotCalledDeleted)
{
    Have({L"a", L"b"});
    Start();
    ClickRow(L"a");
    Key(Qt::Key_D, Qt::ControlModifier);
    Delete(L"要删除“a”吗?");
    ASSERT_EQ(BarText(ControlId::NoteBar), L"默认样式已删除, 请另设一个默认样式。");
    ExpectModal dialog([](QWidget* window) {
        Click(window, ControlId::BringBack);
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"*a", L"b"}));
    EXPECT_EQ(Selected(), CStringArray{L"a"});
    EXPECT_EQ(BarText(ControlId::NoteBar), L"");
}

TEST_F(StyleCommandsTest, AnImportThatOverwritesUnderAnotherNameLeavesOneFile)
{
    Have({L"a", L"b"});
    CFakeStyles other;
    other.Update();
    other.Item(L"a")->name = L"renamed";
    const CString file = Outside("in.hds");
    ASSERT_TRUE(other.Export(file.c_str(), {L"renamed"}, nullptr));
    Start();
    ExpectModal choice(ChooseFile(file));
    ExpectModal dialog([](QWidget* window) {
        auto* const list = Control<QListWidget>(window, ControlId::ImportNames);
        EXPECT_EQ(FromQString(list->item(0)->text()), L"renamed  (库中已有)");
        Click(window, ControlId::ImportOverwrite);
        Click(window, IDOK);
    });
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(Listed(), (CStringArray{L"b", L"renamed"}));
    EXPECT_EQ(HdsFiles("规范"), 2u);
    EXPECT_EQ(HdsFiles("规范/已删除"), 1u) << "what was overwritten";
    EXPECT_EQ(BarText(ControlId::NoteBar), L"已导入: 新增 0 个, 覆盖 1 个。");
}

TEST_F(StyleCommandsTest, WithoutOverwriteAKnownStyleStays)
{
    Have({L"a"});
    CFakeStyles other;
    other.Update();
    other.Item(0)->name = L"renamed";
    const CString file = Outside("in.hds");
    ASSERT_TRUE(other.Export(file.c_str(), {}, nullptr));
    Start();
    ExpectModal choice(ChooseFile(file));
    ExpectModal dialog([](QWidget* window) { Click(window, IDOK); });
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(Listed(), CStringArray{L"a"});
}

TEST_F(StyleCommandsTest, NothingCheckedCannotBeImported)
{
    Have({L"a"});
    const CString file = Outside("in.hds");
    ASSERT_TRUE(files.Export(file.c_str(), {}, nullptr));
    Start();
    ExpectModal choice(ChooseFile(file));
    ExpectModal dialog([](QWidget* window) {
        auto* const list = Control<QListWidget>(window, ControlId::ImportNames);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Space);
        EXPECT_EQ(list->item(0)->checkState(), Qt::Unchecked);
        EXPECT_FALSE(Control(window, IDOK)->isEnabled());
        Click(window, IDCANCEL);
    });
    Key(Qt::Key_I, Qt::ControlModifier);
}

TEST_F(StyleCommandsTest, AFileThatCannotBeReadIsNamedWithItsCause)
{
    Start();
    settings.Write("broken.hds", "<StyleLibrary><oops>");
    const CString file = Outside("broken.hds");
    ExpectModal choice(ChooseFile(file));
    Key(Qt::Key_I, Qt::ControlModifier);
    const CString text = BarText(ControlId::ErrorBar);
    EXPECT_TRUE(text.starts_with(L"无法导入: " + file + L"\n" + file + L":1: ")) << ToUtf8(text);
}

TEST_F(StyleCommandsTest, AFileOfAnotherLibraryHasNothingToImport)
{
    Start();
    settings.Write("other.hds", "<StyleLibrary/>");
    ExpectModal choice(ChooseFile(Outside("other.hds")));
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"文件中没有“试验”的样式: " + Outside("other.hds"));
}

TEST_F(StyleCommandsTest, AnExportThatFailsIsNamedWithItsCause)
{
    Have({L"a"});
    Start();
    settings.Write("broken.hds", "<StyleLibrary><oops>");
    const CString file = Outside("broken.hds");
    ExpectModal dialog(ChooseFile(file));
    Key(Qt::Key_E, Qt::ControlModifier);
    const CString text = BarText(ControlId::ErrorBar);
    EXPECT_TRUE(text.starts_with(L"无法导出: " + file + L"\n" + file + L":1: ")) << ToUtf8(text);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"");
}

TEST_F(StyleCommandsTest, AnEarlierErrorIsNotTheCauseOfALaterOne)
{
    settings.Write("other.hds", "<StyleLibrary/>");
    project.Write("规范/broken.hds", "oops");
    Start();
    ASSERT_NE(BarText(ControlId::ErrorBar), L"");
    ExpectModal choice(ChooseFile(Outside("other.hds")));
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(BarText(ControlId::ErrorBar), L"文件中没有“试验”的样式: " + Outside("other.hds"));
}

TEST_F(StyleCommandsTest, AFileDialogThatIsCancelledDoesNothing)
{
    Have({L"a"});
    Start();
    const auto cancel = [](QWidget* window) { PressKey(window, Qt::Key_Escape); };
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_I}) {
        ExpectModal dialog(cancel);
        Key(key, Qt::ControlModifier);
    }
    ExpectModal dialog(cancel);
    Key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar) + BarText(ControlId::ErrorBar), L"");
}

TEST_F(StyleCommandsTest, ATemplateGetsTheLibrarysFiles)
{
    Have({L"a", L"b"});
    Start();
    std::filesystem::create_directories(settings.Native() / "template");
    const CString folder = Outside("template");
    ExpectModal dialog(ChooseFile(folder));
    Key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(BarText(ControlId::NoteBar), L"模板已保存到: " + folder);
    EXPECT_TRUE(std::filesystem::is_directory(settings.Native() / "template/规范"));
}

} // namespace
