// Keys, wheel and mouse on the view of a small road, and what is shown and saved then.
#include "roadcheck/DiagramView.h"

#include <utility>

#include <QApplication>
#include <QFile>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QImage>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"
#include "roadcheck/SeverityMark.h"
#include "tests/roads/RoadMaking.h"
#include "tests/support/TemporaryFolder.h"

namespace roadcheck {

namespace {

enum { kWhole, kShort, kLong, kGrade, kFindings };

Finding FindingOf(const wchar_t* rule, double from, double to)
{
    Finding finding;
    finding.rule = FindRule(rule);
    finding.from = from;
    finding.to = to;
    finding.message = L"<" + std::wstring(rule) + L">";
    return finding;
}

std::vector<Finding> Findings()
{
    std::vector<Finding> findings(kFindings);
    findings[kWhole] = FindingOf(L"curve-length", 400, 600);
    findings[kShort] = FindingOf(L"radius-min", 400, 500);
    findings[kLong] = FindingOf(L"straight-max", 0, 400);
    findings[kGrade] = FindingOf(L"grade-max", 100, 900);
    return findings;
}

// Curvature and gradient of a kilometre.
std::vector<Diagram> Diagrams()
{
    Diagram curvature = {L"平曲线曲率", L"1/km", {}, {}, {}};
    curvature.lines = {{{0, 0}, {400, 0}, {400, 5}, {600, 5}, {600, 0}, {1000, 0}}};
    curvature.bands = {{0, 1000, -4, 4}};
    curvature.findings = {kWhole, kShort, kLong};
    Diagram gradient = {L"纵坡", L"%", {}, {}, {}};
    gradient.lines = {{{0, 8}, {1000, 8}}};
    gradient.bands = {{0, 500, -7, 7}};
    gradient.findings = {kGrade};
    return {curvature, gradient};
}

class DiagramViewTest : public testing::Test {
protected:
    DiagramViewTest()
    {
        m_road = RoadOf({Line(400), Arc(200, 200), Line(400)});
        m_road.stations = Stationing(12000);
        view.setPalette(QPalette(Qt::white, Qt::white));
        view.resize(640, 400);
        Show();
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    void Show() { view.Show(m_road, Diagrams(), Findings()); }

    void Wheel(const QPoint& at, int turned)
    {
        MoveTo(at);
        QWheelEvent event(at, view.mapToGlobal(at), {}, {0, turned}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }

    void MoveTo(const QPoint& at, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, buttons,
                         Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    }

    void Drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(&view, Qt::LeftButton, {}, from);
        MoveTo((from + to) / 2, Qt::LeftButton);
        MoveTo(to, Qt::LeftButton);
        QTest::mouseRelease(&view, Qt::LeftButton, {}, to);
    }

    void Click(const QPoint& at) { QTest::mouseClick(&view, Qt::LeftButton, {}, at); }
    void Press(Qt::Key key) { QTest::keyClick(&view, key); }

    void ExpectShown(double from, double to) const
    {
        EXPECT_NEAR(view.Range().From(), from, 1e-6);
        EXPECT_NEAR(view.Range().To(), to, 1e-6);
    }

    QString StationBelowCursor() const { return view.Readout().section(QLatin1Char('\n'), 0, 0); }

    // Whether the colour is somewhere in that part of the view.
    bool Has(const QColor& colour, const QRect& part)
    {
        const QImage image = view.grab(part).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).rgb() == colour.rgb()) return true;
        return false;
    }

    const QPoint kMiddle{320, 100}; // in the upper curve
    Alignment m_road;
    DiagramView view;
};

} // namespace

TEST_F(DiagramViewTest, ZoomsAboutTheCursor)
{
    Wheel(kMiddle, 120);
    const QString station = StationBelowCursor();
    EXPECT_NEAR(view.Range().Length(), 800, 1e-6);
    Wheel(kMiddle, 240);
    EXPECT_EQ(StationBelowCursor(), station);
    EXPECT_NEAR(view.Range().Length(), 512, 1e-6);
    Wheel(kMiddle, -120 * 20);
    ExpectShown(0, 1000);
}

