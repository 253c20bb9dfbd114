#include "roadcheck/RoadCheckWindow.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>

#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "roadcheck/DiagramView.h"
#include "roadcheck/RoadCheckWindows.h"
#include "tests/roadcheck/RoadCheckTest.h"

using namespace roadcheck;

namespace {

class RoadCheckWindowTest : public RoadCheckTest {
protected:
    RoadCheckWindowTest() { acrxLoadModule(kEditor, false, false); }
    ~RoadCheckWindowTest() override
    {
        CloseCheckWindows();
        if (!IsModuleLoaded(kEditor)) CDesignSpecifications::Destroy();
    }

    QWidget* Open(const char* file)
    {
        OpenCheckWindow(File(file));
        QWidget* const window = Windows().back();
        Activate(window);
        EXPECT_TRUE(WaitDone(window));
        return window;
    }
    static void Activate(QWidget* window)
    {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
    static CString Toggle(QWidget* window, int id)
    {
        return FromQString(Control<QCheckBox>(window, id)->text());
    }
    static QTableWidget* Speeds(QWidget* window)
    {
        return Control<QTableWidget>(window, ControlId::Speeds);
    }
    // Clicks a cell of the table of speeds and types into it.
    static void EnterSpeed(QWidget* window, int row, int column, const CString& text)
    {
        QTableWidget* const table = Speeds(window);
        const QPoint place = table->visualRect(table->model()->index(row, column)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
        Type(window, text);
        PressKey(window, Qt::Key_Return);
        QTest::qWait(1); // the cell takes it then
    }
    // Answers a dialog that asks for a file.
    static ModalAction AnswerFile(const QString& path)
    {
        return [path](QWidget* window) {
            auto* const name = window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(name, nullptr);
            name->setFocus();
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        };
    }
    static std::string SelectedPage(QWidget* dialog)
    {
        return Control<QTreeWidget>(dialog, 100)->currentItem()->text(0).toStdString();
    }
    static CDesignSpecifications& Library() { return *CDesignSpecifications::GetInstance(); }
    // Edits the specification in the editor, whose page of straights is shown.
    static void EditLongestStraight(const wchar_t* name, const CString& factor)
    {
        const ExpectModal dialog([&factor](QWidget* editor) {
            auto* const tree = Control<QTreeWidget>(editor, 100);
            tree->setCurrentItem(
                tree->findItems(QStringLiteral("直线长度"), Qt::MatchRecursive).front());
            for (QLineEdit* const edit : editor->findChildren<QLineEdit*>())
                if (edit->isVisible() && edit->property(kControlIdProperty).toInt() == 104) {
                    edit->setFocus();
                    edit->selectAll();
                }
            Type(editor, factor);
            Click(editor, IDOK);
        });
        CPrjManager::GetInstance()->GetStyleManager()->GetGroup(0)->GetStyles(0)->Edit(
            Library().Item(name));
    }

    const CString kStraight = L"直线长 1300 m, 大于 1200 m(20 倍设计车速)";
};

TEST_F(RoadCheckWindowTest, ShowsWhatWasFound)
{
    QWidget* const window = Open("违规.xml");
    EXPECT_EQ(window->windowTitle(), QStringLiteral("道路检核 — 违规.xml"));
    ASSERT_EQ(Rows(window), 26);
    CStringArray first;
    for (int column = 0; column < 9; ++column)
        first.push_back(Cell(window, 0, column));
    EXPECT_EQ(first, (CStringArray{L"警告", L"K0+000.000", L"直线 1", L"直线最大长度", L"1300",
                                   L"1200 m", L"60", L"", kStraight}));
    EXPECT_EQ(Toggle(window, ControlId::ShowErrors), L"错误 14");
    EXPECT_EQ(Toggle(window, ControlId::ShowWarnings), L"警告 10");
    EXPECT_EQ(Toggle(window, ControlId::ShowNotes), L"提示 2");
    EXPECT_EQ(Text(window, ControlId::Status), L"错误 14, 警告 10, 提示 2, 未检核 2");
    EXPECT_EQ(Text(window, ControlId::Message), L"");
    const auto* const tabs = Control<QTabWidget>(window, ControlId::Tabs);
    EXPECT_EQ(tabs->tabText(0), QStringLiteral("结果 (26)"));
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("未检核 (2)"));
}

TEST_F(RoadCheckWindowTest, SaysWhatWasNotCheckedAndWhy)
{
    QWidget* const window = Open("违规.xml");
    Control<QTabWidget>(window, ControlId::Tabs)->setCurrentIndex(1);
    const QAbstractItemModel* const unchecked =
        Control<QTableView>(window, ControlId::Unchecked)->model();
    ASSERT_EQ(unchecked->rowCount(), 2);
    EXPECT_EQ(unchecked->index(1, 0).data().toString(), QStringLiteral("K1+400.000"));
    EXPECT_EQ(unchecked->index(1, 1).data().toString(), QStringLiteral("K1+500.000"));
    EXPECT_EQ(unchecked->index(1, 2).data().toString(), QStringLiteral("最大坡长"));
    EXPECT_EQ(unchecked->index(1, 3).data().toString(),
              QStringLiteral("LonGradMaxLen 没有纵坡 8%、车速 60 km/h 的最大坡长"));
}

TEST_F(RoadCheckWindowTest, ARoadWithoutAFindingShowsNone)
{
    QWidget* const window = Open("合格.xml");
    EXPECT_EQ(Rows(window), 0);
    EXPECT_EQ(Text(window, ControlId::Status), L"错误 0, 警告 0, 提示 0, 未检核 0");
}

TEST_F(RoadCheckWindowTest, FiltersBySeverityRuleAndText)
{
    QWidget* const window = Open("违规.xml");
    Click(window, ControlId::ShowErrors);
    EXPECT_EQ(Rows(window), 12);
    Click(window, ControlId::ShowWarnings);
    EXPECT_EQ(Rows(window), 2);
    EXPECT_EQ(Cell(window, 0, 0), L"提示");
    Click(window, ControlId::ShowErrors);
    Click(window, ControlId::ShowWarnings);
    EXPECT_EQ(Rows(window), 26);

    Choose(window, ControlId::RuleFilter, QStringLiteral("最小纵坡"));
    ASSERT_GE(Rows(window), 1);
    for (int row = 0; row < Rows(window); ++row)
        EXPECT_EQ(Cell(window, row, 3), L"最小纵坡");
    Choose(window, ControlId::RuleFilter, QStringLiteral("全部规则"));

    PressKey(window, Qt::Key_F, Qt::ControlModifier);
    Type(window, L"K1+377");
    ASSERT_GE(Rows(window), 1);
    EXPECT_LT(Rows(window), 26);
    for (int row = 0; row < Rows(window); ++row)
        EXPECT_EQ(Cell(window, row, 1), L"K1+377.500");
}

TEST_F(RoadCheckWindowTest, CopiesRowsWithTheirHeadings)
{
    QWidget* const window = Open("违规.xml");
    ClickRow(window, 0);
    ClickRow(window, 1, Qt::ShiftModifier);
    PressKey(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(FromQString(QApplication::clipboard()->text()),
              L"程度\t桩号\t元素\t规则\t值\t限值\t车速\t数据来源\t说明\n"
              L"警告\tK0+000.000\t直线 1\t直线最大长度\t1300\t1200 m\t60\t\t" +
                  kStraight +
                  L"\n"
                  L"警告\tK0+000.000\t坡段 1\t最小纵坡\t0.1\t0.3 %\t60\t\t"
                  L"纵坡 0.1%, 小于最小纵坡 0.3%");
}

TEST_F(RoadCheckWindowTest, EnterShowsThePageOfTheLimitInTheDefaultSpecification)
{
    QWidget* const window = Open("违规.xml");
    ClickRow(window, RowOf(window, kStraight));
    const ExpectModal dialog([](QWidget* shown) {
        EXPECT_EQ(shown->windowTitle(), QStringLiteral("设计规范 - 城市道路 -- 查看模式"));
        EXPECT_EQ(SelectedPage(shown), "直线长度");
        Click(shown, IDOK);
    });
    PressKey(window, Qt::Key_Return);
}

TEST_F(RoadCheckWindowTest, ADoubleClickShowsThePageInTheSpecificationThatWasChosen)
{
    QWidget* const window = Open("违规.xml");
    Choose(window, ControlId::Specification, QStringLiteral("公路二级"));
    ASSERT_TRUE(WaitDone(window));
    const int row = RowOf(window, L"最小纵坡");
    ASSERT_GE(row, 0);
    ClickRow(window, row);
    const ExpectModal dialog([](QWidget* shown) {
        EXPECT_EQ(shown->windowTitle(), QStringLiteral("设计规范 - 公路二级 -- 查看模式"));
        EXPECT_EQ(SelectedPage(shown), "纵坡坡度");
        Click(shown, IDOK);
    });
    const QTableView* const table = Findings(window);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {},
                       table->visualRect(table->model()->index(row, 1)).center());
}

TEST_F(RoadCheckWindowTest, EveryFindingLeadsToAPage)
{
    QWidget* const window = Open("违规.xml");
    Choose(window, ControlId::Vehicle, QStringLiteral("普通汽车"));
    ASSERT_TRUE(WaitDone(window));
    ASSERT_GT(Rows(window), 26);
    for (int row = 0; row < Rows(window); ++row) {
        ClickRow(window, row);
        const ExpectModal dialog([](QWidget* shown) {
            EXPECT_NE(SelectedPage(shown), "平面") << "no page of its own";
            Click(shown, IDOK);
        });
        PressKey(window, Qt::Key_Return);
    }
}

TEST_F(RoadCheckWindowTest, WithoutTheEditorItSaysThatThereIsNoPage)
{
    acrxUnloadModule(kEditor, false);
    QWidget* const window = Open("违规.xml");
    EXPECT_EQ(Rows(window), 26) << "it reads the specifications itself";
    ClickRow(window, 0);
    PressKey(window, Qt::Key_Return);
    EXPECT_EQ(Text(window, ControlId::Status),
              L"限值所在的页无法打开: 没有加载模块 DesignSpecification.arx");
}

TEST_F(RoadCheckWindowTest, AFindingGoesWhenItsLimitIsEdited)
{
    QWidget* const window = Open("违规.xml");
    ClickRow(window, RowOf(window, L"缓和曲线长 45 m"));
    EditLongestStraight(L"城市道路", L"25");
    EXPECT_TRUE(WaitFor([&] { return Rows(window) == 25; }));
    EXPECT_EQ(RowOf(window, kStraight), -1);
    EXPECT_EQ(SelectedMessage(window), L"缓和曲线长 45 m, 小于最小长度 50 m")
        << "it stays selected";
}

TEST_F(RoadCheckWindowTest, TakesAnotherDefaultSpecificationUnlessOneWasChosen)
{
    QWidget* const window = Open("违规.xml");
    const auto* const choice = Control<QComboBox>(window, ControlId::Specification);
    EXPECT_EQ(choice->currentText(), QStringLiteral("城市道路 (默认)"));
    Library().SetDefaultItem(Library().Item(L"山区道路"));
    EXPECT_TRUE(
        WaitFor([&] { return choice->currentText() == QStringLiteral("山区道路 (默认)"); }));
    EXPECT_TRUE(WaitFor([&] { return Rows(window) != 26; }));

    Choose(window, ControlId::Specification, QStringLiteral("城市道路"));
    ASSERT_TRUE(WaitFor([&] { return Rows(window) == 26; }));
    Library().SetDefaultItem(Library().Item(L"公路二级"));
    QTest::qWait(50);
    EXPECT_EQ(choice->currentText(), QStringLiteral("城市道路"));
    EXPECT_EQ(Rows(window), 26);
}

TEST_F(RoadCheckWindowTest, ReadsAFileAnewThatHasChanged)
{
    QWidget* const window = Open("违规.xml");
    ClickRow(window, RowOf(window, L"纵坡 0.1%"));
    std::string text = m_project.Read("违规.xml");
    const std::string line = "<Line length=\"1300\"/>";
    ASSERT_NE(text.find(line), std::string::npos);
    // As editors do: another file takes the place of the first.
    text.replace(text.find(line), line.size(), "<Line length=\"1100\"/>");
    m_project.Write("neu", text);
    std::filesystem::rename(m_project.Native("neu"), m_project.Native("违规.xml"));
    EXPECT_TRUE(WaitFor([&] { return Rows(window) > 0 && RowOf(window, kStraight) == -1; }));
    EXPECT_EQ(SelectedMessage(window), L"纵坡 0.1%, 小于最小纵坡 0.3%");
    // And once more, in place.
    m_project.Write("违规.xml", m_project.Read("合格.xml"));
    EXPECT_TRUE(WaitFor([&] { return Rows(window) == 0; }));
}

TEST_F(RoadCheckWindowTest, AFileThatCannotBeReadIsNamedWithLineAndCause)
{
    m_project.Write("坏.xml", "<LandXML>\n<Alignments>\n</Wrong>\n");
    QWidget* const window = Open("坏.xml");
    const CString text = Text(window, ControlId::Message);
    EXPECT_EQ(text.find(m_project.Path(L"坏.xml") + L":3: "), 0U) << ToUtf8(text);
    EXPECT_EQ(Control<QTabWidget>(window, ControlId::Tabs)->tabText(2), QStringLiteral("读取 (1)"));
    EXPECT_FALSE(Control(window, ControlId::ExportReport)->isEnabled());
}

TEST_F(RoadCheckWindowTest, AskForASpeedWhereThereIsNone)
{
    std::string text = m_project.Read("违规.xml");
    text.erase(text.find("<Speeds>"), text.find("</Speeds>") + 9 - text.find("<Speeds>"));
    m_project.Write("无车速.xml", text);
    QWidget* const window = Open("无车速.xml");
    EXPECT_NE(Text(window, ControlId::Message).find(L"没有设计车速"), CString::npos);
    EXPECT_EQ(Rows(window), 0);
    EnterSpeed(window, 0, 2, L"60");
    EXPECT_TRUE(WaitFor([&] { return Rows(window) == 26; }));
    EXPECT_EQ(Text(window, ControlId::Message), L"");
}

TEST_F(RoadCheckWindowTest, SpeedsAreThoseOfTheFileUntilOthersAreEntered)
{
    QWidget* const window = Open("违规.xml");
    const QTableWidget* const speeds = Speeds(window);
    ASSERT_EQ(speeds->rowCount(), 2) << "and an empty one";
    EXPECT_EQ(speeds->item(0, 0)->text(), QStringLiteral("K0+000.000"));
    EXPECT_EQ(speeds->item(0, 1)->text(), QStringLiteral("K2+300.000"));
    EXPECT_EQ(speeds->item(0, 2)->text(), QStringLiteral("60"));
    EnterSpeed(window, 0, 2, L"schnell");
    EXPECT_EQ(Text(window, ControlId::Message), L"设计车速“schnell”不是 1 到 1000 的整数 (km/h)");
    EXPECT_EQ(Rows(window), 0);
    EnterSpeed(window, 0, 2, L"80");
    EXPECT_TRUE(WaitFor([&] { return Rows(window) > 0 && Cell(window, 0, 6) == L"80"; }));
    PressKey(window, Qt::Key_Delete);
    EXPECT_TRUE(WaitFor([&] { return Rows(window) == 26; })) << "those of the file come back";
    EXPECT_EQ(speeds->item(0, 2)->text(), QStringLiteral("60"));
}

TEST_F(RoadCheckWindowTest, WhereTheTableShowsNoSpeedThereIsNone)
{
    QWidget* const window = Open("违规.xml");
    EnterSpeed(window, 0, 1, L"K1+200");
    ASSERT_TRUE(WaitDone(window));
    EXPECT_EQ(RowOf(window, kStraight), 0);
    EXPECT_EQ(RowOf(window, L"缓和曲线长 45 m"), -1) << "behind the speed that was entered";
    Control<QTabWidget>(window, ControlId::Tabs)->setCurrentIndex(1);
    EXPECT_GT(Control<QTableView>(window, ControlId::Unchecked)->model()->rowCount(), 10);
}

TEST_F(RoadCheckWindowTest, OptionsSpeedsAndSpecificationAreRememberedForTheProject)
{
    QWidget* window = Open("违规.xml");
    Choose(window, ControlId::Mode, QStringLiteral("内插"));
    Choose(window, ControlId::RoadType, ToQString(RoadTypeLabel(2)));
    Choose(window, ControlId::Vehicle, QStringLiteral("普通汽车"));
    Choose(window, ControlId::Specification, QStringLiteral("公路二级"));
    Click(window, ControlId::Snow);
    EnterSpeed(window, 0, 2, L"70");
    ASSERT_TRUE(WaitDone(window));
    const int rows = Rows(window);
    window->close();
    QTest::qWait(1);

    window = Open("违规.xml");
    const auto shown = [&](int id) { return Control<QComboBox>(window, id)->currentText(); };
    EXPECT_EQ(shown(ControlId::Mode), QStringLiteral("内插"));
    EXPECT_EQ(shown(ControlId::RoadType), ToQString(RoadTypeLabel(2)));
    EXPECT_EQ(shown(ControlId::Vehicle), QStringLiteral("普通汽车"));
    EXPECT_EQ(shown(ControlId::Specification), QStringLiteral("公路二级"));
    EXPECT_TRUE(Control<QCheckBox>(window, ControlId::Snow)->isChecked());
    EXPECT_EQ(Speeds(window)->item(0, 2)->text(), QStringLiteral("70"));
    EXPECT_EQ(Rows(window), rows);
    window->close();

    const TemporaryFolder other;
    VMRDPub::SetCurPrjPath(other.Path());
    OpenCheckWindow({});
    QWidget* const fresh = Windows().back();
    EXPECT_EQ(Control<QComboBox>(fresh, ControlId::Mode)->currentText(),
              QStringLiteral("较高车速的值"));
    EXPECT_FALSE(Control<QCheckBox>(fresh, ControlId::Snow)->isChecked());
    VMRDPub::SetCurPrjPath(m_project.Path());
}

TEST_F(RoadCheckWindowTest, TabReachesEverythingFromTopToBottom)
{
    QWidget* const window = Open("违规.xml");
    Control(window, ControlId::File)->setFocus();
    std::vector<int> reached;
    for (int i = 0; i < 60 && (i == 0 || reached.back() != ControlId::File); ++i) {
        PressKey(window, Qt::Key_Tab);
        reached.push_back(window->focusWidget()->property(kControlIdProperty).toInt());
    }
    std::erase(reached, 0); // parts of Qt's own
    EXPECT_EQ(
        reached,
        (std::vector<int>{ControlId::Browse,     ControlId::Alignment,    ControlId::Specification,
                          ControlId::CheckAgain, ControlId::Speeds,       ControlId::Mode,
                          ControlId::RoadType,   ControlId::MaxSuper,     ControlId::Axis,
                          ControlId::Vehicle,    ControlId::Plateau,      ControlId::Snow,
                          ControlId::ShowErrors, ControlId::ShowWarnings, ControlId::ShowNotes,
                          ControlId::RuleFilter, ControlId::TextFilter,   ControlId::Findings,
                          ControlId::Diagrams,   ControlId::ExportReport, ControlId::ExportDiagrams,
                          ControlId::File}));
}

TEST_F(RoadCheckWindowTest, KeysLeadToItsParts)
{
    QWidget* const window = Open("违规.xml");
    for (const auto& [key, id] : {std::pair{Qt::Key_F, ControlId::File},
                                  {Qt::Key_L, ControlId::Alignment},
                                  {Qt::Key_S, ControlId::Specification},
                                  {Qt::Key_V, ControlId::Speeds},
                                  {Qt::Key_M, ControlId::Mode},
                                  {Qt::Key_T, ControlId::RoadType},
                                  {Qt::Key_X, ControlId::MaxSuper},
                                  {Qt::Key_A, ControlId::Axis},
                                  {Qt::Key_C, ControlId::Vehicle}}) {
        PressKey(window, key, Qt::AltModifier);
        EXPECT_EQ(window->focusWidget(), Control(window, id)) << static_cast<char>(key);
    }
    PressKey(window, Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(
        WaitFor([&] { return Control<QCheckBox>(window, ControlId::Plateau)->isChecked(); }));
}

TEST_F(RoadCheckWindowTest, EscCancelsReading)
{
    OpenCheckWindow(SlowFile());
    QWidget* const window = Window();
    Activate(window);
    ASSERT_TRUE(Control(window, ControlId::Progress)->isVisible()) << "opening does not wait";
    PressKey(window, Qt::Key_Escape);
    EXPECT_EQ(Text(window, ControlId::Status), L"已取消。按 F5 重新检核");
    ASSERT_TRUE(WaitDone(window));
    EXPECT_EQ(Control<QComboBox>(window, ControlId::Alignment)->count(), 0);
    PressKey(window, Qt::Key_F5);
    EXPECT_TRUE(Control(window, ControlId::Progress)->isVisible());
    ASSERT_TRUE(WaitDone(window));
    EXPECT_EQ(Control<QComboBox>(window, ControlId::Alignment)->count(), 1);
}

TEST_F(RoadCheckWindowTest, WhatIsChangedWhileTheFileIsReadAnewHoldsForWhatItSaysThen)
{
    QWidget* const window = Open("违规.xml");
    const std::string slow = (SlowFile(), m_project.Read("慢.xml"));
    m_project.Write("违规.xml", slow);
    PressKey(window, Qt::Key_F5);
    ASSERT_TRUE(Control(window, ControlId::Progress)->isVisible());
    Choose(window, ControlId::Mode, QStringLiteral("不取值"));
    ASSERT_TRUE(WaitDone(window));
    const auto* const roads = Control<QComboBox>(window, ControlId::Alignment);
    EXPECT_TRUE(roads->currentText().startsWith(QStringLiteral("远"))) << "it was read";
    EXPECT_EQ(Rows(window), 0) << "what was found in the file before is gone";
}

TEST_F(RoadCheckWindowTest, AnotherFileIsReadInPlaceOfTheOneThatIsRead)
{
    OpenCheckWindow(SlowFile());
    QWidget* const window = Window();
    Activate(window);
    TypeInto(window, ControlId::File, FromQString(File("违规.xml")));
    PressKey(window, Qt::Key_Return);
    EXPECT_TRUE(WaitFor([&] { return Rows(window) == 26; }));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("道路检核 — 违规.xml"));
}

TEST_F(RoadCheckWindowTest, AWindowThatReadsCanBeClosed)
{
    OpenCheckWindow(SlowFile());
    QWidget* const window = Window();
    ASSERT_TRUE(Control(window, ControlId::Progress)->isVisible());
    window->close();
    QTest::qWait(1);
    EXPECT_TRUE(Windows().empty());
}

TEST_F(RoadCheckWindowTest, SeveralStandBesideOneAnother)
{
    QWidget* const first = Open("违规.xml");
    QWidget* second = nullptr;
    OpenCheckWindow(File("合格.xml"));
    for (QWidget* const one : Windows())
        if (one != first) second = one;
    ASSERT_NE(second, nullptr);
    ASSERT_TRUE(WaitDone(second));
    EXPECT_EQ(Rows(first), 26);
    EXPECT_EQ(Rows(second), 0);
    EXPECT_NE(first->pos(), second->pos());
    EXPECT_FALSE(first->isModal());
}

TEST_F(RoadCheckWindowTest, ExportsAReportByItsEnding)
{
    QWidget* const window = Open("违规.xml");
    for (const auto& [name, begin] : {std::pair{"报告.html", "<!DOCTYPE html>"},
                                      {"报告.csv", "\xEF\xBB\xBF"},
                                      {"报告.json", "{\n  \"files\""}}) {
        {
            const ExpectModal dialog(AnswerFile(File(name)));
            Click(window, ControlId::ExportReport);
        }
        ASSERT_TRUE(WaitDone(window));
        EXPECT_TRUE(m_project.Read(name).starts_with(begin)) << name;
        EXPECT_NE(m_project.Read(name).find(ToUtf8(kStraight)), std::string::npos) << name;
        EXPECT_EQ(Text(window, ControlId::Status), L"报告已写入: " + FromQString(File(name)));
    }
}

TEST_F(RoadCheckWindowTest, ExportsTheDiagramsByTheirEnding)
{
    QWidget* const window = Open("违规.xml");
    for (const auto& [name, begin] : {std::pair{"图.png", "\x89PNG"}, {"图.svg", "<?xml"}}) {
        const ExpectModal dialog(AnswerFile(File(name)));
        Click(window, ControlId::ExportDiagrams);
        EXPECT_TRUE(m_project.Read(name).starts_with(begin)) << name;
        EXPECT_EQ(Text(window, ControlId::Status), L"图已写入: " + FromQString(File(name)));
    }
    const ExpectModal dialog(AnswerFile(File("图.doc")));
    const ExpectMessage box(L"图没有写入: " + FromQString(File("图.doc")), L"提示", MB_ICONERROR);
    Click(window, ControlId::ExportDiagrams);
}

TEST_F(RoadCheckWindowTest, WhatIsSelectedInTheTableIsInTheDiagramsAndTheOtherWayRound)
{
    QWidget* const window = Open("违规.xml");
    auto* const diagrams = Control<DiagramView>(window, ControlId::Diagrams);
    ASSERT_NE(diagrams, nullptr);
    EXPECT_EQ(diagrams->SelectedFinding(), -1);
    ClickRow(window, RowOf(window, L"纵坡 0.1%"));
    EXPECT_EQ(Text(window, ControlId::Detail), L"纵坡 0.1%, 小于最小纵坡 0.3%");
    const int selected = diagrams->SelectedFinding();
    EXPECT_GE(selected, 0);
    const int other = selected + 8;
    const QRect mark = diagrams->MarkRect(other);
    ASSERT_FALSE(mark.isNull());
    QTest::mouseClick(diagrams, Qt::LeftButton, {}, mark.center());
    EXPECT_NE(diagrams->SelectedFinding(), selected);
    EXPECT_EQ(Findings(window)->selectionModel()->selectedRows().size(), 1);
    EXPECT_NE(SelectedMessage(window), L"纵坡 0.1%, 小于最小纵坡 0.3%");

    const QRect note = diagrams->MarkRect(other);
    EXPECT_FALSE(note.isNull());
    for (const int severity :
         {ControlId::ShowErrors, ControlId::ShowWarnings, ControlId::ShowNotes})
        Click(window, severity);
    EXPECT_TRUE(diagrams->MarkRect(other).isNull()) << "what the filter hides has no mark";
}

TEST_F(RoadCheckWindowTest, RefusesAReportOfAnotherKind)
{
    QWidget* const window = Open("违规.xml");
    const ExpectModal dialog(AnswerFile(File("报告.doc")));
    const ExpectMessage box(L"报告的扩展名必须是 .html、.csv 或 .json!");
    Click(window, ControlId::ExportReport);
    EXPECT_FALSE(m_project.Has("报告.doc"));
}

} // namespace
