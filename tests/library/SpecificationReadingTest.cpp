// What is made of the odd things that files hold: all of a value or none, and nothing of a file is
// lost because it was not understood.
#include "library/SpecificationReading.h"

#include "base/File.h"
#include "tests/support/LibraryTest.h"

namespace fs = std::filesystem;

namespace {

class SpecificationReading : public LibraryTest {
protected:
    // The specification of a file with these criteria; a blank one when it is refused.
    CDesignSpecification Read(const std::string& criteria)
    {
        m_project.Write("规范/m.hds", Envelope(std::string("<Style Name=\"m\" ID=\"") + kIdA +
                                               "\">\n" + criteria + "</Style>"));
        Reload();
        EXPECT_EQ(Library().Count(), 1) << ToUtf8(m_trace.Text());
        return Library().Count() == 1 ? At(0) : CDesignSpecification();
    }

    CStringArray Files(const CString& folder) const
    {
        Problems problems;
        return FindFiles(m_project.Path(folder), L".hds", problems);
    }

    static constexpr char kOtherGroup[] = "<Group Name=\"标志\"><Styles/></Group>";
};

} // namespace

TEST_F(SpecificationReading, AValueInPartsIsReadWhole)
{
    const CDesignSpecification read = Read(
        "<CircularCurveRad><MaxRad>1<!-- not 9 -->2<![CDATA[3]]>4</MaxRad><MaxRadCriterion>JTG "
        "<![CDATA[<B01>]]> <!-- the old one -->\n2014</MaxRadCriterion></CircularCurveRad>");
    EXPECT_EQ(read.CircularCurveRad.MaxRad, 1234);
    EXPECT_EQ(read.CircularCurveRad.MaxRadCriterion, L"JTG <B01> \n2014");
    ASSERT_TRUE(Library().Save(&At(0)));
    Reload();
    EXPECT_TRUE(At(0) == read);
}

TEST_F(SpecificationReading, CommentsAndBlanksBetweenTagsAreNoText)
{
    const CDesignSpecification read =
        Read("<!-- straight -->\n<BeelineLen MaxLen=\"7\">\n  <!-- -->  <MaxLenCriterion>\n"
             "<!-- none -->\n</MaxLenCriterion>\n</BeelineLen>\n<LonGrad><MinGrad> <!-- --> 0.5 "
             "</MinGrad></LonGrad>");
    EXPECT_EQ(read.BeelineLen.MaxLen, 7);
    EXPECT_EQ(read.BeelineLen.MaxLenCriterion, L"");
    EXPECT_EQ(read.LonGrad.MinGrad, 0.5);
}

TEST_F(SpecificationReading, BlanksBetweenThePartsOfANumberStay)
{
    m_project.Write("规范/m.hds",
                    Envelope("<Style Name='m'><CircularCurveRad><MaxRad><![CDATA[1]]> "
                             "<![CDATA[2]]></MaxRad></CircularCurveRad></Style>"));
    Reload();
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_TRUE(Traced("规范/m.hds", 5, L"MaxRad 为“1 2”,不是整数"));
}

TEST_F(SpecificationReading, AnEmptyNumberIsAMissingOne)
{
    const CDesignSpecification read = Read(
        "<BeelineLen MaxLen='' MinLenInOneDir=' '/><CircularCurveRad><MaxRad/></CircularCurveRad>"
        "<LonGrad><MinGrad>\n</MinGrad></LonGrad><TransitionCurveMinLen><NoTCBySuperelevation>"
        "<!-- -->\n</NoTCBySuperelevation><MinLen><Item speed='80' value=''/><Item speed='60'/>"
        "</MinLen></TransitionCurveMinLen>");
    const CDesignSpecification builtIn;
    EXPECT_TRUE(read.BeelineLen == builtIn.BeelineLen);
    EXPECT_EQ(read.CircularCurveRad.MaxRad, builtIn.CircularCurveRad.MaxRad);
    EXPECT_EQ(read.LonGrad.MinGrad, builtIn.LonGrad.MinGrad);
    EXPECT_EQ(read.TransitionCurveMinLen.NoTCBySuperelevation, 0);
    ASSERT_EQ(read.TransitionCurveMinLen.MinLen.count, 2);
    EXPECT_EQ(read.TransitionCurveMinLen.MinLen[0].value, 0);
    EXPECT_TRUE(m_trace.Lines().empty()) << ToUtf8(m_trace.Text());
}

