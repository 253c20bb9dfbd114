// What could not be checked of a road, and why, as a table.
#pragma once

#include <memory>

#include <QAbstractTableModel>

#include "roads/RoadVerification.h"

namespace roadcheck {

class UncheckedModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { From, To, RuleTitle, Why, kColumns };

    using QAbstractTableModel::QAbstractTableModel;

    // Null: nothing.
    void Show(std::shared_ptr<const CheckedRoad> road);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::shared_ptr<const CheckedRoad> m_road;
};

} // namespace roadcheck
