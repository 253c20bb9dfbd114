#include "app/DSMainDialog.h"

#include <csignal>

#include <sys/resource.h>

#include <QClipboard>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include "tests/app/AppTest.h"
#include "tests/app/RecordingPage.h"

namespace {

using Log = std::vector<std::string>;

const Log kValidated = {"1.Validate", "2.Validate", "3.Validate", "4.Validate"};

// No file can be made longer than a line as long as it lives.
class FullDisk {
public:
    FullDisk()
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit full = m_before;
        full.rlim_cur = 64;
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before;
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN); // a write fails instead
};

class DSMainDialog : public AppTest {
protected:
    DSMainDialog() { g_recorded = {}; }
    ~DSMainDialog() override { EXPECT_EQ(g_recorded.alive, 0); }

    // Runs the dialog with recording pages; `action` must close it.
    int Run(const ModalAction& action, const CString& name, bool isNew = false,
            const wchar_t* source = nullptr)
    {
        CDSMainDialog dialog(name, isNew, source, &m_frame, kRecordingPages);
        const ExpectModal modal(action);
        return dialog.DoModal();
    }
    int View(const ModalAction& action, const wchar_t* page)
    {
        CDSMainDialog dialog(L"甲", false, nullptr, &m_frame, kRecordingPages);
        dialog.SetViewMode(page);
        const ExpectModal modal(action);
        return dialog.DoModal();
    }
    // Runs it with the product's pages.
    int RunPages(const ModalAction& action, const CString& name, bool isNew = false,
                 const wchar_t* source = nullptr)
    {
        CDSMainDialog dialog(name, isNew, source, &m_frame);
        const ExpectModal modal(action);
        return dialog.DoModal();
    }

    static void Refused(QWidget* window, const CString& name, const CString& message)
    {
        TypeInto(window, 108, name);
        {
            const ExpectMessage box(message);
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(GetsFocus(window, 108));
    }
    // Keys go there as soon as the window is the active one again.
    static bool GetsFocus(QWidget* window, int id)
    {
        return window->focusWidget() == Control(window, id);
    }
    // 确定 tells that `name` cannot be saved on a full disk, and the dialog stays open.
    void ExpectNotSaved(QWidget* window, const CString& name) const
    {
        {
            const FullDisk full;
            const ExpectModal box([&](QWidget* message) {
                const CString text = ReadMessage(message).text;
                EXPECT_TRUE(text.starts_with(L"“" + name + L"”没有保存, 输入的内容还在。\n\n" +
                                             m_project.Path(L"规范")))
                    << ToUtf8(text);
                ClickMessageButton(message, L"确定");
            });
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
    }
    // With the mouse as a person has it: the button is pressed for a moment.
    static void PressOk(QWidget* window)
    {
        auto* const ok = Control<QPushButton>(window, IDOK);
        const QPoint place = ok->mapTo(window, ok->rect().center());
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, place);
        EXPECT_TRUE(ok->isDown());
        QTest::qWait(50); // no box comes while it is down
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, place);
    }
    static CXTPReportControl* RangesOf(QWidget* window)
    {
        ClickItem(window, "超高");
        return Grid(window->findChild<QWidget*>(QStringLiteral("CSuperElevationPage")),
                    CDSPage::kGrid);
    }
    // What a cell's open editor holds when 确定 is pressed.
    static void TypeIntoCell(CXTPReportControl* grid, int row, int column, const CString& text)
    {
        ClickCell(grid, row, column);
        PressKey(grid, Qt::Key_A, Qt::ControlModifier);
        Type(grid, text);
    }
    static int ImageOf(QWidget* window, const char* item)
    {
        return Item(window, item)->data(0, Qt::UserRole + 1).toInt();
    }
    // The numbers of the pages that are shown.
    static std::string Shown(QWidget* window)
    {
        std::string shown;
        int number = 0;
        for (const char* name : {"一", "二", "三", "四"})
            if (++number; PageOf(window, name)->isVisible()) shown += std::to_string(number);
        return shown;
    }

private:
    // The page window of a tree item, by its place.
    static QWidget* PageOf(QWidget* window, const char* item)
    {
        const int place = Item(window, item)->data(0, Qt::UserRole).toInt();
        auto* const area = window->findChild<QWidget*>(QStringLiteral("pageArea"));
        return area->layout()->itemAt(place - 1)->widget();
    }
};

void Cancel(QWidget* window)
{
    Click(window, IDCANCEL);
}

void Accept(QWidget* window)
{
    Click(window, IDOK);
}

} // namespace

