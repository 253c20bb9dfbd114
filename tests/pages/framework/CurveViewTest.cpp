// Mouse and keys on the curves of a small table, and what is shown then.
#include "pages/framework/CurveView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"
#include "tests/gui/Modal.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

namespace {

// Two curves of radii over the speed, one of lengths, whose table has them in three lines.
CurveContent Radii()
{
    const CurveAxis speed{L"设计车速", L"km/h"};
    CurveChart radii{{}, speed, {L"半径", L"m"}, false, {}};
    radii.curves.push_back(
        {L"一般",
         {{20, 20, 40, 0, 2, false}, {40, 40, 150, 0, 1, true}, {80, 80, 100, 0, 0, false}}});
    radii.curves.push_back({L"极限", {{20, 20, 20, 1, 2, false}, {80, 80, 60, 1, 0, false}}});
    CurveChart lengths{{}, speed, {L"长度", L"m"}, false, {}};
    lengths.curves.push_back({L"最小", {{40, 40, 35, 2, 1, false}}});
    return {{radii, lengths}, {}};
}

CurveContent Steps()
{
    CurveChart chart{L"最大超高 6%", {L"半径", L"m"}, {L"超高", L"%"}, true, {}};
    chart.curves.push_back({L"80 km/h", {{200, 300, 6, 0, 0, false}, {300, 400, 5, 1, 0, false}}});
    return {{chart}, {}};
}

class CurveViewTest : public testing::Test {
protected:
    CurveViewTest()
    {
        view.setPalette(QPalette(Qt::white, Qt::white));
        view.resize(520, 360);
        view.Show(Radii());
        QObject::connect(&view, &CurveView::Moved,
                         [this](const CurveCell& cell) { moved.push_back(cell); });
        QObject::connect(&view, &CurveView::Chosen,
                         [this](const CurveCell& cell) { chosen.push_back(cell); });
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    std::string Read() const { return view.Readout().toStdString(); }
    void Press(Qt::Key key) { QTest::keyClick(&view, key); }
    QColor ColourAt(const QPoint& place) { return view.grab().toImage().pixelColor(place); }
    // How many pixels of that colour a square around the point has.
    int PixelsOf(QRgb colour, const QPoint& middle)
    {
        const QImage image = view.grab().toImage();
        int count = 0;
        for (int y = -10; y <= 10; ++y)
            for (int x = -10; x <= 10; ++x) {
                const QPoint place = middle + QPoint(x, y);
                if (image.rect().contains(place) && image.pixel(place) == (colour | 0xFF000000))
                    ++count;
            }
        return count;
    }

    CurveView view;
    std::vector<CurveCell> moved, chosen;
};

TEST_F(CurveViewTest, HasThePointsWhereTheirValuesBelong)
{
    const QPoint low = view.PlaceOf({1, 2}), high = view.PlaceOf({0, 0});
    EXPECT_LT(low.x(), high.x());
    EXPECT_GT(low.y(), high.y());
    EXPECT_EQ(view.PlaceOf({0, 2}).x(), low.x());                  // the same speed
    EXPECT_EQ(view.PlaceOf({0, 1}).x(), view.PlaceOf({2, 1}).x()); // in the chart below too
    EXPECT_GT(view.PlaceOf({2, 1}).y(), low.y());
    EXPECT_TRUE(view.PlaceOf({2, 0}).isNull());
    EXPECT_EQ(ColourAt(low), QColor(0xD5, 0x5E, 0x00)); // the second one's
    EXPECT_EQ(ColourAt(high), QColor(0x00, 0x72, 0xB2));
}

TEST_F(CurveViewTest, TellsTheValuesAtTheCursor)
{
    EXPECT_EQ(Read(), "");
    QTest::mouseMove(&view, view.PlaceOf({0, 0}) + QPoint(-9, 50)); // at the nearest speed
    EXPECT_EQ(Read(), "设计车速 80 km/h\n一般: 100 m\n极限: 60 m");
    QTest::mouseMove(&view, view.PlaceOf({0, 1}));
    EXPECT_EQ(Read(), "设计车速 40 km/h\n一般: 150 m (可能输错)\n最小: 35 m");
    QTest::mouseMove(&view, QPoint(2, 100)); // beside the curves
    EXPECT_EQ(Read(), "");
}

TEST_F(CurveViewTest, TellsOfStepsWhatHoldsThere)
{
    view.Show(Steps());
    const QPoint first = view.PlaceOf({0, 0}), second = view.PlaceOf({1, 0});
    QTest::mouseMove(&view, {first.x(), second.y()});
    EXPECT_EQ(Read(), "半径 250 m\n80 km/h: 6%");
    QTest::mouseMove(&view, second);
    EXPECT_EQ(Read(), "半径 350 m\n80 km/h: 5%");
    QTest::mouseClick(&view, Qt::LeftButton, {}, {(first.x() + second.x()) / 2 - 20, first.y()});
    EXPECT_EQ(chosen, (std::vector<CurveCell>{{0, 0}})); // anywhere on the step
}

TEST_F(CurveViewTest, GoesToTheCellThatIsClicked)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, view.PlaceOf({1, 0}) + QPoint(3, 3));
    EXPECT_EQ(chosen, (std::vector<CurveCell>{{1, 0}}));
    QTest::mouseClick(&view, Qt::LeftButton, {}, view.PlaceOf({1, 0}) + QPoint(-40, 40));
    QTest::mouseClick(&view, Qt::RightButton, {}, view.PlaceOf({1, 0}));
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(CurveViewTest, IsWalkedThroughByKeys)
{
    Press(Qt::Key_Return); // there is no current point yet
    EXPECT_TRUE(chosen.empty());
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Press(Qt::Key_End);
    Press(Qt::Key_Right); // stays
    Press(Qt::Key_Down);  // the nearest one of the next curve
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Up);
    Press(Qt::Key_Home);
    EXPECT_EQ(moved, (std::vector<CurveCell>{
                         {0, 2}, {0, 1}, {0, 0}, {0, 0}, {1, 0}, {2, 1}, {2, 1}, {1, 2}, {1, 2}}));
    EXPECT_EQ(Read(), "设计车速 20 km/h\n一般: 40 m\n极限: 20 m");
    EXPECT_EQ(view.accessibleDescription().toStdString(), Read());
    Press(Qt::Key_Return);
    EXPECT_EQ(chosen, (std::vector<CurveCell>{{1, 2}}));
}

