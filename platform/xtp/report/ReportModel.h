// The grid's columns and records as a Qt model: what the last Populate saw.
#pragma once

#include <QAbstractTableModel>

#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportRecord.h"

class CXTPReportControl;

namespace designspec {

// Holds what it shows, so that a column or record removed since stays valid until Reload.
class ReportModel : public QAbstractTableModel {
public:
    explicit ReportModel(CXTPReportControl* control);

    void Reload();
    // The cells have new contents; nothing was added or removed.
    void Refresh();

    CXTPReportRecord* Record(int row) const;
    CXTPReportColumn* Column(int column) const;
    CXTPReportRecordItem* Item(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    CXTPReportControl* m_control;
    CXTPReportColumns m_columns;
    CXTPReportRecords m_records;
};

} // namespace designspec