TEST_F(DiagramViewTest, IsDraggedAlongTheRoad)
{
    Wheel(kMiddle, 120 * 4);
    const double from = view.Range().From(), length = view.Range().Length();
    MoveTo({400, 100});
    const QString station = StationBelowCursor();
    Drag({400, 100}, {300, 100});
    MoveTo({300, 100});
    EXPECT_EQ(StationBelowCursor(), station);
    EXPECT_GT(view.Range().From(), from);
    Drag({100, 100}, {600, 100});
    Drag({100, 100}, {600, 100});
    ExpectShown(0, length);
}

TEST_F(DiagramViewTest, ADoubleClickShowsAll)
{
    Wheel(kMiddle, 120 * 4);
    QTest::mouseDClick(&view, Qt::LeftButton, {}, kMiddle);
    ExpectShown(0, 1000);
}

TEST_F(DiagramViewTest, KeysMoveAndZoom)
{
    Press(Qt::Key_Plus);
    ExpectShown(100, 900);
    Press(Qt::Key_Left);
    ExpectShown(20, 820);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    ExpectShown(180, 980);
    Press(Qt::Key_Minus);
    ExpectShown(0, 1000);
    Press(Qt::Key_Equal); // the plus without Shift
    Press(Qt::Key_Home);
    ExpectShown(0, 1000);
}

TEST_F(DiagramViewTest, ShowsThatItHasTheFocus)
{
    view.activateWindow();
    view.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    const QColor highlight = view.palette().color(QPalette::Highlight);
    EXPECT_TRUE(Has(highlight, QRect(0, 0, 2, 2)));
    view.clearFocus();
    EXPECT_FALSE(Has(highlight, QRect(0, 0, 2, 2)));
}

TEST_F(DiagramViewTest, TellsStationValuesAndLimitsBelowTheCursor)
{
    MoveTo(kMiddle);
    const QStringList lines = view.Readout().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("K12+")));
    EXPECT_EQ(lines[1], QStringLiteral("平曲线曲率 (1/km) 5  限值 -4 ~ 4"));
    MoveTo({600, 100});
    EXPECT_TRUE(view.Readout().endsWith(QStringLiteral("纵坡 (%) 8  无限值")));
    MoveTo({2, 100}); // beside the curves
    EXPECT_EQ(view.Readout(), QString());
    MoveTo(kMiddle);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    EXPECT_EQ(view.Readout(), QString());
}

// What is drawn once and kept is drawn anew for all that changes it.
TEST_F(DiagramViewTest, ShowsEveryChange)
{
    MoveTo({600, 100});
    QImage before = view.grab().toImage();
    const auto hasChanged = [&] {
        const QImage now = view.grab().toImage();
        return std::exchange(before, now) != now;
    };
    EXPECT_FALSE(hasChanged());
    MoveTo({500, 100});
    EXPECT_TRUE(hasChanged());
    Wheel({500, 100}, 240);
    EXPECT_TRUE(hasChanged());
    Drag({500, 100}, {400, 100});
    EXPECT_TRUE(hasChanged());
    Press(Qt::Key_Left);
    EXPECT_TRUE(hasChanged());
    Press(Qt::Key_Home);
    EXPECT_TRUE(hasChanged());
    view.SelectFinding(kShort);
    EXPECT_TRUE(hasChanged());
    Click(view.MarkRect(kGrade).center());
    EXPECT_TRUE(hasChanged());
    view.SetShownFindings({});
    EXPECT_TRUE(hasChanged());
    view.resize(500, 400);
    EXPECT_TRUE(hasChanged());
    QEvent leave(QEvent::Leave); // what the cursor tells is drawn anew each time
    QApplication::sendEvent(&view, &leave);
    EXPECT_TRUE(hasChanged());
    QFont larger = view.font();
    larger.setPointSizeF(larger.pointSizeF() * 1.5);
    view.setFont(larger);
    EXPECT_TRUE(hasChanged());
    Show();
    EXPECT_TRUE(hasChanged());
    view.Clear();
    EXPECT_TRUE(hasChanged());
}

