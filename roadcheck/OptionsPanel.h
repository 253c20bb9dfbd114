// The options of a check, but for speeds.
#pragma once

#include <QWidget>

#include "roads/CheckOptions.h"

class QCheckBox;
class QComboBox;
class QGridLayout;

namespace roadcheck {

class OptionsPanel : public QWidget {
    Q_OBJECT

public:
    explicit OptionsPanel(QWidget* parent = nullptr);

    // Without speeds.
    CheckOptions Options() const;
    void SetOptions(const CheckOptions& options);
    // Offers what the specification has of maximum superelevations and vehicles. What is chosen
    // stays, even if it has not got that.
    void Offer(const CDesignSpecification& specification);

signals:
    // By the user.
    void Changed();

private:
    QComboBox* AddChoice(const QString& label, int id, int row, int column);
    QCheckBox* AddSwitch(const QString& label, int id, int row, int column);

    QGridLayout* m_grid;
    QComboBox* m_mode;
    QComboBox* m_roadType;
    QComboBox* m_maxSuper; // data: the maximum, %; 0: that of the speed
    QComboBox* m_axis;
    QComboBox* m_vehicle; // data: its name
    QCheckBox* m_plateau;
    QCheckBox* m_snow;
};

} // namespace roadcheck
