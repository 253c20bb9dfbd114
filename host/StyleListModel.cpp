#include "host/StyleListModel.h"

#include <QFont>

#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

void StyleListModel::Show(const CStyles* styles)
{
    beginResetModel();
    m_rows.clear();
    const CStyle* const standard = styles ? styles->DefaultItem() : nullptr;
    for (int i = 0; styles && i < styles->Count(); ++i) {
        const CStyle* const style = styles->Item(i);
        m_rows.push_back({ToQString(style->Name()), style->ID(), style == standard});
    }
    endResetModel();
}

int StyleListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int StyleListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString StyleListModel::Text(const Row& row, int column) const
{
    switch (column) {
    case NameColumn:
        return ToShown(FromQString(row.name));
    case DefaultColumn:
        return row.isDefault ? QStringLiteral("✓ 默认") : QString();
    default:
        return ToQString(VMRDPub::GUIDToStr(row.id));
    }
}

QVariant StyleListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const Row& row = m_rows[static_cast<size_t>(index.row())];
    if (role == Qt::DisplayRole) return Text(row, index.column());
    if (role == Qt::ToolTipRole) return ToToolTip(Text(row, index.column()));
    if (role == Qt::FontRole && row.isDefault && index.column() != IdColumn) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

QVariant StyleListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    static const QString kTitles[ColumnCount] = {tr("名称"), tr("默认"), tr("标识")};
    return kTitles[section];
}

StyleSortFilter::StyleSortFilter(QObject* parent)
    : QSortFilterProxyModel(parent), m_collator(QLocale(QLocale::Chinese, QLocale::China))
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
    setFilterKeyColumn(StyleListModel::NameColumn);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
}

bool StyleSortFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const int order = m_collator.compare(left.data().toString(), right.data().toString());
    return order != 0 ? order < 0 : left.row() < right.row();
}
