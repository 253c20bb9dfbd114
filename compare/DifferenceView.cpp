#include "compare/DifferenceView.h"

#include <algorithm>

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableView>

#include "compare/ControlIds.h"
#include "compare/DifferenceCells.h"
#include "compare/DifferenceModel.h"
#include "compare/DifferencePlace.h"
#include "compare/DifferenceTree.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

// Of the table's width, what a column may take beside the values.
constexpr double kMostOfTitle = 0.36;
constexpr double kMostOfPlace = 0.2;

// A title is told by its page and by its end.
class TitleDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
    }
};

} // namespace

DifferenceView::DifferenceView(QWidget* parent)
    : QWidget(parent), m_model(new DifferenceModel(m_choices, this)), m_filter(new QLineEdit),
      m_onlyDifferent(new QCheckBox(tr("只看不同的值(&D)"))), m_tree(new DifferenceTree),
      m_table(new QTableView), m_cells(new DifferenceCells), m_scope(new QLabel), m_part(m_tree)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(MakeFilterRow());
    layout->addWidget(MakeParts(), 1);
    layout->addWidget(MakeArrows());
    connect(m_tree, &DifferenceTree::Moved, this, &DifferenceView::ShowValues);
    connect(m_cells, &DifferenceCells::Moved, this, &DifferenceView::GoTo);
    connect(m_cells, &QTableWidget::itemSelectionChanged, this, &DifferenceView::ShowScope);
    setFocusProxy(m_tree);
    Begin({}, {}, {});
}

QWidget* DifferenceView::MakeFilterRow()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    CompareId::SetControlId(m_filter, CompareId::Filter);
    m_filter->setPlaceholderText(tr("筛选 (Ctrl+F)"));
    m_filter->setAccessibleName(tr("筛选"));
    m_filter->setClearButtonEnabled(true);
    layout->addWidget(m_filter, 1);
    CompareId::SetControlId(m_onlyDifferent, CompareId::OnlyDifferent);
    m_onlyDifferent->setChecked(true);
    layout->addWidget(m_onlyDifferent);
    connect(m_filter, &QLineEdit::textChanged, this, &DifferenceView::Filter);
    connect(m_onlyDifferent, &QCheckBox::toggled, this, &DifferenceView::Filter);
    auto* const find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    find->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QAction::triggered, m_filter, [this] { m_filter->setFocus(); });
    addAction(find);
    return row;
}

void DifferenceView::MakeTable()
{
    CompareId::SetControlId(m_table, CompareId::Values);
    m_table->setAccessibleName(tr("值"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setItemDelegateForColumn(DifferenceModel::kTitle, new TitleDelegate(m_table));
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() * 3 / 2);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setResizeContentsPrecision(100);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DifferenceView::ShowScope);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &DifferenceView::ShowCells);
    connect(m_table, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == DifferenceModel::kChoice) Turn();
    });
}

QWidget* DifferenceView::MakeParts()
{
    MakeTable();
    auto* const right = new QSplitter(Qt::Vertical);
    right->addWidget(m_table);
    right->addWidget(m_cells);
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 2);
    auto* const parts = new QSplitter;
    parts->addWidget(m_tree);
    parts->addWidget(right);
    parts->setStretchFactor(1, 1);
    for (QSplitter* const one : {right, parts})
        one->setChildrenCollapsible(false);
    const int line = fontMetrics().height();
    parts->setSizes({line * 14, line * 42});
    for (QWidget* const part : {static_cast<QWidget*>(m_tree), static_cast<QWidget*>(m_table),
                                static_cast<QWidget*>(m_cells)})
        part->installEventFilter(this);
    m_table->viewport()->installEventFilter(this);
    return parts;
}

QPushButton* DifferenceView::MakeButton(QHBoxLayout* row, int id, const QString& toolTip,
                                        const QString& keys, void (DifferenceView::*act)())
{
    auto* const button = new QPushButton;
    CompareId::SetControlId(button, id);
    button->setAutoDefault(false);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(toolTip, keys));
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, act);
    auto* const action = new QAction(this);
    action->setShortcut(QKeySequence(keys));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, button, [button] {
        if (button->isEnabled() && !button->isHidden()) button->click();
    });
    addAction(action);
    return button;
}

QWidget* DifferenceView::MakeArrows()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    CompareId::SetControlId(m_scope, CompareId::Scope);
    m_scope->setTextFormat(Qt::PlainText);
    // As wide as there is room for, however long a text is.
    m_scope->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(m_scope, 1);
    using V = DifferenceView;
    m_toLeft =
        MakeButton(layout, CompareId::ToLeft, tr("采用右边的值"), tr("Alt+Left"), &V::ToLeft);
    m_toRight =
        MakeButton(layout, CompareId::ToRight, tr("采用左边的值"), tr("Alt+Right"), &V::ToRight);
    m_takeBack = MakeButton(layout, CompareId::TakeBack, tr("各自不变"), tr("Del"), &V::TakeBack);
    m_undo = MakeButton(layout, CompareId::Undo, tr("撤销上一次选择"), tr("Ctrl+Z"), &V::Undo);
    m_redo = MakeButton(layout, CompareId::Redo, tr("重做撤销的选择"), tr("Ctrl+Y"), &V::Redo);
    m_undo->setText(tr("撤销(&U)"));
    m_redo->setText(tr("重做(&Y)"));
    return row;
}

