// What the user chose in the window, remembered for each project in the application's settings.
#pragma once

#include <QSettings>
#include <QStringList>

#include "roads/CheckOptions.h"

namespace roadcheck {

class CheckSettings {
public:
    // Of how many roads the speeds are kept: those entered last.
    static constexpr int kMostRoads = 50;

    explicit CheckSettings(const QString& project);

    // Without speeds. What was never chosen, or cannot be any more, is as the command has it.
    CheckOptions Options() const;
    void SetOptions(const CheckOptions& options);

    // The GUID of the chosen specification; empty: the default one.
    QString Specification() const;
    void SetSpecification(const QString& id);

    // Speeds that were entered for a road, as SpeedTableEditor::Text has them; empty: none were.
    QString Speeds(const QString& file, const QString& alignment) const;
    void SetSpeeds(const QString& file, const QString& alignment, const QString& speeds);

private:
    int Number(const char* key, int standard, int count) const;
    QString Key(const char* key) const;

    QString m_group;
};

} // namespace roadcheck
