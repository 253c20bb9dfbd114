// 确定 without a change: the file keeps its content, save for what is stated here with its reason.
#include "app/DSMainDialog.h"

#include "base/Text.h"
#include "model/Findings.h"
#include "tests/app/AppTest.h"
#include "tests/support/ValidSpecification.h"

using namespace designspec;

namespace {

// What stands in the file before, and after.
struct Content {
    CDesignSpecification given;
    CDesignSpecification kept;
    // What no specification holds but a file can, each put in before the one place of a text.
    std::vector<std::pair<std::string, std::string>> inFile = {};
    // What the file holds of that afterwards, likewise.
    std::vector<std::pair<std::string, std::string>> keptInFile = {};
    std::string missing = {}; // an element that the file has not

    template <class Value, class Criterion>
    void Set(Criterion CDesignSpecification::*criterion, Value Criterion::*member,
             const Value& before, const Value& after)
    {
        given.*criterion.*member = before;
        kept.*criterion.*member = after;
    }
};

using S = CDesignSpecification;

template <class Table> void Reverse(Table& table)
{
    std::reverse(table.begin(), table.end());
}

// The table that the page shows at first; null when there is none.
SuperElevDefinition* HighestTable(CDSSuperElevation& criterion)
{
    auto& tables = criterion.definitions;
    SuperElevDefinition* const highest =
        std::max_element(tables.begin(), tables.end(), [](const auto& a, const auto& b) {
            return a.maxSuperElev < b.maxSuperElev;
        });
    return highest == tables.end() ? nullptr : highest;
}

SuperElevDefinition& TableOf(CDSSuperElevation& criterion, int maximum)
{
    auto& tables = criterion.definitions;
    return *std::find_if(tables.begin(), tables.end(),
                         [maximum](const auto& one) { return one.maxSuperElev == maximum; });
}

// Trimmed when they are read: blanks around a source say nothing.
void BlanksAroundSources(Content& content)
{
    content.Set(&S::CurveMinLen, &CDSCurveMinLen::Criterion, CString(L" \n来源\t　"),
                CString(L"来源"));
    content.Set(&S::MaxSuperElev, &CDSMaxSuperElevation::Criterion, CString(L" 来 源 "),
                CString(L"来 源"));
}

// Without its limit a source says nothing either, and a limit below 0 is none.
void StraightsWithoutALimit(Content& content)
{
    const CString source = L"来源";
    content.Set(&S::BeelineLen, &CDSBeelineLen::MaxLen, -2.0, 0.0);
    content.Set(&S::BeelineLen, &CDSBeelineLen::MaxLenCriterion, source, CString());
    content.Set(&S::BeelineLen, &CDSBeelineLen::MinLenInOneDir, 0.0, 0.0);
    content.Set(&S::BeelineLen, &CDSBeelineLen::MinLenInOneDirCriterion, source, CString());
}

// An edit box shows one decimal, and what it shows is stored.
void DecimalsBeyondTheFirstInEditBoxes(Content& content)
{
    content.Set(&S::BeelineLen, &CDSBeelineLen::MinLenReverseCurve, 2.36, 2.4);
    content.Set(&S::LonGrad, &CDSLonGrad::MinGrad, 0.349, 0.3);
    content.Set(&S::LonGrad, &CDSLonGrad::GradeCompensationOnPlateau, 1.96, 2.0);
    content.Set(&S::LonGrad, &CDSLonGrad::MaxGradeOnSnowFrozenRegion, 0.04, 0.0);
    content.Set(&S::MaxResultantGrad, &CDSMaxResultantGrad::MaxResultantGradOnSnowFrozenRegion,
                123456.78, 123456.8);
}

// No maximum has one way to be written; its source stays, for the radius has it still.
void MaxRadBelowOne(Content& content)
{
    content.Set(&S::CircularCurveRad, &CDSCircularCurveRad::MaxRad, -5, 0);
}

// Snow and ice without a maximum, as above.
void SnowBelowOne(Content& content)
{
    if (content.kept.MaxSuperElev.MaxSuperElevOnSFR == 0)
        content.given.MaxSuperElev.MaxSuperElevOnSFR = -3;
}

// Tables are sorted when they are read, highest speed first.
void SpeedsInAnotherOrder(Content& content)
{
    Reverse(content.given.CurveMinLen.CircularCurveMinLen);
    Reverse(content.given.LonGrad.MaxGradLimitedValues);
    Reverse(content.given.MaxResultantGrad.tables[CDSMaxResultantGrad::HighwayClass2]);
    Reverse(content.given.MaxSuperElev.MaxSuperElev);
}

// A grid has one column for each speed; of two values the one that stands last is in its cell.
void ASpeedTwice(Content& content)
{
    auto& lengths = content.given.CurveMinLen.HorizontalCurveMinLen;
    if (!lengths.IsEmpty()) lengths.Insert(0, {lengths[0].speed, -77});
    auto& grads = content.given.LonGrad.MaxGradRecommendedValues;
    if (!grads.IsEmpty()) grads.Insert(0, {grads[0].speed, 0.77});
}

// The switch leaves the radii without a meaning: they are not read beside it, nor stored.
void RadiiBesideTheSwitch(Content& content)
{
    content.given.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    content.kept.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    content.given.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
    content.kept.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
    content.inFile.emplace_back("</TransitionCurveMinLen>",
                                "<NoTCByMinRad><Item speed=\"80\" value=\"7\"/></NoTCByMinRad>");
}

// A road class is in the file when it has values.
void ARoadClassWithoutValues(Content& content)
{
    content.given.MaxResultantGrad.tables[CDSMaxResultantGrad::OtherRoad].RemoveAll();
    content.kept.MaxResultantGrad.tables[CDSMaxResultantGrad::OtherRoad].RemoveAll();
    content.inFile.emplace_back("</MaxResultantGrad>", "<OtherRoad></OtherRoad>");
}

// Rows of gradients are sorted when they are read, and those without lengths say nothing.
void GradientsInAnotherOrderAndWithoutLengths(Content& content)
{
    content.given.LonGradMaxLen.rows.Insert(0, {3.3, {}});
    Reverse(content.given.LonGradMaxLen.rows);
}

// A row keeps whole tenths: what is beyond them is cut off, and below 0 there are none.
void GradientsBetweenTenths(Content& content)
{
    for (GradientRow& row : content.given.LonGradMaxLen.rows)
        row.Grad += 0.07;
    content.given.LonGradMaxLen.rows.Insert(0, {-1.5, {{60, 7}}});
    content.kept.LonGradMaxLen.rows.Insert(0, {0, {{60, 7}}});
}

// Only the maxima in use have a table, in the order in which they come up.
void TablesInAnotherOrderAndOutOfUse(Content& content)
{
    auto& tables = content.given.SuperElevation.definitions;
    Reverse(tables);
    tables.Insert(tables.count / 2, {77, {{60, {{100, 200, 7}}}}});
    tables.Insert(0, {0, {{60, {{100, 200, 7}}}}});
}

// Of two tables for one maximum the first one counts, as it does for queries.
void TwoTablesForOneMaximum(Content& content)
{
    auto& tables = content.given.SuperElevation.definitions;
    if (!tables.IsEmpty()) tables.Add({tables[0].maxSuperElev, {{60, {{100, 200, 7}}}}});
}

// The table that is shown comes back in the order of its grid, without what no cell shows.
void TheShownTableInAnotherOrder(Content& content)
{
    SuperElevDefinition* const shown = HighestTable(content.given.SuperElevation);
    if (!shown) return;
    for (SuperElevSpeedRow& row : shown->rows) {
        Reverse(row.ranges);
        // Of two ranges for one superelevation the last one is in the cell.
        row.ranges.Insert(0, {5000, 6000, row.ranges[0].superElev});
    }
    Reverse(shown->rows);
    shown->rows.Add({33, {}});
}

// The other tables never see the grid.
void OtherTablesStayInTheirOrder(Content& content)
{
    const SuperElevDefinition* const shown = HighestTable(content.given.SuperElevation);
    for (SuperElevDefinition& kept : content.kept.SuperElevation.definitions) {
        SuperElevDefinition& given = TableOf(content.given.SuperElevation, kept.maxSuperElev);
        if (&given == shown) continue;
        Reverse(given.rows);
        given.rows.Add({33, {}});
        kept.rows = given.rows;
    }
}

// A range in which no vehicle is widened says nothing.
void ARangeWithoutWidenings(Content& content)
{
    auto& ranges = content.given.CurveWidening.ranges;
    const int max = ranges.IsEmpty() ? 50 : ranges[ranges.count - 1].min;
    ranges.Add({max - 10, max, {}});
}

// Of two widenings for one category the first one counts, as it does for queries.
void ASecondWidening(Content& content)
{
    for (WideningRange& range : content.given.CurveWidening.ranges)
        range.widenings.Add({L"BUS", 7.77});
}

// A category is a row: it is called as where it comes up first, and stands where it came up.
void CategoriesInAnotherCaseAndOrder(Content& content)
{
    auto& ranges = content.given.CurveWidening.ranges;
    if (ranges.count < 2) return;
    auto& last = ranges[ranges.count - 1].widenings;
    last[0].carType = L"bUS";
    std::rotate(last.begin(), last.begin() + 1, last.end());
}

// What a later program may have added to a criterion stays, behind what is known.
void UnknownContentOfACriterion(Content& content)
{
    content.inFile.emplace_back("</LonGrad>", "<Unknown>7</Unknown><!-- 注 -->");
    content.keptInFile.emplace_back("</LonGrad>", "  <Unknown>7</Unknown>\n        ");
}

// A criterion that is not there has the built-in limits, and they are written.
void AMissingCriterion(Content& content)
{
    content.kept.LonGradMinLen = {};
    content.given.LonGradMinLen = {};
    content.missing = "LonGradMinLen";
}

struct Exception {
    const char* name;
    void (*make)(Content& content);
};

constexpr Exception kExceptions[] = {
    {"BlanksAroundSources", BlanksAroundSources},
    {"StraightsWithoutALimit", StraightsWithoutALimit},
    {"DecimalsBeyondTheFirstInEditBoxes", DecimalsBeyondTheFirstInEditBoxes},
    {"MaxRadBelowOne", MaxRadBelowOne},
    {"SnowBelowOne", SnowBelowOne},
    {"SpeedsInAnotherOrder", SpeedsInAnotherOrder},
    {"ASpeedTwice", ASpeedTwice},
    {"RadiiBesideTheSwitch", RadiiBesideTheSwitch},
    {"ARoadClassWithoutValues", ARoadClassWithoutValues},
    {"GradientsBetweenTenths", GradientsBetweenTenths},
    {"GradientsInAnotherOrderAndWithoutLengths", GradientsInAnotherOrderAndWithoutLengths},
    {"TablesInAnotherOrderAndOutOfUse", TablesInAnotherOrderAndOutOfUse},
    {"TwoTablesForOneMaximum", TwoTablesForOneMaximum},
    {"TheShownTableInAnotherOrder", TheShownTableInAnotherOrder},
    {"OtherTablesStayInTheirOrder", OtherTablesStayInTheirOrder},
    {"CategoriesInAnotherCaseAndOrder", CategoriesInAnotherCaseAndOrder},
    {"ASecondWidening", ASecondWidening},
    {"ARangeWithoutWidenings", ARangeWithoutWidenings},
    {"UnknownContentOfACriterion", UnknownContentOfACriterion},
    {"AMissingCriterion", AMissingCriterion},
};

class Unchanged : public AppTest {
protected:
    // The text of the file that the library makes of a specification.
    std::string TextOf(const CDesignSpecification& specification)
    {
        CDesignSpecifications::Destroy();
        std::filesystem::remove_all(m_project.Native("规范"));
        AddSaved(specification);
        return m_project.Read(FileOf(specification));
    }

