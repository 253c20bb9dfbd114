#include "library/SpecificationEdit.h"

#include "tests/support/LibraryTest.h"

namespace fs = std::filesystem;

namespace {

class SpecificationEdit : public LibraryTest {
protected:
    int Files() const
    {
        return static_cast<int>(
            std::distance(fs::directory_iterator(m_project.Native("规范")), {}));
    }
};

} // namespace

TEST_F(SpecificationEdit, ProposesANameByTheCount)
{
    EXPECT_EQ(ProposedName(Library()), L"规范1");
    Add(Make(L"规范2"));
    EXPECT_EQ(ProposedName(Library()), L"规范2"); // taken or not
}

TEST_F(SpecificationEdit, ProposesTheFirstFreeNameForACopy)
{
    EXPECT_EQ(ProposedCopyName(Library(), L"a"), L"a[副本]");
    Add(Make(L"A[副本]"));
    EXPECT_EQ(ProposedCopyName(Library(), L"a"), L"a[副本1]");
    Add(Make(L"a[副本1]"));
    EXPECT_EQ(ProposedCopyName(Library(), L"a"), L"a[副本2]");
    EXPECT_EQ(ProposedCopyName(Library(), L"A[副本]"), L"A[副本][副本]");
}

TEST_F(SpecificationEdit, RenameMovesTheFile)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 3, kIdA));
    EXPECT_TRUE(RenameSpecification(Library(), one, L"b"));
    EXPECT_EQ(one.Name(), L"b");
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_EQ(Files(), 1);
    EXPECT_TRUE(RenameSpecification(Library(), one, L"B"));
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_EQ(Files(), 1);
    Reload();
    EXPECT_EQ(Names(), L"B");
    EXPECT_EQ(MarkOf(L"B"), 3);
}

TEST_F(SpecificationEdit, RenameOfAnUnsavedOneSavesIt)
{
    CDesignSpecification& one = Add(Make(L"a", 3, kIdA));
    EXPECT_TRUE(RenameSpecification(Library(), one, L"b"));
    EXPECT_EQ(Files(), 1);
    EXPECT_TRUE(m_project.Has(FileOf(one)));
}

TEST_F(SpecificationEdit, RenameOutOfAFileOfAnotherNameSetsThatAside)
{
    m_project.Write("规范/foo.hds", Envelope(Style("a", kIdA, 3)));
    Reload();
    EXPECT_TRUE(RenameSpecification(Library(), At(0), L"b"));
    EXPECT_FALSE(m_project.Has("规范/foo.hds"));
    Reload();
    EXPECT_EQ(Names(), L"b");
}

TEST_F(SpecificationEdit, RenameToANameThatNoFileCanBearIsFalseAndKeepsTheOldFile)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 3, kIdA));
    EXPECT_FALSE(RenameSpecification(Library(), one, L"../b"));
    Reload();
    EXPECT_EQ(Names(), L"a");
}

TEST_F(SpecificationEdit, RenameFromANameThatNoFileCanBearSavesTheNewOne)
{
    m_project.Write("规范/foo.hds", Envelope(Style("../a", kIdA, 3)));
    Reload();
    EXPECT_TRUE(RenameSpecification(Library(), At(0), L"b"));
    Reload();
    EXPECT_EQ(Names(), L"b");
}

TEST_F(SpecificationEdit, ImportAndSaveSavesTheNewAndTheOverwritten)
{
    CDesignSpecification& kept = AddSaved(Make(L"kept", 1, kIdA));
    AddSaved(Make(L"old", 2, kIdB));
    const auto before = fs::last_write_time(m_project.Native(FileOf(kept)));
    const CString path =
        m_project.Write("in.hds", Envelope(Style("changed", kIdB, 5) + Style("kept", kIdC, 6)));
    EXPECT_TRUE(ImportAndSave(Library(), path.c_str(), {}, true));
    EXPECT_EQ(fs::last_write_time(m_project.Native(FileOf(kept))), before);
    Reload();
    EXPECT_EQ(MarkOf(L"kept"), 1);
    EXPECT_EQ(MarkOf(L"changed"), 5);
    EXPECT_EQ(MarkOf(L"kept(1)"), 6);
    EXPECT_EQ(Library().Count(), 3);
}

TEST_F(SpecificationEdit, ImportAndSaveWithoutOverwritingLeavesWhatIsThere)
{
    AddSaved(Make(L"old", 2, kIdB));
    const CString path =
        m_project.Write("in.hds", Envelope(Style("b", kIdB, 5) + Style("c", kIdC, 6)));
    EXPECT_TRUE(ImportAndSave(Library(), path.c_str(), {L"B", L"c"}, false));
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(MarkOf(L"old"), 2);
    EXPECT_EQ(MarkOf(L"c"), 6);
}

TEST_F(SpecificationEdit, ImportAndSaveIsFalseWhenAFileResists)
{
    EXPECT_FALSE(ImportAndSave(Library(), m_project.Path(L"none.hds").c_str(), {}, true));
    const CString path =
        m_project.Write("in.hds", Envelope(Style("../a", kIdA, 1) + Style("b", kIdB, 2)));
    EXPECT_FALSE(ImportAndSave(Library(), path.c_str(), {}, true));
    Reload();
    EXPECT_EQ(Names(), L"b"); // what could be saved is
}
