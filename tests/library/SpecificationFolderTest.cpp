#include "library/SpecificationFolder.h"

#include <algorithm>

#include "base/Format.h"
#include "tests/support/LibraryTest.h"

namespace fs = std::filesystem;

namespace {

class SpecificationFolderTest : public LibraryTest {
protected:
    static int Files()
    {
        Problems unheard;
        return static_cast<int>(Library().Files().Files(unheard).size());
    }
};

} // namespace

TEST_F(SpecificationFolderTest, ProposesANameByTheCount)
{
    EXPECT_EQ(Library().Folder().ProposedName(), L"规范1");
    Add(Make(L"规范2"));
    EXPECT_EQ(Library().Folder().ProposedName(), L"规范2"); // taken or not
}

TEST_F(SpecificationFolderTest, ProposesTheFirstFreeNameForACopy)
{
    EXPECT_EQ(Library().Folder().ProposedCopyName(L"a"), L"a[副本]");
    Add(Make(L"A[副本]"));
    EXPECT_EQ(Library().Folder().ProposedCopyName(L"a"), L"a[副本1]");
    Add(Make(L"a[副本1]"));
    EXPECT_EQ(Library().Folder().ProposedCopyName(L"a"), L"a[副本2]");
    EXPECT_EQ(Library().Folder().ProposedCopyName(L"A[副本]"), L"A[副本][副本]");
}

TEST_F(SpecificationFolderTest, RenameMovesTheFile)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 3, kIdA));
    EXPECT_TRUE(Library().Folder().Rename(one, L"b").done);
    EXPECT_EQ(one.Name(), L"b");
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_EQ(Files(), 1);
    EXPECT_TRUE(Library().Folder().Rename(one, L"B").done);
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_EQ(Files(), 1);
    Reload();
    EXPECT_EQ(Names(), L"B");
    EXPECT_EQ(MarkOf(L"B"), 3);
}

TEST_F(SpecificationFolderTest, RenameOfAnUnsavedOneSavesIt)
{
    CDesignSpecification& one = Add(Make(L"a", 3, kIdA));
    EXPECT_TRUE(Library().Folder().Rename(one, L"b").done);
    EXPECT_EQ(Files(), 1);
    EXPECT_TRUE(m_project.Has(FileOf(one)));
}

TEST_F(SpecificationFolderTest, RenameOutOfAFileOfAnotherNameSetsThatAside)
{
    m_project.Write("规范/foo.hds", Envelope(Style("a", kIdA, 3)));
    Reload();
    EXPECT_TRUE(Library().Folder().Rename(At(0), L"b").done);
    EXPECT_FALSE(m_project.Has("规范/foo.hds"));
    Reload();
    EXPECT_EQ(Names(), L"b");
}

TEST_F(SpecificationFolderTest, RenameToANameThatNoFileCanBearIsFalseAndKeepsTheOldFile)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 3, kIdA));
    EXPECT_FALSE(Library().Folder().Rename(one, L"../b").done);
    Reload();
    EXPECT_EQ(Names(), L"a");
}

TEST_F(SpecificationFolderTest, RenameFromANameThatNoFileCanBearSavesTheNewOne)
{
    m_project.Write("规范/foo.hds", Envelope(Style("../a", kIdA, 3)));
    Reload();
    EXPECT_TRUE(Library().Folder().Rename(At(0), L"b").done);
    Reload();
    EXPECT_EQ(Names(), L"b");
}

// Two stand in one file; that which has no identity can leave it only together with the other one.
TEST_F(SpecificationFolderTest, OneWithoutAnIdentityIsNotSavedWhileTheOtherCannotBe)
{
    m_project.Write("规范/foo.hds", Envelope(Style("../a", kIdA, 3) + "<Style Name='b'/>"));
    Reload();
    const Outcome refused = Library().Folder().Save(At(1));
    EXPECT_FALSE(refused.done);
    ASSERT_EQ(refused.problems.size(), 1U);
    EXPECT_EQ(refused.problems[0].severity, Severity::Error);
    EXPECT_EQ(refused.problems[0].text,
              L"“../a”无法保存: 名称含有路径分隔符、“..”或空字符,不能用作文件名");
    EXPECT_EQ(Files(), 1);
    EXPECT_FALSE(Library().Folder().Remove(At(1)).done);
    EXPECT_EQ(Files(), 1);
    ASSERT_EQ(Library().Count(), 2);

    EXPECT_TRUE(Library().Folder().Rename(At(0), L"a").done);
    EXPECT_TRUE(Library().Folder().Save(At(1)).done);
    EXPECT_FALSE(m_project.Has("规范/foo.hds"));
    EXPECT_EQ(Files(), 2);
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(MarkOf(L"a"), 3);
}

