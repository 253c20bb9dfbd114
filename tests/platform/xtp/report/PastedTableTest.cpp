#include "platform/xtp/report/PastedTable.h"

#include <gtest/gtest.h>

#include "base/Number.h"
#include "base/Text.h"
#include "platform/xtp/report/TabText.h"

using namespace designspec;

namespace {

TableCaptions Radii()
{
    TableCaptions captions;
    captions.corner = L"设计车速(km/h)";
    captions.rows = {L"不设超高最小半径(m)", L"设超高推荐半径(m)", L"设超高最小半径(m)"};
    captions.columns = {L"100", L"80", L"60"};
    captions.usual = {L"120", L"100", L"80", L"60", L"50", L"40", L"30", L"20"};
    captions.canAddColumn = [](const CString& caption) {
        const int speed = Wtoi(caption);
        return CaptionParts(caption).IsNumber() && speed >= 10 && speed <= 150;
    };
    return captions;
}

// The block as "column captions|row caption values|...", "-" for what it has not.
std::string Read(const PastedTable& table)
{
    const auto text = [](const CString* one) { return one ? ToUtf8(*one) : "-"; };
    std::string read;
    for (int column = 0; column < table.GetColumnCount(); ++column)
        read += (column > 0 ? " " : "") + text(table.ColumnCaption(column));
    for (int row = 0; row < table.GetRowCount(); ++row) {
        read += "|" + text(table.RowCaption(row)) + ":";
        for (int column = 0; column < table.GetColumnCount(); ++column)
            read += " " + text(table.Value(row, column));
    }
    return read;
}
std::string Read(std::wstring_view text)
{
    return Read(PastedTable(ParseTabText(text), Radii()));
}

} // namespace

TEST(PastedTable, HasCaptionsOnTwoSides)
{
    EXPECT_EQ(Read(L"\t100\t80\n一般值\t700\t400\n极限值\t400\t250"),
              "100 80|一般值: 700 400|极限值: 400 250");
    EXPECT_EQ(Read(L"车速\t100km/h\t85km/h\n设超高最小半径\t400\t300"),
              "100km/h 85km/h|设超高最小半径: 400 300");
    EXPECT_EQ(Read(L"设计车速（km/h）\t６０\n极限值\t125"), "６０|极限值: 125");
    EXPECT_EQ(Read(L"指标\t100\t80\t60\n极限值\t400\t250\t125"), "100 80 60|极限值: 400 250 125");
}

TEST(PastedTable, LiesTheOtherWay)
{
    EXPECT_EQ(Read(L"车速\t一般值\t极限值\n100\t700\t400\n80\t400\t250"),
              "100 80|一般值: 700 400|极限值: 400 250");
    EXPECT_EQ(Read(L"\t一般值\n85\t700"), "85|一般值: 700");
    EXPECT_EQ(Read(L"100\t700\n80\t400\n60\t200"), "100 80 60|-: 700 400 200");
    EXPECT_EQ(Read(L"设超高最小半径\t不设超高最小半径\n125\t1500"),
              "-|设超高最小半径: 125|不设超高最小半径: 1500");
}

TEST(PastedTable, HasSpeedsAlone)
{
    EXPECT_EQ(Read(L"100\t80\t60\n700\t400\t200"), "100 80 60|-: 700 400 200");
    EXPECT_EQ(Read(L"60\t80\n200\t400\n125\t250"), "60 80|-: 200 400|-: 125 250");
    EXPECT_EQ(Read(L"\t100\t80\n\t700\t400"), "100 80|-: 700 400");
}

TEST(PastedTable, HasRowCaptionsAlone)
{
    EXPECT_EQ(Read(L"极限值\t400\t250"), "- -|极限值: 400 250");
    EXPECT_EQ(Read(L"一般值\t700\n设超高最小半径(m)\t400"), "-|一般值: 700|设超高最小半径(m): 400");
    EXPECT_EQ(Read(L"设超高推荐半径\t100\t80\n设超高最小半径\t60\t50"),
              "- -|设超高推荐半径: 100 80|设超高最小半径: 60 50");
}

TEST(PastedTable, LeavesWordsOnTopOutThatTheGridHasNot)
{
    EXPECT_EQ(Read(L"第一年\t第二年\n700\t400"), "- -|-: 700 400");
    EXPECT_EQ(Read(L"\t第一年\t第二年\n极限值\t700\t400"), "- -|极限值: 700 400");
}

