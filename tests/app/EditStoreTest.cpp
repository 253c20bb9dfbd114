// Two libraries on one folder: the dialog is open in one, a colleague saves in the other.
#include "app/EditStore.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>

#include <gtest/gtest.h>
#include <unistd.h>

#include "app/DSMainDialog.h"
#include "app/OthersChangeDialog.h"
#include "compare/ControlIds.h"
#include "tests/app/AppTest.h"

namespace {

using D = COthersChangeDialog;
using S = CDesignSpecification;

class EditStore : public AppTest {
protected:
    EditStore() : m_opened(AddSaved(Make(L"甲", 20))) {}

    // The colleague changes what the files hold.
    void Colleague(const std::function<void(S& theirs)>& change, const CString& newName = L"甲")
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        folder.Load();
        S& theirs = *folder.Find(L"甲");
        change(theirs);
        EXPECT_TRUE((newName == L"甲" ? folder.Save(theirs) : folder.Rename(theirs, newName)).done);
    }
    void ColleagueRemoves()
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        folder.Load();
        EXPECT_TRUE(folder.Remove(*folder.Find(L"甲")).done);
    }

    int Run(const ModalAction& action)
    {
        CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
        const ExpectModal modal(action);
        return dialog.DoModal();
    }
    // I enter a longest straight of 25, while the colleague does as told; then 确定 brings the
    // window, which gets the answer. Gives what the dialog ends with; it is cancelled if still
    // open.
    int RunEdited(const std::function<void()>& colleague, const ModalAction& answer,
                  const ModalAction& nextAnswer = {})
    {
        return Run([&](QWidget* window) {
            Enter(window, L"25");
            colleague();
            {
                const ExpectModal settle(answer);
                std::optional<ExpectModal> next;
                if (nextAnswer) next.emplace(nextAnswer);
                Click(window, IDOK);
            }
            if (window->isVisible()) Click(window, IDCANCEL);
        });
    }
    static void Enter(QWidget* window, const CString& longest)
    {
        ClickItem(window, "直线长度");
        TypeInto(window, 104, longest);
    }
    static ModalAction Choose(int choice)
    {
        return [choice](QWidget* window) { Click(window, choice); };
    }
    static std::vector<std::string> Lines(QWidget* window)
    {
        const auto& model = *Control<QTableView>(window, CompareId::Values)->model();
        std::vector<std::string> lines;
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < model.columnCount(); ++column)
                texts.append(model.index(row, column).data().toString());
            lines.push_back(texts.join(QStringLiteral("|")).toStdString());
        }
        return lines;
    }

    // What the folder holds now, as anybody would read it.
    S Stored(const wchar_t* name = L"甲")
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        EXPECT_TRUE(folder.Load().done);
        EXPECT_EQ(folder.Count(), 1);
        EXPECT_EQ(SpecificationFiles(), 1);
        const S* const found = folder.Find(name);
        EXPECT_NE(found, nullptr);
        return found ? *found : S();
    }
    // The longest straight in what is set aside; -1 when nothing is.
    double SetAsideMark()
    {
        SpecificationFolder folder(m_project.Path(L"规范/已删除"));
        folder.Load();
        EXPECT_LE(folder.Count(), 1);
        return folder.Count() == 0 ? -1 : folder.Item(0)->BeelineLen.MaxLen;
    }

    const S m_opened;
};

const auto kRadius = [](S& theirs) { theirs.CircularCurveRad.MaxRad = 8000; };
const auto kLongest = [](S& theirs) { theirs.BeelineLen.MaxLen = 30; };

} // namespace

TEST_F(EditStore, DifferentValuesAreBothKept)
{
    const int result = RunEdited(
        [this] { Colleague(kRadius); },
        [](QWidget* window) {
            EXPECT_EQ(Lines(window),
                      (std::vector<std::string>{
                          "直线长度 · 最大直线长度||25 倍设计速度(km/h)|◀ 我的|"
                          "20 倍设计速度(km/h)|20 倍设计速度(km/h)|我",
                          "圆曲线半径 · 圆曲线最大半径||10000 m|对方的 ▶|8000 m|10000 m|对方"}));
            const QString notice = Control<QLabel>(window, D::kNotice)->text();
            EXPECT_TRUE(notice.contains(QStringLiteral("规范/甲"))) << notice.toStdString();
            PressKey(window, Qt::Key_Return);
        });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(Stored().CircularCurveRad.MaxRad, 8000);
    EXPECT_EQ(SetAsideMark(), -1);
    EXPECT_TRUE(*Library().Item(L"甲") == Stored());
}

