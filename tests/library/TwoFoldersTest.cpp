// Two programs on one folder: each has an object of its own for it.
#include <cmath>
#include <set>

#include "library/SpecificationFolder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/OtherProcess.h"
#include "tests/support/ProblemList.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

class TwoFolders : public LibraryTest {
protected:
    TwoFolders()
    {
        m_mine.Add(std::make_unique<CDesignSpecification>(Make(L"a", 1, kIdA)));
        m_mine.Add(std::make_unique<CDesignSpecification>(Make(L"b", 2, kIdB)));
        EXPECT_TRUE(m_mine.Save(*m_mine.Item(0)).done);
        EXPECT_TRUE(m_mine.Save(*m_mine.Item(1)).done);
        EXPECT_TRUE(m_theirs.Load().done);
        m_mine.Files().SetPatience(20ms, {});
        m_theirs.Files().SetPatience(20ms, {});
    }

    static CDesignSpecification& In(SpecificationFolder& folder, const wchar_t* name)
    {
        CDesignSpecification* const found = folder.Find(name);
        if (!found) throw std::runtime_error("no such specification");
        return *found;
    }
    static Outcome SaveAs(SpecificationFolder& folder, const wchar_t* name, double mark)
    {
        In(folder, name).BeelineLen.MaxLen = mark;
        return folder.Save(In(folder, name));
    }

    // NAME=MARK of what a third one reads, by name; the problems behind it.
    static CString Read(const CString& path)
    {
        SpecificationFolder folder(path);
        const Outcome outcome = folder.Load();
        std::set<CString> marks;
        for (int i = 0; i < folder.Count(); ++i)
            marks.insert(folder.Item(i)->Name() + L"=" +
                         std::to_wstring(std::lround(folder.Item(i)->BeelineLen.MaxLen)));
        CString text;
        for (const CString& mark : marks)
            text += mark + L" ";
        for (const Problem& problem : outcome.problems)
            text += problem.Text();
        return text;
    }
    CString There() const { return Read(m_path); }
    CString Deleted() const { return Read(m_path + L"/已删除"); }

    CString m_path = m_project.Path(L"规范");
    SpecificationFolder m_mine{m_path};
    SpecificationFolder m_theirs{m_path};

public:
    // Until it is killed.
    static void RenameForEver(const std::string& path)
    {
        SpecificationFolder folder(ToWide(path));
        folder.Load();
        folder.Files().SetPatience(30s, {});
        const wchar_t* names[] = {L"a", L"c"};
        for (int i = 0; folder.Rename(In(folder, names[0]), names[1]).done; ++i) {
            std::swap(names[0], names[1]);
            if (i == 0) OtherProcess::Tell("renamed");
        }
    }
};

const OtherProcess::Part kRenaming("renames for ever", TwoFolders::RenameForEver);

} // namespace

TEST_F(TwoFolders, WhatNobodyElseChangedIsSavedAsBefore)
{
    const Outcome outcome = SaveAs(m_mine, L"a", 5);
    EXPECT_TRUE(outcome.done);
    EXPECT_TRUE(outcome.problems.empty());
    EXPECT_EQ(There(), L"a=5 b=2 ");
    EXPECT_FALSE(fs::exists(m_project.Native("规范/已删除")));
    EXPECT_FALSE(fs::exists(m_project.Native("规范/.lock")));
}

TEST_F(TwoFolders, SaveKeepsWhatTheOtherWrote)
{
    ASSERT_TRUE(SaveAs(m_theirs, L"a", 7).done);
    const Outcome outcome = SaveAs(m_mine, L"a", 5);
    EXPECT_TRUE(outcome.done);
    ASSERT_EQ(outcome.problems.size(), 1U);
    EXPECT_EQ(outcome.problems[0].severity, Severity::Note);
    const CString file = ToWide(FileOf(In(m_mine, L"a"))).substr(3);
    EXPECT_EQ(outcome.problems[0].text, L"已被他人修改,其内容已移至“已删除”中的 " + file);
    EXPECT_EQ(There(), L"a=5 b=2 ");
    EXPECT_EQ(Deleted(), L"a=7 ");
}

