#include "compare/DifferenceModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include "compare/DifferencePlace.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr int kColumnsOfTwo = DifferenceModel::kRight + 1;
constexpr int kColumnsOfThree = DifferenceModel::kBy + 1;

QString WhoText(ChangedBy by)
{
    switch (by) {
    case ChangedBy::Me:
        return QStringLiteral("我");
    case ChangedBy::Them:
        return QStringLiteral("对方");
    case ChangedBy::Both:
        return QStringLiteral("双方相同");
    case ChangedBy::Conflict:
        return QStringLiteral("冲突");
    default:
        return {};
    }
}

} // namespace

DifferenceModel::DifferenceModel(const DifferenceChoices& choices, QObject* parent)
    : QAbstractTableModel(parent), m_choices(choices)
{
}

void DifferenceModel::Show(std::vector<std::size_t> values, bool withPage)
{
    beginResetModel();
    m_shown = std::move(values);
    m_withPage = withPage;
    endResetModel();
}

void DifferenceModel::Renew()
{
    if (m_shown.empty()) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int DifferenceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int DifferenceModel::columnCount(const QModelIndex& parent) const
{
    if (parent.isValid()) return 0;
    return m_choices.IsOfThree() ? kColumnsOfThree : kColumnsOfTwo;
}

QString DifferenceModel::TextOf(const std::optional<CString>& value)
{
    return value ? ToShown(*value) : QStringLiteral("—");
}

QString DifferenceModel::ChoiceText(const DifferenceChoices& choices, std::size_t value)
{
    if (!choices.IsDifferent(value)) return QStringLiteral("=");
    const bool isOfThree = choices.IsOfThree();
    switch (choices.Of(value)) {
    case Choice::Left:
        return isOfThree ? QStringLiteral("◀ 我的") : QStringLiteral("→");
    case Choice::Right:
        return isOfThree ? QStringLiteral("对方的 ▶") : QStringLiteral("←");
    default:
        return choices.Values()[value].by == ChangedBy::Both ? QStringLiteral("相同")
               : isOfThree                                   ? QStringLiteral("?")
                                                             : QStringLiteral("≠");
    }
}

bool DifferenceModel::IsTaken(const DifferenceChoices& choices, std::size_t value, Column column)
{
    const Choice choice = choices.Of(value);
    const Choice own = column == kLeft ? Choice::Left : Choice::Right;
    if (choice == Choice::None || (column != kLeft && column != kRight)) return false;
    return choices.IsOfThree() ? choice == own : choice != own;
}

QString DifferenceModel::Text(std::size_t value, int column) const
{
    const Change& one = m_choices.Values()[value];
    switch (column) {
    case kTitle:
        return ToQString(m_withPage ? TitleOf(one) : one.label);
    case kPlace:
        return ToQString(one.key);
    case kLeft:
        return TextOf(m_choices.Left(value));
    case kChoice:
        return ChoiceText(m_choices, value);
    case kRight:
        return TextOf(m_choices.Right(value));
    case kWas:
        return TextOf(one.base);
    default:
        return WhoText(one.by);
    }
}

// The whole of a text that is too long, and what stood there before something was taken.
QString DifferenceModel::ToolTip(std::size_t value, int column) const
{
    QString text = Text(value, column);
    if (m_choices.IsOfThree() || !IsTaken(m_choices, value, static_cast<Column>(column)))
        return text;
    const Change& one = m_choices.Values()[value];
    return QStringLiteral("%1 (原来: %2)")
        .arg(text, TextOf(column == kLeft ? one.mine : one.theirs));
}

QVariant DifferenceModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const std::size_t value = m_shown[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return Text(value, index.column());
    case Qt::ToolTipRole:
        return ToToolTip(ToolTip(value, index.column()));
    case Qt::TextAlignmentRole:
        return index.column() == kChoice ? QVariant(Qt::AlignCenter) : QVariant();
    case Qt::ForegroundRole:
        if (m_choices.IsDifferent(value)) return {};
        return QApplication::palette().color(QPalette::PlaceholderText);
    case Qt::FontRole: {
        QFont font = QApplication::font();
        const bool isOpen = m_choices.IsOfThree() && m_choices.Of(value) == Choice::None &&
                            m_choices.CanChoose(value, Choice::Left);
        font.setBold((isOpen && index.column() == kTitle) ||
                     IsTaken(m_choices, value, static_cast<Column>(index.column())));
        return font;
    }
    default:
        return {};
    }
}

QVariant DifferenceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole && section != kChoice)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    switch (section) {
    case kTitle:
        return QStringLiteral("值");
    case kPlace:
        return QStringLiteral("位置");
    case kLeft:
        return m_headings.left;
    case kChoice:
        return m_choices.IsOfThree() ? QStringLiteral("采用") : QString();
    case kRight:
        return m_headings.right;
    case kWas:
        return QStringLiteral("原来的");
    default:
        return QStringLiteral("谁改的");
    }
}

} // namespace designspec
