#include "platform/vmrd/VMRDEnv/KnownFiles.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

using namespace designspec;

TEST(KnownFilesTest, KnowsNothingAtFirst)
{
    const KnownFiles known;
    EXPECT_FALSE(known.Has(L"甲.hds"));
    EXPECT_FALSE(known.IsGone(L"甲.hds"));
    EXPECT_FALSE(known.Held(L"甲.hds", ""));
    EXPECT_FALSE(known.Held(L"甲.hds", CoCreateGuid()));
    EXPECT_TRUE(known.Names().empty());
}

TEST(KnownFilesTest, TellsTwoContentsApart)
{
    KnownFiles known;
    known.Set(L"甲.hds", "250");
    EXPECT_TRUE(known.Has(L"甲.hds"));
    EXPECT_TRUE(known.Held(L"甲.hds", "250"));
    EXPECT_FALSE(known.Held(L"甲.hds", "251"));
    EXPECT_FALSE(known.Held(L"甲.hds", "2500"));
    EXPECT_FALSE(known.Held(L"乙.hds", "250"));
    known.Set(L"甲.hds", "");
    EXPECT_TRUE(known.Held(L"甲.hds", ""));
    EXPECT_FALSE(known.Held(L"甲.hds", "250"));
}

TEST(KnownFilesTest, TellsLongContentsApartByEachByte)
{
    for (const size_t size : {31U, 32U, 33U, 64U, 100U}) {
        std::string bytes;
        for (size_t i = 0; i < size; ++i)
            bytes.push_back(static_cast<char>(i * 7));
        KnownFiles known;
        known.Set(L"甲.hds", bytes);
        for (size_t i = 0; i < size; ++i) {
            std::string other = bytes;
            other[i] = static_cast<char>(other[i] ^ 0x40);
            EXPECT_FALSE(known.Held(L"甲.hds", other)) << size << ": " << i;
        }
        std::string turned = bytes;
        std::rotate(turned.begin(), turned.begin() + 8, turned.end());
        EXPECT_FALSE(known.Held(L"甲.hds", turned)) << size;
        EXPECT_TRUE(known.Held(L"甲.hds", bytes)) << size;
    }
}

TEST(KnownFilesTest, KnowsTheStylesOfTheLastContent)
{
    const GUID first = CoCreateGuid();
    const GUID second = CoCreateGuid();
    KnownFiles known;
    known.Set(L"甲.hds", "1", {first, second});
    EXPECT_TRUE(known.Held(L"甲.hds", first));
    EXPECT_TRUE(known.Held(L"甲.hds", second));
    known.Set(L"甲.hds", "2", {second});
    EXPECT_FALSE(known.Held(L"甲.hds", first));
    EXPECT_TRUE(known.Held(L"甲.hds", second));
}

TEST(KnownFilesTest, AFileThatWentIsKnownAsGone)
{
    const GUID id = CoCreateGuid();
    KnownFiles known;
    known.Set(L"甲.hds", "1", {id});
    known.Set(L"乙.hds", "2");
    known.SetGone(L"甲.hds");
    EXPECT_TRUE(known.Has(L"甲.hds"));
    EXPECT_TRUE(known.IsGone(L"甲.hds"));
    EXPECT_FALSE(known.Held(L"甲.hds", "1"));
    EXPECT_FALSE(known.Held(L"甲.hds", id));
    EXPECT_EQ(known.Names(), CStringArray{L"乙.hds"});
    known.Set(L"甲.hds", "1", {id});
    EXPECT_FALSE(known.IsGone(L"甲.hds"));
    known.Clear();
    EXPECT_FALSE(known.Has(L"甲.hds"));
}