TEST_F(TwoFolders, SaveSetsAsideWhatTheOtherRenamed)
{
    ASSERT_TRUE(m_theirs.Rename(In(m_theirs, L"a"), L"c").done);
    EXPECT_TRUE(SaveAs(m_mine, L"a", 5).done);
    EXPECT_EQ(There(), L"a=5 b=2 ");
    EXPECT_EQ(Deleted(), L"c=1 ");
}

TEST_F(TwoFolders, WhatTheOtherAddedStays)
{
    m_theirs.Add(std::make_unique<CDesignSpecification>(Make(L"n", 3, kIdC)));
    ASSERT_TRUE(m_theirs.Save(In(m_theirs, L"n")).done);
    EXPECT_TRUE(SaveAs(m_mine, L"a", 5).problems.empty());
    EXPECT_TRUE(m_mine.Rename(In(m_mine, L"a"), L"c").problems.empty());
    EXPECT_EQ(There(), L"b=2 c=5 n=3 ");
}

TEST_F(TwoFolders, RenameKeepsWhatTheOtherWrote)
{
    ASSERT_TRUE(SaveAs(m_theirs, L"a", 7).done);
    EXPECT_TRUE(m_mine.Rename(In(m_mine, L"a"), L"c").done);
    EXPECT_EQ(There(), L"b=2 c=1 ");
    EXPECT_EQ(Deleted(), L"a=7 ");
}

TEST_F(TwoFolders, RenameSetsAsideWhatTheOtherRenamed)
{
    ASSERT_TRUE(m_theirs.Rename(In(m_theirs, L"a"), L"d").done);
    EXPECT_TRUE(m_mine.Rename(In(m_mine, L"a"), L"c").done);
    EXPECT_EQ(There(), L"b=2 c=1 ");
    EXPECT_EQ(Deleted(), L"d=1 ");
}

TEST_F(TwoFolders, RemoveLeavesAWayBackToWhatTheOtherWrote)
{
    ASSERT_TRUE(SaveAs(m_theirs, L"a", 7).done);
    EXPECT_TRUE(m_mine.Remove(In(m_mine, L"a")).done);
    EXPECT_EQ(There(), L"b=2 ");
    EXPECT_EQ(Deleted(), L"a=7 ");
}

TEST_F(TwoFolders, RemoveTakesWhatTheOtherRenamed)
{
    ASSERT_TRUE(m_theirs.Rename(In(m_theirs, L"a"), L"d").done);
    EXPECT_TRUE(m_mine.Remove(In(m_mine, L"a")).done);
    EXPECT_EQ(There(), L"b=2 ");
    EXPECT_EQ(Deleted(), L"d=1 ");
}

TEST_F(TwoFolders, ImportKeepsWhatTheOtherWroteOnce)
{
    const CString file = m_project.Write("in.hds", Envelope(Style("a", kIdA, 9)));
    ASSERT_TRUE(SaveAs(m_theirs, L"a", 7).done);
    EXPECT_TRUE(m_mine.Import(file, {}, true).done);
    EXPECT_EQ(There(), L"a=9 b=2 ");
    EXPECT_EQ(Deleted(), L"a=7 ");
}

TEST_F(TwoFolders, TheDefaultLeavesOtherSettingsOfTheOther)
{
    ASSERT_TRUE(m_mine.SetDefault(In(m_mine, L"a")).done);
    m_project.Write("规范/setting.ini", "[其他]\nx=1\n");
    ASSERT_TRUE(m_mine.SetDefault(In(m_mine, L"b")).done);
    ProblemList problems;
    EXPECT_EQ(m_mine.Files().Setting(L"其他", L"x", problems), L"1");
}

