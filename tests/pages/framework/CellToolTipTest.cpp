#include "pages/framework/CellToolTip.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

class CellToolTip : public testing::Test {
protected:
    CellToolTip()
    {
        m_grid.GetColumns().Add(new CXTPReportColumn(0, L"甲", 100));
        m_grid.GetColumns().Add(new CXTPReportColumn(1, L"乙", 100));
        auto* const record = m_grid.GetRecords().Add(new CXTPReportRecord);
        record->AddItem(new CXTPReportRecordItem(L"左"));
        record->AddItem(new CXTPReportRecordItem(L"右"));
        m_grid.Populate();
        m_grid.resize(300, 200);
        m_grid.show();
        new CCellToolTip(&m_grid, [](const QModelIndex& cell) {
            return cell.column() == 1 ? CString(L"<b>一\n二") : CString();
        });
    }
    ~CellToolTip() override { QToolTip::hideText(); }

    QString Told(const QPoint& place)
    {
        QHelpEvent help(QEvent::ToolTip, place, m_grid.viewport()->mapToGlobal(place));
        QApplication::sendEvent(m_grid.viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    QString ToldAt(int column)
    {
        return Told(m_grid.visualRect(m_grid.IndexOf(0, column)).center());
    }

    CXTPReportControl m_grid;
};

TEST_F(CellToolTip, TellsTheTextOfTheCell)
{
    const QString told = ToldAt(1);
    EXPECT_EQ(told, ToToolTip(QStringLiteral("<b>一\n二"))) << "never as markup";
}

TEST_F(CellToolTip, LeavesOtherCellsToTheGrid)
{
    EXPECT_EQ(ToldAt(0), QStringLiteral("左"));
}

} // namespace