TEST_F(EditStore, MineIsKeptAndTheirsSetAside)
{
    EXPECT_EQ(RunEdited([this] { Colleague(kLongest); }, Choose(D::kKeepMine)), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(SetAsideMark(), 30);
}

TEST_F(EditStore, TheirsIsTakenAndMineSetAside)
{
    EXPECT_EQ(RunEdited([this] { Colleague(kLongest); }, Choose(D::kTakeTheirs)), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 30);
    EXPECT_EQ(SetAsideMark(), 25);
    EXPECT_EQ(MarkOf(L"甲"), 30);
}

TEST_F(EditStore, AConflictIsSettledValueByValue)
{
    const auto change = [](S& theirs) {
        kLongest(theirs);
        kRadius(theirs);
    };
    const auto choose = [](int arrow) {
        return [arrow](QWidget* window) {
            Control(window, CompareId::Values)->setFocus();
            Click(window, arrow); // the first value is the conflict
            Click(window, D::kAsChosen);
        };
    };
    EXPECT_EQ(RunEdited([&] { Colleague(change); }, choose(CompareId::ToLeft)), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(Stored().CircularCurveRad.MaxRad, 8000);
    EXPECT_EQ(SetAsideMark(), 30) << "theirs has lost a value";
}

TEST_F(EditStore, WhatIGiveUpValueByValueIsSetAside)
{
    const auto choose = [](QWidget* window) {
        Control(window, CompareId::Values)->setFocus();
        Click(window, CompareId::ToRight);
        Click(window, D::kAsChosen);
    };
    EXPECT_EQ(RunEdited([this] { Colleague(kLongest); }, choose), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 30);
    EXPECT_EQ(MarkOf(L"甲"), 30);
    EXPECT_EQ(SetAsideMark(), 25);
}

TEST_F(EditStore, GoingBackChangesNothing)
{
    const ModalAction back = [this](QWidget* window) {
        EXPECT_FALSE(
            Control(window, D::kAsChosen)->isEnabled()); // both have changed the same value
        PressKey(window, Qt::Key_Escape);
    };
    EXPECT_EQ(RunEdited([this] { Colleague(kLongest); }, back), IDCANCEL);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 30);
    EXPECT_EQ(SetAsideMark(), -1);
    EXPECT_EQ(MarkOf(L"甲"), 20);
}

TEST_F(EditStore, AfterGoingBackTheWindowComesAgain)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  Enter(window, L"25");
                  Colleague(kLongest);
                  {
                      const ExpectModal settle(Choose(IDCANCEL));
                      Click(window, IDOK);
                  }
                  EXPECT_EQ(Control<QLineEdit>(window, 104)->text(), QStringLiteral("25"));
                  const ExpectModal settle(Choose(D::kKeepMine));
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
}

TEST_F(EditStore, WithNothingEnteredTheirsStaysWithoutAQuestion)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  Colleague(kLongest);
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 30);
    EXPECT_EQ(MarkOf(L"甲"), 30);
    EXPECT_EQ(SetAsideMark(), -1);
}

TEST_F(EditStore, TheSameEnteredByBothIsNoQuestion)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  Enter(window, L"30");
                  Colleague([](S& theirs) {
                      kLongest(theirs);
                      kRadius(theirs);
                  });
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 30);
    EXPECT_EQ(Stored().CircularCurveRad.MaxRad, 8000);
}

TEST_F(EditStore, OthersFilesAreNoQuestion)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  Enter(window, L"25");
                  m_project.Write("规范/别的.hds", Envelope(Style("别的", kIdB)));
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Reload().Count(), 2);
    EXPECT_EQ(MarkOf(L"甲"), 25);
}