    // Opens what the file holds, in the second case with a look at each page, and presses 确定.
    std::string AfterOk(const std::string& file, bool looksAtPages)
    {
        EXPECT_EQ(Reload().Count(), 1);
        CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
        const ExpectModal modal([looksAtPages](QWidget* window) {
            if (looksAtPages)
                for (const std::string& line : TreeLines(window))
                    if (line.starts_with("  ")) ClickItem(window, line.substr(2).c_str());
            Click(window, IDOK);
        });
        EXPECT_EQ(dialog.DoModal(), IDOK);
        return m_project.Read(file);
    }

    void Expect(const Content& content, bool looksAtPages)
    {
        std::string kept = TextOf(content.kept);
        std::string given = TextOf(content.given);
        for (const auto& [text, additions] :
             {std::pair{&kept, &content.keptInFile}, std::pair{&given, &content.inFile}}) {
            for (const auto& [before, added] : *additions) {
                const size_t at = text->find(before);
                ASSERT_NE(at, std::string::npos) << before;
                text->insert(at, added);
            }
        }
        if (!content.missing.empty()) {
            const size_t from = given.find("<" + content.missing + ">");
            const std::string end = "</" + content.missing + ">";
            given.erase(from, given.find(end) + end.size() - from);
        }
        const std::string file = FileOf(content.given);
        m_project.Write(file, given);
        EXPECT_EQ(AfterOk(file, looksAtPages), kept);
        EXPECT_EQ(SpecificationFiles(), 1);
    }
};

constexpr unsigned kSeedsEach = 10;

// Ten seeds each: a process for each single one would be slow.
class UnchangedSeeds : public Unchanged, public testing::WithParamInterface<unsigned> {
protected:
    template <class Test> static void ForEachSeed(Test test)
    {
        for (unsigned seed = GetParam(); seed < GetParam() + kSeedsEach; ++seed) {
            SCOPED_TRACE(seed);
            test(seed);
        }
    }
};

// Content that a file can hold and a page does not accept.
struct Unacceptable {
    const char* name;
    void (*make)(CDesignSpecification& specification);
    const char* page; // that comes to the front
    const char* message;
};

const Unacceptable kUnacceptable[] = {
    {"AStraightThatRoundsToNothing", [](S& made) { made.BeelineLen.MaxLen = 0.04; }, "直线长度",
     "最大直线长度必须是正数,且最多只有一位小数!"},
    {"AGradientBelowZero", [](S& made) { made.LonGrad.MinGrad = -0.3; }, "纵坡坡度",
     "最小纵坡必须大于等于0,并且最多只有一位小数!"},
    {"AGradientThatRoundsToNoughtFromBelow", [](S& made) { made.LonGrad.MinGrad = -0.04; },
     "纵坡坡度", "最小纵坡必须大于等于0,并且最多只有一位小数!"},
    {"AResultantGradientBelowZero",
     [](S& made) { made.MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion = -1; }, "最大合成坡度",
     "积雪冰冻地区最大合成坡度必须大于等于0,并且最多只有一位小数!"},
    {"NoTransitionLengths", [](S& made) { made.TransitionCurveMinLen.MinLen.RemoveAll(); },
     "缓和曲线最小长度", "缓和曲线最小长度不能为空!"},
    {"NoTransitionRadii", [](S& made) { made.TransitionCurveMinLen.NoTCByMinRad.RemoveAll(); },
     "缓和曲线最小长度", "不设缓和曲线的最小圆曲线半径条件不能为空!"},
    {"AMissingRatio", [](S& made) { made.MaxSuperElev.GradualChangeRatio2.RemoveAt(1); },
     "超高规范", "设计车速 60 对应的 旋转轴在边线的超高渐变率 不能为空!"},
    {"AMaximumOfTwenty", [](S& made) { made.MaxSuperElev.MaxSuperElev[0].value = 20; }, "超高规范",
     "设计车速 80 对应的 最大超高 值不合法, 必须在0~20之间!"},
    {"AMaximumWithoutATable", [](S& made) { made.SuperElevation.definitions.RemoveAt(1); }, "超高",
     "最大超高 4% 的超高表未设置!"},
    {"ATableWithAGap",
     [](S& made) { made.SuperElevation.definitions[1].rows[1].ranges[0].maxRadius = 149; }, "超高",
     "最大超高 4% 在 车速 50km/h 时, 超高 4% 的最大\n圆曲线半径应该为 3% 的最小圆曲线半径!"},
    {"RangesThatDoNotJoin", [](S& made) { made.CurveWidening.ranges.RemoveAt(1); }, "加宽",
     "圆曲线半径范围 100~150 和前一组不连续!"},
    {"ACategoryWithAGap", [](S& made) { made.CurveWidening.ranges[1].widenings.RemoveAt(2); },
     "加宽", "加宽类别 铰接车 的加宽值设置不连续，不同圆曲线半径范围之间不能空缺!"},
};

void PrintTo(const Unacceptable& content, std::ostream* out)
{
    *out << content.name;
}

std::string FirstError(const CDesignSpecification& specification)
{
    for (const designspec::Finding& finding : designspec::Findings(specification))
        if (finding.severity == designspec::Severity::Error) return ToUtf8(finding.text);
    return {};
}

// Whether something is found in one that is not found in the other.
bool HasMoreFindings(const CDesignSpecification& one, const CDesignSpecification& other)
{
    const auto known = designspec::Findings(other);
    const auto found = designspec::Findings(one);
    return std::any_of(found.begin(), found.end(), [&known](const auto& finding) {
        return std::find(known.begin(), known.end(), finding) == known.end();
    });
}

class UnchangedRefused : public Unchanged, public testing::WithParamInterface<Unacceptable> {};

class UnchangedBut : public Unchanged, public testing::WithParamInterface<Exception> {};

void PrintTo(const Exception& exception, std::ostream* out)
{
    *out << exception.name;
}

} // namespace

