#include "pages/framework/GridCurves.h"

#include <algorithm>

#include <QEvent>
#include <QHeaderView>
#include <QLayout>
#include <QScrollBar>

#include "base/Format.h"
#include "pages/framework/CurveView.h"
#include "pages/framework/MyRecordItemValue.h"
#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

namespace designspec {

namespace {

constexpr int kGap = 6;

// What a cell with those values has in a table.
std::optional<Value> ToValue(const CMyRecordItemValue::Values& values)
{
    if (values.empty()) return {};
    if (values.size() == 1) return values.front();
    return Format(L"%d~%d", static_cast<int>(values.front()), static_cast<int>(values.back()));
}

} // namespace

GridCurves::GridCurves(CXTPReportControl& grid, const CriterionInfo& criterion,
                       std::function<CString()> heading)
    : QWidget(grid.parentWidget()), m_grid(grid), m_criterion(criterion),
      m_heading(std::move(heading)), m_view(new CurveView(this))
{
    setSizePolicy(grid.sizePolicy());
    setMinimumSize(grid.minimumSize());
    grid.setMinimumSize(0, 0); // it may be as small as its cells
    if (QLayout* const layout = grid.parentWidget()->layout())
        delete layout->replaceWidget(&grid, this);
    grid.setParent(this);
    grid.installEventFilter(this);
    setTabOrder(&grid, m_view);
    m_view->SetFileName(ToQString(criterion.label));
    m_view->hide();
    Follow();
    show();
    grid.show();
}

void GridCurves::Follow()
{
    const QAbstractItemModel* const model = m_grid.model();
    const auto change = [this] { OnChanged(); };
    connect(model, &QAbstractItemModel::modelReset, &m_following, change);
    connect(model, &QAbstractItemModel::dataChanged, &m_following, change);
    connect(m_grid.itemDelegate(), &QAbstractItemDelegate::closeEditor, &m_following, change);
    connect(&m_grid, &CXTPReportControl::Typing, &m_following,
            [this](const QModelIndex& cell, const QString& text) { OnTyping(cell, text); });
    connect(m_grid.selectionModel(), &QItemSelectionModel::currentChanged, &m_following,
            [this] { ShowCurrent(); });
    for (const QHeaderView* header : {m_grid.horizontalHeader(), m_grid.verticalHeader()})
        connect(header, &QHeaderView::sectionResized, &m_following, [this] { Arrange(); });
    connect(m_view, &CurveView::Moved, &m_following,
            [this](const CurveCell& cell) { GoTo(cell.line, cell.column); });
    connect(m_view, &CurveView::Chosen, &m_following, [this](const CurveCell& cell) {
        GoTo(cell.line, cell.column);
        m_grid.setFocus();
    });
}

// Room

void GridCurves::SetWanted(bool wanted)
{
    m_isWanted = wanted;
    Arrange();
}

int GridCurves::MissingHeight() const
{
    if (!m_isWanted || !m_grid.isEnabled() || !m_view->isHidden()) return 0;
    return WantedByGrid().height() + kGap + m_view->minimumSizeHint().height() - height();
}

QSize GridCurves::sizeHint() const
{
    return m_grid.sizeHint();
}

QSize GridCurves::minimumSizeHint() const
{
    return m_grid.minimumSizeHint();
}

void GridCurves::resizeEvent(QResizeEvent*)
{
    Arrange();
}

bool GridCurves::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) Arrange(); // a table that does not count
    return false;
}

// For all cells, with the scroll bar that it has for want of width.
QSize GridCurves::WantedByGrid() const
{
    const int frame = 2 * m_grid.frameWidth();
    QSize wanted(m_grid.horizontalHeader()->length() + frame,
                 m_grid.horizontalHeader()->height() + m_grid.verticalHeader()->length() + frame);
    if (wanted.width() > width())
        wanted.rheight() += m_grid.horizontalScrollBar()->sizeHint().height();
    return wanted;
}

