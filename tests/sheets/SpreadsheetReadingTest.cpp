#include "sheets/SpreadsheetReading.h"

#include "base/Encoding.h"
#include "tests/sheets/SheetTest.h"
#include "tests/support/Process.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using SpreadsheetReadingTest = SheetTest;

TEST_F(SpreadsheetReadingTest, ReadsABareTableOfOnePage)
{
    const auto read = ReadBytes("设计车速,80,60\n最小坡长,300,200\n");
    EXPECT_EQ(read.LonGradMinLen.MinLens, (SpeedToIntValues{{80, 300}, {60, 200}}));
    CDesignSpecification rest(read);
    rest.LonGradMinLen = CDesignSpecification().LonGradMinLen;
    ExpectSame(rest, {});
}

TEST_F(SpreadsheetReadingTest, KnowsThePageByItsTitle)
{
    const auto read =
        ReadBytes("小转角平曲线最小长度\n车速(km/h),80,60\n平曲线最小长度,1000,700\n");
    EXPECT_EQ(read.SmallAngleCurveMinLen.HorizontalCurveMinLen,
              (SpeedToIntValues{{80, 1000}, {60, 700}}));
    EXPECT_THAT(Wrong("车速,80,60\n长度,1000,700\n"), ElementsAre(HasSubstr("没有认出任何一页")));
}

TEST_F(SpreadsheetReadingTest, ReadsColumnsAndRowsInAnyOrder)
{
    const auto read = ReadBytes("圆曲线半径\n"
                                "数据来源,,,\n"
                                "60,设计车速,120,80\n"
                                "150,设超高最小半径(m),650,250\n"
                                "600,不设超高最小半径,,1000\n");
    EXPECT_EQ(read.CircularCurveRad.SuperelevationMinRad,
              (SpeedToIntValues{{120, 650}, {80, 250}, {60, 150}}));
    EXPECT_EQ(read.CircularCurveRad.noSuperelevationMinRad,
              (SpeedToIntValues{{80, 1000}, {60, 600}}));
}

TEST_F(SpreadsheetReadingTest, ReadsATableThatLiesAcross)
{
    const auto read = ReadBytes("车速,设超高最小半径,不设超高最小半径\n80,250,1000\n60,150,-\n");
    EXPECT_EQ(read.CircularCurveRad.SuperelevationMinRad, (SpeedToIntValues{{80, 250}, {60, 150}}));
    EXPECT_EQ(read.CircularCurveRad.noSuperelevationMinRad, (SpeedToIntValues{{80, 1000}}));
    EXPECT_EQ(ReadBytes("车速,最小坡长\n80,300\n60,200\n").LonGradMinLen.MinLens,
              (SpeedToIntValues{{80, 300}, {60, 200}}));
}

TEST_F(SpreadsheetReadingTest, ReadsWhatPeopleWrite)
{
    const auto read = ReadBytes("超高规范\n"
                                "积雪冰冻地区最大超高(%),６％\n"
                                "设计车速(km/h),80 km/h,V=60,４０\n"
                                "最大超高(%),8%,６,4\n"
                                "旋转轴在中线的超高渐变率,1/150,1：125,100\n"
                                "旋转轴在边线的超高渐变率,1／200,—,\n");
    EXPECT_EQ(read.MaxSuperElev.MaxSuperElevOnSFR, 6);
    EXPECT_EQ(read.MaxSuperElev.MaxSuperElev, (SpeedToIntValues{{80, 8}, {60, 6}, {40, 4}}));
    EXPECT_EQ(read.MaxSuperElev.GradualChangeRatio1,
              (SpeedToIntValues{{80, 150}, {60, 125}, {40, 100}}));
    EXPECT_EQ(read.MaxSuperElev.GradualChangeRatio2, (SpeedToIntValues{{80, 200}}));

    const auto lengths = ReadBytes("车速;80;60\n最小坡长;1,500m;≥200 米\n");
    EXPECT_EQ(lengths.LonGradMinLen.MinLens, (SpeedToIntValues{{80, 1500}, {60, 200}}));
    const auto straight = ReadBytes("直线长度\n最大直线长度,不限\n同向曲线间最小直线长度,6倍\n");
    EXPECT_EQ(straight.BeelineLen.MaxLen, 0);
    EXPECT_EQ(straight.BeelineLen.MinLenInOneDir, 6);
}

