#include "platform/vmrd/VmHFCBaseU/Files.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

using namespace designspec;

TEST(Files, MakesAFolderWithWhatIsMissingAboveIt)
{
    const TemporaryFolder folder;
    const TraceCapture trace;
    EXPECT_TRUE(CreateFolder(folder.Path(L"规范\\已删除")));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Native("规范/已删除")));
    EXPECT_TRUE(CreateFolder(folder.Path(L"规范/已删除/")));
    EXPECT_TRUE(FileExists(folder.Path(L"规范")));
    EXPECT_FALSE(FileExists(folder.Path(L"none")));
    EXPECT_EQ(trace.Text(), L"");
}

TEST(Files, TellsWhyAFolderCannotBeMade)
{
    const TemporaryFolder folder;
    TraceCapture trace;
    const CString file = folder.Write("规范", "a file");
    EXPECT_FALSE(CreateFolder(file));
    EXPECT_EQ(ToUtf8(trace.Text()), ToUtf8(file + L": 文件夹无法创建: 路径中有一段不是文件夹"));
    trace.Clear();
    EXPECT_FALSE(CreateFolder(file + L"/已删除"));
    EXPECT_EQ(ToUtf8(trace.Text()),
              ToUtf8(file + L"/已删除: 文件夹无法创建: 路径中有一段不是文件夹"));
    trace.Clear();
    const CString nul = folder.Path(std::wstring_view(L"a\0b", 3));
    EXPECT_FALSE(CreateFolder(nul));
    ASSERT_EQ(trace.Lines().size(), 1U);
    EXPECT_EQ(ToUtf8(trace.Lines()[0].text), "文件夹无法创建: 文件名无效");
    EXPECT_FALSE(folder.Has("a"));
}
