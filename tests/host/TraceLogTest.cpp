#include "host/TraceLog.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

#include "host/ControlIds.h"
#include "host/TracePanel.h"
#include "platform/mfc/QtText.h"
#include "tests/gui/Controls.h"

using namespace designspec;

namespace {

QString Cell(const QAbstractItemModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

TEST(TraceLog, KeepsEveryLine)
{
    TraceLog log;
    const QAbstractItemModelTester tester(&log);
    for (int i = 0; i < 1000; ++i)
        Trace(L"line " + std::to_wstring(i));
    TraceFile(TraceLevel::Error, L"a.hds", 7, L"坏了");
    EXPECT_EQ(log.rowCount(), 0) << "a view has them all at once";
    QTest::qWait(1);
    ASSERT_EQ(log.rowCount(), 1001);
    EXPECT_EQ(Cell(log, 0, TraceLog::TextColumn), QStringLiteral("line 0"));
    EXPECT_EQ(Cell(log, 0, TraceLog::LevelColumn), QStringLiteral("提示"));
    EXPECT_EQ(Cell(log, 0, TraceLog::LineColumn), QString());
    EXPECT_EQ(Cell(log, 1000, TraceLog::LevelColumn), QStringLiteral("错误"));
    EXPECT_EQ(Cell(log, 1000, TraceLog::FileColumn), QStringLiteral("a.hds"));
    EXPECT_EQ(Cell(log, 1000, TraceLog::LineColumn), QStringLiteral("7"));
    EXPECT_EQ(Cell(log, 1000, TraceLog::TextColumn), QStringLiteral("坏了"));
}

TEST(TraceLog, LeavesTheLinesToOthersToo)
{
    int told = 0;
    const designspec::Connection trace = ConnectTrace([&told](const TraceLine&) { ++told; });
    {
        TraceLog log;
        Trace(L"one");
        QTest::qWait(1);
        EXPECT_EQ(log.rowCount(), 1);
    }
    Trace(L"two");
    EXPECT_EQ(told, 2);
}

TEST(TracePanel, ShowsErrorsAloneAndCopiesWhatIsSelected)
{
    TraceLog log;
    TracePanel panel(log);
    panel.resize(800, 400);
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    Trace(L"note");
    TraceFile(TraceLevel::Error, L"a.hds", 7, L"坏了");
    TraceFile(TraceLevel::Error, L"b.hds", 0, L"没了");
    QTest::qWait(1);
    auto* const table = Control<QTableView>(&panel, ControlId::Trace);
    EXPECT_EQ(table->model()->rowCount(), 3);
    Click(&panel, ControlId::TraceErrorsOnly);
    EXPECT_EQ(table->model()->rowCount(), 2);
    table->selectRow(0);
    Click(&panel, ControlId::TraceCopy);
    const QString time = Cell(*table->model(), 0, TraceLog::TimeColumn);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              time + QStringLiteral("\t错误\ta.hds\t7\t坏了"));
    table->clearSelection();
    table->setFocus();
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), 1);
    Click(&panel, ControlId::TraceErrorsOnly);
    EXPECT_EQ(table->model()->rowCount(), 3);
}

} // namespace