TEST(PastedTable, TakesValuesForValues)
{
    for (const auto* text : {L"700\t400\n400\t250", L"200\t170\t140\n100\t85\t70", L"100\t80",
                             L"100\t85\t70\n50\t40\t35", L"50\t80\t60\n700\t400\t200",
                             L"100\t80\t60\n80\t60\t50", L"100\t100\n700\t400", L"\t100\t80"})
        EXPECT_EQ(Read(text), Read(PastedTable::OfValues(ParseTabText(text)))) << ToUtf8(text);
    EXPECT_EQ(Read(L" 70\tabc\t12.7"), "- - -|-:  70 abc 12.7");
    EXPECT_EQ(Read(L"5\n\n7"), "-|-: 5|-: |-: 7");
}

TEST(PastedTable, BareNumbersAreRowCaptionsWhenEachIsOne)
{
    TableCaptions captions = Radii();
    captions.rows = {L"坡度3%", L"坡度4%"};
    const auto read = [&captions](const wchar_t* text) {
        return Read(PastedTable(ParseTabText(text), captions));
    };
    EXPECT_EQ(read(L"4\t700\n3\t900"), "-|4: 700|3: 900");
    EXPECT_EQ(read(L"3\t700\n3\t900"), "- -|-: 3 700|-: 3 900");
    EXPECT_EQ(read(L"3\t700\n5\t900"), "- -|-: 3 700|-: 5 900");
}

TEST(PastedTable, BareNumbersBesideColumnsAreRowCaptionsThatCouldBe)
{
    TableCaptions captions = Radii();
    captions.rows = {L"坡度3%"};
    captions.canAddRow = [](const CString& caption) {
        return CaptionParts(caption).OnlyNumber(L"坡度").value_or(100) < 10;
    };
    const auto read = [&captions](const wchar_t* text) {
        return Read(PastedTable(ParseTabText(text), captions));
    };
    EXPECT_EQ(read(L"坡度\t100\t80\n5%\t700\t800\n3\t900\t950"), "100 80|5%: 700 800|3: 900 950");
    EXPECT_EQ(read(L"坡度\t100\t80\n3%\t700\t800\n95%\t9\t9"), "100 80|3%: 700 800|95%: 9 9");
    EXPECT_EQ(read(L"坡度\t100\n4%\t700"), "- -|-: 坡度 100|-: 4% 700");
    captions.rowKind = L"坡度";
    EXPECT_EQ(read(L"坡度\t100\n4%\t700"), "100|4%: 700");
    EXPECT_EQ(read(L"车速\t3\t4\n100\t700\t600\n80\t900\t800"), "100 80|3: 700 900|4: 600 800");
    EXPECT_EQ(read(L"3\t700\n5\t900"), "- -|-: 3 700|-: 5 900"); // values could be such
    EXPECT_EQ(read(L"坡度\t100\t80\n5\t700\t800\n5\t900\t950"),
              "- - -|-: 坡度 100 80|-: 5 700 800|-: 5 900 950"); // one row twice
}

TEST(PastedTable, KeepsWhatItHasNotApartFromWhatIsEmpty)
{
    EXPECT_EQ(Read(L"700\t400\n250"), "- -|-: 700 400|-: 250 -");
    EXPECT_EQ(Read(L"700\t400\n250\t"), "- -|-: 700 400|-: 250 ");
}

TEST(PastedTable, KnowsItsOwnCaptions)
{
    const auto texts = ParseTabText(L"车速\t1\n2\t3");
    const PastedTable table = PastedTable::WithCaptions(texts);
    EXPECT_EQ(Read(table), "1|2: 3");
    EXPECT_EQ(Read(table.WithoutCaptions()), "-|-: 3");
    EXPECT_EQ(Read(PastedTable::OfValues(texts)), "- -|-: 车速 1|-: 2 3");
}

TEST(PastedTable, IsASingleTextOrWordsOrNothing)
{
    const auto read = [](const wchar_t* text) { return PastedTable(ParseTabText(text), Radii()); };
    EXPECT_TRUE(read(L"abc").IsSingle());
    EXPECT_FALSE(read(L"1\t2").IsSingle());
    EXPECT_FALSE(read(L"极限值\t2").IsSingle());
    EXPECT_TRUE(read(L"").IsEmpty());
    for (const wchar_t* text : {L"一般值\n极限值", L"一般值\t极限值", L"甲\t乙\n丙\t丁"})
        EXPECT_TRUE(read(text).IsWords()) << ToUtf8(text);
    for (const wchar_t* text : {L"一般值\t5", L"\t\n\t", L"abc\n5", L"—\t—"})
        EXPECT_FALSE(read(text).IsWords()) << ToUtf8(text);
}