TEST_F(CurveViewTest, RingsTheCurrentPointAndWhatMayBeASlip)
{
    constexpr QRgb kRed = 0xE00000;
    EXPECT_GT(PixelsOf(kRed, view.PlaceOf({0, 1})), 5);
    EXPECT_EQ(PixelsOf(kRed, view.PlaceOf({0, 0})), 0);
    const QRgb highlight = view.palette().color(QPalette::Highlight).rgb() & 0xFFFFFF;
    CurveContent content = Radii();
    content.current = {0, 0};
    view.clearFocus();
    EXPECT_EQ(PixelsOf(highlight, view.PlaceOf({0, 0})), 0);
    view.Show(content);
    EXPECT_GT(PixelsOf(highlight, view.PlaceOf({0, 0})), 5);
}

TEST_F(CurveViewTest, SaysAtAPointWhyItIsRinged)
{
    const auto point = [this](const CurveCell& cell) {
        const QPoint place = view.PlaceOf(cell);
        QHelpEvent help(QEvent::ToolTip, place, view.mapToGlobal(place));
        QApplication::sendEvent(&view, &help);
    };
    point({0, 1});
    EXPECT_TRUE(QToolTip::text().contains(ToQString(kOddValueText)));
    point({0, 0});
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(CurveViewTest, SaysThatThereIsNothing)
{
    const QImage full = view.grab().toImage();
    view.Show({});
    QTest::mouseMove(&view, {200, 100});
    Press(Qt::Key_Right);
    EXPECT_EQ(Read(), "");
    EXPECT_TRUE(moved.empty());
    CurveContent empty = Radii();
    for (CurveChart& chart : empty.charts)
        for (Curve& curve : chart.curves)
            curve.points.clear();
    view.Show(empty);
    Press(Qt::Key_Left);
    EXPECT_TRUE(moved.empty());
    EXPECT_NE(view.grab().toImage(), full);
}

// The same table elsewhere, with a curve that this one has not.
CurveContent Compared()
{
    CurveContent content = Radii();
    content.comparedName = L"乙";
    content.compared = {content.charts[0]};
    content.compared[0].curves[0].points[2].value = 170;
    content.compared[0].curves[1].name = L"其他";
    return content;
}

TEST_F(CurveViewTest, DrawsAnotherSpecificationBehind)
{
    const QImage alone = view.grab().toImage();
    view.Show(Compared());
    EXPECT_NE(view.grab().toImage(), alone);
    QTest::mouseMove(&view, view.PlaceOf({0, 0}));
    EXPECT_EQ(Read(), "设计车速 80 km/h\n一般: 100 m，乙: 170 m\n极限: 60 m\n其他: —，乙: 60 m");
    // Its values have room too.
    EXPECT_GT(view.PlaceOf({0, 1}).y(), view.PlaceOf({2, 1}).y() - view.height());
    view.Show(Radii());
    EXPECT_EQ(Read(), "设计车速 80 km/h\n一般: 100 m\n极限: 60 m");
}

TEST_F(CurveViewTest, SavesWhatItShowsOnWhite)
{
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    view.setPalette(dark);
    const TemporaryFolder folder;
    const auto path = [&folder](const wchar_t* name) { return ToQString(folder.Path(name)); };
    ASSERT_TRUE(view.SavePicture(path(L"图.png")));
    const QImage png(path(L"图.png"));
    EXPECT_EQ(png.size(), view.size() * 2 * view.devicePixelRatioF());
    EXPECT_EQ(png.pixelColor(3, 3), QColor(Qt::white));
    ASSERT_TRUE(view.SavePicture(path(L"图.svg")));
    const std::string svg = folder.Read("图.svg");
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_NE(svg.find("<text"), std::string::npos); // as text, not as lines
    EXPECT_FALSE(view.SavePicture(path(L"图.gif")));
    EXPECT_FALSE(view.SavePicture(path(L"没有/图.png")));
}

TEST_F(CurveViewTest, CopiesWhatItShows)
{
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(data->imageData().value<QImage>().size(), view.size() * 2 * view.devicePixelRatioF());
    EXPECT_TRUE(data->data(QStringLiteral("image/svg+xml")).contains("<svg"));
}

TEST_F(CurveViewTest, HasAMenuOfWhatElseCanBeDone)
{
    QSignalSpy wanted(&view, &CurveView::CompareWanted);
    const auto choose = [this](const ModalAction& action) {
        const ExpectModal menu(action);
        QContextMenuEvent event(QContextMenuEvent::Mouse, {50, 50},
                                view.mapToGlobal(QPoint(50, 50)));
        QApplication::sendEvent(&view, &event);
    };
    choose([](QWidget* menu) {
        EXPECT_EQ(MenuLines(menu),
                  (CStringArray{L"与其他规范比较…", L"(不再比较)", L"---", L"复制图", L"保存图…"}));
        ChooseMenuItem(menu, L"与其他规范比较…");
    });
    view.Show(Compared());
    choose([](QWidget* menu) { ChooseMenuItem(menu, L"不再比较"); });
    ASSERT_EQ(wanted.size(), 2);
    EXPECT_TRUE(wanted[0][0].toBool());
    EXPECT_FALSE(wanted[1][0].toBool());

    const TemporaryFolder folder;
    view.SetFileName(QStringLiteral("圆曲线半径"));
    {
        const ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"保存图…"); });
        const ExpectModal file(ChooseFile(folder.Path(L"a")));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&view, &event);
    }
    EXPECT_FALSE(QImage(ToQString(folder.Path(L"a.png"))).isNull());
    {
        const ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"保存图…"); });
        const ExpectModal file(ChooseFile(folder.Path(L"a.gif")));
        const ExpectMessage box(L"图没有写入: " + folder.Path(L"a.gif"), L"提示", MB_ICONERROR);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&view, &event);
    }
}

// One value, equal ones, huge ones: each has a place within the view.
TEST_F(CurveViewTest, HasRoomForWhateverValues)
{
    for (const std::vector<double>& values :
         {std::vector<double>{5}, {0}, {7, 7, 7}, {-3, 4}, {1e14, 1, 0}, {1e-9, 2e-9}}) {
        CurveChart chart{{}, {L"设计车速", L"km/h"}, {L"半径", L"m"}, false, {{L"一", {}}}};
        double at = 0;
        for (const double value : values)
            chart.curves[0].points.push_back(
                {++at, at, value, 0, chart.curves[0].points.size(), false});
        view.Show({{chart}, {}});
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_TRUE(view.rect().contains(view.PlaceOf({0, i}))) << values[i];
        view.grab();
    }
}

// The words stand out of the ground, dark as it may be.
TEST_F(CurveViewTest, FollowsTheColoursOfTheWindow)
{
    const QImage light = view.grab().toImage();
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    view.setPalette(dark);
    EXPECT_EQ(ColourAt({5, 2}), QColor(30, 30, 30));
    const QColor point = ColourAt(view.PlaceOf({1, 0}));
    EXPECT_GT(point.lightness(), light.pixelColor(view.PlaceOf({1, 0})).lightness());
}

} // namespace
