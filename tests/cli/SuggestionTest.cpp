#include "cli/Suggestion.h"

#include <gtest/gtest.h>

namespace {

const std::vector<std::string> kKnown = {"list",   "show",   "query",   "new",
                                         "rename", "remove", "restore", "default",
                                         "set",    "export", "import",  "--help"};

TEST(Suggestion, IsTheWordAFewLettersOff)
{
    EXPECT_EQ(SuggestionFor("lst", kKnown), "list");
    EXPECT_EQ(SuggestionFor("qeury", kKnown), "query");
    EXPECT_EQ(SuggestionFor("exprot", kKnown), "export");
    EXPECT_EQ(SuggestionFor("imports", kKnown), "import");
    EXPECT_EQ(SuggestionFor("--hepl", kKnown), "--help");
}

TEST(Suggestion, IsTheWordThatOtherProgramsCallSo)
{
    EXPECT_EQ(SuggestionFor("delete", kKnown), "remove");
    EXPECT_EQ(SuggestionFor("undelete", kKnown), "restore");
    EXPECT_EQ(SuggestionFor("ls", kKnown), "list");
    EXPECT_EQ(SuggestionFor("delete", {"list"}), "");
}

TEST(Suggestion, IsNoneWhereNothingIsNear)
{
    EXPECT_EQ(SuggestionFor("x", kKnown), "");
    EXPECT_EQ(SuggestionFor("", kKnown), "");
    EXPECT_EQ(SuggestionFor("城市道路", kKnown), "");
    EXPECT_EQ(SuggestionFor(std::string(100000, 'l'), kKnown), "");
    EXPECT_EQ(SuggestionFor("list", {}), "");
}

} // namespace
