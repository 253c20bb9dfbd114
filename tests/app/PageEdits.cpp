#include "tests/app/PageEdits.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QTest>

#include "base/Text.h"
#include "pages/framework/DSPage.h"
#include "tests/pages/PageActions.h"

using namespace designspec;

namespace {

constexpr int kSource = CDSPage::kSourceButton;

CXTPReportControl* TheGrid(QWidget* page)
{
    return Grid(page, CDSPage::kGrid);
}

std::string TextOf(QWidget* page, int id)
{
    return ToUtf8(dynamic_cast<CDialog*>(page)->GetDlgItemText(id));
}

bool IsChecked(QWidget* page, int id)
{
    return Control<QAbstractButton>(page, id)->isChecked();
}

// A line of the file, with the indentation of a table's item.
std::string ItemLine(const std::string& speed, const std::string& value)
{
    return std::string(12, ' ') + "<Item speed=\"" + speed + "\" value=\"" + value + "\" />\n";
}

// The value of an item, which tells it from all others.
FileChange Value(const std::string& from, const std::string& to)
{
    return {"value=\"" + from + "\"", "value=\"" + to + "\""};
}

FileChange Element(const std::string& name, const std::string& from, const std::string& to)
{
    const std::string start = "<" + name + ">";
    const std::string end = "</" + name + ">";
    return {start + from + end, start + to + end};
}

FileChange Source(int number)
{
    return Element("Criterion", "来源" + std::to_string(number), "新来源" + std::to_string(number));
}

// 平面

void EditBeelineLen(QWidget* page)
{
    TypeInto(page, 104, L"20.5");
    EnterSource(page, 109, L"新来源1");
    TypeInto(page, 106, L"７");
    EnterSource(page, 110, L" 新来源2 ");
    Click(page, 107);
}
void LookAtBeelineLen(QWidget* page)
{
    EXPECT_EQ(TextOf(page, 104), "20.5");
    EXPECT_EQ(ReadSource(page, 109), "新来源1");
    EXPECT_EQ(TextOf(page, 106), "7");
    EXPECT_EQ(ReadSource(page, 110), "新来源2");
    EXPECT_FALSE(IsChecked(page, 107));
    EXPECT_EQ(TextOf(page, 108), "");
}

constexpr int kRadiusGrid = 1001;
void EditRadius(QWidget* page)
{
    TypeInto(page, 108, L"9500");
    EnterSource(page, 109, L"新来源4");
    CXTPReportControl* const grid = Grid(page, kRadiusGrid);
    EditCell(grid, 0, 1, L"1002");
    EditCell(grid, 1, 2, L"302", Qt::Key_Return);
    EditCell(grid, 2, 1, L"");
    EnterSource(page, 110, L"新来源5");
}
void LookAtRadius(QWidget* page)
{
    EXPECT_EQ(TextOf(page, 108), "9500");
    EXPECT_EQ(ReadSource(page, 109), "新来源4");
    const CXTPReportControl* const grid = Grid(page, kRadiusGrid);
    EXPECT_EQ(Row(grid, 0), "1002 601");
    EXPECT_EQ(Row(grid, 1), "401 302");
    EXPECT_EQ(Row(grid, 2), "- 151");
    EXPECT_EQ(ReadSource(page, 110), "新来源5");
}

void EditCurveLen(QWidget* page)
{
    CXTPReportControl* const grid = TheGrid(page);
    ChooseFromMenu(grid, 0, 1, L"100 km/h");
    EditCell(grid, 0, 1, L"181");
    EditCell(grid, 0, 2, L"142");
    EditCell(grid, 1, 3, L"52");
    EnterSource(page, kSource, L"新来源6");
}
void LookAtCurveLen(QWidget* page)
{
    EXPECT_EQ(Columns(TheGrid(page)), "设计车速(km/h) 100 80 60");
    EXPECT_EQ(Row(TheGrid(page), 0), "181 142 101");
    EXPECT_EQ(Row(TheGrid(page), 1), "- 71 52");
    EXPECT_EQ(ReadSource(page, kSource), "新来源6");
}

void EditSmallAngle(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"1200/α");
    EnterSource(page, kSource, L"新来源7");
}
void LookAtSmallAngle(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "1200/α 710/α");
    EXPECT_EQ(ReadSource(page, kSource), "新来源7");
}

