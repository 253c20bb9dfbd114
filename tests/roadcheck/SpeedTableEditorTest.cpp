#include "roadcheck/SpeedTableEditor.h"

#include <gtest/gtest.h>

using namespace roadcheck;

namespace {

// A road from K1+000 to K2+000 with 60 km/h on its first half, 40 km/h on the second.
Alignment Road()
{
    Alignment road;
    road.length = 1000;
    road.stations = Stationing(1000);
    road.speeds = {{0, 500, 60}, {500, 1000, 40}};
    return road;
}

class SpeedTableEditorTest : public ::testing::Test {
protected:
    SpeedTableEditorTest() { m_table.SetRoad(Road(), {}); }

    QString Cell(int row, int column) const
    {
        const QTableWidgetItem* const item = m_table.item(row, column);
        return item ? item->text() : QString();
    }
    void Enter(const char* rows) { m_table.SetRoad(Road(), QString::fromUtf8(rows)); }

    SpeedTableEditor m_table;
};

TEST_F(SpeedTableEditorTest, ShowsWhatTheFileSaysAndNothingOfItIsAChoice)
{
    ASSERT_EQ(m_table.rowCount(), 3) << "and an empty row";
    EXPECT_EQ(Cell(0, 0), QStringLiteral("K1+000.000"));
    EXPECT_EQ(Cell(0, 1), QStringLiteral("K1+500.000"));
    EXPECT_EQ(Cell(1, 2), QStringLiteral("40"));
    EXPECT_TRUE(m_table.Choices().empty());
    EXPECT_EQ(m_table.Text(), QString());
}

TEST_F(SpeedTableEditorTest, AStationThatIsMissingIsTheRoadsEnd)
{
    Enter("\tK1+200\t80\n1700\t\t50\n\t\t30");
    const auto choices = m_table.Choices();
    ASSERT_EQ(choices.size(), 3U);
    EXPECT_EQ(choices[0].stretch->from, 1000);
    EXPECT_EQ(choices[0].stretch->to, 1200);
    EXPECT_EQ(choices[0].speed, 80);
    EXPECT_EQ(choices[1].stretch->from, 1700);
    EXPECT_EQ(choices[1].stretch->to, 2000);
    EXPECT_FALSE(choices[2].stretch.has_value()) << "the whole road";
}

TEST_F(SpeedTableEditorTest, WhatItHoldsCanBeShownAgain)
{
    Enter("K1+000\tK1+200\t80");
    EXPECT_EQ(m_table.Text(), QStringLiteral("K1+000\tK1+200\t80"));
    SpeedTableEditor other;
    other.SetRoad(Road(), m_table.Text());
    EXPECT_EQ(other.Text(), m_table.Text());
}

TEST_F(SpeedTableEditorTest, TellsWhatCannotBeRead)
{
    for (const auto& [rows, problem] : {std::pair{"K1+\t\t60", "“K1+”不是桩号"},
                                        {"\t12x\t60", "“12x”不是桩号"},
                                        {"\t\t0", "设计车速“0”不是 1 到 1000 的整数 (km/h)"},
                                        {"\t\t1001", "设计车速“1001”不是 1 到 1000 的整数 (km/h)"},
                                        {"K1+000\t\t", "设计车速“”不是 1 到 1000 的整数 (km/h)"}}) {
        Enter(rows);
        EXPECT_EQ(m_table.Problem().toStdString(), problem);
        EXPECT_TRUE(m_table.Choices().empty());
    }
    for (const char* const rows : {"\t\t1", "\t\t1000", ""}) {
        Enter(rows);
        EXPECT_EQ(m_table.Problem(), QString()) << rows;
    }
}

} // namespace