TEST_P(UnchangedSeeds, ValidContentStaysToTheLastByte)
{
    ForEachSeed([this](unsigned seed) {
        const CDesignSpecification made = ValidSpecification(seed).Make(L"甲");
        Expect({made, made}, seed % 2);
    });
}

TEST_P(UnchangedSeeds, OfExceptionsThatMeetEachDoesWhatItDoesAlone)
{
    ForEachSeed([this](unsigned seed) {
        ValidSpecification valid(seed);
        const CDesignSpecification made = valid.Make(L"甲");
        Content content{made, made};
        for (const Exception& exception : kExceptions)
            if (valid.Random().Below(2)) exception.make(content);
        Expect(content, seed % 2);
    });
}

INSTANTIATE_TEST_SUITE_P(From, UnchangedSeeds, testing::Range(0U, 100U, kSeedsEach));

TEST_P(UnchangedBut, WhatIsStated)
{
    int different = 0;
    for (unsigned seed = 0; seed < 5; ++seed) {
        SCOPED_TRACE(seed);
        const CDesignSpecification made = ValidSpecification(seed).Make(L"甲");
        Content content{made, made};
        GetParam().make(content);
        different += !(content.given == made) || !content.inFile.empty();
        EXPECT_EQ(HasMoreFindings(content.given, content.kept), !(content.given == content.kept));
        Expect(content, seed % 2);
    }
    EXPECT_GT(different, 1);
}