TEST_F(SpecificationReading, WholeNumbersComeInOtherForms)
{
    const CDesignSpecification read =
        Read("<CircularCurveRad><MaxRad>9000.0</MaxRad></CircularCurveRad><TransitionCurveMinLen>"
             "<NoTCBySuperelevation>-1</NoTCBySuperelevation><MinLen><Item speed='80.00' "
             "value='70.0'/></MinLen></TransitionCurveMinLen>");
    EXPECT_EQ(read.CircularCurveRad.MaxRad, 9000);
    EXPECT_EQ(read.TransitionCurveMinLen.NoTCBySuperelevation, 1);
    ASSERT_EQ(read.TransitionCurveMinLen.MinLen.count, 1);
    EXPECT_EQ(read.TransitionCurveMinLen.MinLen[0].speed, 80);
    EXPECT_EQ(read.TransitionCurveMinLen.MinLen[0].value, 70);
}

TEST_F(SpecificationReading, WhatIsUnknownOfARowIsFoundUnderItsOddKey)
{
    Read("<CurveMinLen><CircularCurveMinLen><Item speed='80.0' value='1' newer='x'/>"
         "</CircularCurveMinLen></CurveMinLen>");
    ASSERT_TRUE(Library().Save(&At(0)));
    EXPECT_NE(m_project.Read(FileOf(At(0))).find("speed=\"80\" value=\"1\" newer=\"x\""),
              std::string::npos);
}

TEST_F(SpecificationReading, EveryGroupOfItsNameIsRead)
{
    const std::string again = "\n</Styles>\n<Styles Name=\"设计规范\">\n" + Style("b", kIdB, 2) +
                              "\n</Styles>\n</Group>\n<Group Name=\"设计规范\"/>\n" + kOtherGroup +
                              "<Group Name=\"设计规范\">\n<Styles Name=\"其它\"/>\n"
                              "<Styles Name=\"设计规范\">\n";
    m_project.Write("规范/m.hds", Envelope(Style("a", kIdA, 1) + again + Style("c", kIdC, 3)));
    Reload();
    EXPECT_EQ(Names(), L"a b c");
    EXPECT_TRUE(m_trace.Lines().empty()) << ToUtf8(m_trace.Text());
    // Storing finds them there as well.
    At(2).BeelineLen.MaxLen = 33;
    const CString path = m_project.Path(L"规范/m.hds");
    ASSERT_TRUE(Library().Export(path.c_str(), {L"c"}, nullptr));
    Reload();
    EXPECT_EQ(Names(), L"a b c");
    EXPECT_EQ(MarkOf(L"c"), 33);
    EXPECT_NE(m_project.Read("规范/m.hds").find("标志"), std::string::npos);
}

TEST_F(SpecificationReading, ANameOverTwoHundredAndFiftyFiveBytesIsRefused)
{
    for (const std::string& name : {std::string(256, 'x'), std::string(3 << 20, 'y')}) {
        m_project.Write("规范/m.hds", Envelope(Style(name, kIdA) + "\n" + Style("b", kIdB)));
        m_trace.Clear();
        Reload();
        EXPECT_EQ(Names(), L"b");
        ASSERT_EQ(m_trace.Lines().size(), 1U);
        EXPECT_LT(m_trace.Lines()[0].text.size(), 200U);
        EXPECT_TRUE(Traced("规范/m.hds", 5, L"未载入: 名称过长"));
    }
    m_project.Write("规范/m.hds", Envelope(Style(std::string(255, 'x'), kIdA)));
    Reload();
    EXPECT_EQ(Library().Count(), 1);
}

TEST_F(SpecificationReading, ANamelessOneThatIsImportedGetsAName)
{
    AddSaved(Make(L"规范2", 1, kIdA));
    const CString path = m_project.Write(
        "in.hds", Envelope(std::string("<Style ID='") + kIdB + "'/>" + Style("", kIdC, 3)));
    const ImportOutcome outcome = Library().Folder().Import(path, {}, false);
    EXPECT_TRUE(outcome.done);
    EXPECT_FALSE(HasError(outcome.problems));
    Reload();
    EXPECT_EQ(Names(), L"规范2(1) 规范2 规范3");
    EXPECT_TRUE(m_trace.Lines().empty()) << ToUtf8(m_trace.Text());
    // Over one that is there it takes that one's name.
    EXPECT_TRUE(Library().Folder().Import(path, {}, true).done);
    Reload();
    EXPECT_EQ(Names(), L"规范2(1) 规范2 规范3");
}