TEST_F(DSMainDialog, HasItsTextsAndButtons)
{
    Add(Make(L"甲"));
    Run(
        [](QWidget* window) {
            EXPECT_EQ(window->windowTitle(), QStringLiteral("设计规范"));
            EXPECT_EQ(Control<QLineEdit>(window, 108)->text(), QStringLiteral("甲"));
            EXPECT_EQ(Control<QPushButton>(window, IDOK)->text(), QStringLiteral("确定"));
            EXPECT_EQ(Control<QPushButton>(window, IDCANCEL)->text(), QStringLiteral("取消"));
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, BuildsItsTreeOfGroupsAndPages)
{
    Run(
        [](QWidget* window) {
            EXPECT_EQ(TreeLines(window), (Log{"Plan", "  一", "  三", "纵断", "  二", "四"}));
            EXPECT_EQ(ImageOf(window, "Plan"), 0);
            EXPECT_EQ(ImageOf(window, "一"), 1);
            EXPECT_EQ(ImageOf(window, "三"), 2);
            EXPECT_EQ(ImageOf(window, "四"), 2);
            EXPECT_FALSE(Item(window, "Plan")->icon(0).isNull());
            EXPECT_FALSE(Item(window, "一")->icon(0).isNull());
            EXPECT_TRUE(Item(window, "Plan")->isExpanded());
            EXPECT_FALSE(Item(window, "纵断")->isExpanded());
            EXPECT_EQ(SelectedItem(window), "Plan");
            EXPECT_EQ(Shown(window), "1");
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, TabGoesFromTheTreeThroughThePageToTheButtons)
{
    Add(Make(L"甲"));
    RunPages(
        [](QWidget* window) {
            auto* const area = window->findChild<QWidget*>(QStringLiteral("pageArea"));
            Control(window, 108)->setFocus();
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(window->focusWidget(), Control(window, 100));
            int onThePage = 0;
            for (; onThePage < 50; ++onThePage) {
                QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
                if (!area->isAncestorOf(window->focusWidget())) break;
            }
            EXPECT_GE(onThePage, 9); // three rows of check box, edit box and button
            for (const int button : {301, IDOK, IDCANCEL}) { // 从其他规范取… is the first
                EXPECT_EQ(window->focusWidget(), Control(window, button));
                QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
            }
            EXPECT_EQ(window->focusWidget(), Control(window, 302)); // the search field
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, MakesItsPagesOnTheFrameWithTheDocumentLocked)
{
    int locks = 0;
    static int* seen = nullptr;
    seen = &locks;
    const PageEntry entry{L"组", L"页", [](CDSPage*) {
                              *seen = Locks();
                              return std::unique_ptr<CDSPage>(new CRecordingPage<1>);
                          }};
    const CDSMainDialog dialog(L"甲", false, nullptr, &m_frame, std::span(&entry, 1));
    EXPECT_EQ(locks, 1);
    EXPECT_EQ(Locks(), 0);
    const auto pages = m_frame.findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_TRUE(std::any_of(pages.begin(), pages.end(), [](QDialog* page) {
        return dynamic_cast<CRecordingPage<1>*>(page) && page->isHidden();
    }));
}

TEST_F(DSMainDialog, EachPageIsToldThePageBefore)
{
    const CDSMainDialog dialog(L"甲", false, nullptr, &m_frame, kRecordingPages);
    ASSERT_EQ(g_recorded.before.size(), 4U);
    EXPECT_EQ(g_recorded.before[0], nullptr);
    EXPECT_NE(dynamic_cast<CRecordingPage<1>*>(g_recorded.before[1]), nullptr);
    EXPECT_NE(dynamic_cast<CRecordingPage<3>*>(g_recorded.before[3]), nullptr);
}

TEST_F(DSMainDialog, APageThatCannotBeCreatedIsLeftOutAndToldToNoOther)
{
    struct Formless : CDSPage {
        Formless() : CDSPage(9999) {} // there is no such form
        CDSCallback& Callback() override { return m_callback; }
        CRecordingCallback m_callback{this, 5};
    };
    const PageEntry entries[] = {
        {L"组", L"无表单", [](CDSPage*) { return std::unique_ptr<CDSPage>(new Formless); }},
        {L"组", L"二", MakeRecordingPage<2>},
        {L"组", L"三", MakeRecordingPage<3>},
    };
    const CDSMainDialog dialog(L"甲", false, nullptr, &m_frame, entries);
    ASSERT_EQ(dialog.PageCount(), 2);
    EXPECT_EQ(dialog.PagePath(0), L"组\\二");
    ASSERT_EQ(g_recorded.before.size(), 2U);
    EXPECT_EQ(g_recorded.before[0], nullptr);
    EXPECT_NE(dynamic_cast<CRecordingPage<2>*>(g_recorded.before[1]), nullptr);
}

TEST_F(DSMainDialog, SelectingAPageShowsItAlone)
{
    Run(
        [](QWidget* window) {
            g_recorded.log.clear();
            ClickItem(window, "三");
            EXPECT_EQ(Shown(window), "3");
            EXPECT_EQ(ImageOf(window, "三"), 1);
            EXPECT_EQ(ImageOf(window, "一"), 2);
            ClickItem(window, "四");
            EXPECT_EQ(Shown(window), "4");
            EXPECT_EQ(g_recorded.log, (Log{"3.OnShow", "4.OnShow"}));
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, SelectingAGroupShowsItsFirstPage)
{
    Run(
        [](QWidget* window) {
            g_recorded.log.clear();
            ClickItem(window, "纵断");
            EXPECT_EQ(Shown(window), "2");
            EXPECT_EQ(SelectedItem(window), "纵断");
            EXPECT_EQ(ImageOf(window, "纵断"), 0);
            ClickItem(window, "二");
            EXPECT_EQ(g_recorded.log, (Log{"2.OnShow"}));
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, TheArrowKeysWalkThePages)
{
    Run(
        [](QWidget* window) {
            Tree(window)->setFocus();
            PressKey(window, Qt::Key_Down);
            PressKey(window, Qt::Key_Down);
            EXPECT_EQ(Shown(window), "3");
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, EditLoadsThePagesWithTheName)
{
    Run(Cancel, L"甲");
    EXPECT_EQ(g_recorded.log,
              (Log{"1.Load(甲)", "2.Load(甲)", "3.Load(甲)", "4.Load(甲)", "1.OnShow"}));
}

TEST_F(DSMainDialog, NewWithASourceLoadsThePagesWithTheSource)
{
    Run(Cancel, L"乙", true, L"甲");
    EXPECT_EQ(g_recorded.log,
              (Log{"1.Load(甲)", "2.Load(甲)", "3.Load(甲)", "4.Load(甲)", "1.OnShow"}));
}

TEST_F(DSMainDialog, NewWithoutASourceLoadsNothing)
{
    Run(Cancel, L"乙", true);
    EXPECT_EQ(g_recorded.log, (Log{"1.OnShow"}));
}

TEST_F(DSMainDialog, NewValidatesThenAddsThenStores)
{
    EXPECT_EQ(Run(
                  [](QWidget* window) {
                      g_recorded.log.clear();
                      TypeInto(window, 108, L"  乙 ");
                      Accept(window);
                  },
                  L"规范1", true),
              IDOK);
    Log expected = kValidated;
    for (const char* number : {"1", "2", "3", "4"})
        expected.push_back(std::string(number) + ".RenameAndSave(乙)");
    EXPECT_EQ(g_recorded.log, expected);
    EXPECT_EQ(Names(), L"乙");
    EXPECT_TRUE(m_project.Has(FileOf(At(0))));
}

TEST_F(DSMainDialog, EditValidatesThenSaves)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(Run(
                  [](QWidget* window) {
                      g_recorded.log.clear();
                      Accept(window);
                  },
                  L"甲"),
              IDOK);
    Log expected = kValidated;
    expected.insert(expected.end(), {"1.Save", "2.Save", "3.Save", "4.Save"});
    EXPECT_EQ(g_recorded.log, expected);
}

TEST_F(DSMainDialog, EditWithAnotherNameRenamesEachPageBeforeItIsSaved)
{
    AddSaved(Make(L"甲"));
    Run(
        [](QWidget* window) {
            g_recorded.log.clear();
            TypeInto(window, 108, L"乙");
            Accept(window);
        },
        L"甲");
    Log expected = kValidated;
    for (const char* number : {"1", "2", "3", "4"}) {
        expected.push_back(std::string(number) + ".Rename(乙)");
        expected.push_back(std::string(number) + ".Save");
    }
    EXPECT_EQ(g_recorded.log, expected);
    EXPECT_EQ(Names(), L"乙");
}

TEST_F(DSMainDialog, CancelAsksThePagesNothing)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(Run(
                  [](QWidget* window) {
                      g_recorded.log.clear();
                      TypeInto(window, 108, L"乙");
                      Cancel(window); // no question either
                  },
                  L"甲"),
              IDCANCEL);
    EXPECT_EQ(g_recorded.log, Log{});
    EXPECT_EQ(Names(), L"甲");
}

TEST_F(DSMainDialog, ARefusedPageIsShownWithItsMessage)
{
    g_recorded.refusing = 2;
    g_recorded.refusal = "最小纵坡不能是空!";
    Add(Make(L"甲"));
    EXPECT_EQ(Run(
                  [](QWidget* window) {
                      g_recorded.log.clear();
                      {
                          // The page is there before the message.
                          const ExpectModal box([window](QWidget* message) {
                              EXPECT_EQ(SelectedItem(window), "二");
                              EXPECT_EQ(Shown(window), "2");
                              const ShownMessage shown = ReadMessage(message);
                              EXPECT_EQ(shown.text, L"最小纵坡不能是空!");
                              EXPECT_EQ(shown.caption, L"提示");
                              EXPECT_EQ(shown.icon, MB_ICONINFORMATION);
                              ClickMessageButton(message, L"确定");
                          });
                          Accept(window);
                      }
                      EXPECT_EQ(g_recorded.log, (Log{"1.Validate", "2.Validate", "2.OnShow"}));
                      EXPECT_TRUE(window->isVisible());
                      g_recorded.refusing = 0;
                      Accept(window);
                  },
                  L"甲"),
              IDOK);
}

TEST_F(DSMainDialog, RefusesNamesThatCannotBe)
{
    Add(Make(L"甲"));
    Add(Make(L"Road"));
    Run(
        [](QWidget* window) {
            Refused(window, L"", L"样式名不能为空!");
            Refused(window, L"    ", L"样式名不能为空!");
            for (const wchar_t c : std::wstring(L"<>/\\\":;=|,*?'"))
                Refused(window, CString(L"a") + c + L"b",
                        L"样式名中不允许出现如下字符: <>/\\\":;=|,*?'");
            Refused(window, L"ROAD", L"和已有样式重名!");
            EXPECT_EQ(std::count(g_recorded.log.begin(), g_recorded.log.end(), "1.Validate"), 0);
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, RefusesNamesThatNoFileCanBear)
{
    Add(Make(L"甲"));
    Run(
        [](QWidget* window) {
            const CString leaves = L"名称含有路径分隔符、“..”或空字符,不能用作文件名";
            Refused(window, L"a..b", leaves);
            Refused(window, L"规范...", leaves);
            Refused(window, CString(100, L'规'), L"名称过长,不能用作文件名");
            Cancel(window);
        },
        L"甲");
    EXPECT_EQ(Names(), L"甲");
}

TEST_F(DSMainDialog, ANewNameMayEqualNone)
{
    Add(Make(L"Road"));
    Run(
        [](QWidget* window) {
            Refused(window, L"road", L"和已有样式重名!");
            Refused(window, L"Road", L"和已有样式重名!");
            Cancel(window);
        },
        L"Road", true);
    EXPECT_EQ(Names(), L"Road");
}

TEST_F(DSMainDialog, ViewModeCannotChangeAnything)
{
    AddSaved(Make(L"甲"));
    const std::string before = m_project.Read(FileOf(At(0)));
    EXPECT_EQ(View(
                  [](QWidget* window) {
                      EXPECT_EQ(window->windowTitle(), QStringLiteral("设计规范 - 甲 -- 查看模式"));
                      EXPECT_FALSE(Control(window, 108)->isEnabled());
                      EXPECT_EQ(Shown(window), "2");
                      EXPECT_EQ(SelectedItem(window), "二");
                      g_recorded.log.clear();
                      Accept(window);
                  },
                  L"纵断\\二"),
              IDOK);
    EXPECT_EQ(g_recorded.log, Log{});
    EXPECT_EQ(m_project.Read(FileOf(At(0))), before);
}

TEST_F(DSMainDialog, AViewPathIsSplitAtItsLastBackslashAndFoundInAnyCase)
{
    View(
        [](QWidget* window) {
            EXPECT_EQ(SelectedItem(window), "三");
            Cancel(window);
        },
        L"plan\\三");
}

TEST_F(DSMainDialog, AnUnknownViewPathShowsTheFirstPage)
{
    for (const wchar_t* path : {L"", L"二", L"纵断\\没有", L"没有\\二"})
        View(
            [](QWidget* window) {
                EXPECT_EQ(Shown(window), "1");
                EXPECT_EQ(SelectedItem(window), "Plan");
                Cancel(window);
            },
            path);
}

TEST_F(DSMainDialog, WithoutAFrameThePagesAreTheDialogs)
{
    designspec::SetFrame(nullptr);
    Run(
        [](QWidget* window) {
            EXPECT_EQ(Shown(window), "1");
            Cancel(window);
        },
        L"甲");
}

// With the product's pages and files

TEST_F(DSMainDialog, AnEditReachesTheFile)
{
    AddSaved(Make(L"甲", 20));
    RunPages(
        [](QWidget* window) {
            ClickItem(window, "直线长度");
            TypeInto(window, 104, L"30.5");
            Accept(window);
        },
        L"甲");
    EXPECT_EQ(SpecificationFiles(), 1);
    EXPECT_EQ(Reload().Count(), 1);
    EXPECT_EQ(MarkOf(L"甲"), 30.5);
}

TEST_F(DSMainDialog, CancelLeavesLibraryAndFile)
{
    AddSaved(Make(L"甲", 20));
    RunPages(
        [](QWidget* window) {
            ClickItem(window, "直线长度");
            TypeInto(window, 104, L"30.5");
            Cancel(window);
        },
        L"甲");
    EXPECT_EQ(MarkOf(L"甲"), 20);
    Reload();
    EXPECT_EQ(MarkOf(L"甲"), 20);
}

TEST_F(DSMainDialog, ANewNameIsTheNameInLibraryAndFolder)
{
    const CDesignSpecification& edited = AddSaved(Make(L"甲", 20));
    AddSaved(Make(L"丙", 15));
    const std::string oldFile = FileOf(edited);
    const GUID id = edited.ID();
    RunPages(
        [](QWidget* window) {
            ClickItem(window, "直线长度");
            TypeInto(window, 104, L"30");
            TypeInto(window, 108, L"乙");
            Accept(window);
        },
        L"甲");
    EXPECT_EQ(Names(), L"乙 丙");
    EXPECT_FALSE(m_project.Has(oldFile));
    EXPECT_EQ(SpecificationFiles(), 2);
    Reload();
    EXPECT_EQ(MarkOf(L"乙"), 30);
    EXPECT_EQ(MarkOf(L"丙"), 15);
    EXPECT_EQ(Library().Item(L"甲"), nullptr);
    EXPECT_EQ(Library().Item(L"乙")->ID(), id);
}

TEST_F(DSMainDialog, AChangeOfCaseAloneIsARename)
{
    const CDesignSpecification& edited = AddSaved(Make(L"road", 20));
    const std::string oldFile = FileOf(edited);
    RunPages(
        [](QWidget* window) {
            TypeInto(window, 108, L"Road");
            ClickItem(window, "直线长度");
            TypeInto(window, 104, L"31");
            Accept(window);
        },
        L"road");
    EXPECT_EQ(Names(), L"Road");
    EXPECT_EQ(SpecificationFiles(), 1);
    EXPECT_FALSE(m_project.Has(oldFile));
    EXPECT_FALSE(m_project.Has("规范/已删除"));
    Reload();
    EXPECT_EQ(Names(), L"Road");
    EXPECT_EQ(MarkOf(L"road"), 31);
}

TEST_F(DSMainDialog, TheSameNameInItsOwnCaseIsNoRename)
{
    AddSaved(Make(L"road", 20));
    RunPages(Accept, L"road");
    EXPECT_EQ(Names(), L"road");
    EXPECT_EQ(SpecificationFiles(), 1);
}

TEST_F(DSMainDialog, ACopyStartsFromItsSource)
{
    AddSaved(Make(L"甲", 33));
    EXPECT_EQ(RunPages(Accept, L"甲[副本]", true, L"甲"), IDOK);
    EXPECT_EQ(Names(), L"甲 甲[副本]");
    EXPECT_EQ(MarkOf(L"甲[副本]"), 33);
    EXPECT_FALSE(At(0).ID() == At(1).ID());
    EXPECT_EQ(SpecificationFiles(), 2);
}

// The way out of a condition that cannot be changed back in the specification itself.
TEST_F(DSMainDialog, ACopyCanNeedTransitionCurvesByRadiusAgain)
{
    CDesignSpecification original = Make(L"甲");
    original.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    original.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
    AddSaved(original);
    const auto chooseRadii = [](QWidget* window) {
        ClickItem(window, "缓和曲线最小长度");
        auto* const page = window->findChild<QWidget*>(QStringLiteral("CTransitionCurveDialog"));
        ASSERT_NE(page, nullptr);
        Click(page, 112);
        CXTPReportControl* const radii = Grid(page, 10002);
        {
            const ExpectModal menu([](QWidget* opened) { ChooseMenuItem(opened, L"60 km/h"); });
            RightClickHeader(radii, 0);
        }
        EditCell(radii, 0, 1, L"1000");
        Click(window, IDOK);
    };
    EXPECT_EQ(RunPages(chooseRadii, L"乙", true, L"甲"), IDOK);
    const CTransitionCurveMinLen& copied = Reload().Item(L"乙")->TransitionCurveMinLen;
    EXPECT_EQ(copied.NoTCBySuperelevation, 0);
    ASSERT_EQ(copied.NoTCByMinRad.count, 1);
    EXPECT_EQ(copied.NoTCByMinRad[0].value, 1000);
}

TEST_F(DSMainDialog, ANewOneHasTheBuiltInLimits)
{
    AddSaved(Make(L"甲", 33));
    RunPages(Accept, L"规范2", true);
    EXPECT_EQ(MarkOf(L"规范2"), 20);
}

TEST_F(DSMainDialog, ARefusedFieldGetsTheFocusBack)
{
    AddSaved(Make(L"甲", 33));
    RunPages(
        [](QWidget* window) {
            ClickItem(window, "直线长度");
            TypeInto(window, 104, L"1.25");
            ClickItem(window, "圆曲线半径");
            {
                const ExpectMessage box(L"最大直线长度必须是正数,且最多只有一位小数!");
                Accept(window);
            }
            EXPECT_EQ(SelectedItem(window), "直线长度");
            EXPECT_TRUE(GetsFocus(window, 104));
            Cancel(window);
        },
        L"甲");
    EXPECT_EQ(MarkOf(L"甲"), 33);
}

TEST_F(DSMainDialog, ASpecificationThatIsGoneMeanwhileIsNotSaved)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(RunPages(
                  [](QWidget* window) {
                      Library().Remove(0, true);
                      Accept(window);
                  },
                  L"甲"),
              IDOK);
    EXPECT_EQ(Library().Count(), 0);
}

TEST_F(DSMainDialog, ASaveThatFailsLeavesWhatWasEnteredInTheDialog)
{
    const std::string file = FileOf(AddSaved(Make(L"甲", 20)));
    const std::string stored = m_project.Read(file);
    EXPECT_EQ(RunPages(
                  [&](QWidget* window) {
                      ClickItem(window, "直线长度");
                      TypeInto(window, 104, L"30.5");
                      ExpectNotSaved(window, L"甲");
                      EXPECT_EQ(MarkOf(L"甲"), 20) << "the library has what is stored";
                      EXPECT_EQ(m_project.Read(file), stored);
                      EXPECT_EQ(Control<QLineEdit>(window, 104)->text(), QStringLiteral("30.5"));
                      Accept(window);
                  },
                  L"甲"),
              IDOK);
    Reload();
    EXPECT_EQ(MarkOf(L"甲"), 30.5);
}

TEST_F(DSMainDialog, ARenameThatFailsCanBeTakenBack)
{
    AddSaved(Make(L"甲", 20));
    EXPECT_EQ(RunPages(
                  [&](QWidget* window) {
                      ClickItem(window, "直线长度");
                      TypeInto(window, 104, L"30");
                      TypeInto(window, 108, L"乙");
                      ExpectNotSaved(window, L"乙");
                      EXPECT_EQ(Names(), L"甲");
                      TypeInto(window, 108, L"甲");
                      Accept(window);
                  },
                  L"甲"),
              IDOK);
    EXPECT_EQ(SpecificationFiles(), 1);
    Reload();
    EXPECT_EQ(Names(), L"甲");
    EXPECT_EQ(MarkOf(L"甲"), 30);
}

TEST_F(DSMainDialog, ANewOneThatCannotBeSavedIsNotInTheLibrary)
{
    EXPECT_EQ(RunPages(
                  [&](QWidget* window) {
                      ExpectNotSaved(window, L"规范1");
                      EXPECT_EQ(Library().Count(), 0);
                      Accept(window);
                  },
                  L"规范1", true),
              IDOK);
    EXPECT_EQ(Names(), L"规范1");
    EXPECT_EQ(SpecificationFiles(), 1);
}

TEST_F(DSMainDialog, WhereThereIsNoRoomThePageIsScrolledToWhatHasTheFocus)
{
    Add(Make(L"甲"));
    RunPages(
        [](QWidget* window) {
            window->resize(400, 250);
            EXPECT_EQ(window->size(), QSize(400, 250));
            ClickItem(window, "直线长度");
            auto* const scroll = window->findChild<QScrollArea*>(QStringLiteral("pageScroll"));
            const auto inSight = [scroll](const QWidget* field) {
                const QRect place(field->mapTo(scroll->viewport(), QPoint()), field->size());
                return scroll->viewport()->rect().contains(place);
            };
            QWidget* const last = Control(window, 106);
            EXPECT_FALSE(inSight(last));
            Control(window, 100)->setFocus();
            for (int i = 0; i < 50 && !last->hasFocus(); ++i)
                PressKey(window, Qt::Key_Tab);
            EXPECT_TRUE(inSight(last));

            TypeInto(window, 104, L"");
            ClickItem(window, "圆曲线半径");
            scroll->horizontalScrollBar()->setValue(scroll->horizontalScrollBar()->maximum());
            const ExpectModal box([](QWidget* message) { ClickMessageButton(message, L"确定"); });
            Accept(window);
            EXPECT_TRUE(inSight(Control(window, 104)));
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, WhatIsSaidBelowATableIsInSightWhereThePageIsScrolled)
{
    Add(Make(L"甲"));
    RunPages(
        [](QWidget* window) {
            window->resize(700, 320);
            ClickItem(window, "圆曲线半径");
            auto* const page = window->findChild<QWidget*>(QStringLiteral("CRadiusDialog"));
            CXTPReportControl* const grid = Grid(page, 1001);
            QApplication::clipboard()->setText(QStringLiteral("1000\tabc"));
            grid->setFocus();
            grid->setCurrentIndex(grid->IndexOf(0, 1));
            PressKey(window, Qt::Key_V, Qt::ControlModifier);
            auto* const scroll = window->findChild<QScrollArea*>(QStringLiteral("pageScroll"));
            const QWidget* const line = Control(page, 21001);
            EXPECT_TRUE(QTest::qWaitFor([&] {
                const QRect place(line->mapTo(scroll->viewport(), QPoint()), line->size());
                return line->isVisible() && scroll->viewport()->rect().contains(place);
            }));
            const ExpectModal box([](QWidget* message) { ClickMessageButton(message, L"是"); });
            window->close();
        },
        L"甲");
}

TEST_F(DSMainDialog, OnAScreenWithLargeTextATableStandsBesideWhatIsSaidAboutIt)
{
    Add(Make(L"甲"));
    RunPages(
        [](QWidget* window) {
            window->resize(850, 460);
            auto* const scroll = window->findChild<QScrollArea*>(QStringLiteral("pageScroll"));
            for (const char* page : {"直线长度", "圆曲线半径", "纵坡坡度", "超高规范", "加宽"}) {
                ClickItem(window, page);
                QApplication::processEvents();
                EXPECT_EQ(scroll->verticalScrollBar()->maximum(), 0) << page;
            }
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, APageOpensAtItsBeginningHoweverTheOneBeforeWasScrolled)
{
    Add(Make(L"甲"));
    RunPages(
        [](QWidget* window) {
            window->resize(500, 250);
            ClickItem(window, "缓和曲线最小长度");
            QApplication::processEvents();
            auto* const scroll = window->findChild<QScrollArea*>(QStringLiteral("pageScroll"));
            for (QScrollBar* bar : {scroll->verticalScrollBar(), scroll->horizontalScrollBar()}) {
                bar->setValue(bar->maximum());
                EXPECT_GT(bar->value(), 0);
            }
            ClickItem(window, "圆曲线半径");
            QApplication::processEvents();
            EXPECT_GT(scroll->verticalScrollBar()->maximum(), 0);
            EXPECT_EQ(scroll->verticalScrollBar()->value(), 0);
            EXPECT_EQ(scroll->horizontalScrollBar()->value(), 0);

            // ... and Tab comes from the tree to what is there.
            scroll->verticalScrollBar()->setValue(scroll->verticalScrollBar()->maximum());
            Control(window, 100)->setFocus();
            PressKey(window, Qt::Key_Tab);
            EXPECT_EQ(scroll->verticalScrollBar()->value(), 0);
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, TheCurrentCellIsInSightWhereThePageIsScrolled)
{
    Add(Make(L"甲"));
    RunPages(
        [](QWidget* window) {
            window->resize(500, 250);
            ClickItem(window, "圆曲线半径");
            QApplication::processEvents();
            auto* const page = window->findChild<QWidget*>(QStringLiteral("CRadiusDialog"));
            auto* const scroll = window->findChild<QScrollArea*>(QStringLiteral("pageScroll"));
            CXTPReportControl* const grid = Grid(page, 1001);
            const auto inSight = [&] {
                const QRect cell = grid->visualRect(grid->currentIndex());
                const QPoint corner = grid->viewport()->mapTo(scroll->viewport(), cell.topLeft());
                return scroll->viewport()->rect().contains(QRect(corner, cell.size()));
            };
            grid->setFocus();
            grid->setCurrentIndex(grid->IndexOf(0, 1));
            for (int i = 0; i < 2; ++i)
                PressKey(window, Qt::Key_Down);
            EXPECT_EQ(grid->currentIndex(), grid->IndexOf(2, 1));
            EXPECT_TRUE(inSight());
            for (QScrollBar* bar : {scroll->verticalScrollBar(), scroll->horizontalScrollBar()})
                bar->setValue(bar->maximum());
            for (int i = 0; i < 2; ++i)
                PressKey(window, Qt::Key_Up);
            EXPECT_EQ(grid->currentIndex(), grid->IndexOf(0, 1));
            EXPECT_TRUE(inSight());
            Cancel(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, EscOfAnUnchangedOneAsksNothing)
{
    AddSaved(Make(L"甲"));
    const auto lookAround = [](QWidget* window) {
        for (const char* page : {"圆曲线半径", "加宽", "超高", "直线长度"})
            ClickItem(window, page);
        TypeInto(window, 104, L"25");
        TypeInto(window, 104, L"20"); // as it was
        PressKey(window, Qt::Key_Escape);
    };
    EXPECT_EQ(RunPages(lookAround, L"甲"), IDCANCEL);
    EXPECT_EQ(RunPages(lookAround, L"规范2", true), IDCANCEL);
}

TEST_F(DSMainDialog, EscAndTheCloseButtonAskWhenSomethingWasChanged)
{
    AddSaved(Make(L"甲", 20));
    const CString question = L"“甲”的修改还没有保存。要放弃吗?";
    EXPECT_EQ(RunPages(
                  [&](QWidget* window) {
                      ClickItem(window, "直线长度");
                      TypeInto(window, 104, L"30");
                      {
                          const ExpectMessage no(question, L"提示", MB_ICONQUESTION, IDNO);
                          PressKey(window, Qt::Key_Escape);
                      }
                      {
                          const ExpectModal enter(
                              [](QWidget* box) { PressKey(box, Qt::Key_Return); });
                          window->close();
                      }
                      ASSERT_TRUE(window->isVisible()) << "Enter keeps what was entered";
                      EXPECT_EQ(Control<QLineEdit>(window, 104)->text(), QStringLiteral("30"));
                      const ExpectMessage yes(question, L"提示", MB_ICONQUESTION, IDYES);
                      window->close();
                  },
                  L"甲"),
              IDCANCEL);
    EXPECT_EQ(MarkOf(L"甲"), 20);
}

TEST_F(DSMainDialog, AnotherNameOrAnotherCellIsAChange)
{
    AddSaved(Make(L"甲"));
    const auto expectQuestion = [](QWidget* window) {
        const ExpectMessage yes(L"“甲”的修改还没有保存。要放弃吗?", L"提示", MB_ICONQUESTION,
                                IDYES);
        Tree(window)->setFocus(); // in a cell Esc would end its editing
        PressKey(window, Qt::Key_Escape);
    };
    RunPages(
        [&](QWidget* window) {
            TypeInto(window, 108, L"乙");
            expectQuestion(window);
        },
        L"甲");
    RunPages(
        [&](QWidget* window) {
            ClickItem(window, "圆曲线半径");
            auto* const page = window->findChild<QWidget*>(QStringLiteral("CRadiusDialog"));
            EditCell(Grid(page, 1001), 0, 1, L"1234");
            expectQuestion(window);
        },
        L"甲");
}

TEST_F(DSMainDialog, CtrlEnterIsOkFromAnywhere)
{
    AddSaved(Make(L"甲"));
    const auto enter = [](QWidget* window) {
        PressKey(window, Qt::Key_Return, Qt::ControlModifier);
    };
    EXPECT_EQ(RunPages(
                  [&](QWidget* window) {
                      Tree(window)->setFocus();
                      enter(window);
                  },
                  L"甲"),
              IDOK);
    EXPECT_EQ(RunPages(
                  [&](QWidget* window) {
                      ClickItem(window, "圆曲线半径");
                      auto* const page =
                          window->findChild<QWidget*>(QStringLiteral("CRadiusDialog"));
                      ClickCell(Grid(page, 1001), 0, 1);
                      PressKey(window, Qt::Key_A, Qt::ControlModifier);
                      Type(window, L"4321");
                      enter(window);
                  },
                  L"甲"),
              IDOK);
    EXPECT_EQ(At(0).CircularCurveRad.noSuperelevationMinRad[0].value, 4321);
    EXPECT_EQ(View([&](QWidget* window) { enter(window); }, L""), IDOK);
}

TEST_F(DSMainDialog, OnePressOnOkTakesTheCellThatIsEditedIn)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(RunPages(
                  [](QWidget* window) {
                      CXTPReportControl* const grid = RangesOf(window);
                      TypeIntoCell(grid, 0, 1, CellText(grid, 0, 1));
                      ClickItem(window, "圆曲线半径");
                      auto* const page =
                          window->findChild<QWidget*>(QStringLiteral("CRadiusDialog"));
                      TypeIntoCell(Grid(page, 1001), 0, 1, L"4321");
                      PressOk(window);
                      EXPECT_FALSE(window->isVisible());
                  },
                  L"甲"),
              IDOK);
    EXPECT_EQ(At(0).CircularCurveRad.noSuperelevationMinRad[0].value, 4321);
    const std::string file = ToUtf8(L"规范/甲" + VMRDPub::GUIDToStr(At(0).ID())) + ".hds";
    EXPECT_NE(m_project.Read(file).find("4321"), std::string::npos);
}

TEST_F(DSMainDialog, ABadCellIsToldOnceAndTheButtonIsUpAgain)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(RunPages(
                  [](QWidget* window) {
                      CXTPReportControl* const grid = RangesOf(window);
                      const CString good = CellText(grid, 0, 1);
                      TypeIntoCell(grid, 0, 1, L"300");
                      {
                          const ExpectMessage box(
                              L"圆曲线半径范围的输入格式为 最小半径~最大半径 !");
                          PressOk(window);
                      }
                      QTest::qWait(50); // nor a second one
                      ASSERT_TRUE(window->isVisible());
                      EXPECT_FALSE(Control<QPushButton>(window, IDOK)->isDown());
                      EXPECT_EQ(CellText(grid, 0, 1), L"");
                      EXPECT_EQ(grid->currentIndex(), grid->IndexOf(0, 1));
                      EXPECT_EQ(window->focusWidget(), grid);
                      window->activateWindow();
                      TypeIntoCell(grid, 0, 1, good);
                      PressOk(window);
                  },
                  L"甲"),
              IDOK);
}

TEST_F(DSMainDialog, EnterInAFieldOfAPageIsOk)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(RunPages(
                  [](QWidget* window) {
                      ClickItem(window, "直线长度");
                      TypeInto(window, 104, L"25");
                      PressKey(window, Qt::Key_Return);
                  },
                  L"甲"),
              IDOK);
    EXPECT_EQ(MarkOf(L"甲"), 25);
}

TEST_F(DSMainDialog, ThePagesFillTheAreaBesideTheTree)
{
    RunPages(
        [](QWidget* window) {
            const auto* const area = window->findChild<QWidget*>(QStringLiteral("pageArea"));
            const QWidget* const tree = Control(window, 100);
            const QWidget* const name = Control(window, 108);
            const QRect place(area->mapTo(window, QPoint()), area->size());
            EXPECT_EQ(place.x(), tree->x() + tree->width() + 5);
            EXPECT_EQ(place.y(), tree->y());
            EXPECT_EQ(place.height(), tree->height());
            EXPECT_EQ(place.right(), name->geometry().right());
            const QWidget* const page = area->layout()->itemAt(0)->widget();
            EXPECT_EQ(page->geometry(), area->rect());
            Cancel(window);
        },
        L"甲");
}
