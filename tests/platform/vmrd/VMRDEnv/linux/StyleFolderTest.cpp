// Names that only Linux lets a file have.
#include "platform/vmrd/VMRDEnv/StyleFolder.h"

#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;

namespace {

using StyleFolderTest = FolderOfStyles;

} // namespace

TEST_F(StyleFolderTest, AFileWithABackslashInItsNameIsNoneOfItsFiles)
{
    FileOf(L"甲.hds", {L"甲"});
    m_folder.Write("规范/..\\甲.hds", "<StyleLibrary/>");
    EXPECT_EQ(m_styles.Files(m_problems), (CStringArray{L"甲.hds"}));
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_styles.Path() == L"" ? L"" : ToWide(NativePath(m_styles.Path()))) +
                  ": 文件名“..\\甲.hds”含有反斜线,无法使用");
}
