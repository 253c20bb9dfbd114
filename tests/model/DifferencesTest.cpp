#include "model/Differences.h"

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"
#include "model/SpecificationValue.h"
#include "tests/support/ValidSpecification.h"

using namespace designspec;

namespace {

using S = CDesignSpecification;
using Lines = std::vector<std::string>;

std::string TextOf(const std::optional<CString>& value)
{
    return value ? ToUtf8(*value) : "-";
}

std::string Head(const DifferingValue& value)
{
    const CString criterion = value.place.criterion ? value.place.criterion->label : L"";
    return ToUtf8(criterion + L"|" + value.path + L"|" + value.label + L"|" + value.key + L": ");
}

Lines Told(const std::vector<Difference>& differences)
{
    Lines lines;
    for (const Difference& one : differences)
        lines.push_back(Head(one) + TextOf(one.left) + " -> " + TextOf(one.right));
    return lines;
}

Lines Told(const S& left, const S& right)
{
    return Told(Differences(left, right));
}

Lines Told(const std::vector<Change>& changes)
{
    static constexpr const char* kBy[] = {"me", "them", "both", "conflict", "nobody"};
    Lines lines;
    for (const Change& one : changes)
        lines.push_back(Head(one) + TextOf(one.base) + " / " + TextOf(one.mine) + " / " +
                        TextOf(one.theirs) + " " + kBy[static_cast<size_t>(one.by)]);
    return lines;
}

// The same specification with other content.
S As(const S& one, const S& content)
{
    S made = one;
    made.CopyCriteria(content);
    made.SetName(content.Name().c_str());
    return made;
}

// Some of the other's criteria, and some of its rows, are the same.
S Varied(const S& one, RandomSpecification& random)
{
    const S other = As(one, random.Make());
    const size_t count = Differences(one, other).size();
    std::vector<bool> taken(count);
    const int oneIn = 1 + random.Below(20);
    for (size_t i = 0; i < count; ++i)
        taken[i] = random.Below(oneIn) == 0;
    return WithTaken(one, other, taken);
}

template <class T> std::vector<T> WithoutOrders(std::vector<T> all)
{
    std::erase_if(
        all, [](const T& one) { return one.label.ends_with(L"的顺序") || one.label == L"名称"; });
    return all;
}

constexpr int kTimes = 6;

} // namespace

// Two

TEST(Differences, NoneOfEqualSpecifications)
{
    const S one;
    EXPECT_EQ(Told(one, one), Lines{});
    S other; // with another identity
    EXPECT_EQ(Told(one, other), Lines{});
    for (unsigned seed = 0; seed < kTimes; ++seed) {
        const S random = RandomSpecification(seed).Make();
        EXPECT_EQ(Told(random, S(random)), Lines{});
    }
}

TEST(Differences, TellValuesWithTheirUnits)
{
    S left;
    S right = left;
    right.SetName(L"规范1");
    right.BeelineLen.MaxLen = 0;
    right.CircularCurveRad.MaxRad = 8000;
    right.CircularCurveRad.MaxRadCriterion = L"JTG";
    right.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    right.LonGrad.MinGrad = 0.5;
    EXPECT_EQ(
        Told(left, right),
        (Lines{"|Name|名称|:  -> 规范1",
               "直线长度|BeelineLen.MaxLen|最大直线长度|: 20 倍设计速度(km/h) -> 0 (不限)",
               "圆曲线半径|CircularCurveRad.MaxRad|圆曲线最大半径|: 10000 m -> 8000 m",
               "圆曲线半径|CircularCurveRad.MaxRadCriterion|圆曲线最大半径的数据来源|: (未填) -> "
               "JTG",
               "缓和曲线最小长度|TransitionCurveMinLen.NoTCBySuperelevation|"
               "不设超高时不设缓和曲线|: 否 -> 是",
               "纵坡坡度|LonGrad.MinGrad|最小纵坡|: 0.3% -> 0.5%"}));
}

