#include "library/SpecificationHistory.h"

#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "base/File.h"
#include "base/Format.h"
#include "base/UserName.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/OtherProcess.h"
#include "tests/support/ProblemList.h"
#include "tests/support/RandomSpecification.h"

namespace fs = std::filesystem;

namespace {

class SpecificationHistory : public LibraryTest {
protected:
    // In the folder, saved.
    CDesignSpecification& AddTo(SpecificationFolder& folder, const CDesignSpecification& made)
    {
        CDesignSpecification& added = folder.Add(std::make_unique<CDesignSpecification>(made));
        EXPECT_TRUE(folder.Save(added).done);
        return added;
    }
    bool SaveAs(CDesignSpecification& specification, double mark)
    {
        specification.BeelineLen.MaxLen = mark;
        return m_styles.Save(specification).done;
    }
    std::vector<SpecificationVersion> Versions(const GUID& id)
    {
        return VersionsOf(m_styles, id, m_problems);
    }
    // NAME=MARK of each, the newest first.
    CString Marks(const SpecificationFolder& folder, const GUID& id)
    {
        CString text;
        for (const SpecificationVersion& version : VersionsOf(folder, id, m_problems)) {
            const auto read = ReadVersion(version, id, m_problems);
            if (!text.empty()) text += L' ';
            text +=
                read ? read->Name() + L"=" + std::to_wstring(std::lround(read->BeelineLen.MaxLen))
                     : L"?";
        }
        return text;
    }
    CString Marks(const GUID& id) { return Marks(m_styles, id); }

    // The marks that another process saves, from the first one on.
    OtherProcess Saving(int first, int count) const
    {
        return {"saves marks",
                std::to_string(first) + " " + std::to_string(count) + " " + ToUtf8(m_path)};
    }
    // What it tells until it ends or is killed.
    static std::set<int> Told(OtherProcess& saving)
    {
        std::set<int> told;
        while (const auto mark = saving.Line())
            told.insert(std::stoi(*mark));
        return told;
    }
    // The marks of all versions and of what is there.
    std::set<int> Kept(const GUID& id)
    {
        std::set<int> kept;
        SpecificationFolder folder(m_path);
        EXPECT_TRUE(folder.Load().done);
        kept.insert(static_cast<int>(folder.Find(id)->BeelineLen.MaxLen));
        for (const SpecificationVersion& version : VersionsOf(folder, id, m_problems))
            if (const auto read = ReadVersion(version, id, m_problems))
                kept.insert(static_cast<int>(read->BeelineLen.MaxLen));
        return kept;
    }

    CString m_path = m_project.Path(L"规范");
    SpecificationFolder m_styles{m_path};
    ProblemList m_problems;
};

// Saves again and again, telling each mark that was saved.
void SaveMarks(const std::string& task)
{
    int first = 0;
    int count = 0;
    std::string path;
    std::istringstream words(task);
    std::getline(words >> first >> count >> std::ws, path);
    SpecificationFolder folder(ToWide(path));
    folder.Load();
    for (int mark = first; mark < first + count; ++mark) {
        folder.Item(0)->BeelineLen.MaxLen = mark;
        if (!folder.Save(*folder.Item(0)).done) return;
        OtherProcess::Tell(std::to_string(mark));
    }
}

const OtherProcess::Part kSaving("saves marks", SaveMarks);

} // namespace

