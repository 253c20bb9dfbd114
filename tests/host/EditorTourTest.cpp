#include "host/EditorTour.h"

#include <map>

#include <QTableView>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/arx/Modules.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "tests/app/AppTest.h"
#include "tests/gui/Controls.h"

using namespace designspec;

namespace {

constexpr wchar_t kModule[] = L"DesignSpecification.arx";

// The tour through the real editor.
class EditorTourTest : public AppTest {
protected:
    EditorTourTest() { EXPECT_TRUE(acrxLoadModule(kModule, false, false)); }
    ~EditorTourTest() override { acrxUnloadModule(kModule, false); }

    // Shows the editor's windows with a specification; their titles by the pictures' names.
    void Tour()
    {
        CDesignSpecification& specification = AddSaved(Make(L"甲"));
        file = m_project.Read(FileOf(specification));
        CStyleManager& manager = *CPrjManager::GetInstance()->GetStyleManager();
        EditorTour tour(*manager.GetGroup(0)->GetStyles(0),
                        [this](QWidget* window, const QString& name) {
                            EXPECT_TRUE(window->isVisible()) << name.toStdString();
                            Look(window, name.toStdString());
                        });
        tour.Run(&specification);
    }
    void Look(QWidget* window, const std::string& name)
    {
        EXPECT_TRUE(titles.try_emplace(name, window->windowTitle().toStdString()).second) << name;
        if (window->windowTitle() != QStringLiteral("设计规范") || name == "新建" || name == "查找")
            return;
        const bool isSwitched = name.ends_with("-图");
        (isSwitched ? curves : pages).push_back(name);
        const std::string page = "-" + SelectedItem(window) + (isSwitched ? "-图" : "");
        EXPECT_TRUE(name.ends_with(page)) << name;
    }

    std::string file; // of the specification, before the tour
    std::map<std::string, std::string> titles;
    std::vector<std::string> pages, curves;
};

TEST_F(EditorTourTest, ShowsEachPageAsItIsEdited)
{
    Tour();
    EXPECT_EQ(pages, (std::vector<std::string>{
                         "平面-直线长度", "平面-圆曲线半径", "平面-平曲线与圆曲线最小长度",
                         "平面-小转角平曲线最小长度", "平面-缓和曲线最小长度", "纵断-纵坡坡度",
                         "纵断-最大合成坡度", "纵断-纵坡最大坡长", "纵断-纵坡最小坡长",
                         "纵断-竖曲线最小半径和长度", "超高加宽-超高规范", "超高加宽-超高",
                         "超高加宽-加宽"}));
    EXPECT_EQ(curves.size(), 12U); // all but that of straight lines have tables
    EXPECT_EQ(curves.front(), "平面-圆曲线半径-图");
}

TEST_F(EditorTourTest, ShowsASearch)
{
    Tour();
    EXPECT_EQ(titles["查找"], "设计规范");
}

TEST_F(EditorTourTest, ShowsWhatThePagesOpen)
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

TEST_F(EditorTourTest, ShowsViewModeAndANewSpecification)
{
    Tour();
    EXPECT_EQ(titles["查看模式"], "设计规范 - 甲 -- 查看模式");
    EXPECT_EQ(titles["新建"], "设计规范");
}

TEST_F(EditorTourTest, ShowsTheNoticeWhenTheNewNameIsTaken)
{
    Add(Make(L"规范3"));
    Tour();
    EXPECT_EQ(titles["新建"], "新建设计规范");
}

TEST_F(EditorTourTest, ShowsTheWindowAboutAChangeOfOthers)
{
    const CDesignSpecification mine = Make(L"甲");
    CDesignSpecification& specification = AddSaved(mine);
    file = m_project.Read(FileOf(specification));
    std::string changed = file;
    const std::string value = "MaxLen=\"20\"";
    ASSERT_NE(changed.find(value), std::string::npos);
    const std::string name = m_project.Native(FileOf(specification)).filename().string();
    m_project.Write("对方/" + name,
                    changed.replace(changed.find(value), value.size(), "MaxLen=\"25\""));
    QStringList rows;
    CStyleManager& manager = *CPrjManager::GetInstance()->GetStyleManager();
    EditorTour tour(*manager.GetGroup(0)->GetStyles(0), [&](QWidget* window, const QString& title) {
        EXPECT_EQ(title, QStringLiteral("规范已被别人修改"));
        const auto* const values = Control<QTableView>(window, 7004);
        for (int i = 0; values && i < values->model()->rowCount(); ++i)
            rows << values->model()->index(i, 2).data().toString() + u'|' +
                        values->model()->index(i, 4).data().toString();
    });
    tour.ShowOthersChange(&specification,
                          QString::fromStdString(m_project.Native("对方/" + name).string()));
    EXPECT_EQ(rows, (QStringList{QStringLiteral("20 倍设计速度(km/h)|25 倍设计速度(km/h)"),
                                 QStringLiteral("1200 m|1000 m")}));
    EXPECT_EQ(m_project.Read(FileOf(specification)), file);
    EXPECT_EQ(specification, mine);

    rows.clear();
    tour.ShowOthersChange(&specification, QStringLiteral("没有.hds"));
    EXPECT_TRUE(rows.isEmpty());
}

TEST_F(EditorTourTest, ChangesNothing)
{
    Tour();
    EXPECT_EQ(Library().Count(), 1);
    EXPECT_EQ(SpecificationFiles(), 1);
    EXPECT_EQ(m_project.Read(FileOf(At(0))), file);
}

} // namespace