TEST(Differences, TellTheSpeedInATable)
{
    S left;
    S right = left;
    right.CircularCurveRad.SuperelevationMinRad = {{100, 400}, {80, 250}, {60, 151},
                                                   {50, 100},  {40, 70},  {30, 40}};
    right.MaxSuperElev.GradualChangeRatio1[0].value = 200;
    EXPECT_EQ(Told(left, right),
              (Lines{"圆曲线半径|CircularCurveRad.SuperelevationMinRad[100]|设超高最小半径|"
                     "车速 100 km/h: - -> 400 m",
                     "圆曲线半径|CircularCurveRad.SuperelevationMinRad[60]|设超高最小半径|"
                     "车速 60 km/h: 150 m -> 151 m",
                     "圆曲线半径|CircularCurveRad.SuperelevationMinRad[20]|设超高最小半径|"
                     "车速 20 km/h: 20 m -> -",
                     "超高规范|MaxSuperElev.GradualChangeRatio1[80]|旋转轴在中线的超高渐变率|"
                     "车速 80 km/h: 1/150 -> 1/200"}));
}

TEST(Differences, TellWhereAValueStandsInRowsWithinRows)
{
    S left;
    S right = left;
    right.LonGradMaxLen.rows[2].lengths[0].value = 450;
    right.SuperElevation.definitions[1].rows[0].ranges[2] = {360, 610, 2};
    right.SuperElevation.definitions[2].rows[0].ranges[0].superElev = 1;
    right.CurveWidening.ranges[1].widenings[2].widening = 0.6;
    right.CurveWidening.ranges[8].widenings[2].carType = L"大型汽车";
    EXPECT_EQ(
        Told(left, right),
        (Lines{"纵坡最大坡长|LonGradMaxLen.rows[6].lengths[80]|最大坡长|坡度 6%, 车速 80 km/h: "
               "400 m -> 450 m",
               "超高|SuperElevation.definitions[4].rows[60].ranges[360~610]|超高|最大超高 4%, "
               "车速 60 km/h, 半径 360~610 m: - -> 2%",
               "超高|SuperElevation.definitions[4].rows[60].ranges[360~600]|超高|最大超高 4%, "
               "车速 60 km/h, 半径 360~600 m: 2% -> -",
               "超高|SuperElevation.definitions[2].rows[40].ranges[70~300]|超高|最大超高 2%, "
               "车速 40 km/h, 半径 70~300 m: 2% -> 1%",
               "加宽|CurveWidening.ranges[150~200].widenings[铰接车]|加宽|半径 150~200 m, 车型 "
               "铰接车: 0.55 m -> 0.6 m",
               "加宽|CurveWidening.ranges[15~20].widenings[大型汽车]|加宽|半径 15~20 m, 车型 "
               "大型汽车: - -> 3.5 m",
               "加宽|CurveWidening.ranges[15~20].widenings[铰接车]|加宽|半径 15~20 m, 车型 铰接车: "
               "3.5 m -> -"}));
}

TEST(Differences, StandInTheOrderOfThePagesSourcesLast)
{
    S right;
    right.CurveWidening.Criterion = L"来源";
    right.CurveWidening.ranges.RemoveAt(8);
    right.LonGrad.Criterion = L"来源";
    right.LonGrad.MaxGradLimitedValues.RemoveAt(0);
    right.LonGrad.MinGrad = 1;
    right.CurveMinLen.Criterion = L"来源";
    CString order;
    for (const Difference& one : Differences(S(), right))
        order += one.path + L" ";
    EXPECT_EQ(order, L"CurveMinLen.Criterion LonGrad.MinGrad LonGrad.MaxGradLimitedValues[80] "
                     L"LonGrad.Criterion CurveWidening.ranges[15~20].widenings[小型汽车] "
                     L"CurveWidening.ranges[15~20].widenings[普通汽车] "
                     L"CurveWidening.ranges[15~20].widenings[铰接车] CurveWidening.Criterion ");
}