TEST_F(SpecificationHistory, IsWhatSavesHaveReplaced)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    EXPECT_TRUE(Versions(a.ID()).empty());
    EXPECT_FALSE(LastSaveOf(m_styles, a));
    const Moment before = Now();
    EXPECT_TRUE(SaveAs(a, 2));
    EXPECT_TRUE(SaveAs(a, 3));
    EXPECT_TRUE(SaveAs(a, 3)) << "changes nothing";
    EXPECT_EQ(Marks(a.ID()), L"a=2 a=1");
    const auto versions = Versions(a.ID());
    EXPECT_EQ(versions[0].number, 2);
    EXPECT_EQ(versions[0].replacedBy, UserName());
    EXPECT_EQ(versions[0].savedBy, UserName());
    EXPECT_EQ(versions[0].saved, versions[1].replaced);
    EXPECT_GE(*versions[0].saved, before);
    EXPECT_FALSE(versions[1].saved) << "nobody told";
    EXPECT_EQ(versions[1].savedBy, L"");
    const auto last = LastSaveOf(m_styles, a);
    ASSERT_TRUE(last);
    EXPECT_EQ(last->time, versions[0].replaced);
    EXPECT_EQ(last->user, UserName());
    EXPECT_EQ(IdentitiesWithHistory(m_styles, m_problems), std::vector<GUID>{a.ID()});
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(SpecificationHistory, SaysOfNobodyThatHeMadeWhatCameOtherwise)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1, kIdA));
    EXPECT_TRUE(SaveAs(a, 2));
    m_project.Write(FileOf(a), Envelope(Style("a", kIdA, 7)));
    EXPECT_TRUE(m_styles.Load().done);
    EXPECT_FALSE(LastSaveOf(m_styles, *m_styles.Item(0)));
    EXPECT_TRUE(SaveAs(*m_styles.Item(0), 8));
    EXPECT_EQ(Marks(m_styles.Item(0)->ID()), L"a=7 a=1");
    EXPECT_FALSE(Versions(m_styles.Item(0)->ID())[0].saved);
    EXPECT_EQ(Versions(m_styles.Item(0)->ID())[0].replacedBy, UserName());
}

TEST_F(SpecificationHistory, IsOneWhateverTheSpecificationIsCalled)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    EXPECT_TRUE(SaveAs(a, 2));
    EXPECT_TRUE(m_styles.Rename(a, L"b").done);
    EXPECT_TRUE(SaveAs(a, 3));
    EXPECT_EQ(Marks(a.ID()), L"b=2 a=2 a=1");
    EXPECT_TRUE(Versions(a.ID())[0].saved);
}

// It is neither loaded nor one of the removed ones.
TEST_F(SpecificationHistory, IsStillThereWhenTheSpecificationIsRemoved)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    const GUID id = a.ID();
    EXPECT_TRUE(SaveAs(a, 2));
    EXPECT_TRUE(m_styles.Remove(a).done);
    EXPECT_EQ(Marks(id), L"a=1");
    EXPECT_TRUE(m_styles.Load().done);
    EXPECT_EQ(m_styles.Count(), 0);
    const auto deleted = m_styles.Files().Deleted(m_problems);
    ASSERT_EQ(deleted.size(), 1U);
    EXPECT_TRUE(m_styles.Files().BringBack(deleted[0].file, m_problems));
    EXPECT_TRUE(m_styles.Load().done);
    EXPECT_TRUE(SaveAs(*m_styles.Item(0), 3));
    EXPECT_EQ(Marks(id), L"a=2 a=1");
}

TEST_F(SpecificationHistory, HasWhatImportsAndOthersPutInItsPlace)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1, kIdA));
    const CString file = m_project.Write("in.hds", Envelope(Style("a", kIdA, 9)));
    EXPECT_TRUE(m_styles.Import(file, {}, true).done);
    EXPECT_EQ(Marks(a.ID()), L"a=1");
    EXPECT_TRUE(m_styles.Put(Make(L"c", 4, kIdA)).done);
    EXPECT_EQ(Marks(a.ID()), L"a=9 a=1");
    EXPECT_EQ(a.Name(), L"c");
}

TEST_F(SpecificationHistory, HasWhatATemplateReplacesInTheOtherProject)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    ASSERT_TRUE(m_styles.SaveAsTemplate(m_project.Path(L"other")).done);
    EXPECT_TRUE(SaveAs(a, 2));
    ASSERT_TRUE(m_styles.SaveAsTemplate(m_project.Path(L"other")).done);
    const SpecificationFolder other(m_project.Path(L"other/规范"));
    EXPECT_EQ(Marks(other, a.ID()), L"a=1");
    EXPECT_EQ(fs::exists(m_project.Native("other/规范/历史")), true);
}

