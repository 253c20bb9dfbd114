#include "compare/DifferenceChoices.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "model/SpecificationValue.h"
#include "tests/support/ValidSpecification.h"

namespace {

using S = CDesignSpecification;
using Places = std::vector<std::size_t>;
const DifferenceChoices::Changeable kBoth;

Places All(const DifferenceChoices& choices)
{
    Places all;
    for (std::size_t i = 0; i < choices.Values().size(); ++i)
        all.push_back(i);
    return all;
}

std::size_t Find(const DifferenceChoices& choices, const CString& path)
{
    for (std::size_t i = 0; i < choices.Values().size(); ++i)
        if (choices.Values()[i].path == path) return i;
    ADD_FAILURE() << "no " << ToUtf8(path);
    return 0;
}

std::size_t Differing(const DifferenceChoices& choices)
{
    std::size_t count = 0;
    for (const std::size_t value : All(choices))
        count += choices.IsDifferent(value) ? 1U : 0U;
    return count;
}

S As(const S& one, const S& content)
{
    S made = one;
    made.CopyCriteria(content);
    return made;
}

} // namespace

// Two

TEST(DifferenceChoices, AtFirstEachSideIsWhatItWas)
{
    ValidSpecification random(3);
    const S left = random.Make(L"左");
    const S right = random.Make(L"右");
    const DifferenceChoices choices(left, right, kBoth);
    EXPECT_GT(Differing(choices), 0U);
    EXPECT_TRUE(choices.MadeLeft() == left);
    EXPECT_TRUE(choices.MadeRight() == right);
    EXPECT_FALSE(choices.IsLeftChanged() || choices.IsRightChanged());
}

TEST(DifferenceChoices, AllToOneSideMakesItTheOtherUnderItsOwnName)
{
    ValidSpecification random(5);
    const S left = random.Make(L"左");
    const S right = random.Make(L"右");
    DifferenceChoices choices(left, right, kBoth);
    EXPECT_TRUE(choices.Choose(All(choices), Choice::Right));
    EXPECT_TRUE(choices.MadeLeft() == As(left, right));
    EXPECT_TRUE(choices.MadeRight() == right);
    EXPECT_TRUE(choices.IsLeftChanged());
    EXPECT_FALSE(choices.IsRightChanged());
    EXPECT_TRUE(choices.Choose(All(choices), Choice::Left));
    EXPECT_TRUE(choices.MadeLeft() == left);
    EXPECT_TRUE(choices.MadeRight() == As(right, left));
    EXPECT_FALSE(choices.IsLeftChanged());
    EXPECT_TRUE(choices.IsRightChanged());
}

// What is taken either way is the same on both sides, and nothing else is.
TEST(DifferenceChoices, WhatIsNotTakenStillDiffers)
{
    ValidSpecification valid(7); // its rows have keys of their own
    RandomSpecification& random = valid.Random();
    for (int i = 0; i < 8; ++i) {
        const S left = valid.Make(L"左");
        const S right = valid.Make(L"右");
        DifferenceChoices choices(left, right, kBoth);
        Places toLeft;
        Places toRight;
        for (const std::size_t value : All(choices)) {
            if (choices.Values()[value].label.ends_with(L"的顺序")) continue;
            if (random.Below(3) == 0) toLeft.push_back(value);
            if (random.Below(3) == 0) toRight.push_back(value);
        }
        choices.Choose(toLeft, Choice::Right);
        choices.Choose(toRight, Choice::Left);
        std::set<CString> open;
        for (const std::size_t value : All(choices))
            if (choices.IsDifferent(value) && choices.Of(value) == Choice::None)
                open.insert(choices.Values()[value].path + choices.Values()[value].key);
        for (const Difference& one : Differences(choices.MadeLeft(), choices.MadeRight()))
            EXPECT_TRUE(open.contains(one.path + one.key) || one.path == L"Name" ||
                        one.label.ends_with(L"的顺序"))
                << ToUtf8(one.path);
    }
}

TEST(DifferenceChoices, AValueIsTakenByItself)
{
    S left;
    S right = left;
    left.SetName(L"左");
    right.LonGradMinLen.MinLens[0].value = 310;
    right.BeelineLen.MaxLen = 30;
    DifferenceChoices choices(left, right, kBoth);
    const std::size_t length = Find(choices, L"LonGradMinLen.MinLens[80]");
    EXPECT_EQ(Differing(choices), 3U) << "the name of one specification counts";
    EXPECT_TRUE(choices.Choose({length}, Choice::Right));
    EXPECT_EQ(choices.Left(length), L"310 m");
    EXPECT_EQ(choices.MadeLeft().LonGradMinLen.MinLens[0].value, 310);
    EXPECT_EQ(choices.MadeLeft().BeelineLen.MaxLen, left.BeelineLen.MaxLen);
    EXPECT_FALSE(choices.Choose({Find(choices, L"Name")}, Choice::Right));
}