void GridCurves::Arrange()
{
    const QSize grid = WantedByGrid();
    const QSize least = m_view->minimumSizeHint();
    const auto isEnough = [&least](const QRect& place) {
        return place.width() >= least.width() && place.height() >= least.height();
    };
    const QRect below = rect().adjusted(0, grid.height() + kGap, 0, 0);
    const QRect beside = rect().adjusted(grid.width() + kGap, 0, 0, 0);
    const auto area = [&](const QRect& place) {
        return isEnough(place) ? place.width() * place.height() : 0;
    };
    const bool isBeside = area(beside) > area(below);
    const QRect& place = isBeside ? beside : below;
    const bool isShown = m_isWanted && m_grid.isEnabled() && area(place) > 0;
    m_view->setVisible(isShown);
    QRect left = rect();
    if (isShown && isBeside) left.setRight(beside.left() - kGap - 1);
    if (isShown && !isBeside) left.setBottom(below.top() - kGap - 1);
    m_grid.setGeometry(left);
    m_view->setGeometry(place);
}

// Content

void GridCurves::OnTyping(const QModelIndex& cell, const QString& text)
{
    m_typedCell = cell;
    m_typed = FromQString(text);
    Show(ChartsOf(m_criterion, Table()));
}

void GridCurves::OnChanged()
{
    m_typedCell = QModelIndex();
    const std::vector<CurveChart> charts = ChartsOf(m_criterion, Table());
    Mark(charts);
    Show(charts);
    Arrange();
}

void GridCurves::Show(const std::vector<CurveChart>& charts)
{
    CurveContent content{charts};
    for (const CurveChart& chart : m_compared)
        if (chart.heading == m_heading()) content.compared.push_back(chart);
    content.comparedName = m_comparedName;
    const QModelIndex current = m_grid.currentIndex();
    if (current.isValid() && current.column() > 0)
        content.current = {static_cast<std::size_t>(current.row()),
                           static_cast<std::size_t>(current.column()) - 1};
    m_view->Show(std::move(content));
}

void GridCurves::Compare(const CDesignSpecification* other, const CString& name)
{
    m_compared = other ? ChartsOf(m_criterion, *other) : std::vector<CurveChart>();
    m_comparedName = other ? name : CString();
    ShowCurrent();
}

void GridCurves::ShowCurrent()
{
    Show(m_view->Content().charts);
}

void GridCurves::Mark(const std::vector<CurveChart>& charts)
{
    const QAbstractItemModel& model = *m_grid.model();
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 1; column < model.columnCount(); ++column)
            if (auto* const item = m_grid.ItemAt(m_grid.IndexOf(row, column))) item->SetMark({});
    for (const CurveChart& chart : charts)
        for (const Curve& curve : chart.curves)
            for (const CurvePoint& point : curve.points)
                if (point.isOdd)
                    m_grid
                        .ItemAt(m_grid.IndexOf(static_cast<int>(point.line),
                                               static_cast<int>(point.column) + 1))
                        ->SetMark(kOddValueText);
    m_grid.viewport()->update();
}

std::optional<Value> GridCurves::ValueAt(const QModelIndex& cell) const
{
    const auto* const item = dynamic_cast<const CMyRecordItemValue*>(m_grid.ItemAt(cell));
    if (!item) return {};
    return ToValue(m_typedCell == cell ? item->ValuesFor(m_typed) : item->GetValues());
}

// What the grid shows.
TableLayout GridCurves::Table() const
{
    const QAbstractItemModel& model = *m_grid.model();
    TableLayout table;
    table.heading = m_heading();
    for (int column = 1; column < model.columnCount(); ++column)
        table.columns.emplace_back(m_grid.ShownColumn(column)->GetCaption());
    for (int row = 0; row < model.rowCount(); ++row) {
        const CXTPReportRecordItem* const header = m_grid.ItemAt(m_grid.IndexOf(row, 0));
        TableLayout::Line& line = table.lines.emplace_back();
        if (header) line.caption = header->GetCaption();
        for (int column = 1; column < model.columnCount(); ++column)
            line.cells.push_back(ValueAt(m_grid.IndexOf(row, column)));
    }
    return table;
}

void GridCurves::GoTo(std::size_t line, std::size_t column)
{
    const QModelIndex cell = m_grid.IndexOf(static_cast<int>(line), static_cast<int>(column) + 1);
    m_grid.setCurrentIndex(cell);
    m_grid.scrollTo(cell);
}

} // namespace designspec
