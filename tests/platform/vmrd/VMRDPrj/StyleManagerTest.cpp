#include "platform/vmrd/VMRDPrj/StyleManager.h"

#include <gtest/gtest.h>

#include "platform/arx/Modules.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "tests/modules/TestInstall.h"

namespace {

constexpr auto kFirst = static_cast<CStyleManager::EType>(1);
constexpr auto kLater = static_cast<CStyleManager::EType>(100);

class Group : public CStyleGroup {
public:
    ~Group() override
    {
        if (onDelete) onDelete();
    }
    CString Name() const override { return L"组"; }

    std::function<void()> onDelete;
};

TEST(StyleManager, ListsGroupsByType)
{
    CStyleManager manager{StyleGroupConfig()};
    Group late, later, first;
    EXPECT_TRUE(manager.AddObject(kLater, &late));
    EXPECT_TRUE(manager.AddObject(kLater, &later));
    EXPECT_TRUE(manager.AddObject(kFirst, &first));
    EXPECT_FALSE(manager.AddObject(kFirst, &first));
    EXPECT_FALSE(manager.AddObject(kFirst, nullptr));
    ASSERT_EQ(manager.GroupsCount(), 3);
    EXPECT_EQ(manager.GetGroup(0), &first);
    EXPECT_EQ(manager.GetGroup(1), &late);
    EXPECT_EQ(manager.GetGroup(2), &later);
    EXPECT_EQ(manager.GetGroup(3), nullptr);
    EXPECT_EQ(manager.GetGroup(-1), nullptr);
    EXPECT_TRUE(manager.RemoveObject(&late, false));
    EXPECT_FALSE(manager.RemoveObject(&late, false));
    EXPECT_TRUE(manager.RemoveObject(&later, false));
    EXPECT_TRUE(manager.RemoveObject(&first, false));
}

TEST(StyleManager, TellsOfARemovalBeforeTheGroupIsDeleted)
{
    CStyleManager manager{StyleGroupConfig()};
    std::vector<std::string> order;
    auto* const group = new Group;
    group->onDelete = [&order] { order.push_back("deleted"); };
    const designspec::Connection connection = CStyleManager::Changed().Connect(
        [&] { order.push_back("told " + std::to_string(manager.GroupsCount())); });
    manager.AddObject(kLater, group);
    EXPECT_TRUE(manager.RemoveObject(group, true));
    EXPECT_EQ(order, (std::vector<std::string>{"told 1", "told 0", "deleted"}));
}

TEST(StyleManager, DeletesAGroupThatIsNotListedIfAsked)
{
    CStyleManager manager{StyleGroupConfig()};
    bool deleted = false;
    auto* const group = new Group;
    group->onDelete = [&deleted] { deleted = true; };
    EXPECT_FALSE(manager.RemoveObject(group, true));
    EXPECT_TRUE(deleted);
    EXPECT_FALSE(manager.RemoveObject(nullptr, true));
}

TEST(PrjManager, IsThereWhileItsModuleIsLoaded)
{
    const TestInstall install({"VMRDPrj.arx"});
    install.Write("StyleGroups.json", kFakeGroups);
    EXPECT_EQ(CPrjManager::GetInstance(), nullptr);
    ASSERT_TRUE(acrxLoadModule(L"VMRDPrj.arx", false, false));
    ASSERT_NE(CPrjManager::GetInstance(), nullptr);
    const CStyleManager* const manager = CPrjManager::GetInstance()->GetStyleManager();
    EXPECT_NE(manager->FindStyleGroup(L"CFakeGroup", false), nullptr);
    EXPECT_EQ(manager->FindStyleGroup(L"COtherGroup", false), nullptr);
    ASSERT_TRUE(acrxUnloadModule(L"VMRDPrj.arx", false));
    EXPECT_EQ(CPrjManager::GetInstance(), nullptr);
}

TEST(PrjManager, WithoutAConfigurationNoGroupIsConfigured)
{
    const TestInstall install({"VMRDPrj.arx", "FakeModule.arx"});
    const TraceCapture lines;
    ASSERT_TRUE(acrxLoadModule(L"FakeModule.arx", false, false));
    EXPECT_EQ(lines.Lines().size(), 1u);
    EXPECT_NE(lines.Text().find(L"StyleGroups.json"), CString::npos);
    EXPECT_EQ(CPrjManager::GetInstance()->GetStyleManager()->GroupsCount(), 0);
    EXPECT_TRUE(acrxUnloadModule(L"FakeModule.arx", false));
}

TEST(PrjManager, AGroupWithoutItsEditorConfiguredHasNone)
{
    const TestInstall install({"VMRDPrj.arx", "FakeModule.arx"});
    install.Write("StyleGroups.json", R"({"groups": [{"name": "CFakeGroup"}]})");
    ASSERT_TRUE(acrxLoadModule(L"FakeModule.arx", false, false));
    const CStyleManager* const manager = CPrjManager::GetInstance()->GetStyleManager();
    ASSERT_EQ(manager->GroupsCount(), 1);
    EXPECT_EQ(manager->GetGroup(0)->StylesCount(), 0);
    EXPECT_TRUE(acrxUnloadModule(L"FakeModule.arx", false));
}

TEST(PrjManager, GroupsThatWereLeftBehindAreTraced)
{
    const TestInstall install({"VMRDPrj.arx"});
    install.Write("StyleGroups.json", kFakeGroups);
    const TraceCapture lines;
    Group group;
    ASSERT_TRUE(acrxLoadModule(L"VMRDPrj.arx", false, false));
    CPrjManager::GetInstance()->GetStyleManager()->AddObject(kLater, &group);
    ASSERT_TRUE(acrxUnloadModule(L"VMRDPrj.arx", false));
    EXPECT_EQ(lines.Text(), L"样式管理器结束时仍有 1 个样式组未移除");
}

} // namespace