TEST_F(SpreadsheetReadingTest, ReadsRangesHoweverTheyAreWritten)
{
    const auto read = ReadBytes("最大超高 6%\n车速,80,60\n6%,200～300,150-200 m\n"
                                "超高 5%,300至400,\n最大超高 4%\n车速,40\n超高 2%,70~300\n");
    const auto& definitions = read.SuperElevation.definitions;
    ASSERT_EQ(definitions.count, 2);
    ASSERT_EQ(definitions[0].rows.count, 2);
    EXPECT_EQ(definitions[0].rows[0].ranges,
              (GrowArray<SuperElevRange>{{200, 300, 6}, {300, 400, 5}}));
    EXPECT_EQ(definitions[0].rows[1].ranges, (GrowArray<SuperElevRange>{{150, 200, 6}}));
    EXPECT_EQ(definitions[1].maxSuperElev, 4);

    for (const char* text :
         {"加宽\n半径,200<R≤250,150～200\n普通汽车,0.4,0.6\n铰接车（m）,0.5,\n",
          "半径\\加宽类别,普通汽车,铰接车(m)\n200-250,0.4,0.5\n200>R≥150,0.6,\n"}) {
        const auto& ranges = ReadBytes(text).CurveWidening.ranges;
        EXPECT_EQ(ranges,
                  (GrowArray<WideningRange>{{200, 250, {{L"普通汽车", 0.4}, {L"铰接车", 0.5}}},
                                            {150, 200, {{L"普通汽车", 0.6}}}}))
            << text;
    }
}

TEST_F(SpreadsheetReadingTest, ReadsGradeLengths)
{
    const auto read = ReadBytes("坡度\\车速,80,60\n坡度6%,400,\n5.5,500,600\n");
    ASSERT_EQ(read.LonGradMaxLen.rows.count, 2);
    EXPECT_EQ(read.LonGradMaxLen.rows[0].Grad, 5.5);
    EXPECT_EQ(read.LonGradMaxLen.rows[0].lengths, (SpeedToIntValues{{80, 500}, {60, 600}}));
    EXPECT_EQ(read.LonGradMaxLen.rows[1].lengths, (SpeedToIntValues{{80, 400}}));
}

TEST_F(SpreadsheetReadingTest, ReadsEachEncodingAndSeparator)
{
    const std::string text = "设计车速,80,60\n最小坡长,300,200\n数据来源,《规范》\n";
    std::string bytes;
    ASSERT_TRUE(EncodeText(text, TextEncoding::Gb18030, bytes));
    EXPECT_EQ(ReadBytes(bytes).LonGradMinLen.Criterion, L"《规范》");
    bytes.clear();
    ASSERT_TRUE(EncodeText(text, TextEncoding::Utf16LE, bytes));
    EXPECT_EQ(ReadBytes("\xFF\xFE" + bytes).LonGradMinLen.Criterion, L"《规范》");
    EXPECT_EQ(ReadBytes("\xEF\xBB\xBF" + text).LonGradMinLen.MinLens.count, 2);
    for (const char separator : {';', '\t'}) {
        std::string other = text;
        std::replace(other.begin(), other.end(), ',', separator);
        EXPECT_EQ(ReadBytes(other).LonGradMinLen.Criterion, L"《规范》") << separator;
    }
    const auto quoted =
        ReadBytes("车速,80\r\n\"最小坡长\",\"300\"\r\n数据来源,\"a \"\"b\"\", c\"\r\n");
    EXPECT_EQ(quoted.LonGradMinLen.Criterion, L"a \"b\", c");
}