TEST_F(DiagramViewTest, ClicksGoThroughOverlappingMarksFromTheShortest)
{
    QSignalSpy clicked(&view, &DiagramView::FindingClicked);
    const QPoint place = view.MarkRect(kShort).center();
    ASSERT_TRUE(view.MarkRect(kWhole).contains(place));
    Click(place);
    Click(place);
    Click(place);
    ASSERT_EQ(clicked.size(), 3);
    EXPECT_EQ(clicked[0][0].toInt(), kShort);
    EXPECT_EQ(clicked[1][0].toInt(), kWhole);
    EXPECT_EQ(clicked[2][0].toInt(), kShort);
    Click(view.MarkRect(kGrade).center());
    EXPECT_EQ(clicked.last()[0].toInt(), kGrade);
    Click(kMiddle);
    EXPECT_EQ(clicked.size(), 4);
}

TEST_F(DiagramViewTest, AQuickSecondClickOnAMarkIsAnother)
{
    Wheel(kMiddle, 120);
    const QPoint place = view.MarkRect(kShort).center();
    QSignalSpy clicked(&view, &DiagramView::FindingClicked);
    Click(place);
    QTest::mouseDClick(&view, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, place);
    EXPECT_NEAR(view.Range().Length(), 800, 1e-6);
    EXPECT_EQ(clicked.size(), 2);
}

TEST_F(DiagramViewTest, ADragOverAMarkSelectsNothing)
{
    QSignalSpy clicked(&view, &DiagramView::FindingClicked);
    const QPoint place = view.MarkRect(kShort).center();
    Drag(place, place + QPoint(60, 0));
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(DiagramViewTest, MarksHaveTheColourOfTheirSeverity)
{
    const QRect mark = view.MarkRect(kLong);
    const QColor warning = SeverityColour(RuleSeverity::Warning, Qt::white);
    EXPECT_TRUE(Has(warning, mark));
    EXPECT_FALSE(Has(SeverityColour(RuleSeverity::Error, Qt::white), mark));
    EXPECT_GT(view.MarkRect(kWhole).height(), mark.height());
    view.SetShownFindings({true, true, false, true});
    EXPECT_TRUE(view.MarkRect(kLong).isNull());
    EXPECT_FALSE(Has(warning, mark));
    QSignalSpy clicked(&view, &DiagramView::FindingClicked);
    Click(mark.center());
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(DiagramViewTest, TheSelectedMarkIsMovedIntoSightAndStandsOut)
{
    Wheel({620, 100}, 120 * 10);
    ASSERT_TRUE(view.MarkRect(kShort).isNull());
    const QImage before = view.grab().toImage();
    view.SelectFinding(kShort);
    EXPECT_NEAR((view.Range().From() + view.Range().To()) / 2, 450, 1e-6);
    const QRect mark = view.MarkRect(kShort);
    ASSERT_FALSE(mark.isNull());
    const QPoint above(mark.center().x(), 60);
    const QColor selected = view.grab().toImage().pixelColor(above);
    view.SelectFinding(-1);
    EXPECT_NE(view.grab().toImage().pixelColor(above), selected);
    view.SelectFinding(99);
    EXPECT_EQ(view.SelectedFinding(), -1);
}

TEST_F(DiagramViewTest, AClickDoesNotMoveWhatIsClicked)
{
    Wheel(kMiddle, 120 * 5);
    const double from = view.Range().From();
    QObject::connect(&view, &DiagramView::FindingClicked, &view, &DiagramView::SelectFinding);
    Click(view.MarkRect(kGrade).center()); // goes beyond the view on both sides
    EXPECT_EQ(view.SelectedFinding(), kGrade);
    EXPECT_EQ(view.Range().From(), from);
}

TEST_F(DiagramViewTest, AToolTipHasTheMessageAsItIs)
{
    const QPoint place = view.MarkRect(kGrade).center();
    QHelpEvent help(QEvent::ToolTip, place, view.mapToGlobal(place));
    QApplication::sendEvent(&view, &help);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("错误: ")));
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("grade-max")));
    QToolTip::hideText();
}

TEST_F(DiagramViewTest, KeepsItsPlaceWhenTheRoadIsCheckedAnew)
{
    Wheel(kMiddle, 240);
    const double from = view.Range().From();
    view.SelectFinding(kShort);
    Show();
    EXPECT_EQ(view.Range().From(), from);
    EXPECT_EQ(view.SelectedFinding(), -1);
    m_road.length = 2000;
    Show();
    ExpectShown(0, 2000);
}

