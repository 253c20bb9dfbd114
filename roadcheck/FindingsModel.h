// What checking a road has found, as a table.
#pragma once

#include <memory>

#include <QAbstractTableModel>

#include "roads/RoadVerification.h"

namespace roadcheck {

class FindingsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column {
        Severity,
        Station,
        Element,
        RuleTitle,
        Value,
        Limit,
        Speed,
        Source,
        Message,
        kColumns
    };
    using QAbstractTableModel::QAbstractTableModel;

    // Null: none.
    void Show(std::shared_ptr<const CheckedRoad> road);
    // One row for each.
    const std::vector<Finding>& Findings() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(const Finding& finding, int column) const;

    std::shared_ptr<const CheckedRoad> m_road;
};

} // namespace roadcheck
