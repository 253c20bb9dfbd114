#include "compare/DifferenceCells.h"

#include <algorithm>
#include <map>

#include <QHeaderView>

#include "compare/ControlIds.h"
#include "compare/DifferenceModel.h"
#include "compare/DifferencePlace.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr int kValueRole = Qt::UserRole;
constexpr DifferenceModel::Column kColumnOfSide[] = {
    DifferenceModel::kLeft, DifferenceModel::kRight, DifferenceModel::kWas};

QString SideText(bool isOfThree, int side)
{
    static const QString kOfTwo[] = {QStringLiteral("左"), QStringLiteral("右")};
    static const QString kOfThree[] = {QStringLiteral("我的"), QStringLiteral("对方的"),
                                       QStringLiteral("原来的")};
    return isOfThree ? kOfThree[side] : kOfTwo[side];
}

struct Caption {
    CString text;
    std::optional<double> number;
};

// Highest first.
void Insert(std::vector<Caption>& columns, const GridCell& cell)
{
    const auto isSame = [&](const Caption& one) { return one.text == cell.column; };
    if (std::any_of(columns.begin(), columns.end(), isSame)) return;
    const auto isLower = [&](const Caption& one) {
        return cell.number && one.number < cell.number;
    };
    columns.insert(std::find_if(columns.begin(), columns.end(), isLower),
                   {cell.column, cell.number});
}

} // namespace

DifferenceCells::DifferenceCells(QWidget* parent) : QTableWidget(parent)
{
    CompareId::SetControlId(this, CompareId::Cells);
    setAccessibleName(tr("表格"));
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(this, &QTableWidget::currentItemChanged, this, [this](const QTableWidgetItem* item) {
        const QVariant value = item ? item->data(kValueRole) : QVariant();
        if (value.isValid()) emit Moved(value.toULongLong());
    });
}

void DifferenceCells::Hide()
{
    m_grid.clear();
    hide();
}

void DifferenceCells::Show(const DifferenceChoices& choices, std::size_t value, bool onlyDifferent)
{
    m_choices = &choices;
    const CString grid = CellOf(choices.Values()[value]).grid;
    if (grid.empty()) return Hide();
    const QSignalBlocker noMoves(this);
    if (grid != m_grid || onlyDifferent != m_onlyDifferent) {
        m_grid = grid;
        m_onlyDifferent = onlyDifferent;
        Fill(RowsOf(grid, onlyDifferent));
    }
    SetCurrent(value);
    show();
}

std::vector<DifferenceCells::Row> DifferenceCells::RowsOf(const CString& grid,
                                                          bool onlyDifferent) const
{
    std::vector<Row> rows;
    for (std::size_t i = 0; i < m_choices->Values().size(); ++i) {
        const GridCell cell = CellOf(m_choices->Values()[i]);
        if (cell.grid != grid) continue;
        auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const Row& one) { return one.caption == cell.row; });
        if (row == rows.end()) row = rows.insert(row, {cell.row, {}});
        row->values.push_back(i);
    }
    if (onlyDifferent)
        std::erase_if(rows, [this](const Row& row) {
            return std::none_of(row.values.begin(), row.values.end(),
                                [this](std::size_t one) { return m_choices->IsDifferent(one); });
        });
    return rows;
}

void DifferenceCells::Fill(const std::vector<Row>& rows)
{
    std::vector<Caption> columns;
    for (const Row& row : rows)
        for (const std::size_t value : row.values)
            Insert(columns, CellOf(m_choices->Values()[value]));
    clear();
    setColumnCount(static_cast<int>(columns.size()));
    setRowCount(static_cast<int>(rows.size()) * Sides());
    std::map<CString, int> places;
    for (const Caption& column : columns) {
        const int place = static_cast<int>(places.size());
        places.emplace(column.text, place);
        setHorizontalHeaderItem(place, new QTableWidgetItem(ToQString(column.text)));
    }
    int line = 0;
    for (const Row& row : rows) {
        for (int side = 0; side < Sides(); ++side) {
            const QString text = SideText(m_choices->IsOfThree(), side);
            setVerticalHeaderItem(
                line + side,
                new QTableWidgetItem(side == 0 ? ToQString(row.caption) + u' ' + text : text));
        }
        for (const std::size_t value : row.values)
            FillCell(line, places.at(CellOf(m_choices->Values()[value]).column), value);
        line += Sides();
    }
    resizeColumnsToContents();
}

void DifferenceCells::FillCell(int line, int column, std::size_t value)
{
    const Change& one = m_choices->Values()[value];
    const std::optional<CString> texts[] = {m_choices->Left(value), m_choices->Right(value),
                                            one.base};
    for (int side = 0; side < Sides(); ++side) {
        QTableWidgetItem* cell = item(line + side, column);
        if (!cell) setItem(line + side, column, cell = new QTableWidgetItem);
        cell->setData(kValueRole, QVariant::fromValue(static_cast<qulonglong>(value)));
        cell->setText(DifferenceModel::TextOf(texts[side]));
        cell->setToolTip(ToToolTip(ToQString(TitleOf(one) + L" · " + one.key)));
        QFont own = font();
        own.setBold(DifferenceModel::IsTaken(*m_choices, value, kColumnOfSide[side]));
        cell->setFont(own);
        QColor mark = palette().color(QPalette::Highlight);
        mark.setAlpha(48);
        if (m_choices->IsDifferent(value))
            cell->setBackground(mark);
        else
            cell->setForeground(palette().color(QPalette::PlaceholderText));
    }
}

void DifferenceCells::Renew()
{
    if (!m_choices) return;
    for (int line = 0; line < rowCount(); line += Sides())
        for (int column = 0; column < columnCount(); ++column)
            if (const QTableWidgetItem* const cell = item(line, column))
                FillCell(line, column, cell->data(kValueRole).toULongLong());
}

void DifferenceCells::SetCurrent(std::size_t value)
{
    if (currentItem() && currentItem()->data(kValueRole).toULongLong() == value) return;
    for (int line = 0; line < rowCount(); line += Sides())
        for (int column = 0; column < columnCount(); ++column) {
            QTableWidgetItem* const cell = item(line, column);
            if (cell && cell->data(kValueRole).toULongLong() == value) return setCurrentItem(cell);
        }
}

std::vector<std::size_t> DifferenceCells::Selected() const
{
    std::vector<std::size_t> values;
    for (const QTableWidgetItem* const cell : selectedItems())
        values.push_back(cell->data(kValueRole).toULongLong());
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

} // namespace designspec