TEST_F(EditStore, ANameGivenByTheColleagueIsKeptWithMyValue)
{
    const auto rename = [this] { Colleague([](S&) {}, L"乙"); };
    const int result = RunEdited(rename, [](QWidget* window) {
        EXPECT_EQ(Lines(window)[0], "名称||甲|对方的 ▶|乙|甲|对方");
        Click(window, D::kAsChosen);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(Stored(L"乙").BeelineLen.MaxLen, 25);
    EXPECT_TRUE(Stored(L"乙").HasID(m_opened.ID()));
    EXPECT_EQ(Names(), L"乙");
}

TEST_F(EditStore, MyNameWinsOverTheirsWithoutASecondFile)
{
    const auto rename = [this] { Colleague(kLongest, L"乙"); };
    EXPECT_EQ(RunEdited(rename, Choose(D::kKeepMine)), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(SetAsideMark(), 30);
}

TEST_F(EditStore, MyNameIsKeptWithTheirValue)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  TypeInto(window, 108, L"丙");
                  Colleague(kRadius);
                  const ExpectModal settle(Choose(D::kAsChosen));
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored(L"丙").CircularCurveRad.MaxRad, 8000);
    EXPECT_EQ(Names(), L"丙");
}

TEST_F(EditStore, ARemovedOneIsSavedAnewOrSetAside)
{
    const auto remove = [this] { ColleagueRemoves(); };
    EXPECT_EQ(RunEdited(remove,
                        [](QWidget* window) {
                            EXPECT_FALSE(Control(window, D::kPlace)->isVisible());
                            EXPECT_TRUE(Control<QLabel>(window, D::kNotice)
                                            ->text()
                                            .contains(QStringLiteral("被别人删除或移走")));
                            Click(window, D::kKeepMine);
                        }),
              IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(Names(), L"甲");
}

TEST_F(EditStore, ARemovedOneStaysRemovedWhenTheUserSaysSo)
{
    std::filesystem::remove_all(m_project.Native("规范/已删除"));
    const auto remove = [this] { std::filesystem::remove(m_project.Native(FileOf(m_opened))); };
    EXPECT_EQ(RunEdited(remove, Choose(D::kTakeTheirs)), IDOK);
    EXPECT_EQ(SpecificationFiles(), 0);
    EXPECT_EQ(SetAsideMark(), 25);
    EXPECT_EQ(Names(), L"");
}

TEST_F(EditStore, ARemovedOneInWhichNothingWasEnteredStaysRemoved)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  ColleagueRemoves();
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(SpecificationFiles(), 0);
    EXPECT_EQ(Names(), L"");
}

TEST_F(EditStore, OfAFileThatCannotBeReadACopyIsKept)
{
    const std::string file = FileOf(m_opened);
    const auto spoil = [&] { m_project.Write(file, "<StyleLibrary>"); };
    EXPECT_EQ(RunEdited(spoil, Choose(D::kKeepMine)), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(m_project.Read("规范/已删除" + file.substr(std::string("规范").size())),
              "<StyleLibrary>");
}

TEST_F(EditStore, AChangeWhileTheWindowIsOpenIsSeen)
{
    const ModalAction answer = [this](QWidget* window) {
        Colleague([](S& theirs) { theirs.BeelineLen.MaxLen = 35; });
        Click(window, D::kKeepMine);
    };
    const ModalAction again = [](QWidget* window) {
        EXPECT_NE(Lines(window)[0].find("|35 倍"), std::string::npos);
        Click(window, D::kKeepMine);
    };
    EXPECT_EQ(RunEdited([this] { Colleague(kLongest); }, answer, again), IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
    EXPECT_EQ(SetAsideMark(), 35);
}

TEST_F(EditStore, WhoHoldsTheProjectIsToldAndWhatWasEnteredStays)
{
    Library().Files().SetPatience(std::chrono::milliseconds(20), {});
    EXPECT_EQ(Run([this](QWidget* window) {
                  Enter(window, L"25");
                  {
                      SpecificationFolder colleague(m_project.Path(L"规范"));
                      Problems problems;
                      const auto held = colleague.Hold(problems);
                      const ExpectModal told([](QWidget* box) {
                          const QString text = dynamic_cast<QMessageBox&>(*box).text();
                          const QString holder =
                              QStringLiteral("(进程 %1) 修改,请稍后再试").arg(getpid());
                          EXPECT_TRUE(text.startsWith(
                              QStringLiteral("“甲”没有保存, 输入的内容还在。\n\n")));
                          EXPECT_TRUE(text.contains(holder)) << text.toStdString();
                          PressKey(box, Qt::Key_Return);
                      });
                      Click(window, IDOK);
                      EXPECT_TRUE(window->isVisible());
                      EXPECT_EQ(Stored().BeelineLen.MaxLen, 20);
                  }
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 25);
}

TEST_F(EditStore, BothThatNoPageWouldTakeTogetherAreRefused)
{
    const auto colleague = [this] {
        Colleague([](S& theirs) { theirs.TransitionCurveMinLen.MinLen.RemoveAll(); });
    };
    EXPECT_EQ(RunEdited(colleague,
                        [](QWidget* window) {
                            {
                                const ExpectModal box([](QWidget* shown) {
                                    EXPECT_TRUE(ReadMessage(shown).text.starts_with(
                                        L"这样选择不能保存, 编辑窗口不接受其中的值:\n"));
                                    PressKey(shown, Qt::Key_Return);
                                });
                                Click(window, D::kAsChosen);
                            }
                            EXPECT_TRUE(window->isVisible());
                            Click(window, IDCANCEL);
                        }),
              IDCANCEL);
}

// Values that a page shows in another way than they stand there were not entered.
TEST_F(EditStore, WhatAPageRoundsIsNotMine)
{
    S& rounded = *Library().Item(L"甲");
    rounded.LonGrad.MinGrad = 0.349;
    EXPECT_TRUE(Library().Save(&rounded));
    const int result = RunEdited([this] { Colleague(kRadius); },
                                 [](QWidget* window) {
                                     EXPECT_EQ(Lines(window).size(), 2u);
                                     Click(window, D::kAsChosen);
                                 });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(Stored().LonGrad.MinGrad, 0.349);
}

TEST_F(EditStore, AProjectThatHasGoneIsNotMadeAnew)
{
    const std::filesystem::path moved = m_project.Native().string() + ".moved";
    const TemporaryFolder elsewhere;
    const auto move = [&] { std::filesystem::rename(m_project.Native(), moved); };
    EXPECT_EQ(RunEdited(move, Choose(D::kKeepMine), ChooseFile(elsewhere.Path(L"甲.hds"))), IDOK);
    EXPECT_FALSE(std::filesystem::exists(m_project.Native()));
    std::filesystem::rename(moved, m_project.Native());
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 20);
    SpecificationFolder saved(elsewhere.Path());
    EXPECT_TRUE(saved.Load().done);
    EXPECT_EQ(saved.Find(L"甲")->BeelineLen.MaxLen, 25);
}

namespace {

// The project of TemporaryFolder is elsewhere as long as this lives.
class Gone {
public:
    explicit Gone(const TemporaryFolder& project)
        : m_place(project.Native()), m_moved(m_place.string() + ".moved")
    {
        std::filesystem::rename(m_place, m_moved);
    }
    ~Gone()
    {
        EXPECT_FALSE(std::filesystem::exists(m_place));
        std::filesystem::rename(m_moved, m_place);
    }
    Gone(const Gone&) = delete;
    Gone& operator=(const Gone&) = delete;

private:
    std::filesystem::path m_place;
    std::filesystem::path m_moved;
};

ModalAction PressAlt(Qt::Key key)
{
    return [key](QWidget* window) { PressKey(window, key, Qt::AltModifier); };
}

} // namespace

TEST_F(EditStore, AnotherProjectTakesItWhenTheProjectHasGone)
{
    const TemporaryFolder elsewhere;
    EXPECT_EQ(Run([&](QWidget* window) {
                  Enter(window, L"25");
                  const Gone gone(m_project);
                  const ExpectModal settle(PressAlt(Qt::Key_P));
                  const ExpectModal asking(ChooseFile(elsewhere.Path()));
                  const ExpectMessage told(L"“甲”已存入:\n" +
                                           ToWide(elsewhere.Native("规范").string()) + L"/甲" +
                                           VMRDPub::GUIDToStr(m_opened.ID()) + L".hds");
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 20);
    SpecificationFolder saved(elsewhere.Path(L"规范"));
    EXPECT_TRUE(saved.Load().done);
    ASSERT_EQ(saved.Count(), 1);
    EXPECT_EQ(saved.Item(0)->BeelineLen.MaxLen, 25);
    EXPECT_TRUE(saved.Item(0)->HasID(m_opened.ID()));
    EXPECT_FALSE(elsewhere.Has("规范/.lock"));
}

// It holds an older one of this identity and another one of this name.
TEST_F(EditStore, WhatTheOtherProjectHasIsNotLost)
{
    const TemporaryFolder elsewhere;
    {
        SpecificationFolder there(elsewhere.Path(L"规范"));
        S older = m_opened;
        older.SetName(L"旧");
        older.BeelineLen.MaxLen = 15;
        EXPECT_TRUE(there.Save(there.Add(std::make_unique<S>(older))).done);
        EXPECT_TRUE(there.Save(there.Add(std::make_unique<S>(Make(L"甲", 16)))).done);
    }
    EXPECT_EQ(Run([&](QWidget* window) {
                  Enter(window, L"25");
                  const Gone gone(m_project);
                  const ExpectModal settle(PressAlt(Qt::Key_P));
                  const ExpectModal asking(ChooseFile(elsewhere.Path()));
                  const ExpectMessage told(L"“甲(1)”已存入:\n" +
                                           ToWide(elsewhere.Native("规范").string()) + L"/甲(1)" +
                                           VMRDPub::GUIDToStr(m_opened.ID()) + L".hds");
                  Click(window, IDOK);
              }),
              IDOK);
    SpecificationFolder saved(elsewhere.Path(L"规范"));
    EXPECT_TRUE(saved.Load().done);
    ASSERT_EQ(saved.Count(), 2);
    EXPECT_EQ(saved.Find(L"甲")->BeelineLen.MaxLen, 16);
    EXPECT_EQ(saved.Find(L"甲(1)")->BeelineLen.MaxLen, 25);
    SpecificationFolder aside(elsewhere.Path(L"规范/已删除"));
    EXPECT_TRUE(aside.Load().done);
    ASSERT_EQ(aside.Count(), 1);
    EXPECT_EQ(aside.Item(0)->BeelineLen.MaxLen, 15);
}

// Its folder of specifications is as good as the project, unless it is a project of that name.
TEST_F(EditStore, TheFolderOfSpecificationsStandsForItsProject)
{
    for (const bool isProject : {false, true}) {
        const TemporaryFolder elsewhere;
        const std::string library = isProject ? "规范/规范" : "规范";
        std::filesystem::create_directories(elsewhere.Native(library));
        EXPECT_EQ(Run([&](QWidget* window) {
                      Enter(window, L"25");
                      const Gone gone(m_project);
                      const ExpectModal settle(PressAlt(Qt::Key_P));
                      const ExpectModal asking(ChooseFile(elsewhere.Path(L"规范")));
                      const ExpectMessage told(L"“甲”已存入:\n" +
                                               ToWide(elsewhere.Native(library).string()) + L"/甲" +
                                               VMRDPub::GUIDToStr(m_opened.ID()) + L".hds");
                      Click(window, IDOK);
                  }),
                  IDOK);
        EXPECT_EQ(elsewhere.Has("规范/规范"), isProject);
        SpecificationFolder saved(elsewhere.Path(ToWide(library)));
        EXPECT_TRUE(saved.Load().done);
        EXPECT_EQ(saved.Count(), 1);
    }
}

TEST_F(EditStore, AProjectThatDoesNotTakeItLeavesTheEditorOpen)
{
    const TemporaryFolder elsewhere;
    elsewhere.Write("规范", "no folder");
    EXPECT_EQ(Run([&](QWidget* window) {
                  Enter(window, L"25");
                  const Gone gone(m_project);
                  {
                      const ExpectModal settle(PressAlt(Qt::Key_P));
                      const ExpectModal asking(ChooseFile(elsewhere.Path()));
                      const ExpectModal told([](QWidget* box) {
                          EXPECT_TRUE(dynamic_cast<QMessageBox&>(*box).text().startsWith(
                              QStringLiteral("没有保存, 输入的内容还在。\n")));
                          PressKey(box, Qt::Key_Return);
                      });
                      Click(window, IDOK);
                  }
                  EXPECT_TRUE(window->isVisible());
                  EXPECT_EQ(Control<QLineEdit>(window, 104)->text(), QStringLiteral("25"));
                  Click(window, IDCANCEL);
              }),
              IDCANCEL);
    EXPECT_EQ(elsewhere.Read("规范"), "no folder");
}

TEST_F(EditStore, ANewOneIsSavedElsewhereWhenTheProjectHasGone)
{
    const std::filesystem::path moved = m_project.Native().string() + ".moved";
    const TemporaryFolder elsewhere;
    CDSMainDialog dialog(L"新", true, nullptr, &m_frame);
    {
        const ExpectModal modal([&](QWidget* window) {
            Enter(window, L"25");
            std::filesystem::rename(m_project.Native(), moved);
            const ExpectModal settle(Choose(D::kKeepMine));
            const ExpectModal asking(ChooseFile(elsewhere.Path(L"新.hds")));
            Click(window, IDOK);
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL); // nothing was added to the library
    }
    EXPECT_FALSE(std::filesystem::exists(m_project.Native()));
    EXPECT_TRUE(elsewhere.Has("新.hds"));
    EXPECT_EQ(Names(), L"甲");
    std::filesystem::rename(moved, m_project.Native());
}

TEST_F(EditStore, ANameThatAColleagueHasTakenMeanwhileIsRefused)
{
    const auto refused = [this](QWidget* window) {
        m_project.Write("规范/别的.hds", Envelope(Style("乙", kIdB)));
        TypeInto(window, 108, L"乙");
        {
            const ExpectMessage box(L"和已有样式重名!");
            Click(window, IDOK);
        }
        Click(window, IDCANCEL);
    };
    EXPECT_EQ(Run(refused), IDCANCEL);
    CDSMainDialog dialog(L"乙", true, nullptr, &m_frame);
    const ExpectModal modal(refused);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(Names(), L"甲");
}
