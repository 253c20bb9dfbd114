#include "roadcheck/UncheckedModel.h"

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace roadcheck {

void UncheckedModel::Show(std::shared_ptr<const CheckedRoad> road)
{
    beginResetModel();
    m_road = std::move(road);
    endResetModel();
}

int UncheckedModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_road ? 0 : static_cast<int>(m_road->report.unchecked.size());
}

int UncheckedModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant UncheckedModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const Unchecked& one = m_road->report.unchecked[static_cast<size_t>(index.row())];
    switch (index.column()) {
    case From:
        return ToQString(m_road->road.stations.Text(one.from));
    case To:
        return ToQString(m_road->road.stations.Text(one.to));
    case RuleTitle:
        return one.rule ? ToQString(one.rule->title) : tr("全部");
    case Why:
        return role == Qt::ToolTipRole ? ToToolTip(ToShown(one.why)) : ToShown(one.why);
    default:
        return {};
    }
}

QVariant UncheckedModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    static const QStringList kCaptions = {tr("起点桩号"), tr("终点桩号"), tr("规则"), tr("原因")};
    return kCaptions.value(section);
}

} // namespace roadcheck
