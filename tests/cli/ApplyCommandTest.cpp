#include "base/Text.h"
#include "tests/cli/CommandTest.h"

namespace {

class ApplyCommand : public CommandTest {
protected:
    ApplyCommand() { New("城市"); }

    // The file of the specification, to the last byte.
    std::string Stored() const { return m_folder.Read(FileOf("城市")); }
    void Document(const std::string& fields) const
    {
        m_folder.Write("a.json", R"({"criteria": {"LonGrad": {)" + fields + "}}}");
    }
    std::string At(const std::string& path) const { return Done({"query", path}); }
};

TEST_F(ApplyCommand, ChangesWhatTheDocumentHas)
{
    m_folder.Write("a.json", R"({"criteria": {
        "LonGrad": {"MinGrad": 0.5, "MaxGradLimitedValues": [{"speed": 60, "value": 6.5}]},
        "LonGradMaxLen": {"rows": [
            {"Grad": 5, "lengths": [{"speed": 60, "value": 500}, {"speed": 80, "value": 400}]}]}}})");
    EXPECT_EQ(Done({"apply", "a.json"}), "");
    EXPECT_EQ(At("LonGrad.MinGrad"), "0.5\n");
    EXPECT_EQ(At("LonGrad.MaxGradLimitedValues[60]"), "6.5\n");
    EXPECT_EQ(Call({"query", "LonGrad.MaxGradLimitedValues[80]"}).status, 1);
    EXPECT_EQ(At("LonGradMaxLen.rows[5].lengths[60]"), "500\n");
    EXPECT_EQ(At("LonGrad.GradeCompensationOnPlateau"), "1\n");
}

TEST_F(ApplyCommand, TakesWhatShowPrintsWithoutAChange)
{
    const std::string before = Stored();
    m_folder.Write("a.json", Done({"show", "--json"}));
    EXPECT_EQ(Done({"apply", "a.json", "--dry-run"}), "");
    EXPECT_EQ(Done({"apply", "a.json"}), "");
    EXPECT_EQ(Stored(), before);
}

TEST_F(ApplyCommand, ListsTheDifferencesAndLeavesTheFile)
{
    const std::string before = Stored();
    Document(R"("MinGrad": 0.5, "Criterion": "规范 3.2")");
    EXPECT_EQ(Done({"apply", "a.json", "--dry-run"}), "纵坡坡度\n"
                                                      "  最小纵坡    0.3%    →  0.5%\n"
                                                      "  数据来源    (未填)  →  规范 3.2\n");
    const Json json = DoneJson({"apply", "a.json", "--dry-run"});
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[0]["path"], "LonGrad.MinGrad");
    EXPECT_EQ(json[0]["left"], "0.3%");
    EXPECT_EQ(json[0]["right"], "0.5%");
    EXPECT_EQ(Stored(), before);
}

TEST_F(ApplyCommand, ChangesNothingWhenOneValueIsWrong)
{
    const std::string before = Stored();
    Document(R"("MinGrad": 0.5, "GradeCompensationOnPlateau": "x", "Max": 1)");
    Fails(3, "a.json: /criteria/LonGrad/GradeCompensationOnPlateau: 应为数", {"apply", "a.json"});
    Fails(3, "a.json: /criteria/LonGrad/Max: 没有这个名称", {"apply", "a.json"});
    m_folder.Write("a.json", "{\n,");
    Fails(3, "a.json:2: ", {"apply", "a.json"});
    Fails(3, "b.json", {"apply", "b.json"});
    EXPECT_EQ(Stored(), before);
}

TEST_F(ApplyCommand, RefusesWhatTheEditorRefusesUnlessForced)
{
    const std::string before = Stored();
    Document(R"("MinGrad": -1)");
    Fails(2, "--force", {"apply", "a.json"});
    const ProcessResult listed = Call({"apply", "a.json", "--dry-run"});
    EXPECT_EQ(listed.status, 2);
    EXPECT_THAT(listed.out, HasSubstr("0.3%  →  -1%"));
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(Call({"apply", "a.json", "--force"}).status, 0);
    EXPECT_EQ(At("LonGrad.MinGrad"), "-1\n");
    // What is there already is no new fault.
    Document(R"("GradeCompensationOnPlateau": 2)");
    EXPECT_EQ(Done({"apply", "a.json"}), "");
}

TEST_F(ApplyCommand, FindsTheSpecificationThatTheDocumentIsOf)
{
    New("公路");
    const std::string id = IdOf("公路");
    Document(R"("MinGrad": 0.5)");
    Fails(2, "没有默认的设计规范", {"apply", "a.json"});

    const auto minGrad = [&](const char* name) {
        return Done({"--spec", name, "query", "LonGrad.MinGrad"});
    };
    const std::string criteria = R"("criteria": {"LonGrad": {"MinGrad": )";
    m_folder.Write("a.json", R"({"name": "公路", )" + criteria + "0.5}}}");
    Done({"apply", "a.json"});
    EXPECT_EQ(minGrad("公路"), "0.5\n");
    m_folder.Write("a.json", R"({"name": "城市", "id": ")" + id + "\", " + criteria + "0.6}}}");
    Done({"apply", "a.json"});
    EXPECT_EQ(minGrad("公路"), "0.6\n");
    EXPECT_EQ(minGrad("城市"), "0.3\n");
    Done({"--spec", "城市", "apply", "a.json"});
    EXPECT_EQ(minGrad("城市"), "0.6\n");
    m_folder.Write("a.json", R"({"name": "乡村"})");
    Fails(2, "没有设计规范“乡村”", {"apply", "a.json"});
}

TEST_F(ApplyCommand, ReadsStandardInput)
{
    m_folder.Write("right.json", "{\"criteria\": {\"LonGrad\": {\"MinGrad\": 0.7}}}\n");
    m_folder.Write("wrong.json", "x\n");
    const auto result =
        RunProcess(WithProgram({"apply", "-"}), m_folder.Native(), m_folder.Native("right.json"));
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(At("LonGrad.MinGrad"), "0.7\n");
    const auto wrong =
        RunProcess(WithProgram({"apply", "-"}), m_folder.Native(), m_folder.Native("wrong.json"));
    EXPECT_EQ(wrong.status, 3);
    EXPECT_THAT(wrong.err, HasSubstr("标准输入:1: "));
}

} // namespace