TEST_F(SpecificationFolderTest, ImportSavesTheNewAndTheOverwritten)
{
    CDesignSpecification& kept = AddSaved(Make(L"kept", 1, kIdA));
    AddSaved(Make(L"old", 2, kIdB));
    const auto before = fs::last_write_time(m_project.Native(FileOf(kept)));
    const CString path =
        m_project.Write("in.hds", Envelope(Style("changed", kIdB, 5) + Style("kept", kIdC, 6)));
    EXPECT_TRUE(Library().Folder().Import(path, {}, true).done);
    EXPECT_EQ(fs::last_write_time(m_project.Native(FileOf(kept))), before);
    Reload();
    EXPECT_EQ(MarkOf(L"kept"), 1);
    EXPECT_EQ(MarkOf(L"changed"), 5);
    EXPECT_EQ(MarkOf(L"kept(1)"), 6);
    EXPECT_EQ(Library().Count(), 3);
}

TEST_F(SpecificationFolderTest, AnOverwrittenOneWithTheNameOfAnotherGetsANumber)
{
    AddSaved(Make(L"a", 1, kIdA));
    AddSaved(Make(L"b", 2, kIdB));
    const CString path = m_project.Write("in.hds", Envelope(Style("B", kIdA, 5)));
    const ImportOutcome outcome = Library().Folder().Import(path, {}, true);
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(Names(), L"B(1) b");
    const auto tells = [](const Problem& problem) {
        return problem.line == 5 && problem.text == L"样式“B”重名,改称“B(1)”";
    };
    EXPECT_EQ(std::count_if(outcome.problems.begin(), outcome.problems.end(), tells), 1);
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(MarkOf(L"B(1)"), 5);
    EXPECT_EQ(MarkOf(L"b"), 2);
}

TEST_F(SpecificationFolderTest, AnOverwrittenOneKeepsItsOwnName)
{
    AddSaved(Make(L"a", 1, kIdA));
    const CString path = m_project.Write("in.hds", Envelope(Style("A", kIdA, 5)));
    EXPECT_TRUE(Library().Folder().Import(path, {}, true).done);
    EXPECT_EQ(Names(), L"A");
}

TEST_F(SpecificationFolderTest, ImportOfWhatIsThereAlreadyWritesNothing)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 3, kIdA));
    const auto before = fs::last_write_time(m_project.Native(FileOf(one)));
    const CString path = m_project.Path(ToWide(FileOf(one)));
    EXPECT_TRUE(Library().Folder().Import(path, {}, true).done);
    EXPECT_EQ(fs::last_write_time(m_project.Native(FileOf(one))), before);
    EXPECT_FALSE(m_project.Has("规范/已删除"));
}

TEST_F(SpecificationFolderTest, OneWhoseFileStaysIsNotRemoved)
{
    m_project.Write("规范/x.hds", Envelope("<Style Name=\"a\"/>"));
    Reload();
    m_project.Write("规范/已删除", "a file where the folder should be");
    EXPECT_FALSE(Library().Folder().Remove(At(0)).done);
    EXPECT_EQ(Names(), L"a");
    EXPECT_TRUE(m_project.Has("规范/x.hds"));
}

TEST_F(SpecificationFolderTest, TheDefaultIsKnownWithBlanksAroundIt)
{
    AddSaved(Make(L"a", 3, kIdA));
    m_project.Write("规范/setting.ini", std::string("[设置]\n默认样式=\" ") + kIdA + " \"\n");
    Problems problems;
    EXPECT_TRUE(Library().Folder().Default(problems).has_value());
    EXPECT_TRUE(problems.empty());
}

