#include "base/Problem.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(Problem, ShowsItsFileAndLineAsFarAsThereAreAny)
{
    EXPECT_EQ((Problem{Severity::Error, L"a.hds", 12, L"坏"}.Text()), L"a.hds:12: 坏");
    EXPECT_EQ((Problem{Severity::Error, L"a.hds", 0, L"坏"}.Text()), L"a.hds: 坏");
    EXPECT_EQ((Problem{Severity::Note, L"", 12, L"好"}.Text()), L"好");
}

TEST(Problem, NamesTheFileAsTheSystemDoes)
{
    Problems problems;
    AddProblem(problems, Severity::Note, L"\\项目\\a.hds", 3, L"好");
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].Text(), L"/项目/a.hds:3: 好");
    EXPECT_FALSE(HasError(problems));
    AddProblem(problems, Severity::Error, L"", 0, L"坏");
    EXPECT_TRUE(HasError(problems));
    EXPECT_FALSE(HasError({}));
}