INSTANTIATE_TEST_SUITE_P(For, UnchangedBut, testing::ValuesIn(kExceptions),
                         [](const auto& one) { return one.param.name; });

TEST_P(UnchangedRefused, StaysAsItIsInFileAndLibrary)
{
    CDesignSpecification made;
    made.SetName(L"甲");
    GetParam().make(made);
    EXPECT_EQ(FirstError(made), GetParam().message);
    AddSaved(made);
    const std::string before = m_project.Read(FileOf(made));
    ASSERT_EQ(Reload().Count(), 1);
    CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
    const ExpectModal modal([](QWidget* window) {
        {
            const ExpectMessage box(ToWide(GetParam().message));
            Click(window, IDOK);
        }
        EXPECT_EQ(SelectedItem(window), GetParam().page);
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(m_project.Read(FileOf(made)), before);
    EXPECT_TRUE(At(0) == made);
}

INSTANTIATE_TEST_SUITE_P(For, UnchangedRefused, testing::ValuesIn(kUnacceptable),
                         [](const auto& one) { return one.param.name; });

// The name field drops blanks around a name, so that the file gets another name too.
TEST_F(Unchanged, BlanksAroundTheNameGo)
{
    CDesignSpecification made = ValidSpecification(7).Make(L"甲");
    const std::string expected = TextOf(made);
    made.SetName(L" 甲 ");
    TextOf(made);
    Reload();
    CDSMainDialog dialog(L" 甲 ", false, nullptr, &m_frame);
    const ExpectModal modal([](QWidget* window) { Click(window, IDOK); });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(SpecificationFiles(), 1);
    made.SetName(L"甲");
    EXPECT_EQ(m_project.Read(FileOf(made)), expected);
}
