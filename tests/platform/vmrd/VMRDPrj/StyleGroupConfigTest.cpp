#include "platform/vmrd/VMRDPrj/StyleGroupConfig.h"

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/Text.h"
#include "tests/modules/TestInstall.h"

using namespace designspec;

namespace {

StyleGroupConfig Read(const TemporaryFolder& folder, const std::string& text)
{
    folder.Write("groups.json", text);
    StyleGroupConfig config;
    EXPECT_TRUE(config.Load(folder.Path() + L"\\groups.json"));
    return config;
}

TEST(StyleGroupConfig, AGroupKnowsItsEditors)
{
    const TemporaryFolder folder;
    const StyleGroupConfig config = Read(folder, kFakeGroups);
    const StyleGroupConfig* const group = config.FindStyleGroup(L"CFakeGroup", false);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->Name(), L"CFakeGroup");
    EXPECT_NE(group->FindStyleGroup(L"CFakeEditor", false), nullptr);
    EXPECT_EQ(group->FindStyleGroup(L"COtherEditor", false), nullptr);
    EXPECT_EQ(config.FindStyleGroup(L"COtherGroup", false), nullptr);
}

TEST(StyleGroupConfig, AGroupWithoutEditorsHasNone)
{
    const TemporaryFolder folder;
    const StyleGroupConfig config = Read(folder, R"({"groups": [{"name": "CFakeGroup"}]})");
    ASSERT_NE(config.FindStyleGroup(L"CFakeGroup", false), nullptr);
    EXPECT_EQ(config.FindStyleGroup(L"CFakeGroup", false)->FindStyleGroup(L"CFakeEditor", true),
              nullptr);
}

TEST(StyleGroupConfig, OnlyADeepSearchLooksBelow)
{
    const TemporaryFolder folder;
    const StyleGroupConfig config =
        Read(folder, R"({"groups": [{"name": "A", "groups": [{"name": "B"}]}]})");
    EXPECT_EQ(config.FindStyleGroup(L"B", false), nullptr);
    EXPECT_NE(config.FindStyleGroup(L"B", true), nullptr);
}

TEST(StyleGroupConfig, WhatCannotBeReadIsTracedAndLeavesNothing)
{
    const TemporaryFolder folder;
    StyleGroupConfig config = Read(folder, kFakeGroups);
    for (const char* wrong : {"", "{", "[]", R"({"groups": 1})", R"({"groups": [{"name": 1}]})"}) {
        const TraceCapture lines;
        folder.Write("wrong.json", wrong);
        EXPECT_FALSE(config.Load(folder.Path() + L"\\wrong.json")) << wrong;
        EXPECT_EQ(lines.Lines().size(), 1u) << wrong;
        EXPECT_EQ(config.FindStyleGroup(L"CFakeGroup", true), nullptr);
    }
    const TraceCapture lines;
    EXPECT_FALSE(config.Load(folder.Path() + L"\\missing.json"));
    EXPECT_EQ(lines.Lines().size(), 1u);
}

TEST(StyleGroupConfig, TheShippedFileNamesTheGroupAndItsEditor)
{
    StyleGroupConfig config;
    ASSERT_TRUE(config.Load(ToWide(BINARY_DIR "/bin/StyleGroups.json")));
    const StyleGroupConfig* const group =
        config.FindStyleGroup(L"CDesignSpecificationGroup", false);
    ASSERT_NE(group, nullptr);
    EXPECT_NE(group->FindStyleGroup(L"CDSEditor", false), nullptr);
}

} // namespace