TEST(DifferenceChoices, ASideThatCanOnlyBeReadStaysAsItIs)
{
    const S left;
    S right;
    right.BeelineLen.MaxLen = 30;
    DifferenceChoices choices(left, right, {.left = true, .right = false});
    EXPECT_FALSE(choices.Choose(All(choices), Choice::Left));
    EXPECT_FALSE(choices.CanUndo());
    EXPECT_TRUE(choices.Choose(All(choices), Choice::Right));
}

TEST(DifferenceChoices, NamesOfTwoSpecificationsAreNoDifference)
{
    S left;
    S right;
    left.SetName(L"左");
    right.SetName(L"右");
    right.BeelineLen.MaxLen = 30;
    DifferenceChoices choices(left, right, kBoth);
    EXPECT_EQ(Differing(choices), 1U);
    choices.Choose(All(choices), Choice::Right);
    EXPECT_EQ(choices.MadeLeft().BeelineLen.MaxLen, 30);
    EXPECT_EQ(choices.MadeLeft().Name(), L"左");
}

TEST(DifferenceChoices, EachChoiceIsUndoneAndRedone)
{
    const S left;
    S right;
    right.BeelineLen.MaxLen = 30;
    right.CircularCurveRad.MaxRad = 9000;
    DifferenceChoices choices(left, right, kBoth);
    const std::size_t longest = Find(choices, L"BeelineLen.MaxLen");
    const std::size_t radius = Find(choices, L"CircularCurveRad.MaxRad");
    choices.Choose({longest}, Choice::Right);
    choices.Choose({longest, radius}, Choice::Left);
    choices.Undo();
    EXPECT_EQ(choices.Of(longest), Choice::Right);
    EXPECT_EQ(choices.Of(radius), Choice::None);
    choices.Redo();
    EXPECT_EQ(choices.Of(radius), Choice::Left);
    choices.Undo();
    choices.Undo();
    EXPECT_FALSE(choices.CanUndo());
    choices.Undo();
    EXPECT_TRUE(choices.MadeLeft() == left);
    choices.Choose({radius}, Choice::Right);
    EXPECT_FALSE(choices.CanRedo()) << "another way was gone";
    EXPECT_FALSE(choices.Choose({radius}, Choice::Right)) << "it is so already";
}

// Three

TEST(DifferenceChoices, OfThreeWhatOneAloneChangedCountsAtFirst)
{
    S base;
    S mine = base;
    S theirs = base;
    mine.BeelineLen.MaxLen = 25;
    theirs.CircularCurveRad.MaxRad = 8000;
    mine.LonGradMinLen.MinLens[0].value = 300;
    theirs.LonGradMinLen.MinLens[0].value = 310;
    DifferenceChoices choices(base, mine, theirs);
    EXPECT_EQ(choices.Unsettled(), 1);
    EXPECT_EQ(choices.Made().BeelineLen.MaxLen, 25);
    EXPECT_EQ(choices.Made().CircularCurveRad.MaxRad, 8000);
    EXPECT_EQ(choices.Made().LonGradMinLen.MinLens[0].value, 300);
    choices.Choose({Find(choices, L"LonGradMinLen.MinLens[80]")}, Choice::Right);
    EXPECT_EQ(choices.Unsettled(), 0);
    EXPECT_EQ(choices.Made().LonGradMinLen.MinLens[0].value, 310);
    choices.Choose({Find(choices, L"CircularCurveRad.MaxRad")}, Choice::Left);
    EXPECT_EQ(choices.Made().CircularCurveRad.MaxRad, base.CircularCurveRad.MaxRad);
}

TEST(DifferenceChoices, OfThreeAllOfOneSideGiveThatSide)
{
    RandomSpecification random(9);
    const S base = random.Make();
    S mine = As(base, random.Make());
    S theirs = As(base, random.Make());
    theirs.SetName(L"对方起的名");
    DifferenceChoices choices(base, mine, theirs);
    choices.Choose(All(choices), Choice::Right);
    EXPECT_TRUE(choices.Made() == theirs);
    choices.Choose(All(choices), Choice::Left);
    EXPECT_TRUE(choices.Made() == mine);
}

TEST(DifferenceChoices, WhatBothChangedToTheSameIsNoChoice)
{
    const S base;
    S mine = base;
    mine.BeelineLen.MaxLen = 25;
    const S theirs = mine;
    DifferenceChoices choices(base, mine, theirs);
    EXPECT_FALSE(choices.Choose(All(choices), Choice::Right));
    EXPECT_EQ(choices.Unsettled(), 0);
}
