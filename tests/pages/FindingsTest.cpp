// Findings and the pages say the same of a specification.
#include "model/Findings.h"

#include "base/Text.h"
#include "pages/PageTable.h"
#include "tests/pages/PageTest.h"
#include "tests/support/ValidSpecification.h"

using namespace designspec;

namespace {

using S = CDesignSpecification;
using Random = RandomSpecification;

template <class T> T OneOf(Random& random, std::initializer_list<T> values)
{
    return values.begin()[random.Below(static_cast<int>(values.size()))];
}

template <class T> T* AnyOf(Random& random, GrowArray<T>& array)
{
    return array.IsEmpty() ? nullptr : &array[random.Below(array.count)];
}

template <class T> void RemoveAny(Random& random, GrowArray<T>& array)
{
    if (!array.IsEmpty()) array.RemoveAt(random.Below(array.count));
}

template <class T> void Repeat(Random& random, GrowArray<T>& array)
{
    if (const T* const one = AnyOf(random, array)) array.Insert(0, T(*one));
}

template <class T> void Reverse(GrowArray<T>& array)
{
    std::reverse(array.begin(), array.end());
}

double AnyGradient(Random& random)
{
    return OneOf(random, {-0.3, -0.04, -0.0, 0.0, 0.04, 0.35, 2.0, 1e300});
}

void ChangeStraights(Random& random, S& made)
{
    CDSBeelineLen& straight = made.BeelineLen;
    *OneOf(random, {&straight.MaxLen, &straight.MinLenInOneDir, &straight.MinLenReverseCurve}) =
        OneOf(random, {-2.0, -0.0, 0.0, 0.04, 0.06, 1.25, 3.0, 1e300});
    straight.MaxLenCriterion = OneOf(random, {L"", L"来源"});
}

void ChangeRadii(Random& random, S& made)
{
    made.CircularCurveRad.MaxRad = OneOf(random, {-5, 0, 1, 7000});
    Reverse(made.CircularCurveRad.SuperelevationMinRad);
}

void ChangeLengths(Random& random, S& made)
{
    Repeat(random, made.CurveMinLen.CircularCurveMinLen);
    Repeat(random, made.LonGrad.MaxGradLimitedValues);
}

void ChangeTransitions(Random& random, S& made)
{
    CTransitionCurveMinLen& transition = made.TransitionCurveMinLen;
    if (random.Below(2)) transition.NoTCBySuperelevation = random.Below(2);
    if (random.Below(2)) transition.NoTCByMinRad.RemoveAll();
    if (random.Below(3) == 0) transition.MinLen.RemoveAll();
}

void ChangeGradients(Random& random, S& made)
{
    CDSLonGrad& grad = made.LonGrad;
    *OneOf(random, {&grad.MinGrad, &grad.GradeCompensationOnPlateau,
                    &grad.MaxGradeOnSnowFrozenRegion}) = AnyGradient(random);
    made.MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion = AnyGradient(random);
}

void ChangeGradeLengths(Random& random, S& made)
{
    auto& rows = made.LonGradMaxLen.rows;
    if (GradientRow* const row = AnyOf(random, rows))
        row->Grad = OneOf(random, {-1.5, row->Grad, row->Grad + 0.07});
    if (random.Below(3) == 0) rows.Add({11, {}});
}

void ChangeMaxima(Random& random, S& made)
{
    CDSMaxSuperElevation& maxima = made.MaxSuperElev;
    SpeedToIntValues& table = *OneOf(
        random, {&maxima.MaxSuperElev, &maxima.GradualChangeRatio1, &maxima.GradualChangeRatio2});
    if (random.Below(2)) Repeat(random, table);
    if (random.Below(2)) RemoveAny(random, table);
    if (auto* const entry = AnyOf(random, table))
        entry->value = OneOf(random, {-4, 0, 1, 2, 19, 20, entry->value});
    maxima.MaxSuperElevOnSFR = OneOf(random, {-3, 0, 0, 2, 4, 30});
}

void ChangeTables(Random& random, S& made)
{
    auto& tables = made.SuperElevation.definitions;
    if (random.Below(4) == 0) Reverse(tables);
    if (random.Below(4) == 0) Repeat(random, tables);
    if (random.Below(4) == 0) RemoveAny(random, tables);
    if (random.Below(4) == 0) tables.Insert(0, {random.Below(12), {}});
}

void ChangeTable(Random& random, S& made)
{
    SuperElevDefinition* const table = AnyOf(random, made.SuperElevation.definitions);
    if (!table) return;
    if (random.Below(4) == 0) Reverse(table->rows);
    if (random.Below(4) == 0) Repeat(random, table->rows);
    if (random.Below(4) == 0) table->rows.Add({33, {}});
    SuperElevSpeedRow* const row = AnyOf(random, table->rows);
    if (!row) return;
    if (random.Below(3) == 0) Reverse(row->ranges);
    if (random.Below(3) == 0) Repeat(random, row->ranges);
    if (SuperElevRange* const range = AnyOf(random, row->ranges)) {
        range->minRadius += OneOf(random, {0, 0, 1});
        range->superElev += OneOf(random, {-2, -1, 0, 0, 0, 1});
    }
}

void ChangeWidenings(Random& random, S& made)
{
    auto& ranges = made.CurveWidening.ranges;
    if (random.Below(4) == 0) RemoveAny(random, ranges);
    WideningRange* const range = AnyOf(random, ranges);
    if (!range) return;
    range->max += OneOf(random, {0, 0, 1});
    if (random.Below(2)) RemoveAny(random, range->widenings);
    if (random.Below(4) == 0) Repeat(random, range->widenings);
    if (random.Below(4) == 0) Reverse(range->widenings);
    if (Widening* const one = AnyOf(random, range->widenings))
        one->carType = OneOf(random, {one->carType, one->carType, CString(L"bus")});
}

// Some arbitrary content, as files can hold it.
void ChangeAll(Random& random, S& made)
{
    const S other = random.Make();
    ForEachCriterion([&](const auto& criterion) {
        if (random.Below(3) == 0) made.*criterion.member = other.*criterion.member;
    });
}

constexpr void (*kChanges[])(Random& random, S& made) = {
    ChangeStraights, ChangeRadii,        ChangeLengths, ChangeTransitions,
    ChangeGradients, ChangeGradeLengths, ChangeMaxima,  ChangeTables,
    ChangeTable,     ChangeWidenings,    ChangeAll};

// The built-in limits or other valid ones, with changes.
S MakeChanged(unsigned seed)
{
    ValidSpecification valid(seed);
    S made;
    if (seed % 2) made = valid.Make(L"甲");
    Random& random = valid.Random();
    for (const auto change : kChanges)
        if (random.Below(change == ChangeAll ? 6 : 2) == 0) change(random, made);
    return made;
}

// Whether the criteria of that place are the same.
bool IsSame(const S& a, const S& b, size_t place)
{
    bool same = false;
    size_t at = 0;
    ForEachCriterion([&](const auto& criterion) {
        if (at++ == place) same = a.*criterion.member == b.*criterion.member;
    });
    return same;
}

class FindingsAndPages : public LibraryTest {
protected:
    FindingsAndPages()
    {
        Add(Make(L"甲"));
        for (const PageEntry& entry : PageTable()) {
            m_pages.push_back(entry.make(m_pages.empty() ? nullptr : m_pages.back().get()));
            EXPECT_TRUE(m_pages.back()->Create(&m_frame));
        }
    }

