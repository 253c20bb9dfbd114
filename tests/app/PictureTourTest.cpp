#include "app/PictureTour.h"

#include <map>

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "base/Text.h"
#include "tests/app/AppTest.h"

using namespace designspec;

namespace {

class PictureTour : public AppTest {
protected:
    // Shows the editor's windows with a specification; their titles by the pictures' names.
    void Tour()
    {
        CDesignSpecification& specification = AddSaved(Make(L"甲"));
        file = m_project.Read(FileOf(specification));
        const UnwatchedModals answeredByTheTour;
        CDSEditor().Snapshot(&specification, [this](QWidget* window, const CString& name) {
            EXPECT_TRUE(window->isVisible()) << ToUtf8(name);
            EXPECT_EQ(Locks(), 1);
            Look(window, ToUtf8(name));
        });
    }
    void Look(QWidget* window, const std::string& name)
    {
        EXPECT_TRUE(titles.try_emplace(name, window->windowTitle().toStdString()).second) << name;
        if (window->windowTitle() != QStringLiteral("设计规范")) return;
        pages.push_back(name);
        EXPECT_EQ(SelectedItem(window), name.substr(name.find('-') + 1));
    }

    std::string file; // of the specification, before the tour
    std::map<std::string, std::string> titles;
    std::vector<std::string> pages;
};

} // namespace

TEST_F(PictureTour, ShowsEachPageAsItIsEdited)
{
    Tour();
    std::vector<std::string> expected;
    for (const PageEntry& page : PageTable())
        expected.push_back(ToUtf8(page.group + CString(L"-") + page.label));
    EXPECT_EQ(pages, expected);
}

TEST_F(PictureTour, ShowsWhatThePagesOpen)
{
    Tour();
    for (const char* dialog :
         {"数据来源", "输入车速", "输入坡度", "输入加宽类别", "输入圆曲线半径", "提示"})
        EXPECT_EQ(titles[dialog], dialog);
    // A menu of the same items as one before is not shown again.
    EXPECT_TRUE(titles.contains("平面-圆曲线半径-右键菜单"));
    EXPECT_FALSE(titles.contains("平面-平曲线与圆曲线最小长度-右键菜单"));
    EXPECT_TRUE(titles.contains("超高加宽-加宽-右键菜单"));
}

TEST_F(PictureTour, ShowsViewModeAndTheNoticeAboutATakenName)
{
    Tour();
    EXPECT_EQ(titles["查看模式"], "设计规范 -- 查看模式");
    EXPECT_EQ(titles["等待名称"], "新建设计规范");
}

TEST_F(PictureTour, ChangesNothing)
{
    Tour();
    EXPECT_EQ(Library().Count(), 1);
    EXPECT_EQ(SpecificationFiles(), 1);
    EXPECT_EQ(m_project.Read(FileOf(At(0))), file);
}
