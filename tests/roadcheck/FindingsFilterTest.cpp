#include "roadcheck/FindingsFilter.h"

#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"
#include "roadcheck/FindingsModel.h"

using namespace designspec;
using namespace roadcheck;

namespace {

class FindingsFilterTest : public ::testing::Test {
protected:
    // A finding at each place, m along, with a value; of rules by turns.
    FindingsFilterTest()
    {
        CheckedRoad checked;
        for (const auto& [at, value] : {std::pair{2000.0, 9.0}, {10000.0, 80.0}, {500.0, 100.5}}) {
            Finding finding;
            finding.rule =
                FindRule(checked.report.findings.size() == 1 ? L"radius-max" : L"radius-min");
            finding.element = {L"curve", static_cast<int>(checked.report.findings.size()) + 9};
            finding.from = at;
            finding.to = at + 10;
            finding.value = value;
            finding.limit = 150;
            finding.unit = L"m";
            finding.source = L"表 <b>1</b>";
            finding.message = L"说明";
            checked.report.findings.push_back(finding);
        }
        m_model.Show(std::make_shared<const CheckedRoad>(checked));
    }

    CString Sorted(int column, Qt::SortOrder order = Qt::AscendingOrder)
    {
        m_filter.sort(column, order);
        return Shown(FindingsModel::Station);
    }
    // The texts of the column from top to bottom.
    CString Shown(int column) const
    {
        QStringList texts;
        for (int row = 0; row < m_filter.rowCount(); ++row)
            texts << m_filter.index(row, column).data().toString();
        return FromQString(texts.join(u' '));
    }

    FindingsModel m_model;
    FindingsFilter m_filter{m_model, nullptr};
};

TEST_F(FindingsFilterTest, SortsStationsAndNumbersByTheirValue)
{
    EXPECT_EQ(Sorted(FindingsModel::Station), L"K0+500.000 K2+000.000 K10+000.000");
    EXPECT_EQ(Sorted(FindingsModel::Station, Qt::DescendingOrder),
              L"K10+000.000 K2+000.000 K0+500.000");
    EXPECT_EQ(Sorted(FindingsModel::Value), L"K2+000.000 K10+000.000 K0+500.000");
}

TEST_F(FindingsFilterTest, SortsElementsByTheirNumber)
{
    EXPECT_EQ(Sorted(FindingsModel::Element), L"K2+000.000 K10+000.000 K0+500.000");
    EXPECT_EQ(Shown(FindingsModel::Element), L"圆曲线 9 圆曲线 10 圆曲线 11");
}

TEST_F(FindingsFilterTest, WhatIsAlikeStaysInTheOrderOfTheReport)
{
    const CString order = L"K2+000.000 K10+000.000 K0+500.000";
    EXPECT_EQ(Sorted(FindingsModel::Limit), order);
    EXPECT_EQ(Sorted(FindingsModel::Limit, Qt::DescendingOrder), order);
}

TEST_F(FindingsFilterTest, SaysWhichAreShown)
{
    EXPECT_EQ(m_filter.Shown(), (std::vector<bool>{true, true, true}));
    m_filter.SetShown(RuleSeverity::Error, false);
    EXPECT_EQ(m_filter.Shown(), (std::vector<bool>{false, true, false}));
    m_filter.SetShown(RuleSeverity::Error, true);
    m_filter.SetRule(FindRule(L"radius-min"));
    EXPECT_EQ(m_filter.Shown(), (std::vector<bool>{true, false, true}));
    m_filter.SetText(QStringLiteral(" k2+ "));
    EXPECT_EQ(m_filter.Shown(), (std::vector<bool>{true, false, false}));
}

TEST_F(FindingsFilterTest, OfVeryManyEverySecondGoesAtOnce)
{
    CheckedRoad checked;
    for (int i = 0; i < 100000; ++i) {
        Finding finding;
        finding.rule = FindRule(i % 2 ? L"radius-max" : L"radius-min");
        finding.from = i;
        checked.report.findings.push_back(finding);
    }
    m_model.Show(std::make_shared<const CheckedRoad>(checked));
    QTableView table;
    table.setModel(&m_filter);
    table.sortByColumn(FindingsModel::Station, Qt::AscendingOrder);
    table.show();
    QTest::qWait(1);
    int steps = 0; // each of which the table looks at by itself
    const auto count = [&steps] { ++steps; };
    QObject::connect(&m_filter, &QAbstractItemModel::rowsRemoved, count);
    QObject::connect(&m_filter, &QAbstractItemModel::rowsInserted, count);
    m_filter.SetShown(RuleSeverity::Error, false);
    EXPECT_EQ(m_filter.rowCount(), 50000);
    m_filter.SetShown(RuleSeverity::Error, true);
    EXPECT_EQ(m_filter.rowCount(), 100000);
    EXPECT_EQ(steps, 0);
}

TEST_F(FindingsFilterTest, TextsAreNoMarkup)
{
    const QModelIndex source = m_model.index(0, FindingsModel::Source);
    EXPECT_EQ(source.data().toString(), QStringLiteral("表 <b>1</b>"));
    EXPECT_NE(source.data(Qt::ToolTipRole).toString().indexOf(QStringLiteral("&lt;b&gt;")), -1);
}

} // namespace
