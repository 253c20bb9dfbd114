#include "library/SpecificationSource.h"

#include "tests/support/LibraryTest.h"

namespace {

class SpecificationSource : public LibraryTest {
protected:
    void SetUp() override
    {
        AddSaved(Make(L"甲", 21));
        AddSaved(Make(L"乙", 22));
    }

    std::unique_ptr<SpecificationFolder> Read(const CString& path)
    {
        m_problems.clear();
        return ReadSpecificationsAt(path, m_problems);
    }
    void Refuses(const CString& path, const CString& why)
    {
        EXPECT_EQ(Read(path), nullptr);
        ASSERT_FALSE(m_problems.empty());
        EXPECT_NE(m_problems.front().Text().find(why), CString::npos)
            << ToUtf8(m_problems.front().Text());
    }

    designspec::Problems m_problems;
};

TEST_F(SpecificationSource, AFileAProjectAndItsFolderGiveTheSame)
{
    ASSERT_TRUE(Library().Export(m_project.Path(L"all.hds").c_str(), {}, nullptr));
    for (const CString& path : {m_project.Path(L"all.hds"), m_project.Path(),
                                m_project.Path(L"规范"), m_project.Path(L"规范/")}) {
        const auto read = Read(path);
        ASSERT_TRUE(read) << ToUtf8(path);
        EXPECT_TRUE(m_problems.empty());
        CStringArray names = NamesOf(*read);
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names, (CStringArray{L"乙", L"甲"}));
        EXPECT_EQ(FindSpecification(*read, L"乙")->BeelineLen.MaxLen, 22);
    }
}

TEST_F(SpecificationSource, FindsByNameOrIdentity)
{
    const auto read = Read(m_project.Path());
    const CDesignSpecification& one = *FindSpecification(*read, L"甲");
    EXPECT_EQ(FindSpecification(*read, VMRDPub::GUIDToStr(one.ID())), &one);
    EXPECT_EQ(FindSpecification(*read, L"丙"), nullptr);
    EXPECT_EQ(FindSpecification(*read, L"{x}"), nullptr);
}

TEST_F(SpecificationSource, WithoutANameItIsTheOnlyOrTheDefaultOne)
{
    const auto read = Read(m_project.Path());
    EXPECT_EQ(FindSpecification(*read, L""), nullptr);
    CDesignSpecification* const one = FindSpecification(*read, L"乙");
    ASSERT_TRUE(read->SetDefault(*one).done);
    EXPECT_EQ(FindSpecification(*read, L""), one);
    read->TakeOut(1 - read->IndexOf(*one));
    EXPECT_EQ(FindSpecification(*read, L""), one);
}

TEST_F(SpecificationSource, SaysWhatIsNoSource)
{
    Refuses(m_project.Path(L"没有.hds"), L"没有.hds: ");
    m_project.Write("坏.hds", "<StyleLibrary>");
    Refuses(m_project.Path(L"坏.hds"), L"坏.hds:1");
    std::filesystem::create_directory(m_project.Native("空"));
    Refuses(m_project.Path(L"空"), L"不是项目文件夹,其中没有“规范”文件夹");
    Refuses(L"", L"");
}

// Nothing is written where it is read from.
TEST_F(SpecificationSource, LeavesTheFolderAsItIs)
{
    const TemporaryFolder other;
    std::filesystem::create_directory(other.Native("规范"));
    for (const auto& file : std::filesystem::directory_iterator(m_project.Native("规范")))
        if (file.path().extension() == ".hds")
            std::filesystem::copy_file(file.path(), other.Native("规范") / file.path().filename());
    ASSERT_TRUE(Read(other.Path()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(other.Native("规范")), {}), 2);
}

} // namespace
