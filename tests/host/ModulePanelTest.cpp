#include "host/ModulePanel.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "host/HostModules.h"
#include "tests/host/HostTest.h"

using namespace designspec;

namespace {

class ModulePanelTest : public HostTest {
protected:
    void Open()
    {
        Start();
        Key(Qt::Key_M, Qt::ControlModifier);
        ASSERT_TRUE(List()->isVisible());
    }
    QTreeWidget* List() const { return Control<QTreeWidget>(host.get(), ControlId::Modules); }
    // "[x] NAME: STATE (REASON)" for each module that this test is about; the process keeps those
    // of others.
    CStringArray Rows() const
    {
        CStringArray rows;
        for (int i = 0; i < List()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* const item = List()->topLevelItem(i);
            static const QStringList kMeant = {QStringLiteral("FakeModule.arx"),
                                               QStringLiteral("VMRDPrj.arx"),
                                               QStringLiteral("Absent.arx")};
            if (!kMeant.contains(item->text(0))) continue;
            const bool checked = item->checkState(0) == Qt::Checked;
            CString row = (checked ? L"[x] " : L"[ ] ") + FromQString(item->text(0)) + L": " +
                          FromQString(item->text(1));
            if (!item->text(2).isEmpty()) row += L" (" + FromQString(item->text(2)) + L")";
            rows.push_back(row);
        }
        return rows;
    }
    void ClickModule(int row) const
    {
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {},
                          List()->visualItemRect(List()->topLevelItem(row)).topLeft() +
                              QPoint(60, 8));
    }
    bool IsEnabled(int id) const { return Control(host.get(), id)->isEnabled(); }
};

TEST_F(ModulePanelTest, ShowsWhatIsLoadedAndByWhom)
{
    Open();
    EXPECT_EQ(Rows(), (CStringArray{L"[x] FakeModule.arx: 已加载", L"[ ] VMRDPrj.arx: 已加载"}));
    ClickModule(0);
    EXPECT_FALSE(IsEnabled(ControlId::ModuleLoad));
    EXPECT_TRUE(IsEnabled(ControlId::ModuleUnload));
    ClickModule(1);
    EXPECT_TRUE(IsEnabled(ControlId::ModuleLoad));
    EXPECT_FALSE(IsEnabled(ControlId::ModuleUnload)) << "another module needs it";
}

TEST_F(ModulePanelTest, UnloadTakesTheGroupAwayAndLoadBringsItBack)
{
    Have({L"a"});
    Open();
    ClickModule(0);
    Click(host.get(), ControlId::ModuleUnload);
    EXPECT_EQ(Rows(), (CStringArray{L"[x] FakeModule.arx: 未加载", L"[ ] VMRDPrj.arx: 未加载"}));
    EXPECT_EQ(Listed(), CStringArray());
    EXPECT_EQ(Control<QTreeWidget>(host.get(), ControlId::Groups)->topLevelItemCount(), 0);
    Click(host.get(), ControlId::ModuleLoad);
    EXPECT_EQ(Listed(), CStringArray{L"a"});
}

TEST_F(ModulePanelTest, AFailureShowsItsReason)
{
    QSettings().setValue(QStringLiteral("modulesAtStart"),
                         QStringList(QStringLiteral("Absent.arx")));
    Open();
    EXPECT_EQ(Rows().front(), L"[x] Absent.arx: 加载失败 (文件不存在)");
    ClickModule(0);
    EXPECT_TRUE(IsEnabled(ControlId::ModuleLoad));
}

TEST_F(ModulePanelTest, TheCheckMarkDecidesWhatIsLoadedAtStart)
{
    Open();
    ClickModule(0);
    List()->setFocus();
    QTest::keyClick(List(), Qt::Key_Space);
    EXPECT_EQ(HostModules().AtStart(), QStringList());
    QTest::keyClick(List(), Qt::Key_Space);
    EXPECT_EQ(HostModules().AtStart(), QStringList(QStringLiteral("FakeModule.arx")));
    Click(host.get(), ControlId::ModuleRemove);
    EXPECT_EQ(HostModules().AtStart(), QStringList());
    EXPECT_FALSE(IsEnabled(ControlId::ModuleRemove));
    host.reset();
    Start();
    EXPECT_EQ(Listed(), CStringArray());
}

TEST_F(ModulePanelTest, AnAddedFileIsLoadedNowAndAtStart)
{
    install.Add("CountingModule.arx");
    Open();
    ExpectModal dialog([this](QWidget* window) {
        auto* const name = window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setText(ToQString(install.Path() + L"/CountingModule.arx"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    Click(host.get(), ControlId::ModuleAdd);
    EXPECT_EQ(HostModules().AtStart(), (QStringList{QStringLiteral("FakeModule.arx"),
                                                    QStringLiteral("CountingModule.arx")}));
    EXPECT_TRUE(designspec::IsModuleLoaded(L"CountingModule.arx"));
}

} // namespace