TEST_F(SpreadsheetReadingTest, TellsEveryWrongCell)
{
    EXPECT_THAT(Wrong("圆曲线半径\n圆曲线最大半径(m),\n设计车速,80,60,x\n"
                      "设超高最小半径,25o,150,1\n推荐值,1,2\n设超高推荐半径,1.5,,\n"
                      "设超高推荐半径,1,2\n"),
                ElementsAre("a: A2: “圆曲线最大半径”没有值", "a: D3: 车速“x”不是整数",
                            "a: B4: 值“25o”不是整数", "a: D4: 这一列上面没有标题",
                            "a: A5: “推荐值”不是“圆曲线半径”页的内容", "a: B6: 值“1.5”不是整数",
                            "a: A7: “设超高推荐半径”写了两次"));
    EXPECT_THAT(Wrong("车速,x\n80,1\n超高 6%,300\n"), ElementsAre(HasSubstr("没有认出任何一页")));
    EXPECT_THAT(
        Wrong("超高\n超高 6%,200~300\n最大超高 4%\n车速,60\n超高 4%,300\n"),
        ElementsAre("a: A2: 前面没有“最大超高 …%”一行", "a: B5: “300”不是半径范围,应如 200~300"));
    EXPECT_THAT(Wrong("缓和曲线最小长度\n不设超高时不设缓和曲线,是\n车速,60\n"
                      "不设缓和曲线的最小圆曲线半径,1000\n"),
                ElementsAre(HasSubstr("A4: “不设缓和曲线的最小圆曲线半径”在当前条件下不用")));
}

TEST_F(SpreadsheetReadingTest, RefusesAComparison)
{
    CDesignSpecification one;
    CDesignSpecification other;
    Write("a.xlsx", {&one, &other});
    EXPECT_THAT(Wrong(m_folder.Read("a.xlsx")), ElementsAre(HasSubstr("几个设计规范的对照")));
}

// By another writer: sheets and columns in another order, merged cells, blanks, formulas.
TEST_F(SpreadsheetReadingTest, ReadsAWorkbookOfAnotherWriter)
{
    m_folder.Write("make.py", R"(
import openpyxl
book = openpyxl.Workbook()
book.active.title = '说明'
book.active['A1'] = '由设计院整理'
sheet = book.create_sheet('圆曲线半径')
for row in (['圆曲线最大半径', None, 8000], [], ['指标', 60, 80.0, 40],
            ['设超高最小半径 (m)', 150, 250, '７０ m'], ['设超高推荐半径', 300, None, None],
            ['不设超高最小半径', '—', 1000, 300], ['圆曲线最小半径的数据来源', '《规范》 3.2']):
    sheet.append(row)
sheet.merge_cells('B5:C5')
sheet = book.create_sheet('加宽')
for row in (['加宽'], ['半径范围含上限、不含下限', '否'], ['圆曲线半径\\加宽类别', '100~200', '60-100'],
            ['普通汽车', 0.5, 1]):
    sheet.append(row)
sheet.merge_cells('A1:C1')
book.save('a.xlsx')
sheet['B4'] = '=1/2'
book.save('formula.xlsx')
)");
    const auto made = RunProcess({"/usr/bin/python3", "make.py"}, m_folder.Native());
    ASSERT_EQ(made.status, 0) << made.err;

    CDesignSpecification read;
    SpreadsheetReading reading(m_folder.Read("a.xlsx"), L"a");
    reading.ApplyTo(read);
    EXPECT_THAT(TextsOf(reading.Problems()), ElementsAre("a: 说明: 认不出是哪一页,没有读取"));
    EXPECT_FALSE(HasError(reading.Problems()));
    EXPECT_EQ(read.CircularCurveRad.MaxRad, 8000);
    EXPECT_EQ(read.CircularCurveRad.SuperelevationMinRad,
              (SpeedToIntValues{{80, 250}, {60, 150}, {40, 70}}));
    EXPECT_EQ(read.CircularCurveRad.SuperelevationRecommendRad,
              (SpeedToIntValues{{80, 300}, {60, 300}}));
    EXPECT_EQ(read.CircularCurveRad.noSuperelevationMinRad,
              (SpeedToIntValues{{80, 1000}, {40, 300}}));
    EXPECT_EQ(read.CircularCurveRad.MinRadCriterion, L"《规范》 3.2");
    EXPECT_EQ(read.CurveWidening.IsGMinAndLEMaxMode, 0);
    ASSERT_EQ(read.CurveWidening.ranges.count, 2);
    EXPECT_EQ(read.CurveWidening.ranges[0].widenings[0].widening, 0.5);

    // Nobody has reckoned it yet.
    EXPECT_THAT(Wrong(m_folder.Read("formula.xlsx")),
                testing::Contains(HasSubstr("加宽 B4: 值“(公式没有结果)”不是数")));
    if (!std::filesystem::exists("/usr/bin/soffice")) return;
    for (const char* ending : {"ods", "xlsx"}) {
        const std::string command = "mkdir -p out && soffice -env:UserInstallation=file://" +
                                    m_folder.Native("profile").string() +
                                    " --headless --convert-to " + ending +
                                    " --outdir out formula.xlsx";
        ASSERT_EQ(RunProcess({"/bin/sh", "-c", command}, m_folder.Native()).status, 0);
        CDesignSpecification reckoned;
        SpreadsheetReading second(m_folder.Read(std::string("out/formula.") + ending), L"a");
        second.ApplyTo(reckoned);
        EXPECT_FALSE(HasError(second.Problems()));
        ExpectSame(reckoned, read);
    }
}

