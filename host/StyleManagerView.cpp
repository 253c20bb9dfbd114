#include "host/StyleManagerView.h"

#include <algorithm>
#include <cstring>
#include <set>

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include "base/File.h"
#include "host/ControlIds.h"
#include "host/StyleFilterBar.h"
#include "host/StyleGroupTree.h"
#include "host/StyleListModel.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"

using namespace designspec;

namespace {

const QString kSplitterKey = QStringLiteral("styleManager/splitter");
const QString kColumnsKey = QStringLiteral("styleManager/columns%1"); // of so many

struct Less {
    bool operator()(const GUID& a, const GUID& b) const
    {
        return std::memcmp(&a, &b, sizeof(GUID)) < 0;
    }
};

} // namespace

StyleManagerView::StyleManagerView(QWidget* parent)
    : QWidget(parent), m_list(new StyleListModel(this)), m_shown(new StyleSortFilter(this)),
      m_commands(new StyleCommands(this)), m_actions(new StyleActions(*m_commands, this)),
      m_groups(new StyleGroupTree), m_table(new QTableView), m_filter(new StyleFilterBar),
      m_stack(new QStackedWidget), m_splitter(new QSplitter), m_hint(new QLabel),
      m_hintButton(new QPushButton)
{
    m_shown->setSourceModel(m_list);
    MakeTable();
    MakeFindKey();
    m_splitter->addWidget(m_groups);
    m_splitter->addWidget(MakeRight());
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    const int line = fontMetrics().height();
    m_splitter->setSizes({line * 10, line * 62});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_splitter);
    m_splitter->restoreState(QSettings().value(kSplitterKey).toByteArray());
    Connect();
    ShowGroups();
}

StyleManagerView::~StyleManagerView()
{
    QSettings().setValue(kSplitterKey, m_splitter->saveState());
    SaveColumns();
}

void StyleManagerView::MakeTable()
{
    SetControlId(m_table, ControlId::Styles);
    m_table->setModel(m_shown);
    m_table->setAccessibleName(tr("样式"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(StyleListModel::NameColumn, Qt::AscendingOrder);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() * 8 / 5);
    QHeaderView* const header = m_table->horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setStretchLastSection(true);
    header->setSectionsMovable(true);
    for (QAction* action :
         {m_actions->Action(kCommandEditStyle), m_actions->Action(kCommandDeleteStyle)})
        m_table->addAction(action);
    m_table->installEventFilter(this);
}

void StyleManagerView::MakeFindKey()
{
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, m_filter, &StyleFilterBar::Begin);
    addAction(find);
}

