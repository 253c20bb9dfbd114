// The styles of one library as rows: a picture of the library, taken when Show is called.
#pragma once

#include <QAbstractTableModel>
#include <QCollator>
#include <QSortFilterProxyModel>

#include "platform/vmrd/VMRDEnv/Styles.h"

class StyleListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { NameColumn, DefaultColumn, IdColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    // No rows for null.
    void Show(const CStyles* styles);
    GUID IdAt(int row) const { return m_rows[static_cast<size_t>(row)].id; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QString name;
        GUID id;
        bool isDefault;
    };
    QString Text(const Row& row, int column) const;

    std::vector<Row> m_rows;
};

// The rows whose name holds the text of the filter, sorted as a reader expects: 规范2 before
// 规范10.
class StyleSortFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit StyleSortFilter(QObject* parent = nullptr);

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QCollator m_collator;
};