// Files of another name, of several, and without an identity.
TEST_F(SpecificationHistory, HasWhatStoodInFilesOfOthers)
{
    m_project.Write("规范/x.hds", Envelope(Style("a", kIdA, 1) + Style("b", kIdB, 2)));
    m_project.Write("规范/y.hds", Envelope(Style("c", kIdC, 3)));
    m_project.Write("规范/z.hds", Envelope("<Style Name=\"d\"><BeelineLen MaxLen=\"4\"/></Style>"));
    m_styles.Load();
    ASSERT_EQ(m_styles.Count(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(SaveAs(*m_styles.Item(i), 9));
    EXPECT_EQ(Marks(m_styles.Item(0)->ID()), L"a=1");
    EXPECT_EQ(Marks(m_styles.Item(1)->ID()), L"b=2");
    EXPECT_EQ(Marks(m_styles.Item(2)->ID()), L"c=3");
    EXPECT_EQ(Marks(m_styles.Item(3)->ID()), L"d=4");
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(SpecificationHistory, ThatCannotBeWrittenIsToldAndStopsNoSave)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    m_project.Write("规范/历史", "no folder");
    a.BeelineLen.MaxLen = 2;
    const Outcome outcome = m_styles.Save(a);
    EXPECT_TRUE(outcome.done);
    ASSERT_EQ(outcome.problems.size(), 1U);
    EXPECT_EQ(outcome.problems[0].severity, Severity::Error);
    EXPECT_TRUE(outcome.problems[0].text.starts_with(L"以前的内容没有存入历史(保存照常进行): "))
        << ToUtf8(outcome.problems[0].text);
    SpecificationFolder again(m_path);
    EXPECT_TRUE(again.Load().done);
    EXPECT_EQ(again.Item(0)->BeelineLen.MaxLen, 2);
}

TEST_F(SpecificationHistory, PassesOverABrokenVersion)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1, kIdA));
    for (int mark = 2; mark <= 5; ++mark)
        EXPECT_TRUE(SaveAs(a, mark));
    const std::vector<std::string> broken = {"<Style", Envelope(Style("a", kIdB, 1)),
                                             Envelope("<Style Name=\"a\" ID=\"" +
                                                      std::string(kIdA) +
                                                      "\"><BeelineLen MaxLen=\"wrong\"/></Style>")};
    for (size_t i = 0; i < broken.size(); ++i)
        m_project.Write(
            Utf8(fs::relative(Utf8Path(NativePath(Versions(a.ID())[i].path)), m_project.Native())),
            broken[i]);
    m_problems.Clear();
    EXPECT_EQ(Marks(a.ID()), L"? ? ? a=1");
    for (const SpecificationVersion& version : Versions(a.ID()))
        EXPECT_EQ(version.number == 1,
                  m_problems.Text().find(ToWide(NativePath(version.path))) == CString::npos);
    EXPECT_TRUE(SaveAs(a, 6));
    EXPECT_EQ(Versions(a.ID()).size(), 5U);
}

TEST_F(SpecificationHistory, TellsWhatEachVersionChanged)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    EXPECT_TRUE(SaveAs(a, 2));
    EXPECT_TRUE(m_styles.Rename(a, L"b").done);
    auto states = StatesOf(m_styles, a.ID(), m_problems);
    ASSERT_EQ(states.size(), 3U);
    EXPECT_TRUE(states[0].specification == a);
    EXPECT_EQ(states[0].number, 0);
    EXPECT_FALSE(states[0].replaced);
    EXPECT_TRUE(states[0].saved);
    ASSERT_EQ(states[0].changes.size(), 1U);
    EXPECT_EQ(states[0].changes[0].right, L"b");
    ASSERT_EQ(states[1].changes.size(), 1U);
    EXPECT_EQ(states[1].changes[0].path, L"BeelineLen.MaxLen");
    EXPECT_EQ(states[2].number, 1);
    EXPECT_TRUE(states[2].changes.empty());
    const CDesignSpecification last = a;
    EXPECT_TRUE(m_styles.Remove(a).done);
    states = StatesOf(m_styles, last.ID(), m_problems);
    ASSERT_EQ(states.size(), 3U);
    EXPECT_TRUE(states[0].specification == last) << "as it was removed";
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(SpecificationHistory, BringsBackAVersion)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    const CDesignSpecification first = a;
    EXPECT_TRUE(SaveAs(a, 2));
    EXPECT_TRUE(m_styles.Rename(a, L"b").done);
    EXPECT_TRUE(BringBack(m_styles, first).done);
    EXPECT_TRUE(a == first);
    EXPECT_EQ(Marks(a.ID()), L"b=2 a=2 a=1");
    EXPECT_TRUE(m_styles.Load().done);
    ASSERT_EQ(m_styles.Count(), 1);
    EXPECT_TRUE(*m_styles.Item(0) == first);
    EXPECT_FALSE(fs::exists(m_project.Native("规范/已删除")));
}