TEST(Differences, ThePlaceLeadsToTheValue)
{
    for (unsigned seed = 0; seed < 3; ++seed) {
        ValidSpecification random(seed);
        S left = random.Make(L"甲");
        S right = As(left, random.Make(L"甲"));
        for (const Difference& one : WithoutOrders(Differences(left, right))) {
            EXPECT_EQ(one.place.Text(), one.path);
            ValuePlace place;
            ASSERT_EQ(FindValue(left, one.place, place), L"") << ToUtf8(one.path);
            EXPECT_EQ(place.field != nullptr, one.left.has_value()) << ToUtf8(one.path);
            ASSERT_EQ(FindValue(right, one.place, place), L"");
            EXPECT_EQ(place.field != nullptr, one.right.has_value()) << ToUtf8(one.path);
        }
    }
}

TEST(Differences, ARowWithoutValuesIsAValueByItself)
{
    S left;
    S right = left;
    right.SuperElevation.definitions[0].rows.Add({33, {}});
    right.LonGradMaxLen.rows.Insert(0, {3, {}});
    EXPECT_EQ(
        Told(left, right),
        (Lines{"纵坡最大坡长|LonGradMaxLen.rows[3]|最大坡长|坡度 3%: - -> (空)",
               "超高|SuperElevation.definitions[6].rows[33]|各车速的超高|最大超高 6%, 车速 33 "
               "km/h: - -> (空)"}));
    EXPECT_TRUE(WithTaken(left, right, {true, true}) == right);
    EXPECT_TRUE(WithTaken(right, left, {true, true}) == left);
    EXPECT_EQ(WithTaken(left, right, {true}).LonGradMaxLen, right.LonGradMaxLen);
    EXPECT_EQ(WithTaken(left, right, {true}).SuperElevation, left.SuperElevation);
}

// A file may hold a speed twice.
TEST(Differences, ASpeedThatStandsTwiceIsComparedByItsNumber)
{
    S left;
    S right = left;
    left.LonGradMinLen.MinLens = {{80, 1}, {80, 2}, {60, 3}};
    right.LonGradMinLen.MinLens = {{80, 1}, {80, 4}, {80, 5}, {60, 3}};
    EXPECT_EQ(Told(left, right),
              (Lines{"纵坡最小坡长|LonGradMinLen.MinLens[80]|最小坡长|车速 80 km/h (第 2 个): 2 m "
                     "-> 4 m",
                     "纵坡最小坡长|LonGradMinLen.MinLens[80]|最小坡长|车速 80 km/h (第 3 个): - -> "
                     "5 m"}));
    EXPECT_TRUE(WithTaken(left, right, {true, true}) == right);
    EXPECT_EQ(WithTaken(left, right, {false, true}).LonGradMinLen.MinLens,
              (SpeedToIntValues{{80, 1}, {80, 2}, {80, 5}, {60, 3}}));
    EXPECT_EQ(WithTaken(right, left, {false, true}).LonGradMinLen.MinLens,
              (SpeedToIntValues{{80, 1}, {80, 4}, {60, 3}}));
}

TEST(Differences, AnotherOrderIsAValueByItself)
{
    S left;
    S right = left;
    std::swap(right.SuperElevation.definitions[0], right.SuperElevation.definitions[2]);
    right.SuperElevation.definitions.RemoveAt(1);
    EXPECT_EQ(Told(left, right)[0], "超高|SuperElevation.definitions|超高的顺序|: 6, 4, 2 -> 2, 6");
    std::vector<bool> all(Differences(left, right).size(), true);
    EXPECT_TRUE(WithTaken(left, right, all) == right);
    all[0] = false;
    EXPECT_EQ(WithTaken(left, right, all).SuperElevation.definitions[0].maxSuperElev, 6);
    const S moved = WithTaken(left, right, {true});
    EXPECT_EQ(moved.SuperElevation.definitions.count, 3);
    EXPECT_EQ(Told(left, moved),
              (Lines{"超高|SuperElevation.definitions|超高的顺序|: 6, 4, 2 -> 2, 6, 4"}));
}

TEST(Differences, NamesOfVehiclesDifferInTheirCase)
{
    S left;
    left.CurveWidening.ranges = {};
    left.CurveWidening.ranges.Add({1, 2, {{L"Bus", 1}}});
    S right = left;
    right.CurveWidening.ranges[0].widenings[0].carType = L"bus";
    EXPECT_EQ(Told(left, right).size(), 2u);
    EXPECT_TRUE(WithTaken(left, right, {true, true}) == right);
}

