#include "roadcheck/SpeedTableEditor.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include "platform/mfc/QtText.h"
#include "roads/SpeedStretches.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr int kMinSpeed = 1, kMaxSpeed = 1000; // km/h

std::optional<double> StationOf(const QString& text)
{
    return ParseStation(FromQString(text));
}

std::optional<int> SpeedOf(const QString& text)
{
    bool isNumber = false;
    const int speed = text.toInt(&isNumber);
    if (!isNumber || speed < kMinSpeed || speed > kMaxSpeed) return {};
    return speed;
}

} // namespace

SpeedTableEditor::SpeedTableEditor(QWidget* parent) : QTableWidget(0, kColumns, parent)
{
    setHorizontalHeaderLabels({tr("起点桩号"), tr("终点桩号"), tr("车速(km/h)")});
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setToolTip(tr("设计车速。桩号如 K1+200 或 1200; 空着表示到路线的端点。Del 删除选中的行"));
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::cellChanged, this, [this] {
        Tidy();
        emit Changed();
    });
    Tidy();
}

QSize SpeedTableEditor::sizeHint() const
{
    const int line = fontMetrics().height();
    return {line * 18, line * 8};
}

void SpeedTableEditor::SetRoad(const Alignment& road, const QString& entered)
{
    m_first = road.stations.At(0);
    m_last = road.stations.At(road.length);
    QStringList rows;
    const SpeedStretches ofFile(road, {});
    for (const DesignSpeed& one : ofFile.Stretches())
        rows << QStringLiteral("%1\t%2\t%3")
                    .arg(ToQString(road.stations.Text(one.from)),
                         ToQString(road.stations.Text(one.to)))
                    .arg(one.speed);
    m_ofFile = rows.join(u'\n');
    Fill(entered.isEmpty() ? m_ofFile : entered);
}

void SpeedTableEditor::Fill(const QString& text)
{
    const QSignalBlocker quiet(this);
    setRowCount(0);
    for (const QString& row : text.split(u'\n', Qt::SkipEmptyParts)) {
        insertRow(rowCount());
        const QStringList cells = row.split(u'\t');
        for (int column = 0; column < kColumns; ++column)
            setItem(rowCount() - 1, column, new QTableWidgetItem(cells.value(column)));
    }
    Tidy();
}

QString SpeedTableEditor::Cell(int row, int column) const
{
    const QTableWidgetItem* const cell = item(row, column);
    return cell ? cell->text().trimmed() : QString();
}

bool SpeedTableEditor::IsEmptyRow(int row) const
{
    return Cell(row, From).isEmpty() && Cell(row, To).isEmpty() && Cell(row, Speed).isEmpty();
}

QString SpeedTableEditor::Content() const
{
    QStringList rows;
    for (int row = 0; row < rowCount(); ++row)
        if (!IsEmptyRow(row))
            rows << Cell(row, From) + u'\t' + Cell(row, To) + u'\t' + Cell(row, Speed);
    return rows.join(u'\n');
}

QString SpeedTableEditor::Text() const
{
    const QString content = Content();
    return content == m_ofFile ? QString() : content;
}

std::vector<SpeedChoice> SpeedTableEditor::Choices() const
{
    std::vector<SpeedChoice> choices;
    if (Text().isEmpty() || !Problem().isEmpty()) return choices;
    for (int row = 0; row < rowCount(); ++row) {
        if (IsEmptyRow(row)) continue;
        SpeedChoice choice;
        choice.speed = *SpeedOf(Cell(row, Speed));
        if (!Cell(row, From).isEmpty() || !Cell(row, To).isEmpty())
            choice.stretch = {StationOf(Cell(row, From)).value_or(m_first),
                              StationOf(Cell(row, To)).value_or(m_last)};
        choices.push_back(choice);
    }
    return choices;
}

QString SpeedTableEditor::CellProblem(int row, int column) const
{
    const QString text = Cell(row, column);
    if (IsEmptyRow(row)) return {};
    if (column == Speed)
        return SpeedOf(text) ? QString()
                             : tr("设计车速“%1”不是 %2 到 %3 的整数 (km/h)")
                                   .arg(text)
                                   .arg(kMinSpeed)
                                   .arg(kMaxSpeed);
    return text.isEmpty() || StationOf(text) ? QString() : tr("“%1”不是桩号").arg(text);
}

QString SpeedTableEditor::Problem() const
{
    for (int row = 0; row < rowCount(); ++row)
        for (int column = 0; column < kColumns; ++column)
            if (QString problem = CellProblem(row, column); !problem.isEmpty())
                return problem;
    return {};
}

// One empty row at the end; what cannot be read stands out.
void SpeedTableEditor::Tidy()
{
    const QSignalBlocker quiet(this);
    if (rowCount() == 0 || !IsEmptyRow(rowCount() - 1)) insertRow(rowCount());
    for (int row = 0; row < rowCount(); ++row)
        for (int column = 0; column < kColumns; ++column) {
            QTableWidgetItem* const cell = item(row, column);
            if (!cell) continue;
            const QString problem = CellProblem(row, column);
            QFont font = cell->font();
            font.setStrikeOut(!problem.isEmpty());
            cell->setFont(font);
            cell->setToolTip(problem);
        }
}

void SpeedTableEditor::RemoveSelected()
{
    std::vector<int> rows;
    for (int row = rowCount() - 1; row >= 0; --row)
        for (int column = 0; column < kColumns; ++column)
            if (selectionModel()->isSelected(model()->index(row, column))) {
                rows.push_back(row);
                break;
            }
    for (const int row : rows)
        removeRow(row);
    if (Content().isEmpty()) Fill(m_ofFile);
    Tidy();
    emit Changed();
}

void SpeedTableEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Delete))
        RemoveSelected();
    else
        QTableWidget::keyPressEvent(event);
}

} // namespace roadcheck
