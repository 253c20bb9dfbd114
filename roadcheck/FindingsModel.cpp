#include "roadcheck/FindingsModel.h"

#include <algorithm>
#include <string_view>

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>

#include "platform/mfc/QtText.h"
#include "roadcheck/SeverityMark.h"
#include "roads/Checking.h"

using namespace designspec;

namespace roadcheck {

namespace {

QString KindLabel(std::wstring_view kind)
{
    static constexpr std::pair<std::wstring_view, const wchar_t*> kLabels[] = {
        {L"line", L"直线"},          {L"curve", L"圆曲线"}, {L"spiral", L"缓和曲线"},
        {L"wholeCurve", L"平曲线"},  {L"grade", L"坡段"},   {L"verticalCurve", L"竖曲线"},
        {L"superelevation", L"超高"}};
    for (const auto& [name, label] : kLabels)
        if (name == kind) return ToQString(label);
    return ToQString(kind);
}

const std::vector<Finding> kNone;

// As in the diagrams.
QIcon Mark(RuleSeverity severity)
{
    constexpr int kSize = 32; // as sharp as large screens need it
    const QColor ground = QApplication::palette().color(QPalette::Base);
    QPixmap picture(kSize, kSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawSeverityMark(painter, severity, QRectF(4, 4, kSize - 8, kSize - 8), ground);
    return QIcon(picture);
}

} // namespace

void FindingsModel::Show(std::shared_ptr<const CheckedRoad> road)
{
    beginResetModel();
    m_road = std::move(road);
    endResetModel();
}

const std::vector<Finding>& FindingsModel::Findings() const
{
    return m_road ? m_road->report.findings : kNone;
}

int FindingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Findings().size());
}

int FindingsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QString FindingsModel::Text(const Finding& finding, int column) const
{
    switch (column) {
    case Severity:
        return ToQString(SeverityLabel(finding.rule->severity));
    case Station:
        return ToQString(m_road->road.stations.Text(finding.from));
    case Element:
        return QStringLiteral("%1 %2")
            .arg(KindLabel(finding.element.kind))
            .arg(finding.element.index);
    case RuleTitle:
        return ToQString(finding.rule->title);
    case Value:
        return ToQString(NumberText(finding.value));
    case Limit:
        return QStringLiteral("%1 %2").arg(ToQString(NumberText(finding.limit)),
                                           ToQString(finding.unit));
    case Speed:
        return finding.speed ? QString::number(finding.speed) : QString();
    case Source:
        return ToShown(finding.source);
    case Message:
        return ToShown(finding.message);
    default:
        return {};
    }
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const Finding& finding = Findings()[static_cast<size_t>(index.row())];
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return Text(finding, column);
    case Qt::ToolTipRole:
        if (column != Station) return ToToolTip(Text(finding, column));
        return tr("%1 ~ %2").arg(ToQString(m_road->road.stations.Text(finding.from)),
                                 ToQString(m_road->road.stations.Text(finding.to)));
    case Qt::DecorationRole:
        return column == Severity ? Mark(finding.rule->severity) : QVariant();
    case Qt::TextAlignmentRole:
        if (column == Value || column == Limit || column == Speed)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    static const QStringList kCaptions = {tr("程度"), tr("桩号"),     tr("元素"),
                                          tr("规则"), tr("值"),       tr("限值"),
                                          tr("车速"), tr("数据来源"), tr("说明")};
    return kCaptions.value(section);
}

} // namespace roadcheck
