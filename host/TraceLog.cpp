#include "host/TraceLog.h"

#include <iterator>
#include <utility>

#include "platform/mfc/QtText.h"

using namespace designspec;

TraceLog::TraceLog(QObject* parent) : QAbstractTableModel(parent)
{
    m_trace = ConnectTrace([this](const TraceLine& line) { Add(line); });
    m_show.setSingleShot(true);
    connect(&m_show, &QTimer::timeout, this, &TraceLog::ShowWaiting);
}

void TraceLog::Add(const TraceLine& line)
{
    m_waiting.push_back({QDateTime::currentDateTime(), line});
    m_show.start(0);
    emit LineAdded(line);
}

// All at once: views look through all their rows whenever some are added.
void TraceLog::ShowWaiting()
{
    const int row = rowCount();
    beginInsertRows({}, row, row + static_cast<int>(m_waiting.size()) - 1);
    std::move(m_waiting.begin(), m_waiting.end(), std::back_inserter(m_entries));
    m_waiting.clear();
    endInsertRows();
}

int TraceLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int TraceLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString TraceLog::Text(const Entry& entry, int column) const
{
    switch (column) {
    case TimeColumn:
        return entry.time.toString(QStringLiteral("hh:mm:ss"));
    case LevelColumn:
        return entry.line.severity == TraceLevel::Error ? tr("错误") : tr("提示");
    case FileColumn:
        return ToShown(entry.line.file);
    case LineColumn:
        return entry.line.line > 0 ? QString::number(entry.line.line) : QString();
    default:
        return ToQString(entry.line.text);
    }
}

QVariant TraceLog::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const Entry& entry = m_entries[static_cast<size_t>(index.row())];
    if (role == Qt::DisplayRole) return Text(entry, index.column());
    if (role == Qt::ToolTipRole) return ToToolTip(Text(entry, index.column()));
    if (role == IsErrorRole) return entry.line.severity == TraceLevel::Error;
    if (role == Qt::TextAlignmentRole && index.column() == LineColumn)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant TraceLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    static const QString kTitles[ColumnCount] = {tr("时间"), tr("级别"), tr("文件"), tr("行"),
                                                 tr("说明")};
    return kTitles[section];
}