constexpr int kNoTransitionGrid = 10002;
void EditTransition(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"75");
    EditCell(Grid(page, kNoTransitionGrid), 0, 2, L"1100");
    EnterSource(page, kSource, L"新来源8");
}
void LookAtTransition(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "75 53");
    EXPECT_EQ(Row(Grid(page, kNoTransitionGrid), 0), "2001 1100");
    EXPECT_TRUE(IsChecked(page, 112));
    EXPECT_EQ(ReadSource(page, kSource), "新来源8");
}

// 纵断

void EditLonGrad(QWidget* page)
{
    TypeInto(page, 110, L"1.5");
    TypeInto(page, 104, L"5.5");
    TypeInto(page, 109, L"0.6");
    ChooseFromMenu(TheGrid(page), 0, 2, L"100 km/h");
    EditCell(TheGrid(page), 0, 1, L"3");
    EditCell(TheGrid(page), 0, 2, L"4.3");
    EditCell(TheGrid(page), 1, 3, L"7.4");
    EnterSource(page, kSource, L"新来源9");
}
void LookAtLonGrad(QWidget* page)
{
    EXPECT_EQ(TextOf(page, 110), "1.5");
    EXPECT_EQ(TextOf(page, 104), "5.5");
    EXPECT_EQ(TextOf(page, 109), "0.6");
    EXPECT_EQ(Row(TheGrid(page), 0), "3 4.3 5.1");
    EXPECT_EQ(Row(TheGrid(page), 1), "- 6.2 7.4");
    EXPECT_EQ(ReadSource(page, kSource), "新来源9");
}

void EditResultant(QWidget* page)
{
    TypeInto(page, 108, L"7.5");
    EditCell(TheGrid(page), 0, 1, L"7.7");
    EditCell(TheGrid(page), 1, 2, L"9.8");
    ChooseFromMenu(TheGrid(page), 1, 1, L"一级公路");
    EditCell(TheGrid(page), 2, 2, L"8.8");
    EnterSource(page, kSource, L"新来源10");
}
void LookAtResultant(QWidget* page)
{
    EXPECT_EQ(TextOf(page, 108), "7.5");
    EXPECT_EQ(Row(TheGrid(page), 0), "7.7 6.6");
    EXPECT_EQ(Row(TheGrid(page), 1), "9.1 9.8");
    EXPECT_EQ(CellText(TheGrid(page), 2, 0), L"一级公路");
    EXPECT_EQ(Row(TheGrid(page), 2), "- 8.8");
    EXPECT_EQ(ReadSource(page, kSource), "新来源10");
}

void EditGradeLen(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"620");
    ChooseFromMenu(TheGrid(page), 0, 1, L"5.5%");
    EditCell(TheGrid(page), 1, 2, L"501");
    EnterSource(page, kSource, L"新来源11");
}
void LookAtGradeLen(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "620 -");
    EXPECT_EQ(CellText(TheGrid(page), 1, 0), L"坡度5.5%");
    EXPECT_EQ(Row(TheGrid(page), 1), "- 501");
    EXPECT_EQ(Row(TheGrid(page), 2), "410 420");
    EXPECT_EQ(ReadSource(page, kSource), "新来源11");
}

void EditMinGradeLen(QWidget* page)
{
    EditCell(TheGrid(page), 0, 2, L"180");
    EnterSource(page, kSource, L"新来源12");
}
void LookAtMinGradeLen(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "295 180");
    EXPECT_EQ(ReadSource(page, kSource), "新来源12");
}

void EditVertical(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"4600");
    EditCell(TheGrid(page), 1, 2, L"1300");
    EditCell(TheGrid(page), 2, 1, L"2800");
    EditCell(TheGrid(page), 3, 2, L"1100");
    EditCell(TheGrid(page), 4, 1, L"77");
    EnterSource(page, kSource, L"新来源13");
}
void LookAtVertical(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "4600 1801");
    EXPECT_EQ(Row(TheGrid(page), 1), "3001 1300");
    EXPECT_EQ(Row(TheGrid(page), 2), "2800 1501");
    EXPECT_EQ(Row(TheGrid(page), 3), "1802 1100");
    EXPECT_EQ(Row(TheGrid(page), 4), "77 54");
    EXPECT_EQ(ReadSource(page, kSource), "新来源13");
}