TEST(Differences, ContentThatIsNotKnownIsOneValue)
{
    S left;
    S right = left;
    right.SetUnknown("<Style><New>1</New></Style>");
    EXPECT_EQ(Told(left, right), (Lines{"||本程序不认识的内容|:  -> <Style><New>1</New></Style>"}));
    EXPECT_TRUE(WithTaken(left, right, {true}) == right);
}

TEST(Differences, AllTakenGiveTheOtherNoneGiveItself)
{
    for (unsigned seed = 0; seed < kTimes; ++seed) {
        RandomSpecification random(seed);
        const S left = random.Make();
        const S right = seed % 2 ? Varied(left, random) : As(left, random.Make());
        const size_t count = Differences(left, right).size();
        EXPECT_TRUE(WithTaken(left, right, std::vector<bool>(count, true)) == right) << seed;
        EXPECT_TRUE(WithTaken(left, right, std::vector<bool>(count, false)) == left) << seed;
        EXPECT_TRUE(WithTaken(left, right, {}) == left) << seed;
        EXPECT_EQ(Differences(right, left).size(), count) << seed;
        EXPECT_EQ(count == 0, left == right) << seed;
    }
}

TEST(Differences, EachIsTakenByItself)
{
    for (unsigned seed = 0; seed < 3; ++seed) {
        ValidSpecification random(seed);
        const S left = random.Make(L"甲");
        const S right = As(left, random.Make(L"乙"));
        const auto all = Differences(left, right);
        for (size_t i = 0; i < all.size(); i += 29) {
            std::vector<bool> one(all.size(), false);
            one[i] = true;
            const S with = WithTaken(left, right, one);
            auto others = all;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
            EXPECT_TRUE(WithoutOrders(Differences(with, right)) == WithoutOrders(others))
                << seed << " " << i;
            EXPECT_TRUE(WithoutOrders(Differences(left, with)) ==
                        WithoutOrders(std::vector{all[i]}))
                << seed << " " << i;
        }
    }
}

TEST(Differences, TablesInOrderStayInOrder)
{
    S left;
    S right = left;
    left.LonGradMaxLen.rows = {{5, {{80, 1}}}, {5.5, {{80, 2}}}};
    right.LonGradMaxLen.rows = {{4, {{80, 1}}}, {5.2, {{80, 3}}}, {6, {{80, 2}}}};
    left.LonGradMinLen.MinLens = {{80, 1}, {75, 2}};
    right.LonGradMinLen.MinLens = {{80, 1}, {70, 2}};
    // 4, 5, 5.2, 5.5, 6 and 80, 75, 70: those of the right one alone.
    std::vector<bool> added;
    for (const Difference& one : Differences(left, right))
        added.push_back(!one.left);
    const S both = WithTaken(left, right, added);
    EXPECT_EQ(
        both.LonGradMaxLen.rows,
        (GrowArray<GradientRow>{
            {4, {{80, 1}}}, {5, {{80, 1}}}, {5.2, {{80, 3}}}, {5.5, {{80, 2}}}, {6, {{80, 2}}}}));
    EXPECT_EQ(both.LonGradMinLen.MinLens, (SpeedToIntValues{{80, 1}, {75, 2}, {70, 2}}));
}

// Three

