#include "host/TracePanel.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/ControlIds.h"
#include "host/TraceLog.h"

namespace {

QTableView* MakeTable(QAbstractItemModel* model)
{
    auto* table = new QTableView;
    SetControlId(table, ControlId::Trace);
    table->setModel(model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setWordWrap(false);
    table->setTextElideMode(Qt::ElideMiddle);
    table->verticalHeader()->hide();
    // Sizes that do not depend on the lines: measuring them all takes its time.
    const int line = table->fontMetrics().height();
    table->verticalHeader()->setDefaultSectionSize(line * 8 / 5);
    QHeaderView* header = table->horizontalHeader();
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setStretchLastSection(true);
    header->resizeSection(TraceLog::TimeColumn, line * 5);
    header->resizeSection(TraceLog::LevelColumn, line * 4);
    header->resizeSection(TraceLog::FileColumn, line * 22);
    header->resizeSection(TraceLog::LineColumn, line * 4);
    return table;
}

} // namespace

TracePanel::TracePanel(TraceLog& log, QWidget* parent)
    : QWidget(parent), m_shown(new QSortFilterProxyModel(this))
{
    m_shown->setSourceModel(&log);
    m_shown->setFilterRole(TraceLog::IsErrorRole);
    m_table = MakeTable(m_shown);

    auto* errorsOnly = new QCheckBox(tr("只看错误(&E)"));
    SetControlId(errorsOnly, ControlId::TraceErrorsOnly);
    connect(errorsOnly, &QCheckBox::toggled, this, &TracePanel::ShowErrorsOnly);
    auto* copy = new QPushButton(tr("复制(&C)"));
    SetControlId(copy, ControlId::TraceCopy);
    copy->setToolTip(tr("复制选中的行; 没有选中时复制全部"));
    connect(copy, &QPushButton::clicked, this, &TracePanel::Copy);

    auto* copyKey = new QAction(this);
    copyKey->setShortcut(QKeySequence::Copy);
    copyKey->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(copyKey, &QAction::triggered, this, &TracePanel::Copy);
    addAction(copyKey);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(errorsOnly);
    buttons->addStretch();
    buttons->addWidget(copy);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addLayout(buttons);
    connect(m_shown, &QAbstractItemModel::rowsInserted, m_table, &QTableView::scrollToBottom);
}

void TracePanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_table->scrollToBottom();
}

void TracePanel::ShowErrorsOnly(bool only)
{
    m_shown->setFilterFixedString(only ? QStringLiteral("true") : QString());
}

void TracePanel::Copy() const
{
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    QStringList lines;
    for (int row = 0; row < m_shown->rowCount(); ++row) {
        const QModelIndex start = m_shown->index(row, 0);
        if (!selected.isEmpty() && !selected.contains(start)) continue;
        QStringList cells;
        for (int column = 0; column < TraceLog::ColumnCount; ++column)
            cells << start.siblingAtColumn(column).data().toString();
        lines << cells.join(u'\t');
    }
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}