// 超高加宽

// The source is the page's own: it is neither shown nor stored, and the file keeps what it has.
void EditMaxSuperElev(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"1/160");
    EditCell(TheGrid(page), 1, 2, L"130");
    EditCell(TheGrid(page), 2, 2, L"6");
    Click(page, 121);
    EnterSource(page, kSource, L"新来源14");
}
void LookAtMaxSuperElev(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "1/160 1/126 1/116");
    EXPECT_EQ(Row(TheGrid(page), 1), "1/153 1/130 1/117");
    EXPECT_EQ(Row(TheGrid(page), 2), "6 6 4");
    EXPECT_FALSE(IsChecked(page, 121));
    EXPECT_EQ(TextOf(page, 120), "");
    EXPECT_EQ(ReadSource(page, kSource), "");
}

void SelectMaximum(QWidget* page, int row)
{
    auto* const list = Control<QListWidget>(page, 122);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}
void EditSuperElev(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"212~302");
    SelectMaximum(page, 1);
    EditCell(TheGrid(page), 1, 1, L"362 231");
    EnterSource(page, kSource, L"新来源15");
}
void LookAtSuperElev(QWidget* page)
{
    EXPECT_EQ(Row(TheGrid(page), 0), "212~302");
    EXPECT_EQ(Row(TheGrid(page), 1), "302~432");
    SelectMaximum(page, 1);
    EXPECT_EQ(Row(TheGrid(page), 0), "154~231 113~155");
    EXPECT_EQ(Row(TheGrid(page), 1), "231~362 -");
    EXPECT_EQ(ReadSource(page, kSource), "新来源15");
}

void EditWidening(QWidget* page)
{
    EditCell(TheGrid(page), 0, 1, L"0.29");
    EditCell(TheGrid(page), 1, 2, L"0.65");
    ChooseFromMenu(TheGrid(page), 0, 1, L"铰接车");
    EditCell(TheGrid(page), 2, 1, L"0.5");
    Control(page, 123)->setFocus();
    PressKey(page, Qt::Key_Down);
    EnterSource(page, kSource, L"新来源16");
}
void LookAtWidening(QWidget* page)
{
    EXPECT_EQ(Columns(TheGrid(page)), "圆曲线半径\\加宽类别 156≤\nR<\n252 100≤\nR<\n156");
    EXPECT_EQ(Row(TheGrid(page), 0), "0.29 0.32");
    EXPECT_EQ(Row(TheGrid(page), 1), "0.41 0.65");
    EXPECT_EQ(CellText(TheGrid(page), 2, 0), L"铰接车");
    EXPECT_EQ(Row(TheGrid(page), 2), "0.50 -");
    EXPECT_EQ(ReadSource(page, kSource), "新来源16");
}

} // namespace