TEST(Changes, SayWhoHasChangedWhat)
{
    const S base;
    S mine = base;
    S theirs = base;
    mine.LonGradMinLen.MinLens[0].value = 300;
    theirs.LonGradMinLen.MinLens[1].value = 180;
    mine.LonGradMinLen.MinLens[2].value = theirs.LonGradMinLen.MinLens[2].value = 150;
    mine.LonGradMinLen.MinLens[3].value = 120;
    theirs.LonGradMinLen.MinLens[3].value = 130;
    mine.LonGradMinLen.MinLens.RemoveAt(5);
    theirs.LonGradMinLen.MinLens[5].value = 65;
    mine.LonGradMinLen.Criterion = L"来源";
    const std::string path = "纵坡最小坡长|LonGradMinLen.MinLens[";
    const std::string label = "]|最小坡长|车速 ";
    const auto changes = Changes(base, mine, theirs);
    EXPECT_EQ(Told(changes),
              (Lines{path + "80" + label + "80 km/h: 290 m / 300 m / 290 m me",
                     path + "60" + label + "60 km/h: 170 m / 170 m / 180 m them",
                     path + "50" + label + "50 km/h: 140 m / 150 m / 150 m both",
                     path + "40" + label + "40 km/h: 110 m / 120 m / 130 m conflict",
                     path + "20" + label + "20 km/h: 60 m / - / 65 m conflict",
                     "纵坡最小坡长|LonGradMinLen.Criterion|数据来源|: (未填) / 来源 / (未填) me"}));
    EXPECT_TRUE(HasConflict(changes));
    EXPECT_EQ(Merged(base, mine, theirs).LonGradMinLen.MinLens,
              (SpeedToIntValues{{80, 300}, {60, 180}, {50, 150}, {40, 120}, {30, 85}}));
    const std::vector sides{Side::Theirs, Side::Theirs, Side::Mine, Side::Theirs, Side::Theirs};
    const S merged = Merged(base, mine, theirs, sides);
    EXPECT_EQ(merged.LonGradMinLen.MinLens,
              (SpeedToIntValues{{80, 290}, {60, 180}, {50, 150}, {40, 130}, {30, 85}, {20, 65}}));
    EXPECT_EQ(merged.LonGradMinLen.Criterion, L"来源");
}

TEST(Changes, ARowThatOneTakesOutAndTheOtherChangesIsAConflictOfThatValueAlone)
{
    const S base;
    S mine = base;
    S theirs = base;
    mine.LonGradMaxLen.rows.RemoveAt(2); // 6 %
    theirs.LonGradMaxLen.rows[2].lengths[1].value = 390;
    const auto changes = Changes(base, mine, theirs);
    const std::string head = "纵坡最大坡长|LonGradMaxLen.rows[6].lengths[";
    EXPECT_EQ(Told(changes),
              (Lines{head + "80]|最大坡长|坡度 6%, 车速 80 km/h: 400 m / - / 400 m me",
                     head + "60]|最大坡长|坡度 6%, 车速 60 km/h: 400 m / - / 390 m conflict",
                     head + "50]|最大坡长|坡度 6%, 车速 50 km/h: 350 m / - / 350 m me"}));
    const std::vector sides{Side::Mine, Side::Theirs, Side::Mine};
    EXPECT_EQ(Merged(base, mine, theirs, sides).LonGradMaxLen.rows[2],
              (GradientRow{6, {{60, 390}}}));
    EXPECT_EQ(Merged(base, mine, theirs).LonGradMaxLen, mine.LonGradMaxLen);
}

TEST(Changes, TheOrderIsOnesChangeOrAConflict)
{
    const S base;
    S mine = base;
    S theirs = base;
    auto& mineTables = mine.SuperElevation.definitions;
    auto& theirTables = theirs.SuperElevation.definitions;
    std::swap(theirTables[0], theirTables[2]);
    ASSERT_EQ(Changes(base, mine, theirs).size(), 1u);
    EXPECT_EQ(Changes(base, mine, theirs)[0].by, ChangedBy::Them);
    EXPECT_EQ(Changes(base, theirs, mine)[0].by, ChangedBy::Me);
    std::swap(mineTables[0], mineTables[1]);
    ASSERT_EQ(Changes(base, mine, theirs).size(), 1u);
    EXPECT_EQ(Told(Changes(base, mine, theirs)),
              (Lines{"超高|SuperElevation.definitions|超高的顺序|: 6, 4, 2 / 4, 6, 2 / 2, 4, 6 "
                     "conflict"}));
    EXPECT_TRUE(Merged(base, mine, theirs) == mine);
    EXPECT_TRUE(Merged(base, mine, theirs, std::vector{Side::Theirs}) == theirs);
}

