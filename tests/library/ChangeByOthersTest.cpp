#include "library/ChangeByOthers.h"

#include "base/File.h"
#include "tests/support/LibraryTest.h"

namespace {

using Kind = ChangeByOthers::Kind;

// Two libraries on one folder: the process-wide one, and a colleague's.
class ChangeByOthersTest : public LibraryTest {
protected:
    ChangeByOthersTest() : m_opened(AddSaved(Make(L"甲", 20))) {}

    ChangeByOthers Find() { return FindChangeByOthers(Library().Folder(), m_opened); }
    SpecificationFolder& Colleague()
    {
        m_colleague.Load();
        return m_colleague;
    }
    void ColleagueSets(double mark)
    {
        CDesignSpecification& theirs = *Colleague().Find(L"甲");
        theirs.BeelineLen.MaxLen = mark;
        EXPECT_TRUE(m_colleague.Save(theirs).done);
    }

    std::filesystem::path Moved() const { return m_project.Native().string() + ".moved"; }
    std::string File(const ChangeByOthers& change) const
    {
        return Utf8(
            std::filesystem::relative(Utf8Path(NativePath(change.path)), m_project.Native()));
    }

    const CDesignSpecification m_opened;
    SpecificationFolder m_colleague{m_project.Path(L"规范")};
};

} // namespace

TEST_F(ChangeByOthersTest, ThereIsNoneInFilesAsTheyWereLoaded)
{
    EXPECT_EQ(Find().kind, Kind::None);
    Library().Update();
    EXPECT_EQ(Find().kind, Kind::None);
}

TEST_F(ChangeByOthersTest, AnotherContentIsSeen)
{
    ColleagueSets(25);
    const ChangeByOthers change = Find();
    ASSERT_EQ(change.kind, Kind::Changed);
    EXPECT_EQ(change.theirs->BeelineLen.MaxLen, 25);
    EXPECT_EQ(File(change), FileOf(m_opened));
    // Also when the library has been read anew since.
    Library().Update();
    ASSERT_EQ(Find().kind, Kind::Changed);
    EXPECT_EQ(Find().theirs->BeelineLen.MaxLen, 25);
}

TEST_F(ChangeByOthersTest, AFileWrittenAnewWithTheSameValuesIsNone)
{
    const std::string file = FileOf(m_opened);
    m_project.Write(file, m_project.Read(file) + "\n<!-- seen -->\n");
    EXPECT_EQ(Find().kind, Kind::None);
}

TEST_F(ChangeByOthersTest, AnotherSpecificationIsNone)
{
    CDesignSpecification other = Make(L"乙", 30);
    m_colleague.Load();
    EXPECT_TRUE(
        m_colleague.Save(m_colleague.Add(std::make_unique<CDesignSpecification>(other))).done);
    EXPECT_EQ(Find().kind, Kind::None);
}

TEST_F(ChangeByOthersTest, AnotherNameIsAChange)
{
    CDesignSpecification& theirs = *Colleague().Find(L"甲");
    EXPECT_TRUE(m_colleague.Rename(theirs, L"乙").done);
    const ChangeByOthers change = Find();
    ASSERT_EQ(change.kind, Kind::Changed);
    EXPECT_EQ(change.theirs->Name(), L"乙");
    EXPECT_EQ(File(change), FileOf(*change.theirs));
}

TEST_F(ChangeByOthersTest, AFileOfItsIdentityThatHasAppearedIsSeen)
{
    CDesignSpecification theirs = m_opened;
    theirs.BeelineLen.MaxLen = 40;
    SpecificationFolder elsewhere(m_project.Path(L"elsewhere"));
    EXPECT_TRUE(elsewhere.Save(elsewhere.Add(std::make_unique<CDesignSpecification>(theirs))).done);
    std::filesystem::rename(
        m_project.Native("elsewhere/" + FileOf(m_opened).substr(std::string("规范/").size())),
        m_project.Native("规范/甲的副本.hds"));
    const ChangeByOthers change = Find();
    ASSERT_EQ(change.kind, Kind::Changed);
    EXPECT_EQ(change.theirs->BeelineLen.MaxLen, 40);
    EXPECT_EQ(File(change), "规范/甲的副本.hds");
}

TEST_F(ChangeByOthersTest, AFileThatIsGoneIsSeen)
{
    EXPECT_TRUE(m_colleague.Load().done);
    EXPECT_TRUE(m_colleague.Remove(*m_colleague.Find(L"甲")).done);
    EXPECT_EQ(Find().kind, Kind::Removed);
    EXPECT_EQ(File(Find()), FileOf(m_opened));
    Library().Update();
    EXPECT_EQ(Find().kind, Kind::Removed);
}

TEST_F(ChangeByOthersTest, AFileThatCannotBeReadIsSeen)
{
    m_project.Write(FileOf(m_opened), "<StyleLibrary>");
    EXPECT_EQ(Find().kind, Kind::Unreadable);
}

TEST_F(ChangeByOthersTest, AProjectThatIsGoneIsSeenAndNotMadeAnew)
{
    std::filesystem::rename(m_project.Native(), Moved());
    EXPECT_EQ(Find().kind, Kind::FolderGone);
    EXPECT_FALSE(Library().Save(Library().Item(L"甲")));
    EXPECT_FALSE(std::filesystem::exists(m_project.Native()));
    std::filesystem::rename(Moved(), m_project.Native());
    EXPECT_EQ(Find().kind, Kind::None);
    EXPECT_TRUE(Library().Save(Library().Item(L"甲")));
}

TEST_F(ChangeByOthersTest, OneThatWasNeverSavedCannotBeRemoved)
{
    const CDesignSpecification& made = Add(Make(L"乙"));
    EXPECT_EQ(FindChangeByOthers(Library().Folder(), made).kind, Kind::None);
}

TEST_F(ChangeByOthersTest, AVersionSetAsideIsAmongTheDeletedOnes)
{
    CDesignSpecification mine = m_opened;
    mine.BeelineLen.MaxLen = 50;
    EXPECT_TRUE(Library().Folder().SetAside(mine).done);
    EXPECT_TRUE(Library().Folder().SetAside(mine).done);
    Problems problems;
    const auto deleted = Library().Files().Deleted(problems);
    ASSERT_EQ(deleted.size(), 2u);
    EXPECT_EQ(deleted[0].name, L"甲");
    EXPECT_TRUE(deleted[0].id == mine.ID());
    EXPECT_EQ(Reload().Count(), 1);
    EXPECT_EQ(MarkOf(L"甲"), 20);
}

TEST_F(ChangeByOthersTest, TheFolderIsReadWhenItsFilesHaveChanged)
{
    EXPECT_EQ(ReadIfChanged(Library().Folder()), nullptr);
    const std::string file = m_project.Read(FileOf(m_opened));
    std::filesystem::remove(m_project.Native(FileOf(m_opened)));
    ASSERT_NE(ReadIfChanged(Library().Folder()), nullptr);
    EXPECT_EQ(ReadIfChanged(Library().Folder())->Count(), 0);
    m_project.Write(FileOf(m_opened), file);
    EXPECT_EQ(ReadIfChanged(Library().Folder()), nullptr);
    m_project.Write("规范/别的.hds", Envelope(Style("别的", kIdB)));
    EXPECT_EQ(ReadIfChanged(Library().Folder())->Count(), 2);
}
