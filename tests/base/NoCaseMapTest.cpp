#include "base/NoCaseMap.h"

#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

using Map = NoCaseMap<int>;

int ValueOf(const Map& map, std::wstring_view text)
{
    const Map::Node* const found = map.Find(NoCaseText(text));
    return found ? found->value : -1;
}

} // namespace

TEST(NoCaseMap, FindsATextHoweverItIsWritten)
{
    Map map;
    EXPECT_EQ(map.Find(NoCaseText(L"road")), nullptr);
    map.Enter(L"road").value = 1;
    map.Enter(L"城市道路").value = 2;
    EXPECT_EQ(ValueOf(map, L"ROAD"), 1);
    EXPECT_EQ(ValueOf(map, L"Road"), 1);
    EXPECT_EQ(ValueOf(map, L"城市道路"), 2);
    EXPECT_EQ(ValueOf(map, L"roads"), -1);
    EXPECT_EQ(ValueOf(map, L""), -1);
    EXPECT_EQ(map.Size(), 2u);
}

TEST(NoCaseMap, GivesTheOneThatIsThere)
{
    Map map;
    Map::Node& made = map.Enter(L"road");
    EXPECT_EQ(made.value, 0);
    EXPECT_EQ(made.Folded(), L"road");
    EXPECT_EQ(&map.Enter(L"road"), &made);
    EXPECT_EQ(map.Size(), 1u);
    map.Enter(L"");
    EXPECT_EQ(ValueOf(map, L""), 0); // no text is one, too
    EXPECT_EQ(map.Size(), 2u);
}

TEST(NoCaseMap, KeepsNodesInTheirPlaceWhileItGrows)
{
    Map map;
    const Map::Node* const first = &map.Enter(L"first");
    for (int i = 0; i < 1000; ++i)
        map.Enter(std::to_wstring(i)).value = i;
    EXPECT_EQ(map.Find(NoCaseText(L"FIRST")), first);
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(ValueOf(map, std::to_wstring(i)), i);
}

TEST(NoCaseMap, IsEmptyOnceItIsCleared)
{
    Map map;
    for (int i = 0; i < 100; ++i)
        map.Enter(std::to_wstring(i));
    map.Clear();
    EXPECT_EQ(map.Size(), 0u);
    EXPECT_EQ(map.Find(NoCaseText(L"7")), nullptr);
    map.Enter(L"7").value = 7;
    EXPECT_EQ(ValueOf(map, L"7"), 7);
}

// Few texts for many steps, so that those that stand close to each other come and go in any order.
TEST(NoCaseMap, HoldsWhatAMapHoldsWhateverComesAndGoes)
{
    std::mt19937 random(7);
    Map map;
    std::map<std::wstring, int> expected;
    for (int step = 0; step < 50000; ++step) {
        // Now it fills, now it empties.
        const unsigned entering = step / 5000 % 2 == 0 ? 3 : 1;
        const std::wstring text = L"规范" + std::to_wstring(random() % 600);
        if (random() % 4 < entering) {
            map.Enter(text).value = step;
            expected[text] = step;
        } else if (Map::Node* const node = map.Find(NoCaseText(text))) {
            map.Erase(*node);
            ASSERT_EQ(expected.erase(text), 1u);
        } else {
            ASSERT_FALSE(expected.contains(text));
        }
        ASSERT_EQ(map.Size(), expected.size());
        if (step % 500 != 0) continue;
        for (int i = 0; i < 600; ++i) {
            const std::wstring asked = L"规范" + std::to_wstring(i);
            const auto there = expected.find(asked);
            ASSERT_EQ(ValueOf(map, asked), there == expected.end() ? -1 : there->second);
        }
    }
}
