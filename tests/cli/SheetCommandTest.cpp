#include "tests/cli/CommandTest.h"

namespace {

class SheetCommand : public CommandTest {
protected:
    SheetCommand() { New("城市"); }

    std::string Stored(const std::string& name) const { return m_folder.Read(FileOf(name)); }
    std::string MinLen(const std::string& name, const std::string& speed) const
    {
        return Done({"--spec", name, "query", "LonGradMinLen.MinLens[" + speed + "]"});
    }
    // A table of one page.
    void Table(const std::string& values) const
    {
        m_folder.Write("a.csv", "设计车速,80,60\n最小坡长," + values + "\n");
    }
};

TEST_F(SheetCommand, ReadsWhatItWritesWithoutAChange)
{
    const std::string before = Stored("城市");
    EXPECT_EQ(Done({"sheet", "write", "城市", "a.xlsx"}), "");
    EXPECT_EQ(Done({"sheet", "read", "a.xlsx", "--dry-run"}), "");
    EXPECT_EQ(Done({"sheet", "read", "a.xlsx"}), "");
    EXPECT_EQ(Stored("城市"), before);
}

TEST_F(SheetCommand, WritesAWorkbookForEach)
{
    New("公路");
    Done({"sheet", "write", "城市", "公路", "out"});
    EXPECT_TRUE(m_folder.Has("out/城市.xlsx"));
    EXPECT_TRUE(m_folder.Has("out/公路.xlsx"));
    Done({"sheet", "write", "--all", "all"});
    EXPECT_TRUE(m_folder.Has("all/公路.xlsx"));
    Done({"sheet", "write", "城市", "all"});
    Done({"--spec", "公路", "sheet", "write", "公路.xlsx"});
    EXPECT_EQ(Done({"sheet", "read", "公路.xlsx", "--dry-run"}), "");
}

TEST_F(SheetCommand, WritesSeveralIntoOneWorkbookForComparing)
{
    New("公路");
    Done({"sheet", "write", "--all", "--together", "a.xlsx"});
    Fails(3, "几个设计规范的对照,不能读入", {"sheet", "read", "a.xlsx"});
}

TEST_F(SheetCommand, SaysWhereAWorkbookCannotGo)
{
    New("公路");
    Fails(2, "要写入一个文件夹", {"sheet", "write", "城市", "公路", "a.xlsx"});
    Fails(2, "应以 .xlsx 结尾", {"sheet", "write", "城市", "a.ods"});
    Fails(2, "应以 .xlsx 结尾", {"sheet", "write", "城市", "公路", "--together", "a"});
    Fails(2, "没有设计规范“乡村”", {"sheet", "write", "乡村", "a.xlsx"});
    Fails(2, "已有 --all", {"sheet", "write", "城市", "a.xlsx", "--all"});
    std::filesystem::create_directory(m_folder.Native("b.xlsx"));
    EXPECT_EQ(Call({"sheet", "write", "城市", "b.xlsx"}).status, 3);
    EXPECT_EQ(Call({"sheet", "write", "城市", "nowhere/a.xlsx"}).status, 3);
    Fails(2, "designspec sheet --help", {"sheet"});
}

TEST_F(SheetCommand, TakesTheTableOfAFile)
{
    Table("300,200");
    EXPECT_EQ(Done({"sheet", "read", "a.csv", "--dry-run"}),
              "纵坡最小坡长\n"
              "  最小坡长  车速 80 km/h  290 m  →  300 m\n"
              "  最小坡长  车速 60 km/h  170 m  →  200 m\n"
              "  最小坡长  车速 50 km/h  140 m  →  (无)\n"
              "  最小坡长  车速 40 km/h  110 m  →  (无)\n"
              "  最小坡长  车速 30 km/h  85 m   →  (无)\n"
              "  最小坡长  车速 20 km/h  60 m   →  (无)\n");
    EXPECT_EQ(MinLen("城市", "80"), "290\n");
    EXPECT_EQ(Done({"sheet", "read", "a.csv"}), "");
    EXPECT_EQ(MinLen("城市", "80"), "300\n");
    EXPECT_EQ(Call({"query", "LonGradMinLen.MinLens[50]"}).status, 1);
}

TEST_F(SheetCommand, ChangesNothingWhenOneCellIsWrong)
{
    const std::string before = Stored("城市");
    Table("3oo,2oo");
    const ProcessResult wrong = Call({"sheet", "read", "a.csv"});
    EXPECT_EQ(wrong.status, 3);
    EXPECT_EQ(wrong.err, "designspec: a.csv: B2: 值“3oo”不是整数\n"
                         "designspec: a.csv: C2: 值“2oo”不是整数\n"
                         "designspec: 未作任何修改\n");
    Table("-300,200");
    Fails(2, "编辑器不接受其中的值", {"sheet", "read", "a.csv"});
    Fails(3, "missing.csv", {"sheet", "read", "missing.csv"});
    EXPECT_EQ(Stored("城市"), before);
    EXPECT_EQ(Call({"sheet", "read", "a.csv", "--force"}).status, 0);
    EXPECT_EQ(MinLen("城市", "80"), "-300\n");
}

TEST_F(SheetCommand, MakesANewOne)
{
    Table("300,200");
    EXPECT_THAT(Done({"sheet", "read", "a.csv", "--new", "公路", "--dry-run"}),
                HasSubstr("290 m  →  300 m"));
    EXPECT_EQ(Names(), Words{"城市"});
    Done({"sheet", "read", "a.csv", "--new", "公路"});
    EXPECT_EQ(Names(), (Words{"公路", "城市"}));
    EXPECT_EQ(MinLen("公路", "80"), "300\n");
    EXPECT_EQ(MinLen("城市", "80"), "290\n");
    Fails(2, "和已有样式重名!", {"sheet", "read", "a.csv", "--new", "公路"});
    Fails(2, "只能写一个", {"--spec", "城市", "sheet", "read", "a.csv", "--new", "乡村"});
}

TEST_F(SheetCommand, ReadsIntoTheOneThatItWasWrittenFrom)
{
    New("公路");
    Done({"sheet", "write", "公路", "a.xlsx"});
    Done({"--spec", "公路", "set", "LonGradMinLen.MinLens", "--speed", "80", "333"});
    EXPECT_THAT(Done({"sheet", "read", "a.xlsx", "--dry-run"}), HasSubstr("333 m  →  290 m"));
    Done({"sheet", "read", "a.xlsx"});
    EXPECT_EQ(MinLen("公路", "80"), "290\n");
}

} // namespace
