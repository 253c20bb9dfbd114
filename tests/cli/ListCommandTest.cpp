#include "base/Text.h"
#include "cli/TextTable.h"
#include "tests/cli/CommandTest.h"

using namespace designspec;

namespace {

using ListCommand = CommandTest;

TEST_F(ListCommand, PrintsNothingForAnEmptyLibrary)
{
    m_folder.Write("规范/readme.txt", "");
    EXPECT_EQ(Done({"list"}), "");
    EXPECT_EQ(DoneJson({"list"}), Json::array());
}

TEST_F(ListCommand, ShowsIndexDefaultMarkNameIdentityAndFile)
{
    New("b");
    New("a");
    Done({"default", "b"});
    const std::string a = IdOf("a");
    const std::string b = IdOf("b");
    EXPECT_EQ(Done({"list"}),
              "0     a  " + a + "  a" + a + ".hds\n" + "1  *  b  " + b + "  b" + b + ".hds\n");
}

TEST_F(ListCommand, AlignsNamesOfDifferentWidth)
{
    New("甲乙丙");
    New("abc");
    const auto lines = Lines(Done({"list"}));
    ASSERT_EQ(lines.size(), 2U);
    const auto column = [&](const std::string& line, const std::string& what) {
        return DisplayWidth(ToWide(line.substr(0, line.find(what))));
    };
    EXPECT_EQ(column(lines[0], "  " + IdOf("abc")), 12);
    EXPECT_EQ(column(lines[0], IdOf("abc")), column(lines[1], IdOf("甲乙丙")));
}

TEST_F(ListCommand, GivesTheSameAsJson)
{
    New("城市");
    New("a");
    Done({"default", "城市"});
    const Json list = DoneJson({"list"});
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["index"], 0);
    EXPECT_EQ(list[0]["default"], false);
    EXPECT_EQ(list[0]["name"], "a");
    EXPECT_EQ(list[1]["index"], 1);
    EXPECT_EQ(list[1]["default"], true);
    EXPECT_EQ(list[1]["name"], "城市");
    EXPECT_EQ(list[1]["file"], "城市" + list[1]["id"].get<std::string>() + ".hds");
}

} // namespace