TEST(Changes, TheNameIsAValueTheIdentityIsNot)
{
    const S base;
    S mine = base;
    S theirs;
    mine.SetName(L"甲");
    theirs.SetName(L"乙");
    EXPECT_EQ(Told(Changes(base, mine, theirs)), (Lines{"|Name|名称|:  / 甲 / 乙 conflict"}));
    const S merged = Merged(base, mine, theirs, std::vector{Side::Theirs});
    EXPECT_EQ(merged.Name(), L"乙");
    EXPECT_TRUE(merged.HasID(mine.ID()));
}

TEST(Changes, AllOfOneSideGiveThatSide)
{
    for (unsigned seed = 0; seed < kTimes; ++seed) {
        RandomSpecification random(seed);
        const S base = random.Make();
        const S mine = Varied(base, random);
        const S theirs = Varied(seed % 2 ? base : mine, random);
        const size_t count = Changes(base, mine, theirs).size();
        EXPECT_TRUE(Merged(base, mine, theirs, std::vector(count, Side::Mine)) == mine) << seed;
        EXPECT_TRUE(Merged(base, mine, theirs, std::vector(count, Side::Theirs)) == theirs) << seed;
    }
}

TEST(Changes, WithoutMineOrTheirsTheOtherIsTaken)
{
    for (unsigned seed = 0; seed < kTimes; ++seed) {
        RandomSpecification random(seed);
        const S base = random.Make();
        const S other = Varied(base, random);
        EXPECT_TRUE(Merged(base, base, other) == other) << seed;
        EXPECT_TRUE(Merged(base, other, base) == other) << seed;
        EXPECT_TRUE(Merged(base, other, other) == other) << seed;
        for (const Change& one : Changes(base, other, other))
            EXPECT_EQ(one.by, ChangedBy::Both) << seed;
        for (const Change& one : Changes(base, other, base))
            EXPECT_EQ(one.by, ChangedBy::Me) << seed;
    }
}

// Whoever asks: the same values, mine and theirs the other way round.
TEST(Changes, AreTheSameFromBothSides)
{
    static constexpr ChangedBy kTurned[] = {ChangedBy::Them, ChangedBy::Me, ChangedBy::Both,
                                            ChangedBy::Conflict};
    for (unsigned seed = 0; seed < 3; ++seed) {
        ValidSpecification random(seed);
        const S base = random.Make(L"甲");
        const S mine = Varied(base, random.Random());
        const S theirs = Varied(base, random.Random());
        auto there = Told(WithoutOrders(Changes(base, mine, theirs)));
        auto changes = WithoutOrders(Changes(base, theirs, mine));
        for (Change& one : changes) {
            std::swap(one.mine, one.theirs);
            one.by = kTurned[static_cast<size_t>(one.by)];
        }
        auto back = Told(changes);
        std::sort(there.begin(), there.end());
        std::sort(back.begin(), back.end());
        EXPECT_EQ(there, back) << seed;
    }
}

// All values

TEST(AllValues, AreTheChangesWithWhatNobodyChanged)
{
    RandomSpecification random(47);
    for (int i = 0; i < kTimes; ++i) {
        const S base = random.Make();
        const S mine = Varied(base, random);
        const S theirs = Varied(base, random);
        std::vector<Change> all = AllValues(base, mine, theirs);
        const size_t listed = all.size();
        std::erase_if(all, [](const Change& one) { return one.by == ChangedBy::Nobody; });
        EXPECT_EQ(Told(all), Told(Changes(base, mine, theirs)));
        EXPECT_LT(all.size(), listed);
    }
}

TEST(AllValues, OfEqualOnesShowEachValueOnceAsItIs)
{
    S one;
    one.SetName(L"甲");
    const std::vector<Change> all = AllValues(one, one, one);
    for (const Change& value : all) {
        EXPECT_EQ(value.by, ChangedBy::Nobody) << ToUtf8(value.path);
        EXPECT_EQ(value.mine, value.theirs) << ToUtf8(value.path);
    }
    const Lines lines = Told(all);
    EXPECT_EQ(lines.front(), "|Name|名称|: 甲 / 甲 / 甲 nobody");
    EXPECT_EQ(std::count(lines.begin(), lines.end(),
                         "纵坡最小坡长|LonGradMinLen.MinLens[80]|最小坡长|车速 80 km/h: 290 m / "
                         "290 m / 290 m nobody"),
              1);
}
