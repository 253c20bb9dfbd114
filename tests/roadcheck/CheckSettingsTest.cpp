#include "roadcheck/CheckSettings.h"

#include <gtest/gtest.h>

using namespace roadcheck;

namespace {

const QString kProject = QStringLiteral("/项目/a b%2F");

class CheckSettingsTest : public ::testing::Test {
protected:
    CheckSettingsTest() { QSettings().clear(); }
    CheckSettings m_settings{kProject};
};

TEST_F(CheckSettingsTest, AtFirstOptionsAreTheCommands)
{
    const CheckOptions options = m_settings.Options();
    EXPECT_EQ(options.mode, QueryValue::Upper);
    EXPECT_EQ(options.roadType, CDSMaxResultantGrad::CityRoad);
    EXPECT_EQ(options.axis, RunoffAxis::Centre);
    EXPECT_FALSE(options.plateau || options.snow || options.maxSuper);
    EXPECT_TRUE(options.car.empty());
    EXPECT_EQ(m_settings.Specification(), QString());
}

TEST_F(CheckSettingsTest, KeepsThemForEachProject)
{
    CheckOptions options;
    options.mode = QueryValue::Exact;
    options.roadType = static_cast<CDSMaxResultantGrad::RoadType>(6);
    options.axis = RunoffAxis::Edge;
    options.plateau = true;
    options.maxSuper = 8;
    options.car = L"铰接车";
    m_settings.SetOptions(options);
    m_settings.SetSpecification(QStringLiteral("id"));
    const CheckOptions kept = CheckSettings(kProject).Options();
    EXPECT_EQ(kept.mode, options.mode);
    EXPECT_EQ(kept.roadType, options.roadType);
    EXPECT_EQ(kept.axis, options.axis);
    EXPECT_TRUE(kept.plateau);
    EXPECT_FALSE(kept.snow);
    EXPECT_EQ(kept.maxSuper, 8);
    EXPECT_EQ(kept.car, L"铰接车");
    EXPECT_EQ(CheckSettings(kProject).Specification(), QStringLiteral("id"));
    EXPECT_EQ(CheckSettings(QStringLiteral("/项目/b")).Options().mode, QueryValue::Upper);
}

TEST_F(CheckSettingsTest, WhatMakesNoSenseIsAsAtFirst)
{
    m_settings.SetOptions({});
    QSettings settings;
    for (const QString& key : settings.allKeys())
        settings.setValue(key, QStringLiteral("77"));
    EXPECT_EQ(m_settings.Options().mode, QueryValue::Upper);
    EXPECT_EQ(m_settings.Options().roadType, CDSMaxResultantGrad::CityRoad);
    EXPECT_FALSE(m_settings.Options().snow);
}

TEST_F(CheckSettingsTest, KeepsTheSpeedsOfTheLastRoads)
{
    const QString file = QStringLiteral("/a b/路 %20.xml");
    const auto name = [](int i) { return QStringLiteral("路线 %1").arg(i); };
    for (int i = 0; i <= CheckSettings::kMostRoads; ++i)
        m_settings.SetSpeeds(file, name(i), QStringLiteral("\t\t%1\n").arg(i));
    EXPECT_EQ(m_settings.Speeds(file, name(0)), QString());
    EXPECT_EQ(m_settings.Speeds(file, name(1)), QStringLiteral("\t\t1\n"));
    EXPECT_EQ(m_settings.Speeds(QStringLiteral("/other.xml"), name(1)), QString());
    m_settings.SetSpeeds(file, name(1), {});
    EXPECT_EQ(m_settings.Speeds(file, name(1)), QString()) << "those of the file again";
}

} // namespace
