#include "host/ImportDialog.h"

#include <QListWidget>
#include <QPlainTextEdit>

#include "tests/host/HostTest.h"

namespace {

class ImportDialogTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        Have({L"甲", L"乙", L"丙"});
        ImportFile file{QStringLiteral("/there/甲.hds"), {}, {}, {}};
        for (int i = 0; i < files.Count(); ++i) {
            file.names.push_back(files.Item(i)->Name());
            file.ids.push_back(files.Item(i)->ID());
        }
        file.names.push_back(L"新");
        file.ids.push_back(CoCreateGuid());
        file.changes = {StyleChanges{L"值: 1 → 2; 共 2 处", {L"页 · 值: 1 → 2", L"页 · 数: 3 → 4"}},
                        StyleChanges{}, std::nullopt, std::nullopt};
        dialog = std::make_unique<ImportDialog>(files, std::vector{file});
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    QListWidget* List() { return Control<QListWidget>(dialog.get(), ControlId::ImportNames); }
    CString Shown()
    {
        return FromQString(
            Control<QPlainTextEdit>(dialog.get(), ControlId::ImportChanges)->toPlainText());
    }

    std::unique_ptr<ImportDialog> dialog;
};

TEST_F(ImportDialogTest, TellsInALineWhatEachWouldChange)
{
    CStringArray texts;
    for (int i = 0; i < List()->count(); ++i)
        texts.push_back(FromQString(List()->item(i)->text()));
    EXPECT_EQ(texts, (CStringArray{L"甲  (库中已有, 覆盖改变 值: 1 → 2; 共 2 处)",
                                   L"乙  (库中已有, 相同)", L"丙  (库中已有)", L"新"}));
}

TEST_F(ImportDialogTest, ShowsEachValueOfTheSelectedOne)
{
    List()->setFocus();
    EXPECT_EQ(Shown(), L"页 · 值: 1 → 2\n页 · 数: 3 → 4");
    PressKey(dialog.get(), Qt::Key_Down);
    EXPECT_EQ(Shown(), L"");
    PressKey(dialog.get(), Qt::Key_Up);
    EXPECT_EQ(Shown(), L"页 · 值: 1 → 2\n页 · 数: 3 → 4");
}

TEST_F(ImportDialogTest, OfSeveralFilesAnotherNameThanTheStylesIsTold)
{
    const CString id = VMRDPub::GUIDToStr(CoCreateGuid());
    const std::vector<ImportFile> two{
        {QStringLiteral("/there/一级") + ToQString(id) + QStringLiteral(".hds"),
         {L"一级"},
         {CoCreateGuid()}},
        {QStringLiteral("/there/全部.hds"), {L"二级"}, {CoCreateGuid()}}};
    ImportDialog other(files, two);
    const auto* const list = Control<QListWidget>(&other, ControlId::ImportNames);
    EXPECT_EQ(FromQString(list->item(0)->text()), L"一级");
    EXPECT_EQ(FromQString(list->item(1)->text()), L"二级  — 全部.hds");
}

} // namespace
