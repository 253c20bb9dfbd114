// Every trace line of the process, as a table: the log takes the lines as long as it lives.
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>

#include "platform/vmrd/VmHFCBaseU/Trace.h"

class TraceLog : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TimeColumn, LevelColumn, FileColumn, LineColumn, TextColumn, ColumnCount };
    enum Role { IsErrorRole = Qt::UserRole };

    explicit TraceLog(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void LineAdded(const TraceLine& line);

private:
    struct Entry {
        QDateTime time;
        TraceLine line;
    };
    void Add(const TraceLine& line);
    QString Text(const Entry& entry, int column) const;

    std::vector<Entry> m_entries;
    designspec::Connection m_trace;
};