QWidget* StyleManagerView::MakeHint()
{
    SetControlId(m_hint, ControlId::Hint);
    SetControlId(m_hintButton, ControlId::HintButton);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setTextFormat(Qt::PlainText);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addStretch();
    layout->addWidget(m_hint);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(m_hintButton, 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

QWidget* StyleManagerView::MakeRight()
{
    m_stack->addWidget(m_table);
    m_stack->addWidget(MakeHint());
    auto* right = new QWidget;
    auto* layout = new QVBoxLayout(right);
    layout->setContentsMargins({});
    layout->addWidget(m_filter);
    layout->addWidget(m_stack, 1);
    return right;
}

void StyleManagerView::Connect()
{
    connect(m_groups, &StyleGroupTree::CurrentEditorChanged, this, &StyleManagerView::ShowEditor);
    connect(m_filter, &StyleFilterBar::Changed, this, &StyleManagerView::Filter);
    connect(m_filter, &StyleFilterBar::Entered, this,
            [this] { StyleFilterBar::Prepare(*m_list, m_commands->Editor()); });
    connect(m_filter, &StyleFilterBar::Left, this, &StyleManagerView::GoToList);
    connect(m_table, &QTableView::doubleClicked, this,
            [this] { m_commands->Run(kCommandEditStyle, Selected()); });
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &StyleManagerView::Adjust);
    connect(m_actions, &StyleActions::Triggered, this,
            [this](unsigned command) { m_commands->Run(command, Selected()); });
    connect(m_commands, &StyleCommands::Made, this, &StyleManagerView::Select);
    connect(m_commands, &StyleCommands::Listed, this, &StyleManagerView::Refresh);
    m_refurbished = CStyles::ConnectRefurbish([this](CStyles&) { Refresh(); });
    m_selectWanted = CStyleEditor::SelectWanted().Connect([this](const GUID& id) {
        Select({id});
        m_table->setFocus();
    });
    m_groupsChanged = CStyleManager::Changed().Connect([this] { ShowGroups(); });
}

void StyleManagerView::ShowGroups()
{
    CPrjManager* const project = CPrjManager::GetInstance();
    m_groups->Show(project ? project->GetStyleManager() : nullptr);
}

void StyleManagerView::ShowEditor(CStyleEditor* editor)
{
    m_commands->SetEditor(m_hostHint.isEmpty() ? editor : nullptr);
    Refresh();
}

void StyleManagerView::Refresh()
{
    const StyleCommands::Selection selected = Selected();
    const std::optional<GUID> current = Current();
    const bool isOther = StyleListModel::CountColumns(m_commands->Editor()) != m_columns;
    if (isOther) SaveColumns();
    m_shown->SetAccepted({});
    m_list->Show(m_commands->Editor());
    if (isOther) RestoreColumns();
    Filter();
    SelectAll(selected, current);
    Adjust();
}

void StyleManagerView::Filter()
{
    m_shown->SetAccepted(m_filter->Accept(*m_list, m_commands->Editor()));
    ShowHint();
    Adjust();
}

void StyleManagerView::GoToList()
{
    if (Selected().empty() && m_shown->rowCount() > 0) m_table->selectRow(0);
    m_table->setFocus(Qt::TabFocusReason);
}

GUID StyleManagerView::IdAt(const QModelIndex& shown) const
{
    return m_list->IdAt(m_shown->mapToSource(shown).row());
}

StyleCommands::Selection StyleManagerView::Selected() const
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    StyleCommands::Selection ids;
    for (const QModelIndex& row : rows)
        ids.push_back(IdAt(row));
    return ids;
}

std::optional<GUID> StyleManagerView::Current() const
{
    if (!m_table->currentIndex().isValid()) return {};
    return IdAt(m_table->currentIndex());
}

void StyleManagerView::SelectAll(const StyleCommands::Selection& ids,
                                 const std::optional<GUID>& current)
{
    const std::set<GUID, Less> wanted(ids.begin(), ids.end());
    QItemSelection selection; // a range for each run of rows: single ones would be slow to select
    QModelIndex shown;
    QModelIndex first;
    QModelIndex last;
    for (int row = 0; row <= m_shown->rowCount(); ++row) {
        const QModelIndex index = m_shown->index(row, 0);
        const GUID id = index.isValid() ? IdAt(index) : GUID();
        const bool isWanted = index.isValid() && wanted.contains(id);
        if (index.isValid() && current == id) shown = index;
        if (isWanted && !first.isValid()) first = index;
        if (!isWanted && first.isValid()) {
            selection.select(first, last);
            first = {};
        }
        last = index;
    }
    QItemSelectionModel* const model = m_table->selectionModel();
    model->setCurrentIndex(shown, QItemSelectionModel::NoUpdate);
    model->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (shown.isValid()) m_table->scrollTo(shown);
}

void StyleManagerView::Select(const StyleCommands::Selection& ids)
{
    if (ids.empty()) return;
    SelectAll(ids, ids.front());
    if (m_filter->IsEmpty() || Selected().size() == ids.size()) return;
    m_filter->Clear();
    SelectAll(ids, ids.front());
}

void StyleManagerView::SelectOne()
{
    if (!Selected().empty() || m_shown->rowCount() == 0) return;
    const CStyleEditor* const editor = m_commands->Editor();
    const CStyle* const standard = editor ? editor->GetStyles()->DefaultItem() : nullptr;
    if (standard) SelectAll({standard->ID()}, standard->ID());
    if (Selected().empty()) m_table->selectRow(0);
}

// Null where no group has such styles as the file holds.
CStyleEditor* StyleManagerView::EditorOf(const QString& file, CArray<GUID>& ids) const
{
    for (CStyleEditor* const editor : m_groups->Editors()) {
        CStringArray names;
        const CStyles* const styles = editor->GetStyles();
        if (styles && styles->StyleNames(FromQString(file).c_str(), names, ids) && !ids.empty())
            return editor;
    }
    return nullptr;
}

