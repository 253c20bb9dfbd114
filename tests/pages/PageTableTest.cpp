#include "pages/PageTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <gtest/gtest.h>

TEST(PageTable, NamesItsPagesInTheOrderOfTheTree)
{
    const std::pair<const wchar_t*, const wchar_t*> kAll[] = {
        {L"平面", L"直线长度"},
        {L"平面", L"圆曲线半径"},
        {L"平面", L"平曲线与圆曲线最小长度"},
        {L"平面", L"小转角平曲线最小长度"},
        {L"平面", L"缓和曲线最小长度"},
        {L"纵断", L"纵坡坡度"},
        {L"纵断", L"最大合成坡度"},
        {L"纵断", L"纵坡最大坡长"},
        {L"纵断", L"纵坡最小坡长"},
        {L"纵断", L"竖曲线最小半径和长度"},
        {L"超高加宽", L"超高规范"},
        {L"超高加宽", L"超高"},
        {L"超高加宽", L"加宽"},
    };
    // Whatever pages there are, they stand in this order.
    auto next = std::begin(kAll);
    for (const PageEntry& entry : PageTable()) {
        next = std::find_if(next, std::end(kAll), [&entry](const auto& one) {
            return CString(one.first) == entry.group && CString(one.second) == entry.label;
        });
        ASSERT_NE(next, std::end(kAll)) << ToUtf8(entry.label);
        ++next;
    }
    EXPECT_GE(PageTable().size(), 2U);
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