TEST_F(DiagramViewTest, IsEmptyWithoutARoad)
{
    view.Clear();
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Left, Qt::Key_Home})
        Press(key);
    Wheel(kMiddle, 120);
    Drag({100, 100}, {200, 100});
    QTest::mouseDClick(&view, Qt::LeftButton, {}, kMiddle);
    EXPECT_EQ(view.Readout(), QString());
    EXPECT_TRUE(view.MarkRect(0).isNull());
    EXPECT_FALSE(view.grab().isNull());
}

TEST_F(DiagramViewTest, IsDrawnInTheColoursOfTheWindow)
{
    QPalette dark(QColor(45, 48, 52), QColor(45, 48, 52));
    dark.setColor(QPalette::Base, QColor(30, 32, 35));
    dark.setColor(QPalette::Text, QColor(228, 230, 232));
    view.setPalette(dark);
    EXPECT_TRUE(Has(QColor(30, 32, 35), view.rect()));
    EXPECT_FALSE(Has(Qt::white, view.rect()));
    EXPECT_TRUE(Has(SeverityColour(RuleSeverity::Error, Qt::black), view.MarkRect(kWhole)));
}

// The texts of a picture that are stations, with the pixels that each takes.
struct Span {
    double left, right;
};

std::vector<Span> StationTexts(const QString& svg, const QFont& font)
{
    static const QRegularExpression text(
        QStringLiteral("x=\"([0-9.-]+)\" y=\"[0-9.-]+\"[^>]*>(K[0-9+.]+)</text>"));
    std::vector<Span> spans;
    QFont inPixels = font;
    inPixels.setPixelSize(QFontInfo(font).pixelSize());
    for (auto match = text.globalMatch(svg); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        const double left = one.captured(1).toDouble();
        spans.push_back({left, left + QFontMetricsF(inPixels).horizontalAdvance(one.captured(2))});
    }
    return spans;
}

TEST_F(DiagramViewTest, StationsStandBesideOneAnotherInEveryWidth)
{
    const TemporaryFolder folder;
    m_road.stations.Add({503, 12503.5, 1}); // two round stations close by
    m_road.stations.Add({505, 999000, 1});
    Show();
    for (const int width : {200, 333, 640, 1500}) {
        view.resize(width, 400);
        ASSERT_TRUE(view.SavePicture(ToQString(folder.Path(L"a.svg"))));
        const std::vector<Span> texts =
            StationTexts(QString::fromStdString(folder.Read("a.svg")), view.font());
        EXPECT_GE(texts.size(), width < 300 ? 1U : 2U) << width;
        EXPECT_LE(texts.size(), static_cast<size_t>(width) / 40) << width;
        for (size_t i = 0; i < texts.size(); ++i) {
            EXPECT_GE(texts[i].left, i == 0 ? 0 : texts[i - 1].right) << width;
            EXPECT_LE(texts[i].right, width) << width;
        }
    }
}

TEST_F(DiagramViewTest, SavesWhatIsShownAsAPicture)
{
    const TemporaryFolder folder;
    MoveTo(kMiddle);
    ASSERT_TRUE(view.SavePicture(ToQString(folder.Path(L"图.PNG"))));
    const QImage image = QImage::fromData(QByteArray::fromStdString(folder.Read("图.PNG")));
    EXPECT_EQ(image.size(), view.size() * 2 * view.devicePixelRatio());
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    ASSERT_TRUE(view.SavePicture(ToQString(folder.Path(L"图.svg"))));
    const std::string svg = folder.Read("图.svg");
    EXPECT_NE(svg.find("纵坡"), std::string::npos);
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
    EXPECT_EQ(svg.find("限值"), std::string::npos); // what the cursor tells is left out
    EXPECT_EQ(folder.Count(), 2);
}

TEST_F(DiagramViewTest, SaysWhenAPictureCannotBeWritten)
{
    const TemporaryFolder folder;
    folder.Write("there.png/file", "");
    EXPECT_FALSE(view.SavePicture(ToQString(folder.Path(L"none/a.png"))));
    EXPECT_FALSE(view.SavePicture(ToQString(folder.Path(L"there.png"))));
    EXPECT_FALSE(view.SavePicture(ToQString(folder.Path(L"a.txt"))));
    EXPECT_EQ(folder.Count(), 1);
}

} // namespace roadcheck