TEST_F(SpecificationReading, AnImportGoesIntoTheLastOfAnIdentity)
{
    Add(Make(L"first", 1, kIdA));
    Add(Make(L"last", 2, kIdA));
    const CString path = m_project.Write("in.hds", Envelope(Style("in", kIdA, 5)));
    EXPECT_TRUE(Library().Import(path.c_str(), {}, nullptr, true));
    EXPECT_EQ(MarkOf(L"first"), 1);
    EXPECT_EQ(MarkOf(L"in"), 5);
}

// In a file of several nothing tells such a style from the others the next time.
TEST_F(SpecificationReading, AStyleWithoutAnIdentityIsSavedOutOfAFileOfSeveral)
{
    const auto write = [&] {
        m_project.Write("规范/all.hds",
                        Envelope("<Style Name='a'/>" + Style("b", kIdB, 2) + "<Style Name='c'/>"));
        Reload();
    };
    write();
    ASSERT_EQ(Names(), L"a b c");
    At(0).BeelineLen.MaxLen = 11;
    EXPECT_TRUE(Library().Save(&At(0)));
    m_trace.Clear();
    Reload();
    EXPECT_EQ(Names(), L"a b c");
    EXPECT_EQ(MarkOf(L"a"), 11);
    EXPECT_EQ(MarkOf(L"b"), 2);
    EXPECT_TRUE(m_trace.Lines().empty()) << ToUtf8(m_trace.Text());

    for (const CString& file : Files(L"规范"))
        fs::remove(m_project.Native("规范") / ToUtf8(file));
    write();
    EXPECT_TRUE(Library().Folder().Remove(At(2)).done);
    Reload();
    EXPECT_EQ(Names(), L"a b");
}

TEST_F(SpecificationReading, ASpecificationThatCannotBeReadSurvivesTheSavingOfItsNeighbour)
{
    const std::string file = std::string("规范/a") + kIdA + ".hds";
    m_project.Write(file, Envelope(Style("a", kIdA, 1) + "<Style Name='bad'><BeelineLen "
                                                         "MaxLen='x'/></Style>"));
    Reload();
    ASSERT_EQ(Names(), L"a");
    At(0).BeelineLen.MaxLen = 11;
    EXPECT_TRUE(Library().Save(&At(0)));
    EXPECT_EQ(m_project.Read(file).find("bad"), std::string::npos);
    m_trace.Clear();
    Reload();
    EXPECT_EQ(MarkOf(L"a"), 11);
    EXPECT_TRUE(Traced(std::string("规范/a") + kIdA + "(1).hds", 6, L"样式“bad”未载入"))
        << ToUtf8(m_trace.Text());
}

TEST_F(SpecificationReading, WhatOtherProgramsKeepInAFileSurvives)
{
    const std::string other = "</Styles></Group>" + std::string(kOtherGroup) +
                              "<Group Name=\"设计规范\"><Styles Name=\"设计规范\">";
    const std::string file = std::string("规范/a") + kIdA + ".hds";
    m_project.Write(file, Envelope(Style("a", kIdA, 1) + other));
    Reload();
    ASSERT_EQ(Names(), L"a");
    EXPECT_TRUE(Library().Save(&At(0))); // the file holds one style alone then, and a copy is kept
    ASSERT_EQ(Files(L"规范/已删除").size(), 1U);
    EXPECT_NE(m_project.Read("规范/已删除/" + ToUtf8(Files(L"规范/已删除")[0])).find("标志"),
              std::string::npos);

    m_project.Write("规范/zzz.hds", Envelope(Style("b", kIdB, 1) + other));
    Reload();
    EXPECT_TRUE(Library().Folder().Remove(*Library().Folder().Find(L"b")).done);
    EXPECT_NE(m_project.Read("规范/zzz.hds").find("标志"), std::string::npos);
    Reload();
    EXPECT_EQ(Names(), L"a");
}

TEST_F(SpecificationReading, AFileThatIsNoneIsKeptWhenAnotherTakesItsPlace)
{
    const std::string file = std::string("规范/a") + kIdA + ".hds";
    m_project.Write(file, "half a file");
    Reload();
    EXPECT_TRUE(Library().Save(&Add(Make(L"a", 1, kIdA))));
    EXPECT_EQ(m_project.Read("规范/已删除/" + file.substr(std::string("规范/").size())),
              "half a file");
    Reload();
    EXPECT_EQ(Names(), L"a");
}
