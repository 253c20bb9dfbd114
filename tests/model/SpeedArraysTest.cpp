#include "model/SpeedArrays.h"

#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

constexpr double kNone = -7;

template <class T> bool AskOne(const GrowArray<SpeedEntry<T>>& table, int speed, int mode, T& value)
{
    const auto wanted = static_cast<QueryValue::QueryMode>(mode);
    if constexpr (std::is_same_v<T, double>)
        return QueryValue::QueryDoubleValBySpeed(&table, speed, wanted, value);
    else
        return QueryValue::QueryIntValBySpeed(&table, speed, wanted, value);
}

// Each mode, with and without room for what was found.
template <class T>
void ExpectSame(const GrowArray<SpeedEntry<T>>& table, const std::vector<std::int32_t>& speeds)
{
    for (int mode = QueryValue::Nearest; mode <= QueryValue::Exact; ++mode) {
        const auto wanted = static_cast<QueryValue::QueryMode>(mode);
        std::vector<double> values(speeds.size()), alone(speeds.size());
        std::vector<std::uint8_t> found(speeds.size(), 9);
        QueryMany(table, speeds, wanted, kNone, values.data(), found.data());
        QueryMany(table, speeds, wanted, kNone, alone.data(), nullptr);
        EXPECT_EQ(values, alone);
        for (std::size_t i = 0; i < speeds.size(); ++i) {
            T value = 0;
            const bool answered = AskOne(table, speeds[i], mode, value);
            ASSERT_EQ(found[i], answered ? 1 : 0) << mode << ": " << speeds[i];
            ASSERT_EQ(values[i], answered ? static_cast<double>(value) : kNone)
                << mode << ": " << speeds[i];
        }
    }
}

std::vector<std::int32_t> ManySpeeds(std::size_t count)
{
    std::mt19937 random(7);
    std::vector<std::int32_t> speeds = {std::numeric_limits<std::int32_t>::min(),
                                        std::numeric_limits<std::int32_t>::max(), 0, -1, 1};
    while (speeds.size() < count)
        speeds.push_back(std::uniform_int_distribution(-20, 220)(random));
    return speeds;
}

TEST(SpeedArrays, AreAnsweredAsOneByOne)
{
    std::mt19937 random(11);
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    for (int turn = 0; turn < 40; ++turn) {
        SpeedToIntValues whole;
        SpeedToDoubleValues decimal;
        for (int i = number(0, 9); i > 0; --i) {
            AddSpeed(whole, number(-5, 200), number(0, 1000));
            AddSpeed(decimal, number(-5, 200), number(0, 1000) / 8.0);
        }
        for (const std::size_t count : {5U, 40U, 3000U}) {
            ExpectSame(whole, ManySpeeds(count));
            ExpectSame(decimal, ManySpeeds(count));
        }
    }
}

TEST(SpeedArrays, TakeTablesOfEverySpeed)
{
    const SpeedToIntValues wide = {{std::numeric_limits<std::int32_t>::max(), 3},
                                   {5, 2},
                                   {std::numeric_limits<std::int32_t>::min(), 1}};
    ExpectSame(wide, ManySpeeds(5000));
    ExpectSame(SpeedToIntValues{{4100, 3}, {1, 2}}, ManySpeeds(5000));
    ExpectSame(SpeedToIntValues{{80, 3}, {60, 2}, {80, 4}}, ManySpeeds(500));
    ExpectSame(SpeedToDoubleValues{}, ManySpeeds(500));
    ExpectSame(SpeedToDoubleValues{{60, 0.5}}, {});
}

} // namespace
