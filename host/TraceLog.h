// Every trace line of the process, as a table: the log takes the lines as long as it lives. Lines
// that come one upon the other stand in it together, when the program waits for the user again.
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QTimer>

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
    void ShowWaiting();
    QString Text(const Entry& entry, int column) const;

    std::vector<Entry> m_entries;
    std::vector<Entry> m_waiting; // to stand in the table
    QTimer m_show;
    designspec::Connection m_trace;
};