    static S& Specification() { return *Library().Item(L"甲"); }

    void Load(const S& made)
    {
        Specification().CopyCriteria(made);
        for (const auto& page : m_pages)
            page->Callback().Load(L"甲");
    }

    // The message of a page; empty when it accepts what it shows.
    std::string Fault(size_t place)
    {
        CString message;
        const bool valid = m_pages[place]->Callback().Validate(message);
        EXPECT_EQ(valid, message.empty());
        return ToUtf8(message);
    }

    QWidget m_frame;
    std::vector<std::unique_ptr<CDSPage>> m_pages; // in the order of the criteria
};

std::vector<Finding> FindingsIn(const S& made, size_t place)
{
    std::vector<Finding> findings = Findings(made);
    const CString name = CString(Criteria()[place].name) + L".";
    std::erase_if(findings, [&name](const Finding& one) { return !one.path.starts_with(name); });
    return findings;
}

// The text of the first error.
std::string FirstError(const std::vector<Finding>& findings)
{
    for (const Finding& finding : findings)
        if (finding.severity == Severity::Error) return ToUtf8(finding.text);
    return {};
}

} // namespace

TEST_F(FindingsAndPages, HaveTheSameErrorsAndTellWhatSavingWouldChange)
{
    constexpr unsigned kSeeds = 100;
    std::vector<int> refused(m_pages.size());
    std::vector<int> changed(m_pages.size());
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const S made = MakeChanged(seed);
        Load(made);
        for (size_t place = 0; place < m_pages.size(); ++place) {
            SCOPED_TRACE(std::to_string(seed) + " " + ToUtf8(Criteria()[place].name));
            const std::vector<Finding> findings = FindingsIn(made, place);
            const std::string fault = Fault(place);
            EXPECT_EQ(FirstError(findings), fault);
            refused[place] += !fault.empty();
            if (!fault.empty()) continue;
            EXPECT_TRUE(m_pages[place]->Callback().Save());
            const bool same = IsSame(Specification(), made, place);
            EXPECT_FALSE(!same && findings.empty());
            changed[place] += !same;
        }
    }
    // 直线长度 … 加宽
    const std::vector<bool> refuses = {true,  false, false, false, true, true, true,
                                       false, false, false, true,  true, true};
    for (size_t place = 0; place < m_pages.size(); ++place) {
        if (refuses[place]) {
            EXPECT_GT(refused[place], 3) << place;
        } else {
            EXPECT_EQ(refused[place], 0) << place;
        }
        EXPECT_LT(refused[place], static_cast<int>(kSeeds) - 50) << place;
        EXPECT_GT(changed[place], 0) << place;
    }
}
