#include "library/FileOrigins.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

class FileOriginsTest : public testing::Test {
protected:
    static CStringArray FilesOf(const std::vector<Origin>& origins)
    {
        CStringArray files;
        for (const Origin& origin : origins)
            files.push_back(origin.file);
        return files;
    }

    const GUID m_a = CoCreateGuid();
    const GUID m_b = CoCreateGuid();
    FileOrigins m_origins;
};

} // namespace

TEST_F(FileOriginsTest, ASpecificationThatWasNeverSavedHasNoFile)
{
    EXPECT_TRUE(m_origins.Of(m_a).empty());
    EXPECT_FALSE(m_origins.LastOf(m_a));
    EXPECT_FALSE(m_origins.Has(m_a, L"甲.hds"));
    EXPECT_FALSE(m_origins.HasElsewhere(m_a, L"甲.hds"));
    EXPECT_TRUE(m_origins.In(L"甲.hds").empty());
}

TEST_F(FileOriginsTest, TheLastFileCounts)
{
    m_origins.Add({m_a, L"甲.hds"});
    m_origins.Add({m_a, L"乙.hds", false});
    EXPECT_EQ(FilesOf(m_origins.Of(m_a)), (CStringArray{L"甲.hds", L"乙.hds"}));
    ASSERT_TRUE(m_origins.LastOf(m_a));
    EXPECT_EQ(m_origins.LastOf(m_a)->file, L"乙.hds");
    EXPECT_FALSE(m_origins.LastOf(m_a)->hasID);
    EXPECT_TRUE(m_origins.Has(m_a, L"甲.hds"));
    EXPECT_TRUE(m_origins.HasElsewhere(m_a, L"甲.hds"));
}

TEST_F(FileOriginsTest, AFileTellsItsSpecificationsInOrder)
{
    m_origins.Add({m_b, L"甲.hds"});
    m_origins.Add({m_a, L"甲.hds"});
    EXPECT_EQ(m_origins.In(L"甲.hds"), (std::vector<GUID>{m_b, m_a}));
    EXPECT_FALSE(m_origins.HasElsewhere(m_a, L"甲.hds"));
}

TEST_F(FileOriginsTest, OneThatMovesLeavesTheOthersInTheFile)
{
    m_origins.Add({m_a, L"甲.hds"});
    m_origins.Add({m_b, L"甲.hds"});
    m_origins.Move(m_a, L"甲.hds", L"乙.hds");
    EXPECT_EQ(m_origins.In(L"甲.hds"), std::vector<GUID>{m_b});
    EXPECT_EQ(m_origins.In(L"乙.hds"), std::vector<GUID>{m_a});
    EXPECT_EQ(FilesOf(m_origins.Of(m_a)), CStringArray{L"乙.hds"});
}

TEST_F(FileOriginsTest, ForgetsOneFileOfASpecificationOrAll)
{
    for (const wchar_t* file : {L"甲.hds", L"乙.hds", L"丙.hds"})
        m_origins.Add({m_a, file});
    m_origins.Add({m_b, L"乙.hds"});
    m_origins.Remove(m_a, L"甲.hds");
    EXPECT_EQ(FilesOf(m_origins.Of(m_a)), (CStringArray{L"乙.hds", L"丙.hds"}));
    EXPECT_TRUE(m_origins.In(L"甲.hds").empty());
    m_origins.Remove(m_a);
    EXPECT_TRUE(m_origins.Of(m_a).empty());
    EXPECT_EQ(m_origins.In(L"乙.hds"), std::vector<GUID>{m_b});
}

TEST_F(FileOriginsTest, ForgetsAFileWithAllThatItHeld)
{
    m_origins.Add({m_a, L"甲.hds"});
    m_origins.Add({m_b, L"甲.hds"});
    m_origins.Add({m_b, L"乙.hds"});
    m_origins.RemoveFile(L"甲.hds");
    EXPECT_TRUE(m_origins.Of(m_a).empty());
    EXPECT_EQ(FilesOf(m_origins.Of(m_b)), CStringArray{L"乙.hds"});
    EXPECT_TRUE(m_origins.In(L"甲.hds").empty());
    m_origins.Clear();
    EXPECT_TRUE(m_origins.Of(m_b).empty());
}

TEST_F(FileOriginsTest, OneThatStandsTwiceInAFileLeavesItAltogether)
{
    const auto addTwice = [&] {
        m_origins.Add({m_a, L"甲.hds"});
        m_origins.Add({m_a, L"甲.hds"});
        m_origins.Add({m_a, L"乙.hds"});
    };
    addTwice();
    m_origins.Remove(m_a);
    EXPECT_TRUE(m_origins.Of(m_a).empty());
    EXPECT_TRUE(m_origins.In(L"甲.hds").empty());
    addTwice();
    m_origins.RemoveFile(L"甲.hds");
    EXPECT_EQ(FilesOf(m_origins.Of(m_a)), CStringArray{L"乙.hds"});
    addTwice();
    m_origins.Remove(m_a, L"甲.hds");
    EXPECT_TRUE(m_origins.In(L"甲.hds").empty());
    EXPECT_EQ(m_origins.In(L"乙.hds"), (std::vector<GUID>{m_a, m_a}));
}
