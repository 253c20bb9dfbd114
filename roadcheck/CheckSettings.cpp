#include "roadcheck/CheckSettings.h"

#include <QUrl>

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace roadcheck {

namespace {

// As one part of a settings key, or of a line.
QString Encoded(const QString& text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

constexpr int kModes = QueryValue::Exact + 1;

} // namespace

CheckSettings::CheckSettings(const QString& project)
    : m_group(QStringLiteral("roadCheck/%1/").arg(Encoded(project)))
{
}

QString CheckSettings::Key(const char* key) const
{
    return m_group + QString::fromLatin1(key);
}

// One of a list; the standard one when something else is kept.
int CheckSettings::Number(const char* key, int standard, int count) const
{
    bool isNumber = false;
    const int number = QSettings().value(Key(key)).toInt(&isNumber);
    return isNumber && number >= 0 && number < count ? number : standard;
}

CheckOptions CheckSettings::Options() const
{
    const CheckOptions standard;
    CheckOptions options;
    options.mode = static_cast<QueryValue::QueryMode>(Number("mode", standard.mode, kModes));
    options.roadType = static_cast<CDSMaxResultantGrad::RoadType>(
        Number("roadType", standard.roadType, CDSMaxResultantGrad::kRoadTypes));
    options.axis = static_cast<RunoffAxis>(Number("axis", static_cast<int>(standard.axis), 2));
    options.plateau = Number("plateau", standard.plateau, 2) != 0;
    options.snow = Number("snow", standard.snow, 2) != 0;
    if (const int super = Number("maxSuper", 0, 100)) options.maxSuper = super;
    options.car = FromQString(QSettings().value(Key("car")).toString());
    return options;
}

void CheckSettings::SetOptions(const CheckOptions& options)
{
    QSettings settings;
    settings.setValue(Key("mode"), static_cast<int>(options.mode));
    settings.setValue(Key("roadType"), static_cast<int>(options.roadType));
    settings.setValue(Key("axis"), static_cast<int>(options.axis));
    settings.setValue(Key("plateau"), options.plateau ? 1 : 0);
    settings.setValue(Key("snow"), options.snow ? 1 : 0);
    settings.setValue(Key("maxSuper"), options.maxSuper.value_or(0));
    settings.setValue(Key("car"), ToQString(options.car));
}

QString CheckSettings::Specification() const
{
    return QSettings().value(Key("specification")).toString();
}

void CheckSettings::SetSpecification(const QString& id)
{
    QSettings().setValue(Key("specification"), id);
}

// A line for each road, that of the last first: file, alignment and speeds, apart by blanks.
QString CheckSettings::Speeds(const QString& file, const QString& alignment) const
{
    const QString begin = Encoded(file) + u' ' + Encoded(alignment) + u' ';
    for (const QString& road : QSettings().value(Key("speeds")).toStringList())
        if (road.startsWith(begin))
            return QUrl::fromPercentEncoding(road.mid(begin.size()).toLatin1());
    return {};
}

void CheckSettings::SetSpeeds(const QString& file, const QString& alignment, const QString& speeds)
{
    const QString begin = Encoded(file) + u' ' + Encoded(alignment) + u' ';
    QStringList roads = QSettings().value(Key("speeds")).toStringList();
    roads.removeIf([&](const QString& road) { return road.startsWith(begin); });
    if (!speeds.isEmpty()) roads.prepend(begin + Encoded(speeds));
    QSettings().setValue(Key("speeds"), roads.mid(0, kMostRoads));
}

} // namespace roadcheck