void StyleManagerView::Offer(const QStringList& files)
{
    const QString own =
        QFileInfo(QString::fromStdString(NativePath(CurrentStylesFolder()))).canonicalFilePath();
    QStringList others;
    StyleCommands::Selection listed;
    CStyleEditor* shown = nullptr;
    for (const QString& file : files) {
        const bool isOwn = QFileInfo(QFileInfo(file).path()).canonicalFilePath() == own;
        if (!isOwn) others << file;
        CArray<GUID> ids;
        if (isOwn || m_groups->Editors().size() > 1)
            if (CStyleEditor* const editor = EditorOf(file, ids)) shown = editor;
        if (isOwn) listed.insert(listed.end(), ids.begin(), ids.end());
    }
    if (shown) m_groups->Select(shown);
    Select(listed);
    if (!listed.empty()) m_table->setFocus();
    if (!others.isEmpty()) m_commands->ImportFrom(others);
}

void StyleManagerView::SetHint(const QString& text, const QString& caption,
                               std::function<void()> action)
{
    m_hostHint = text;
    m_hostCaption = caption;
    m_hostAction = std::move(action);
    ShowEditor(m_groups->CurrentEditor());
}

void StyleManagerView::ShowHint()
{
    QString text = m_hostHint;
    QString caption = m_hostCaption;
    std::function<void()> action = m_hostAction;
    if (text.isEmpty() && !m_commands->Editor()) {
        text = tr("没有可以管理的样式。");
        caption.clear();
    } else if (text.isEmpty() && m_list->rowCount() == 0) {
        text = tr("这个项目还没有样式。");
        caption = m_commands->IsEnabled(kCommandNewStyle, {}) ? tr("新建(&W)") : QString();
        action = [this] { m_commands->Run(kCommandNewStyle, {}); };
    } else if (text.isEmpty() && m_shown->rowCount() == 0) {
        text =
            tr("没有样式的名称、数据来源或值含“%1”。\n可以少写几个字、写拼音首字母, 或者清除筛选。")
                .arg(m_filter->Text());
        caption = tr("清除筛选(&F)");
        action = [this] { m_filter->Clear(); };
    }
    m_hint->setText(text);
    m_hintButton->setText(caption);
    m_hintButton->setVisible(!caption.isEmpty());
    m_hintButton->disconnect(this);
    connect(m_hintButton, &QPushButton::clicked, this, [action] {
        if (action) action();
    });
    m_stack->setCurrentIndex(text.isEmpty() ? 0 : 1);
}

void StyleManagerView::Adjust()
{
    m_actions->Adjust(Selected());
}

void StyleManagerView::ShowContextMenu(const QPoint& position)
{
    const UINT command = m_actions->MakeContextMenu(Selected()).TrackPopupMenu(position, m_table);
    if (command != 0) m_commands->Run(command, Selected());
}

bool StyleManagerView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_table && event->type() == QEvent::ContextMenu) {
        ShowContextMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void StyleManagerView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) m_actions->RenewIcons();
}

// Columns are as they were left with as many; at first the identity stands last.
void StyleManagerView::RestoreColumns()
{
    m_columns = m_list->columnCount();
    QHeaderView* const header = m_table->horizontalHeader();
    const int line = m_table->fontMetrics().height();
    header->resizeSection(StyleListModel::NameColumn, line * 16);
    header->resizeSection(StyleListModel::DefaultColumn, line * 4);
    for (int column = StyleListModel::ColumnCount; column < m_columns; ++column)
        header->resizeSection(column, line * m_list->CharactersOf(column) * 2 / 3);
    header->moveSection(header->visualIndex(StyleListModel::IdColumn), m_columns - 1);
    header->restoreState(QSettings().value(kColumnsKey.arg(m_columns)).toByteArray());
    const int sorted = header->sortIndicatorSection();
    m_table->sortByColumn(sorted < m_columns ? sorted : StyleListModel::NameColumn,
                          header->sortIndicatorOrder());
}

void StyleManagerView::SaveColumns() const
{
    if (m_columns == 0) return;
    QSettings().setValue(kColumnsKey.arg(m_columns), m_table->horizontalHeader()->saveState());
}