TEST_F(SpreadsheetReadingTest, TakesCellsThatAreShownAsPercentages)
{
    m_folder.Write("make.py", R"(
import openpyxl
book = openpyxl.Workbook()
sheet = book.active
sheet.title = '纵坡'
sheet.append(['设计车速', 80, 60])
sheet.append(['最大纵坡限制值', 0.07, 6.5])
sheet.append(['最大纵坡推荐值', 0.0525, 5])
for cell, look in (('B2', '0%'), ('B3', '0.00%')):
    sheet[cell].number_format = look
book.save('a.xlsx')
)");
    const auto made = RunProcess({"/usr/bin/python3", "make.py"}, m_folder.Native());
    ASSERT_EQ(made.status, 0) << made.err;
    const auto read = Read("a.xlsx");
    EXPECT_EQ(read.LonGrad.MaxGradLimitedValues, (SpeedToDoubleValues{{80, 7}, {60, 6.5}}));
    EXPECT_EQ(read.LonGrad.MaxGradRecommendedValues, (SpeedToDoubleValues{{80, 5.25}, {60, 5}}));
}

TEST_F(SpreadsheetReadingTest, TakesTheParagraphsOfACellAsLines)
{
    m_folder.Write("make.py", R"(
import zipfile
content = """<?xml version="1.0" encoding="UTF-8"?>
<office:document-content xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"><office:body><office:spreadsheet>
<table:table table:name="纵坡最小坡长"><table:table-row>
<table:table-cell office:value-type="string"><text:p>数据来源</text:p></table:table-cell>
<table:table-cell office:value-type="string"><text:p>《规范》 <text:span>3.2</text:span></text:p>
<text:p>第<text:s text:c="2"/>二<text:line-break/>行</text:p><text:p>三</text:p></table:table-cell>
</table:table-row></table:table></office:spreadsheet></office:body></office:document-content>"""
with zipfile.ZipFile('a.ods', 'w') as z:
    z.writestr('mimetype', 'application/vnd.oasis.opendocument.spreadsheet')
    z.writestr('content.xml', content)
)");
    const auto made = RunProcess({"/usr/bin/python3", "make.py"}, m_folder.Native());
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(Read("a.ods").LonGradMinLen.Criterion, L"《规范》 3.2\n第  二\n行\n三");
}

} // namespace