TEST_F(SpecificationFolderTest, OneOfAnotherFolderIsPutInOrOver)
{
    SpecificationFolder& folder = Library().Folder();
    EXPECT_TRUE(folder.Put(Make(L"a", 1, kIdA)).done);
    EXPECT_TRUE(folder.Put(Make(L"A", 2, kIdB)).done); // the name is taken
    EXPECT_EQ(folder.Find(L"A(1)")->BeelineLen.MaxLen, 2);
    const Outcome over = folder.Put(Make(L"b", 3, kIdA));
    EXPECT_TRUE(over.done);
    EXPECT_FALSE(HasError(over.problems));
    EXPECT_EQ(folder.Count(), 2);
    Problems problems;
    const auto aside = folder.Files().Deleted(problems);
    ASSERT_EQ(aside.size(), 1U);
    EXPECT_EQ(aside[0].name, L"a");
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(Library().Folder().Find(L"b")->BeelineLen.MaxLen, 3);
}

TEST_F(SpecificationFolderTest, ImportWithoutOverwritingLeavesWhatIsThere)
{
    AddSaved(Make(L"old", 2, kIdB));
    const CString path =
        m_project.Write("in.hds", Envelope(Style("b", kIdB, 5) + Style("c", kIdC, 6)));
    EXPECT_TRUE(Library().Folder().Import(path, {L"B", L"c"}, false).done);
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(MarkOf(L"old"), 2);
    EXPECT_EQ(MarkOf(L"c"), 6);
}

TEST_F(SpecificationFolderTest, ImportTakesNoNameThatTheEditorWouldNot)
{
    AddSaved(Make(L"b", 3, kIdB));
    const CString path =
        m_project.Write("in.hds", Envelope(Style("a;", kIdA, 5) + Style("b=", kIdB, 6)));
    const ImportOutcome outcome = Library().Folder().Import(path, {}, true);
    EXPECT_TRUE(outcome.read);
    EXPECT_FALSE(outcome.done);
    EXPECT_TRUE(outcome.specifications.empty());
    ASSERT_EQ(outcome.problems.size(), 2U);
    EXPECT_EQ(outcome.problems[0].text,
              L"样式“a;”未导入: 样式名中不允许出现如下字符: <>/\\\":;=|,*?'");
    EXPECT_EQ(outcome.problems[0].line, outcome.problems[1].line);
    EXPECT_EQ(Names(), L"b");
    EXPECT_EQ(MarkOf(L"b"), 3);
}

TEST_F(SpecificationFolderTest, ImportIsFalseWhenAFileResists)
{
    EXPECT_FALSE(Library().Folder().Import(m_project.Path(L"none.hds"), {}, true).done);
    const CString path =
        m_project.Write("in.hds", Envelope(Style("../a", kIdA, 1) + Style("b", kIdB, 2)));
    EXPECT_FALSE(Library().Folder().Import(path, {}, true).done);
    Reload();
    EXPECT_EQ(Names(), L"b"); // what could be saved is
}

// So many that several threads read them. Each is of one name, so that the order in which they were
// taken in shows in their names, and every seventh is left out with an error.
TEST_F(SpecificationFolderTest, ManyFilesAreTakenInAndToldOfInTheirOrder)
{
    constexpr int kMany = 150;
    const auto isBroken = [](int i) { return i % 7 == 3; };
    const auto fileOf = [](int i) { return Format(L"规范/%03d.hds", i); };
    for (int i = 0; i < kMany; ++i) {
        CString style = ToWide(Style("a", kIdA, i));
        const CString id = Format(L"%08X-0000-4000-8000-00000000000A", i + 1);
        style.replace(style.find(ToWide(kIdA)), id.size(), id);
        if (isBroken(i)) style.insert(style.find(L"MaxLen=\"") + 8, L"x");
        m_project.Write(ToUtf8(fileOf(i)), Envelope(ToUtf8(style)));
    }
    for (int turn = 0; turn < 10; ++turn) {
        m_trace.Clear();
        Library().Update();
        std::vector<CString> told;
        int taken = 0;
        for (int i = 0; i < kMany; ++i) {
            const bool isNamed = taken > 0 || isBroken(i);
            if (isNamed) told.push_back(m_project.Path(fileOf(i)));
            if (isBroken(i)) continue;
            EXPECT_EQ(At(taken).BeelineLen.MaxLen, i);
            EXPECT_EQ(At(taken).Name(), taken == 0 ? L"a" : Format(L"a(%d)", taken));
            ++taken;
        }
        EXPECT_EQ(Library().Count(), taken);
        ASSERT_EQ(m_trace.Lines().size(), told.size());
        for (size_t i = 0; i < told.size(); ++i)
            EXPECT_EQ(m_trace.Lines()[i].file, told[i]);
    }
}
