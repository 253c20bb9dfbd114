#include "host/ReportOption.h"

#include "TreePaths.h"
#include "tests/host/HostTest.h"
#include "tests/support/Process.h"

using namespace designspec;

namespace {

class ReportOptionTest : public HostTest {
protected:
    void Write(int status, const QStringList& specs, const QString& compare = {},
               const CString& file = L"report.pdf")
    {
        EXPECT_EQ(WriteReport(*host, {ToQString(out.Path(file)), specs, compare}), status);
    }
    std::string Report() const { return out.Read("report.pdf"); }

    TemporaryFolder out;
};

TEST_F(ReportOptionTest, StylesAreNamedInTheirOrder)
{
    Have({L"甲", L"乙", L"Ab"});
    Start();
    const QString id = ToQString(VMRDPub::GUIDToStr(files.Item(L"甲")->id));
    Write(0, {QStringLiteral("aB"), id}, QStringLiteral("乙"));
    EXPECT_EQ(Report(), "Ab\n甲\n-乙\n");
}

TEST_F(ReportOptionTest, WithoutANameItIsTheDefaultOneOrTheFirst)
{
    Have({L"A", L"B"});
    Start();
    Write(0, {});
    EXPECT_EQ(Report(), "A\n");
    ClickRow(L"B");
    Key(Qt::Key_D, Qt::ControlModifier);
    Write(0, {});
    EXPECT_EQ(Report(), "B\n");
}

TEST_F(ReportOptionTest, AnUnknownStyleIsStatus2)
{
    Have({L"甲"});
    Start();
    Write(2, {QStringLiteral("甲"), QStringLiteral("丙")});
    Write(2, {QStringLiteral("丙")});
    Write(2, {QStringLiteral("甲")}, QStringLiteral("丙"));
    EXPECT_FALSE(out.Has("report.pdf"));
}

TEST_F(ReportOptionTest, WithoutStylesItIsStatus2)
{
    Start();
    Write(2, {});
}

TEST_F(ReportOptionTest, WhatCannotBeWrittenIsStatus3)
{
    Have({L"甲"});
    Start();
    Write(3, {}, {}, L"没有/report.pdf");
    EXPECT_EQ(out.Count(), 0);
}

// The program itself, with the real module, on a project of its own and without a display.
class ReportProgram : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::filesystem::copy(SOURCE_DIR "/examples/project", folder.Native("project"),
                              std::filesystem::copy_options::recursive);
    }
    ProcessResult Run(std::vector<std::string> options)
    {
        options.insert(options.begin(), BINARY_DIR "/bin/roadhost");
        return RunProcess(options, folder.Native(), [this] {
            unsetenv("QT_QPA_PLATFORM");
            unsetenv("DISPLAY");
            unsetenv("WAYLAND_DISPLAY");
            setenv("XDG_CONFIG_HOME", folder.Native("config").c_str(), 1);
        });
    }
    TemporaryFolder folder;
};

TEST_F(ReportProgram, WritesPdfAndHtmlWithoutADisplay)
{
    const auto pdf = Run({"--report", "a.pdf", "--spec", "公路二级", "--spec", "城市道路",
                          "--compare", "高速公路", "--project", "project"});
    EXPECT_EQ(pdf.status, 0) << pdf.err;
    EXPECT_EQ(pdf.out + pdf.err, "");
    EXPECT_EQ(folder.Read("a.pdf").substr(0, 5), "%PDF-");
    const auto html = Run({"--report=b.html", "--spec", "公路二级", "project"});
    EXPECT_EQ(html.status, 0) << html.err;
    EXPECT_NE(folder.Read("b.html").find("<h2>公路二级</h2>"), std::string::npos);
    EXPECT_FALSE(folder.Has("config")); // the user's settings are left alone
}

TEST_F(ReportProgram, IsInTheProjectWhenNoneIsNamed)
{
    std::filesystem::rename(folder.Native("project/规范"), folder.Native("规范"));
    EXPECT_EQ(Run({"--report", "a.pdf"}).status, 0);
    EXPECT_TRUE(folder.Has("a.pdf"));
}

TEST_F(ReportProgram, TellsWhatIsWrong)
{
    const auto unknown = Run({"--report", "a.pdf", "--spec", "没有的", "--project", "project"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "没有样式: 没有的\n");
    const auto ending = Run({"--report", "a.doc", "--project", "project"});
    EXPECT_EQ(ending.status, 3);
    EXPECT_NE(ending.err.find("报告的扩展名不是 .pdf 或 .html"), std::string::npos);
    const auto nowhere = Run({"--report", "没有/a.pdf", "--project", "project"});
    EXPECT_EQ(nowhere.status, 3);
    EXPECT_NE(nowhere.err.find("没有/a.pdf"), std::string::npos);
    const auto noProject = Run({"--report", "a.pdf", "--project", "nowhere"});
    EXPECT_EQ(noProject.status, 3);
    EXPECT_FALSE(folder.Has("a.pdf"));
}

// What comes from half a library must not pass unnoticed; what could be read is there.
TEST_F(ReportProgram, ABrokenFileIsToldAndStatus3)
{
    folder.Write("project/规范/坏.hds", "<broken");
    const auto result = Run({"--report", "a.pdf", "--spec", "公路二级", "--project", "project"});
    EXPECT_EQ(result.status, 3);
    EXPECT_NE(result.err.find("坏.hds"), std::string::npos);
    EXPECT_TRUE(folder.Has("a.pdf"));
}

} // namespace
