#include "platform/xtp/report/ReportModel.h"

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

namespace {

// Captions have line breaks of their own.
QString ShownLines(const CString& text)
{
    QStringList lines;
    for (const QString& line : ToQString(text).split(u'\n'))
        lines << ToShown(FromQString(line));
    return lines.join(u'\n');
}

CString TipOf(const CXTPReportRecordItem& item)
{
    const CString& mark = item.GetMark();
    return mark.empty() ? item.GetExactText() : item.GetExactText() + L"\n" + mark;
}

} // namespace

ReportModel::ReportModel(CXTPReportControl* control)
    : QAbstractTableModel(control), m_control(control)
{
}

void ReportModel::Reload()
{
    beginResetModel();
    m_columns = m_control->GetColumns();
    m_records = m_control->GetRecords();
    endResetModel();
}

void ReportModel::Refresh()
{
    if (rowCount() == 0 || columnCount() == 0) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

CXTPReportRecord* ReportModel::Record(int row) const
{
    return m_records.GetAt(row);
}

CXTPReportColumn* ReportModel::Column(int column) const
{
    return m_columns.GetAt(column);
}

CXTPReportRecordItem* ReportModel::Item(const QModelIndex& index) const
{
    if (!index.isValid()) return nullptr;
    const CXTPReportRecord* const record = Record(index.row());
    const CXTPReportColumn* const column = Column(index.column());
    return record && column ? record->GetItem(column->GetItemIndex()) : nullptr;
}

int ReportModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_records.GetCount();
}

int ReportModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns.GetCount();
}

QVariant ReportModel::data(const QModelIndex& index, int role) const
{
    const CXTPReportRecordItem* const item = Item(index);
    if (!item) return {};
    // The tool tip shows in full what the column may be too narrow for.
    if (role == Qt::ToolTipRole) return ToToolTip(ShownLines(TipOf(*item)));
    if (role == Qt::AccessibleDescriptionRole) return ToQString(item->GetMark());
    if (role == Qt::DisplayRole || role == Qt::EditRole) return ToQString(item->GetCaption());
    return {};
}

bool ReportModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable)) return false;
    m_control->EnterText(index, FromQString(value.toString()));
    return true;
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const CXTPReportColumn* const column = Column(section);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !column) return {};
    return ToQString(column->GetCaption());
}

Qt::ItemFlags ReportModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    const CXTPReportRecordItem* const item = Item(index);
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return item && item->IsEditable() && m_control->IsAllowEdit() ? shown | Qt::ItemIsEditable
                                                                  : shown;
}
