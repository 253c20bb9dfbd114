#include "host/StyleListModel.h"

#include <algorithm>

#include <QFont>

#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {
constexpr QChar kBetweenGroups = u'、';
}

void StyleListModel::Show(const CStyleEditor* editor)
{
    beginResetModel();
    m_rows.clear();
    m_own.clear();
    const CStyles* const styles = editor ? editor->GetStyles() : nullptr;
    const CStyle* const standard = styles ? styles->DefaultItem() : nullptr;
    if (editor)
        for (const StyleColumn& one : editor->Columns())
            m_own.push_back({ToQString(one.caption), one.characters, one.isGroup});
    for (int i = 0; styles && i < styles->Count(); ++i) {
        const CStyle* const style = styles->Item(i);
        QStringList own;
        for (const CString& text : editor->ColumnTexts(*style))
            own << ToShown(text);
        own.resize(static_cast<qsizetype>(m_own.size()));
        m_rows.push_back({ToQString(style->Name()), style->ID(), style == standard, own});
    }
    endResetModel();
}

int StyleListModel::CountColumns(const CStyleEditor* editor)
{
    return ColumnCount + (editor ? static_cast<int>(editor->Columns().size()) : 0);
}

bool StyleListModel::Tells(int row, const QString& text) const
{
    const Row& one = m_rows[static_cast<size_t>(row)];
    return one.name.contains(text, Qt::CaseInsensitive) ||
           std::any_of(one.own.begin(), one.own.end(), [&](const QString& told) {
               return told.contains(text, Qt::CaseInsensitive);
           });
}

CString StyleListModel::Told(int row) const
{
    const Row& one = m_rows[static_cast<size_t>(row)];
    return FromQString(one.name + u'\n' + one.own.join(u'\n'));
}

QStringList StyleListModel::GroupsOf(int row) const
{
    QStringList groups;
    for (size_t i = 0; i < m_own.size(); ++i)
        if (m_own[i].isGroup)
            groups << m_rows[static_cast<size_t>(row)].own[static_cast<qsizetype>(i)].split(
                kBetweenGroups, Qt::SkipEmptyParts);
    return groups;
}

void StyleListModel::SetFound(int row, const QString& where)
{
    m_rows[static_cast<size_t>(row)].found = where;
}

int StyleListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int StyleListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount + static_cast<int>(m_own.size());
}

QString StyleListModel::Text(const Row& row, int column) const
{
    switch (column) {
    case NameColumn:
        return ToShown(FromQString(row.name));
    case DefaultColumn:
        return row.isDefault ? QStringLiteral("✓ 默认") : QString();
    case IdColumn:
        return ToQString(VMRDPub::GUIDToStr(row.id));
    default:
        return row.own[column - ColumnCount];
    }
}

QString StyleListModel::ToolTip(const Row& row, int column) const
{
    const bool isFound = column == NameColumn && !row.found.isEmpty();
    return ToToolTip(Text(row, column) + (isFound ? u'\n' + row.found : QString()));
}

QVariant StyleListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const Row& row = m_rows[static_cast<size_t>(index.row())];
    if (role == Qt::DisplayRole) return Text(row, index.column());
    if (role == Qt::ToolTipRole) return ToolTip(row, index.column());
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
    return section < ColumnCount ? kTitles[section] : OwnOf(section).caption;
}

StyleSortFilter::StyleSortFilter(QObject* parent)
    : QSortFilterProxyModel(parent), m_collator(QLocale(QLocale::Chinese, QLocale::China))
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

void StyleSortFilter::SetAccepted(std::vector<bool> accepted)
{
    m_accepted = std::move(accepted);
    invalidateFilter();
}

bool StyleSortFilter::filterAcceptsRow(int row, const QModelIndex&) const
{
    const auto place = static_cast<size_t>(row);
    return place >= m_accepted.size() || m_accepted[place];
}

bool StyleSortFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    int order = m_collator.compare(left.data().toString(), right.data().toString());
    if (order == 0)
        order =
            m_collator.compare(left.siblingAtColumn(StyleListModel::NameColumn).data().toString(),
                               right.siblingAtColumn(StyleListModel::NameColumn).data().toString());
    return order != 0 ? order < 0 : left.row() < right.row();
}
