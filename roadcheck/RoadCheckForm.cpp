#include "roadcheck/RoadCheckForm.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include "roadcheck/ControlIds.h"
#include "roadcheck/DiagramView.h"
#include "roadcheck/FindingsPanel.h"
#include "roadcheck/OptionsPanel.h"
#include "roadcheck/SpecificationChoice.h"
#include "roadcheck/SpeedTableEditor.h"
#include "roadcheck/UncheckedModel.h"

namespace roadcheck {

namespace {

constexpr int kLeastLines = 10; // of text, as high as the results are at least

QLabel* Caption(const QString& text, QWidget* buddy)
{
    auto* const label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QTableView* MakeUncheckedTable(UncheckedModel& model)
{
    auto* const table = new QTableView;
    SetControlId(table, ControlId::Unchecked);
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setColumnWidth(UncheckedModel::RuleTitle, table->fontMetrics().height() * 10);
    return table;
}

} // namespace

RoadCheckForm::RoadCheckForm(QWidget& window, UncheckedModel& unchecked)
{
    auto* const layout = new QVBoxLayout(&window);
    auto* const inputs = new QGridLayout;
    layout->addLayout(inputs);
    MakeInputs(inputs);
    MakeSpeedsAndOptions(inputs);
    message = new QLabel;
    SetControlId(message, ControlId::Message);
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    message->setFrameShape(QFrame::StyledPanel);
    message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(message);
    layout->addWidget(MakeResults(unchecked), 1);
    layout->addWidget(MakeBottom());
    SetTabOrders();
}

void RoadCheckForm::MakeInputs(QGridLayout* layout)
{
    file = new QLineEdit;
    SetControlId(file, ControlId::File);
    browse = new QPushButton(QObject::tr("浏览(&B)…"));
    SetControlId(browse, ControlId::Browse);
    alignment = new QComboBox;
    SetControlId(alignment, ControlId::Alignment);
    alignment->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    specification = new SpecificationChoice;
    SetControlId(specification, ControlId::Specification);
    checkAgain = new QPushButton(QObject::tr("重新检核(&R)"));
    checkAgain->setToolTip(QObject::tr("再读一次文件并检核 (F5)"));
    SetControlId(checkAgain, ControlId::CheckAgain);

    layout->addWidget(Caption(QObject::tr("文件(&F):"), file), 0, 0);
    layout->addWidget(file, 0, 1, 1, 3);
    layout->addWidget(browse, 0, 4);
    layout->addWidget(Caption(QObject::tr("路线(&L):"), alignment), 1, 0);
    layout->addWidget(alignment, 1, 1);
    layout->addWidget(Caption(QObject::tr("设计规范(&S):"), specification), 1, 2);
    layout->addWidget(specification, 1, 3);
    layout->addWidget(checkAgain, 1, 4);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
}

void RoadCheckForm::MakeSpeedsAndOptions(QGridLayout* layout)
{
    speeds = new SpeedTableEditor;
    SetControlId(speeds, ControlId::Speeds);
    // As high as the options: what is below needs the room on small screens.
    speeds->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    options = new OptionsPanel;
    layout->addWidget(Caption(QObject::tr("设计车速(&V):"), speeds), 2, 0, Qt::AlignTop);
    layout->addWidget(speeds, 2, 1);
    layout->addWidget(options, 2, 2, 1, 3);
}

QWidget* RoadCheckForm::MakeResults(UncheckedModel& unchecked)
{
    diagrams = new DiagramView;
    SetControlId(diagrams, ControlId::Diagrams);
    diagrams->setMinimumHeight(diagrams->fontMetrics().height() * kLeastLines);
    auto* const results = new QSplitter;
    results->addWidget(MakeTabs(unchecked));
    results->addWidget(diagrams);
    results->setSizes({6000, 5000}); // as they are to one another
    results->setChildrenCollapsible(false);
    return results;
}

QWidget* RoadCheckForm::MakeTabs(UncheckedModel& unchecked)
{
    tabs = new QTabWidget;
    SetControlId(tabs, ControlId::Tabs);
    findings = new FindingsPanel;
    problems = new QPlainTextEdit;
    SetControlId(problems, ControlId::Problems);
    problems->setReadOnly(true);
    problems->setTabChangesFocus(true);
    tabs->addTab(findings, {});
    tabs->addTab(MakeUncheckedTable(unchecked), {});
    tabs->addTab(problems, {});
    return tabs;
}

QWidget* RoadCheckForm::MakeBottom()
{
    status = new QLabel;
    SetControlId(status, ControlId::Status);
    status->setTextFormat(Qt::PlainText);
    progress = new QProgressBar;
    SetControlId(progress, ControlId::Progress);
    progress->setRange(0, 0); // how long a file is says little about how long it takes
    cancel = new QPushButton(QObject::tr("取消(&Q)"));
    SetControlId(cancel, ControlId::Cancel);
    exportReport = new QPushButton(QObject::tr("导出报告(&E)…"));
    SetControlId(exportReport, ControlId::ExportReport);
    exportDiagrams = new QPushButton(QObject::tr("导出图(&P)…"));
    SetControlId(exportDiagrams, ControlId::ExportDiagrams);
    auto* const bottom = new QWidget;
    auto* const layout = new QHBoxLayout(bottom);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(status, 1);
    for (QWidget* const one :
         std::initializer_list<QWidget*>{progress, cancel, exportReport, exportDiagrams})
        layout->addWidget(one);
    return bottom;
}

// From top to bottom, as far as parts do not have an order of their own.
void RoadCheckForm::SetTabOrders()
{
    QWidget* before = file;
    for (QWidget* const next :
         std::initializer_list<QWidget*>{browse, alignment, specification, checkAgain, speeds}) {
        QWidget::setTabOrder(before, next);
        before = next;
    }
}

} // namespace roadcheck