// What is shown

void DifferenceView::ShowTwo(const CDesignSpecification& left, const CDesignSpecification& right,
                             const Two& sides)
{
    Begin({left, right, sides.changeable}, sides.left, sides.right);
    m_toLeft->setVisible(sides.changeable.left);
    m_toRight->setVisible(sides.changeable.right);
    for (QPushButton* const button : {m_takeBack, m_undo, m_redo})
        button->setVisible(sides.changeable.left || sides.changeable.right);
}

void DifferenceView::ShowThree(const CDesignSpecification& base, const CDesignSpecification& mine,
                               const CDesignSpecification& theirs)
{
    Begin({base, mine, theirs}, tr("我的"), tr("对方的"));
}

void DifferenceView::Begin(const DifferenceChoices& choices, const QString& left,
                           const QString& right)
{
    m_model->Show({}, false);
    m_cells->Hide();
    m_choices = choices;
    m_model->SetHeadings({left, right});
    ShowCaptions();
    m_tree->Show(m_choices);
    Filter();
    FitColumns();
}

void DifferenceView::ShowCaptions()
{
    const bool isOfThree = m_choices.IsOfThree();
    m_toLeft->setText(isOfThree ? tr("◀ 用我的(&L)") : tr("← 取到左边(&L)"));
    m_toRight->setText(isOfThree ? tr("用对方的(&R) ▶") : tr("取到右边(&R) →"));
    m_takeBack->setText(isOfThree ? tr("未定(&N)") : tr("不取(&N)"));
    m_toLeft->setToolTip(isOfThree ? tr("采用我的值 (Alt+Left)") : tr("采用右边的值 (Alt+Left)"));
    m_toRight->setToolTip(isOfThree ? tr("采用对方的值 (Alt+Right)")
                                    : tr("采用左边的值 (Alt+Right)"));
    for (QPushButton* const button : {m_toLeft, m_toRight, m_takeBack, m_undo, m_redo})
        button->show();
}

bool DifferenceView::IsShown(std::size_t value, const QString& text) const
{
    if (m_onlyDifferent->isChecked() && !m_choices.IsDifferent(value)) return false;
    if (text.isEmpty()) return true;
    const Change& one = m_choices.Values()[value];
    const auto has = [&text](const std::optional<CString>& part) {
        return part && ToQString(*part).contains(text, Qt::CaseInsensitive);
    };
    return has(TitleOf(one)) || has(one.key) || has(one.mine) || has(one.theirs) || has(one.base);
}

void DifferenceView::Filter()
{
    const QString text = m_filter->text().trimmed();
    m_isShown.resize(m_choices.Values().size());
    for (std::size_t i = 0; i < m_isShown.size(); ++i)
        m_isShown[i] = IsShown(i, text);
    m_tree->Filter(m_isShown);
    ShowValues();
}

void DifferenceView::ShowValues()
{
    std::vector<std::size_t> values = m_tree->Current();
    std::erase_if(values, [this](std::size_t value) { return !m_isShown[value]; });
    m_model->Show(std::move(values), !m_tree->IsWithinPage());
    if (m_model->rowCount() > 0) m_table->selectRow(0);
    ShowCells();
    ShowScope();
}

// The values share what is left: both are always to be seen.
void DifferenceView::FitColumns()
{
    QHeaderView* const header = m_table->horizontalHeader();
    const int whole = m_table->viewport()->width();
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const bool isValue = column == DifferenceModel::kLeft ||
                             column == DifferenceModel::kRight || column == DifferenceModel::kWas;
        header->setSectionResizeMode(column,
                                     isValue ? QHeaderView::Stretch : QHeaderView::Interactive);
        if (isValue) continue;
        m_table->resizeColumnToContents(column);
        const double most = column == DifferenceModel::kTitle   ? kMostOfTitle
                            : column == DifferenceModel::kPlace ? kMostOfPlace
                                                                : 1;
        const int width = std::min(m_table->columnWidth(column), static_cast<int>(whole * most));
        m_table->setColumnWidth(column, width);
    }
}

void DifferenceView::ShowCells()
{
    const int row = m_table->currentIndex().row();
    if (row < 0 || row >= m_model->rowCount()) return m_cells->Hide();
    m_cells->Show(m_choices, m_model->Shown()[static_cast<std::size_t>(row)],
                  m_onlyDifferent->isChecked());
}

// The table follows the grid as far as it shows the value.
void DifferenceView::GoTo(std::size_t value)
{
    const auto& shown = m_model->Shown();
    const auto found = std::find(shown.begin(), shown.end(), value);
    if (found == shown.end()) return;
    const QSignalBlocker noCells(m_cells);
    m_table->selectRow(static_cast<int>(found - shown.begin()));
}

