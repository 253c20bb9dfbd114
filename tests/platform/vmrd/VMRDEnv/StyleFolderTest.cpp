#include "platform/vmrd/VMRDEnv/StyleFolder.h"

#include "base/Process.h"
#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

using StyleFolderTest = FolderOfStyles;

} // namespace

TEST_F(StyleFolderTest, StandsInAFolderOfTheProject)
{
    EXPECT_EQ(StylesFolderOf(m_folder.Path()), m_styles.Path());
    EXPECT_EQ(m_styles.DeletedPath(), m_folder.Path() + L"\\规范\\已删除");
    EXPECT_TRUE(m_styles.Deleted(m_problems).empty());
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(StyleFolderTest, SavingTakesAwayWhatKilledWritesLeft)
{
    const auto left = [&](const std::string& name, int hours) {
        m_folder.Write(name, "half");
        fs::last_write_time(m_folder.Native(name),
                            fs::file_time_type::clock::now() - std::chrono::hours(hours));
    };
    const std::string ours = ".designspec-" + std::to_string(Process::Id()) + "-abcdefghijkl.tmp";
    left("规范/.designspec-abcdefghijkl.tmp", 25);
    left("规范/.designspec-bbcdefghijkl.tmp", 23);
    left("规范/.designspec-999999999-abcdefghijkl.tmp", 25);
    left("规范/已删除/.designspec-cbcdefghijkl.tmp", 25);
    left("规范/" + ours, 25);
    left("规范/notes.tmp", 25);
    std::vector<GUID> ids;
    EXPECT_TRUE(m_styles.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    EXPECT_EQ(FindFiles(m_styles.Path(), L".tmp", m_problems),
              (CStringArray{L".designspec-" + std::to_wstring(Process::Id()) + L"-abcdefghijkl.tmp",
                            L".designspec-bbcdefghijkl.tmp", L"notes.tmp"}));
    EXPECT_TRUE(FindFiles(m_styles.DeletedPath(), L".tmp", m_problems).empty());
}

TEST_F(StyleFolderTest, NoProjectHasNoFolder)
{
    EXPECT_EQ(StylesFolderOf(L""), L"");
    StyleFolder none(StylesFolderOf(L""), L"标志");
    EXPECT_EQ(none.PathOf(L"甲.hds"), L"");
    std::vector<GUID> ids;
    EXPECT_FALSE(none.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    EXPECT_TRUE(none.Files(m_problems).empty());
}

TEST_F(StyleFolderTest, KnowsTheContentThatItSaved)
{
    std::vector<GUID> ids;
    EXPECT_TRUE(m_styles.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    const std::string bytes = m_folder.Read("规范/甲.hds");
    m_folder.Write("规范/甲.hds", bytes + " ");
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
    m_folder.Write("规范/甲.hds", bytes);
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds")) << "whoever wrote it";
    EXPECT_TRUE(m_styles.Delete(L"甲.hds", m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds")) << "gone, as it was left";
    m_folder.Write("规范/甲.hds", bytes);
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
}

TEST_F(StyleFolderTest, KnowsTheContentThatItLoadedMovedAndBroughtBack)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    EXPECT_TRUE(m_styles.Load(L"甲.hds", root, m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    EXPECT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    EXPECT_TRUE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    m_styles.Forget();
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
}

TEST_F(StyleFolderTest, KnowsTheSettingsThatItWrote)
{
    EXPECT_EQ(m_styles.Setting(L"设置", L"键", m_problems), L"");
    EXPECT_TRUE(m_styles.SetSetting(L"设置", L"键", L"值", m_problems));
    EXPECT_EQ(m_styles.Setting(L"设置", L"键", m_problems), L"值");
    EXPECT_TRUE(m_styles.IsKnown(L"setting.ini"));
    m_folder.Write("规范/setting.ini", "[设置]\n");
    EXPECT_FALSE(m_styles.IsKnown(L"setting.ini"));
}

TEST_F(StyleFolderTest, KnowsNothingOfAnotherFolder)
{
    std::vector<GUID> ids;
    EXPECT_TRUE(m_styles.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    m_styles.MoveTo(m_styles.Path());
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    const CString path = m_styles.Path();
    m_styles.MoveTo(m_folder.Path() + L"\\别");
    m_styles.MoveTo(path);
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
}
