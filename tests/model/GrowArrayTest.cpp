#include "model/GrowArray.h"

#include <new>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "model/CurveWidening.h"
#include "model/LonGradLen.h"
#include "model/SpeedTable.h"
#include "model/SuperElevation.h"
#include "tests/support/Allocations.h"

namespace {

// The distinct capacities that an array goes through while `count` entries are added.
template <class T> std::vector<int> Capacities(GrowArray<T>& array, int count)
{
    std::vector<int> capacities{array.capacity};
    while (array.count < count) {
        array.Add({});
        if (array.capacity != capacities.back()) capacities.push_back(array.capacity);
    }
    return capacities;
}

template <class T> SpeedEntry<T> Entry(int i)
{
    return {i, static_cast<T>(i * 2)};
}

} // namespace

TEST(GrowArray, LiesInMemoryAsOtherModulesReadIt)
{
    SpeedToIntValues ints{{80, 250}};
    const auto* bytes = reinterpret_cast<const char*>(&ints);
    EXPECT_EQ(*reinterpret_cast<SpeedEntry<std::int32_t>* const*>(bytes), ints.entries);
    EXPECT_EQ(*reinterpret_cast<const std::int32_t*>(bytes + sizeof(void*)), 8);
    EXPECT_EQ(*reinterpret_cast<const std::int32_t*>(bytes + sizeof(void*) + 4), 1);
    EXPECT_EQ(*reinterpret_cast<const std::int32_t*>(bytes + sizeof(void*) + 8), 8);
    EXPECT_TRUE(std::is_standard_layout_v<SpeedToIntValues>);
    EXPECT_TRUE(std::is_standard_layout_v<SpeedToDoubleValues>);

    using IntEntry = SpeedEntry<std::int32_t>;
    using DoubleEntry = SpeedEntry<double>;
    EXPECT_EQ(offsetof(IntEntry, speed), 0U);
    EXPECT_EQ(offsetof(IntEntry, value), 4U);
    EXPECT_EQ(sizeof(IntEntry), 8U);
    EXPECT_EQ(offsetof(DoubleEntry, speed), 0U);
    EXPECT_EQ(offsetof(DoubleEntry, value), 8U);
    EXPECT_EQ(sizeof(DoubleEntry), 16U);
}

TEST(GrowArray, StartsWithoutABuffer)
{
    const SpeedToIntValues table;
    EXPECT_EQ(table.entries, nullptr);
    EXPECT_EQ(table.capacity, 0);
    EXPECT_EQ(table.count, 0);
    EXPECT_EQ(table.growBy, 8);
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.begin(), table.end());
}

TEST(GrowArray, DoublesFromEightOn)
{
    SpeedToIntValues table;
    EXPECT_EQ(Capacities(table, 129), (std::vector{0, 8, 16, 32, 64, 128, 256}));
}

TEST(GrowArray, OfWholeNumbersGrowsBy8192OnceItHoldsThatMany)
{
    SpeedToIntValues table;
    Capacities(table, 4097);
    EXPECT_EQ(table.capacity, 8192);
    EXPECT_EQ(Capacities(table, 32769), (std::vector{8192, 16384, 24576, 32768, 40960}));
}

TEST(GrowArray, OfDecimalsGrowsBy4096OnceItHoldsThatMany)
{
    SpeedToDoubleValues table;
    Capacities(table, 2049);
    EXPECT_EQ(table.capacity, 4096);
    EXPECT_EQ(Capacities(table, 16385), (std::vector{4096, 8192, 12288, 16384, 20480}));
}

TEST(GrowArray, DoublesWhenFullOneEntryBelowTheThreshold)
{
    SpeedToIntValues ints;
    ints.growBy = 8191;
    EXPECT_EQ(Capacities(ints, 8192), (std::vector{0, 8191, 16382}));
    SpeedToDoubleValues doubles;
    doubles.growBy = 4095;
    EXPECT_EQ(Capacities(doubles, 4096), (std::vector{0, 4095, 8190}));
}

TEST(GrowArray, GrowsByItsOwnStepWhereThatIsLarger)
{
    SpeedToIntValues table;
    table.growBy = 100;
    EXPECT_EQ(Capacities(table, 401), (std::vector{0, 100, 200, 400, 800}));
    SpeedToDoubleValues huge;
    huge.growBy = 10000;
    EXPECT_EQ(Capacities(huge, 20001), (std::vector{0, 10000, 20000, 30000}));
}

TEST(GrowArray, NestedRowsStartWithTheSameStep)
{
    EXPECT_EQ(CDSLonGradMaxLen().rows.growBy, 8);
    EXPECT_EQ(CDSLonGradMaxLen().rows[0].lengths.growBy, 8);
    EXPECT_EQ(CDSSuperElevation().definitions.growBy, 8);
    EXPECT_EQ(CDSSuperElevation().definitions[0].rows.growBy, 8);
    EXPECT_EQ(CDSSuperElevation().definitions[0].rows[0].ranges.growBy, 8);
    EXPECT_EQ(CDSCurveWidening().ranges.growBy, 8);
    EXPECT_EQ(CDSCurveWidening().ranges.capacity, 16); // nine ranges
    EXPECT_EQ(CDSCurveWidening().ranges[0].widenings.growBy, 8);
    GrowArray<GradientRow> rows;
    EXPECT_EQ(Capacities(rows, 33), (std::vector{0, 8, 16, 32, 64}));
}

TEST(GrowArray, KeepsOrderAndPlaceWhileItGrows)
{
    SpeedToIntValues table;
    for (int i = 0; i < 20000; ++i)
        table.Add(Entry<std::int32_t>(i));
    ASSERT_EQ(table.count, 20000);
    for (int i = 0; i < table.count; ++i)
        ASSERT_EQ(table[i], Entry<std::int32_t>(i));
}

