#include "pages/PageTable.h"
#include "base/Text.h"
#include "model/Criteria.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

// The controls of a page that Tab goes to, in its order.
std::vector<QWidget*> TabStops(CDSPage& page)
{
    std::vector<QWidget*> stops;
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain())
        if (page.isAncestorOf(next) && next->property(kControlIdProperty).isValid() &&
            (next->focusPolicy() & Qt::TabFocus) && next->isVisible())
            stops.push_back(next);
    return stops;
}

QRect PlaceOf(const QWidget* control, const QWidget& page)
{
    return {control->mapTo(&page, QPoint()), control->size()};
}

} // namespace

TEST(PageTable, NamesItsPagesInTheOrderOfTheTree)
{
    std::vector<std::string> names;
    for (const PageEntry& entry : PageTable())
        names.push_back(ToUtf8(entry.group) + "|" + ToUtf8(entry.label));
    EXPECT_EQ(names, (std::vector<std::string>{
                         "平面|直线长度", "平面|圆曲线半径", "平面|平曲线与圆曲线最小长度",
                         "平面|小转角平曲线最小长度", "平面|缓和曲线最小长度", "纵断|纵坡坡度",
                         "纵断|最大合成坡度", "纵断|纵坡最大坡长", "纵断|纵坡最小坡长",
                         "纵断|竖曲线最小半径和长度", "超高加宽|超高规范", "超高加宽|超高",
                         "超高加宽|加宽"}));
}

TEST(PageTable, HasAPageForEachCriterionInItsGroup)
{
    const auto criteria = Criteria();
    const auto pages = PageTable();
    ASSERT_EQ(pages.size(), criteria.size());
    for (size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(CString(pages[i].group), criteria[i].group);
        EXPECT_EQ(CString(pages[i].label), criteria[i].label);
    }
}

TEST(PageTable, MakesPagesThatCanBeShown)
{
    QWidget frame;
    std::vector<std::unique_ptr<CDSPage>> pages;
    for (const PageEntry& entry : PageTable()) {
        pages.push_back(entry.make(pages.empty() ? nullptr : pages.back().get()));
        EXPECT_TRUE(pages.back()->Create(&frame)) << ToUtf8(entry.label);
        EXPECT_FALSE(pages.back()->IsViewMode());
    }
}

TEST(PageTable, TabGoesThroughThePagesAsTheyAreRead)
{
    for (const PageEntry& entry : PageTable()) {
        QWidget frame;
        frame.resize(760, 420);
        const std::unique_ptr<CDSPage> page = entry.make(nullptr);
        ASSERT_TRUE(page->Create(&frame));
        page->resize(740, 400);
        frame.show();
        page->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
        const std::vector<QWidget*> stops = TabStops(*page);
        EXPECT_GE(stops.size(), 2U) << ToUtf8(entry.label);
        for (size_t i = 1; i < stops.size(); ++i) {
            const QRect before = PlaceOf(stops[i - 1], *page);
            const QRect after = PlaceOf(stops[i], *page);
            EXPECT_TRUE(after.left() > before.right() || after.top() > before.bottom())
                << ToUtf8(entry.label) << ", control "
                << stops[i]->property(kControlIdProperty).toInt();
        }
    }
}
