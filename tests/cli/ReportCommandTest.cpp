#include "tests/cli/CommandTest.h"

namespace {

class ReportCommand : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        Done({"new", "干线", "--from", "城市"});
        Done({"--spec", "干线", "set", "设超高最小半径", "--speed", "80", "260"});
    }

    std::string Report(Words words) const
    {
        words.insert(words.begin(), "report");
        words.insert(words.end(), {"-o", "r.html"});
        EXPECT_EQ(Done(words), "");
        return m_folder.Read("r.html");
    }
};

TEST_F(ReportCommand, WritesThoseThatAreNamed)
{
    const std::string html = Report({"城市", "干线"});
    EXPECT_THAT(html, HasSubstr("<h2>城市</h2>"));
    EXPECT_THAT(html, HasSubstr("<h2>干线</h2>"));
    EXPECT_THAT(html, HasSubstr("<td>260</td>"));
    EXPECT_THAT(html, Not(HasSubstr("class=\"differs\"")));
}

TEST_F(ReportCommand, TakesTheChosenOneWithoutAName)
{
    const std::string html = Report({"--spec", "干线"});
    EXPECT_THAT(html, HasSubstr("<h2>干线</h2>"));
    EXPECT_THAT(html, Not(HasSubstr("<h2>城市</h2>")));
}

TEST_F(ReportCommand, MarksWhereItDiffersFromAnother)
{
    const std::string html = Report({"干线", "--compare", "城市"});
    EXPECT_THAT(html, HasSubstr("<td class=\"differs\">260 <small>[250]</small></td>"));
    EXPECT_THAT(html, HasSubstr("圆曲线半径</a> <small>1 处不同</small>"));
    EXPECT_THAT(html, HasSubstr("与“城市”比较"));
}

TEST_F(ReportCommand, TakesFilesAsWell)
{
    Done({"export", "两个.hds"});
    const std::string html = Report({"两个.hds", "--compare", "两个.hds#城市"});
    EXPECT_THAT(html, HasSubstr("<h2>城市</h2>"));
    EXPECT_THAT(html, HasSubstr("<td class=\"differs\">260 <small>[250]</small></td>"));
}

TEST_F(ReportCommand, RefusesWhatItCannotWrite)
{
    Fails(2, "缺少 --output", {"report", "城市"});
    Fails(2, "报告“r.pdf”的扩展名不是 .html",
          {"report", "城市", "-o", "r.pdf"});
    Fails(2, "没有设计规范“高速”", {"report", "高速", "-o", "r.html"});
    EXPECT_FALSE(m_folder.Has("r.html"));
    Fails(3, "没有/r.html", {"report", "城市", "-o", "没有/r.html"});
}

} // namespace