void DifferenceView::Renew()
{
    m_model->Renew();
    m_cells->Renew();
    m_tree->Filter(m_isShown);
    ShowScope();
    emit Chosen();
}

// Choosing

std::vector<std::size_t> DifferenceView::SelectedValues() const
{
    std::vector<std::size_t> values;
    for (const QModelIndex& row : m_table->selectionModel()->selectedRows())
        values.push_back(m_model->Shown()[static_cast<std::size_t>(row.row())]);
    return values;
}

// What has the focus; a button that was pressed is for what had it before.
void DifferenceView::FindPart()
{
    QWidget* const focus = window()->focusWidget();
    if (focus == m_tree || focus == m_table || focus == m_cells) m_part = focus;
}

// What the arrows act on.
std::vector<std::size_t> DifferenceView::Scope() const
{
    std::vector<std::size_t> values = m_part == m_table   ? SelectedValues()
                                      : m_part == m_cells ? m_cells->Selected()
                                                          : m_tree->Current();
    std::erase_if(values, [this](std::size_t value) {
        return !m_choices.IsDifferent(value) || (m_part != m_cells && !m_isShown[value]);
    });
    return values;
}

QString DifferenceView::ScopeText() const
{
    const std::vector<std::size_t> scope = Scope();
    const auto& values = m_choices.Values();
    const auto differing = std::count_if(values.begin(), values.end(), [](const Change& one) {
        return one.by != ChangedBy::Nobody;
    });
    if (differing == 0) return tr("没有不同的值。");
    if (scope.size() == 1) {
        const Change& one = values[scope.front()];
        return ToShown(TitleOf(one) + (one.key.empty() ? L"" : L" · " + one.key));
    }
    const QString count = tr("%1 个不同的值").arg(scope.size());
    return m_part == m_tree ? QStringLiteral("%1: %2").arg(m_tree->CurrentText(), count)
                            : tr("选中的 %1").arg(count);
}

void DifferenceView::ShowScope()
{
    FindPart();
    m_scope->setText(ScopeText());
    m_scope->setToolTip(ToToolTip(m_scope->text()));
    const std::vector<std::size_t> scope = Scope();
    const auto can = [&](Choice choice) {
        return std::any_of(scope.begin(), scope.end(), [&](std::size_t value) {
            return m_choices.CanChoose(value, choice) && m_choices.Of(value) != choice;
        });
    };
    const bool isOfThree = m_choices.IsOfThree();
    m_toLeft->setEnabled(can(isOfThree ? Choice::Left : Choice::Right));
    m_toRight->setEnabled(can(isOfThree ? Choice::Right : Choice::Left));
    m_takeBack->setEnabled(can(Choice::None));
    m_undo->setEnabled(m_choices.CanUndo());
    m_redo->setEnabled(m_choices.CanRedo());
}

void DifferenceView::Choose(const std::vector<std::size_t>& values, Choice choice)
{
    if (m_choices.Choose(values, choice)) Renew();
}

void DifferenceView::TakeAll(Choice choice)
{
    std::vector<std::size_t> all;
    for (std::size_t i = 0; i < m_choices.Values().size(); ++i)
        all.push_back(i);
    Choose(all, choice);
}

void DifferenceView::ToLeft()
{
    FindPart();
    Choose(Scope(), m_choices.IsOfThree() ? Choice::Left : Choice::Right);
}

void DifferenceView::ToRight()
{
    FindPart();
    Choose(Scope(), m_choices.IsOfThree() ? Choice::Right : Choice::Left);
}

void DifferenceView::TakeBack()
{
    FindPart();
    Choose(Scope(), Choice::None);
}

void DifferenceView::Undo()
{
    m_choices.Undo();
    Renew();
}

void DifferenceView::Redo()
{
    m_choices.Redo();
    Renew();
}

// From one choice to the next that there is for the first of the selected values.
void DifferenceView::Turn()
{
    FindPart();
    const std::vector<std::size_t> values = Scope();
    if (values.empty()) return;
    static constexpr Choice kTurns[] = {Choice::None, Choice::Right, Choice::Left};
    constexpr std::size_t kCount = std::size(kTurns);
    const auto now = static_cast<std::size_t>(
        std::find(std::begin(kTurns), std::end(kTurns), m_choices.Of(values.front())) -
        std::begin(kTurns));
    for (std::size_t i = 1; i < kCount; ++i) {
        const Choice next = kTurns[(now + i) % kCount];
        if (m_choices.CanChoose(values.front(), next)) return Choose(values, next);
    }
}

bool DifferenceView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) ShowScope();
    if (event->type() == QEvent::Resize && watched == m_table->viewport()) FitColumns();
    if (event->type() == QEvent::KeyPress && watched != m_tree &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        Turn();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Colours of cells are those of the palette.
void DifferenceView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) m_cells->Renew();
}

} // namespace designspec