TEST_F(SpecificationHistory, BringsBackAVersionOfARemovedOne)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    const CDesignSpecification first = a;
    EXPECT_TRUE(SaveAs(a, 2));
    EXPECT_TRUE(m_styles.Remove(a).done);
    AddTo(m_styles, Make(L"A", 5));
    const Outcome outcome = BringBack(m_styles, first);
    EXPECT_TRUE(outcome.done);
    ASSERT_EQ(outcome.problems.size(), 1U);
    EXPECT_EQ(outcome.problems[0].text, L"样式“a”重名,改称“a(1)”");
    const CDesignSpecification* const back = m_styles.Find(first.ID());
    ASSERT_TRUE(back);
    EXPECT_EQ(back->Name(), L"a(1)");
    EXPECT_EQ(back->BeelineLen.MaxLen, 1);
    EXPECT_EQ(Marks(first.ID()), L"a=2 a=1") << "with what it was when removed";
    EXPECT_TRUE(LastSaveOf(m_styles, *back));
}

TEST_F(SpecificationHistory, LeavesAllAsItWasWhereItCannotBringBack)
{
    CDesignSpecification& a = AddTo(m_styles, Make(L"a", 1));
    const CDesignSpecification first = a;
    EXPECT_TRUE(SaveAs(a, 2));
    fs::rename(m_project.Native("规范"), m_project.Native("away"));
    m_project.Write("规范", "no folder");
    EXPECT_FALSE(BringBack(m_styles, first).done);
    EXPECT_EQ(a.BeelineLen.MaxLen, 2);
    EXPECT_FALSE(BringBack(m_styles, Make(L"c", 1)).done);
    EXPECT_EQ(m_styles.Count(), 1);
}

TEST_F(SpecificationHistory, GivesBackEachOfRandomSaves)
{
    RandomSpecification random(4);
    for (int round = 0; round < 10; ++round) {
        const SpecificationFolder read(m_path);
        SpecificationFolder folder(m_path);
        CDesignSpecification& a = AddTo(folder, Make(Format(L"a%d", round), 1));
        std::vector<CDesignSpecification> saved = {a};
        std::vector<CDesignSpecification> different;
        for (int i = 0; i < 20; ++i) {
            CDesignSpecification next = a;
            const int kind = random.Below(4);
            if (kind == 0)
                next = different.empty() ? a
                                         : different[static_cast<size_t>(
                                               random.Below(static_cast<int>(different.size())))];
            if (kind > 1) next.CopyCriteria(random.Make());
            if (!(next == a)) different.push_back(a);
            a = next;
            ASSERT_TRUE(folder.Save(a).done);
        }
        const auto versions = VersionsOf(read, a.ID(), m_problems);
        ASSERT_EQ(versions.size(), different.size());
        for (size_t i = 0; i < versions.size(); ++i) {
            const auto one = ReadVersion(versions[versions.size() - 1 - i], a.ID(), m_problems);
            ASSERT_TRUE(one);
            EXPECT_TRUE(*one == different[i]) << round << ", " << i;
        }
    }
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(SpecificationHistory, OfTwoProcessesHasAllThatTheySaved)
{
    const GUID id = AddTo(m_styles, Make(L"a", 1000)).ID();
    OtherProcess one = Saving(1, 20);
    OtherProcess other = Saving(101, 20);
    std::set<int> told = Told(one);
    told.merge(Told(other));
    EXPECT_EQ(told.size(), 40U);
    const std::set<int> kept = Kept(id);
    for (const int mark : told)
        EXPECT_TRUE(kept.contains(mark)) << mark;
    EXPECT_TRUE(kept.contains(1000));
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(SpecificationHistory, OfAKilledProcessHasAllThatItSaved)
{
    const GUID id = AddTo(m_styles, Make(L"a", 1000)).ID();
    std::mt19937 engine(3);
    for (int kill = 0; kill < 40; ++kill) {
        OtherProcess saving = Saving(1 + 1000 * kill, 1000);
        const auto first = saving.Line();
        ASSERT_TRUE(first);
        std::this_thread::sleep_for(std::chrono::microseconds(engine() % 20000));
        ASSERT_TRUE(saving.Kill());
        std::set<int> told = Told(saving);
        told.insert(std::stoi(*first));
        const std::set<int> kept = Kept(id);
        // The last fifty, and what is there.
        for (const int mark : told)
            EXPECT_TRUE(kept.contains(mark) || told.size() > 45) << kill << ": " << mark;
    }
    EXPECT_EQ(m_problems.Text(), L"");
    EXPECT_GT(Versions(id).size(), 1U);
}