TEST(GrowArray, ACopyHasTheCapacityAndStepOfItsSource)
{
    SpeedToIntValues source{{80, 1}, {60, 2}, {40, 3}};
    source.growBy = 5;
    const SpeedToIntValues copy(source);
    EXPECT_EQ(copy, source);
    EXPECT_NE(copy.entries, source.entries);
    EXPECT_EQ(copy.capacity, 8);
    EXPECT_EQ(copy.count, 3);
    EXPECT_EQ(copy.growBy, 5);
    source[0].value = 99;
    EXPECT_EQ(copy[0].value, 1);
}

TEST(GrowArray, ACopyOfAnEmptiedTableHasItsCapacityToo)
{
    SpeedToIntValues source{{80, 1}};
    source.RemoveAll();
    const SpeedToIntValues copy(source);
    EXPECT_EQ(copy.capacity, 8);
    EXPECT_NE(copy.entries, nullptr);
    const SpeedToIntValues none{SpeedToIntValues()};
    EXPECT_EQ(none.entries, nullptr);
    EXPECT_EQ(none.capacity, 0);
}

TEST(GrowArray, AssignmentReplacesTheContent)
{
    SpeedToIntValues target{{1, 1}, {2, 2}};
    SpeedToIntValues source;
    for (int i = 0; i < 9; ++i)
        source.Add(Entry<std::int32_t>(i));
    target = source;
    EXPECT_EQ(target, source);
    EXPECT_NE(target.entries, source.entries);
    target = SpeedToIntValues();
    EXPECT_TRUE(target.IsEmpty());
    const SpeedToIntValues one{{7, 7}};
    target = one;
    EXPECT_EQ(target, one);
}

TEST(GrowArray, AssignmentToItselfChangesNothing)
{
    SpeedToIntValues table{{80, 1}, {60, 2}};
    const auto* before = table.entries;
    const SpeedToIntValues& same = table;
    table = same;
    EXPECT_EQ(table.entries, before);
    EXPECT_EQ(table, (SpeedToIntValues{{80, 1}, {60, 2}}));
}

TEST(GrowArray, EmptyingKeepsTheBuffer)
{
    SpeedToIntValues table{{80, 1}};
    const auto* buffer = table.entries;
    table.RemoveAll();
    EXPECT_EQ(table.count, 0);
    EXPECT_EQ(table.capacity, 8);
    EXPECT_EQ(table.entries, buffer);
    table.Add({60, 2});
    EXPECT_EQ(table.entries, buffer);
}

TEST(GrowArray, MakesRoomForAsManyAsAreToCome)
{
    SpeedToIntValues table{{80, 250}};
    table.Reserve(8); // there is room for them
    EXPECT_EQ(table.capacity, 8);
    table.Reserve(11);
    EXPECT_EQ(table.capacity, 11);
    table.Reserve(-1);
    EXPECT_EQ(table.capacity, 11);
    EXPECT_EQ(table, (SpeedToIntValues{{80, 250}}));
    while (table.count < 12)
        table.Add({});
    EXPECT_EQ(table.capacity, 22); // from there on as ever
}

TEST(GrowArray, AnEntryOfItsOwnMayBeAddedWhileItGrows)
{
    GrowArray<std::wstring> texts;
    texts.Add(L"a text that is too long for the small buffer");
    while (texts.count < 64)
        texts.Add(texts[0]);
    for (const std::wstring& text : texts)
        ASSERT_EQ(text, texts[0]);
}

TEST(GrowArray, InsertsAndRemovesInPlace)
{
    GrowArray<std::wstring> texts{L"a", L"c"};
    texts.Insert(1, L"b");
    texts.Insert(3, L"d");
    texts.Insert(0, L"-");
    EXPECT_EQ(texts, (GrowArray<std::wstring>{L"-", L"a", L"b", L"c", L"d"}));
    texts.RemoveAt(0);
    texts.RemoveAt(1);
    texts.RemoveAt(2);
    EXPECT_EQ(texts, (GrowArray<std::wstring>{L"a", L"c"}));
}

TEST(GrowArray, RemovesThoseThatACallerNamesInOnePass)
{
    GrowArray<std::wstring> texts{L"-", L"a", L"-", L"-", L"b", L"-"};
    const auto isDash = [](const std::wstring& text) { return text == L"-"; };
    const int capacity = texts.capacity;
    texts.RemoveIf(isDash);
    EXPECT_EQ(texts, (GrowArray<std::wstring>{L"a", L"b"}));
    EXPECT_EQ(texts.capacity, capacity);
    texts.RemoveIf(isDash);
    EXPECT_EQ(texts.count, 2);
    GrowArray<std::wstring>().RemoveIf(isDash);
}

TEST(GrowArray, ACopyThatEndsInTheMiddleFreesWhatItHad)
{
    GrowArray<WideningRange> ranges;
    for (int i = 0; i < 20; ++i)
        ranges.Add({}).widenings.Add({L"a name too long to stand in the text itself", 1.0});
    const int before = BlocksInUse();
    int ended = 0;
    for (bool whole = false; !whole;) {
        FailAllocationAfter(ended);
        try {
            const GrowArray<WideningRange> copy(ranges);
            whole = true;
        } catch (const std::bad_alloc&) {
            ++ended;
        }
        FailAllocationAfter(-1);
        ASSERT_EQ(BlocksInUse(), before) << "allocation " << ended;
    }
    EXPECT_GT(ended, 40);
}