const std::vector<PageEdit>& PageEdits()
{
    static const std::vector<PageEdit> edits = {
        {"BeelineLen",
         "直线长度",
         EditBeelineLen,
         LookAtBeelineLen,
         {{"MaxLen=\"21\"", "MaxLen=\"20.5\""},
          {"MinLenInOneDir=\"5\"", "MinLenInOneDir=\"7\""},
          {"MinLenReverseCurve=\"3\"", "MinLenReverseCurve=\"0\""},
          Element("MaxLenCriterion", "来源1", "新来源1"),
          Element("MinLenInOneDirCriterion", "来源2", "新来源2"),
          Element("MinLenReverseCurveCriterion", "来源3", "")}},
        {"CircularCurveRad",
         "圆曲线半径",
         EditRadius,
         LookAtRadius,
         {Element("MaxRad", "9000", "9500"),
          Element("MaxRadCriterion", "来源4", "新来源4"),
          Element("MinRadCriterion", "来源5", "新来源5"),
          Value("1001", "1002"),
          Value("301", "302"),
          {ItemLine("80", "251"), ""}}},
        {"CurveMinLen",
         "平曲线与圆曲线最小长度",
         EditCurveLen,
         LookAtCurveLen,
         {{ItemLine("80", "141"), ItemLine("100", "181") + ItemLine("80", "142")},
          Value("51", "52"),
          Source(6)}},
        {"SmallAngleCurveMinLen",
         "小转角平曲线最小长度",
         EditSmallAngle,
         LookAtSmallAngle,
         {Value("1010", "1200"), Source(7)}},
        {"TransitionCurveMinLen",
         "缓和曲线最小长度",
         EditTransition,
         LookAtTransition,
         {Value("72", "75"), Value("1003", "1100"), Source(8)}},
        {"LonGrad",
         "纵坡坡度",
         EditLonGrad,
         LookAtLonGrad,
         {Element("MinGrad", "0.4", "0.6"),
          Element("GradeCompensationOnPlateau", "1.1", "1.5"),
          Element("MaxGradeOnSnowFrozenRegion", "6.1", "5.5"),
          {ItemLine("80", "4.1"), ItemLine("100", "3") + ItemLine("80", "4.3")},
          Value("7.2", "7.4"),
          Source(9)}},
        {"MaxResultantGrad",
         "最大合成坡度",
         EditResultant,
         LookAtResultant,
         {Element("MaxResultantGradOnSnowFrozenRegion", "6.3", "7.5"),
          Value("7.1", "7.7"),
          Value("9.3", "9.8"),
          {"          </FreeWay>\n", "          </FreeWay>\n          <HighwayClass1>\n" +
                                         ItemLine("60", "8.8") + "          </HighwayClass1>\n"},
          Source(10)}},
        {"LonGradMaxLen",
         "纵坡最大坡长",
         EditGradeLen,
         LookAtGradeLen,
         {Value("610", "620"),
          {"            <Item Grad=\"6.5\">\n",
           "            <Item Grad=\"5.5\">\n  " + ItemLine("60", "501") +
               "            </Item>\n            <Item Grad=\"6.5\">\n"},
          Source(11)}},
        {"LonGradMinLen",
         "纵坡最小坡长",
         EditMinGradeLen,
         LookAtMinGradeLen,
         {Value("175", "180"), Source(12)}},
        {"VerticalCurveMinRadAndLen",
         "竖曲线最小半径和长度",
         EditVertical,
         LookAtVertical,
         {Value("4501", "4600"), Value("1201", "1300"), Value("2701", "2800"),
          Value("1004", "1100"), Value("73", "77"), Source(13)}},
        {"MaxSuperElev",
         "超高规范",
         EditMaxSuperElev,
         LookAtMaxSuperElev,
         {Value("152", "160"),
          Value("127", "130"),
          {ItemLine("60", "4"), ItemLine("60", "6")},
          Element("MaxSuperElevOnSFR", "6", "0")}},
        {"SuperElevation",
         "超高",
         EditSuperElev,
         LookAtSuperElev,
         {{"minRadius=\"202\"", "minRadius=\"212\""},
          {"maxRadius=\"361\"", "maxRadius=\"362\""},
          Source(15)}},
        {"CurveWidening",
         "加宽",
         EditWidening,
         LookAtWidening,
         {{"widening=\"0.28\"", "widening=\"0.29\""},
          {"widening=\"0.61\"", "widening=\"0.65\""},
          {"widening=\"0.41\" />\n", "widening=\"0.41\" />\n              "
                                     "<Item carType=\"铰接车\" widening=\"0.5\" />\n"},
          Element("IsGMinAndLEMaxMode", "1", "0"),
          Source(16)}},
    };
    return edits;
}

std::string Changed(std::string text, const std::vector<FileChange>& changes)
{
    for (const FileChange& change : changes) {
        const size_t at = text.find(change.from);
        if (at == std::string::npos || text.find(change.from, at + 1) != std::string::npos)
            ADD_FAILURE() << "not there just once: " << change.from;
        else
            text.replace(at, change.from.size(), change.to);
    }
    return text;
}
