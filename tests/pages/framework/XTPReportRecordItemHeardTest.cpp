#include "pages/framework/XTPReportRecordItemHeard.h"

#include <memory>

#include <QPalette>

#include <gtest/gtest.h>

#include "tests/gui/Picture.h"

namespace {

constexpr QSize kSize(140, 60);

QPalette Palette()
{
    QPalette palette(QColor(0xf0, 0xf0, 0xf0));
    palette.setColor(QPalette::Light, QColor(0xff, 0xff, 0xfe));
    palette.setColor(QPalette::Dark, QColor(0xa0, 0xa0, 0xa1));
    palette.setColor(QPalette::ButtonText, Qt::black);
    return palette;
}

QImage Draw(const CString& caption)
{
    return Picture(kSize, [&caption](QPainter& painter) {
        CXTPReportRecordItemHeard(caption).Draw(painter, QRect({}, kSize), Palette(), false);
    });
}

const QRect kAll({}, kSize);

} // namespace

TEST(RecordItemHeard, IsMadeByName)
{
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CXTPReportRecordItemHeard)->CreateObject());
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CXTPReportRecordItemHeard)));
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CXTPReportRecordItem)));
    EXPECT_EQ(std::string(RUNTIME_CLASS(CXTPReportRecordItemHeard)->m_lpszClassName),
              "CXTPReportRecordItemHeard");
}

TEST(RecordItemHeard, LooksLikeARaisedButton)
{
    const QImage image = Draw(L"");
    EXPECT_EQ(image.pixelColor(1, 30), QColor(0xff, 0xff, 0xfe));
    EXPECT_EQ(image.pixelColor(70, 1), QColor(0xff, 0xff, 0xfe));
    EXPECT_EQ(image.pixelColor(138, 30), QColor(0xa0, 0xa0, 0xa1));
    EXPECT_EQ(image.pixelColor(70, 58), QColor(0xa0, 0xa0, 0xa1));
    EXPECT_EQ(image.pixelColor(70, 30), QColor(0xf0, 0xf0, 0xf0));
    EXPECT_TRUE(DarkRect(image, kAll).isNull());
}

TEST(RecordItemHeard, OneLineStandsInTheMiddleOnTheLeft)
{
    const QRect text = DarkRect(Draw(L"HHHH"), kAll);
    ASSERT_FALSE(text.isNull());
    EXPECT_GE(text.left(), 5);
    EXPECT_LE(text.left(), 9);
    EXPECT_NEAR(text.center().y(), 30, 3);
    EXPECT_LT(text.height(), 20);
}

TEST(RecordItemHeard, TwoLinesMeetInTheMiddle)
{
    const QImage image = Draw(L"HH\nHHHH");
    const QRect upper = DarkRect(image, QRect(0, 0, 140, 30));
    const QRect lower = DarkRect(image, QRect(0, 30, 140, 30));
    ASSERT_FALSE(upper.isNull());
    ASSERT_FALSE(lower.isNull());
    EXPECT_LT(upper.bottom(), 30);
    EXPECT_NEAR(lower.top() - upper.top(), QFontMetrics(QFont()).height(), 1);
    EXPECT_EQ(upper.left(), lower.left());
    EXPECT_GT(lower.width(), upper.width() * 3 / 2); // each says its own part
}

TEST(RecordItemHeard, ACaptionThatIsTooLongEndsInsideTheCell)
{
    const QRect text = DarkRect(Draw(CString(60, L'H')), kAll);
    EXPECT_LT(text.right(), 138);
    EXPECT_LT(text.height(), 20);
}