TEST_F(TwoFolders, OneKeepsTheOtherFromChangingAnything)
{
    ProblemList problems;
    const auto held = m_theirs.Hold(problems);
    ASSERT_TRUE(held);
    const CString file = m_project.Write("in.hds", Envelope(Style("n", kIdA, 9)));
    CDesignSpecification& mine = In(m_mine, L"a");
    const Outcome outcomes[] = {
        SaveAs(m_mine, L"a", 5),       m_mine.Rename(mine, L"c"),
        m_mine.Remove(mine),           m_mine.SetDefault(mine),
        m_mine.Import(file, {}, true), m_mine.SaveAsTemplate(m_project.Path(L"t"))};
    for (const Outcome& outcome : outcomes) {
        EXPECT_FALSE(outcome.done);
        ASSERT_FALSE(outcome.problems.empty());
        EXPECT_NE(outcome.problems.back().text.find(L"library_test (进程 "), CString::npos);
    }
    EXPECT_EQ(There(), L"a=1 b=2 "); // who only reads is not kept
}

TEST_F(TwoFolders, AProjectThatHasGoneIsNotMadeAnew)
{
    fs::remove_all(m_project.Native());
    const Outcome outcome = SaveAs(m_mine, L"a", 5);
    EXPECT_FALSE(outcome.done);
    ASSERT_EQ(outcome.problems.size(), 1U);
    EXPECT_EQ(outcome.problems[0].Text(), m_path + L": 项目文件夹已不存在, 没有保存");
    EXPECT_FALSE(fs::exists(m_project.Native()));
}

TEST_F(TwoFolders, AFolderIsNotLeftWhereNothingCameOfIt)
{
    SpecificationFolder empty(m_project.Path(L"x/规范"));
    fs::create_directory(m_project.Native("x"));
    ProblemList problems;
    {
        const auto held = empty.Hold(problems);
        EXPECT_TRUE(held);
    }
    EXPECT_FALSE(fs::exists(m_project.Native("x/规范")));
    EXPECT_TRUE(empty.Save(empty.Add(std::make_unique<CDesignSpecification>())).done);
    EXPECT_TRUE(fs::exists(m_project.Native("x/规范")));
}

TEST_F(TwoFolders, ATemplateKeepsWhatTheOtherProjectHas)
{
    const CString target = m_project.Path(L"t");
    ASSERT_TRUE(m_mine.SaveAsTemplate(target).done);
    ASSERT_TRUE(m_mine.SaveAsTemplate(target).done); // the same again
    EXPECT_FALSE(fs::exists(m_project.Native("t/规范/已删除")));
    ASSERT_TRUE(SaveAs(m_mine, L"a", 5).done);
    ASSERT_TRUE(m_mine.SaveAsTemplate(target).done);
    EXPECT_EQ(Read(target + L"/规范"), L"a=5 b=2 ");
    EXPECT_EQ(Read(target + L"/规范/已删除"), L"a=1 ");
}

TEST_F(TwoFolders, ATemplateOfAProjectForItselfChangesNothing)
{
    EXPECT_TRUE(m_mine.SaveAsTemplate(m_project.Path()).done);
    EXPECT_EQ(There(), L"a=1 b=2 ");
    EXPECT_FALSE(fs::exists(m_project.Native("规范/已删除")));
}

// The other one is named back and forth all the time: each reader finds both, whole, and no fault.
TEST_F(TwoFolders, AReaderNeverMeetsHalfARename)
{
    OtherProcess renaming("renames for ever", ToUtf8(m_project.Path(L"规范")));
    ASSERT_EQ(renaming.Line(), "renamed");
    for (int i = 0; i < 300; ++i) {
        const CString found = There();
        ASSERT_TRUE(found == L"a=1 b=2 " || found == L"b=2 c=1 ") << i << ": " << ToUtf8(found);
    }
    EXPECT_TRUE(renaming.Kill()) << "it ended by itself";
}
