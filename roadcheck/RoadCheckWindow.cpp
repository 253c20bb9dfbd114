#include "roadcheck/RoadCheckWindow.h"

#include <algorithm>

#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include "base/File.h"
#include "platform/arx/Frame.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/WindowPlace.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "roadcheck/ControlIds.h"
#include "roadcheck/DiagramView.h"
#include "roadcheck/FindingsPanel.h"
#include "roadcheck/LimitPage.h"
#include "roadcheck/OptionsPanel.h"
#include "roadcheck/SpecificationChoice.h"
#include "roadcheck/SpeedTableEditor.h"
#include "roads/ReportFile.h"
#include "roads/RoadFileReading.h"
#include "roads/SpeedStretches.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr int kLeastLines = 10; // of text, as high as the results are at least

enum Tab { FindingsTab, UncheckedTab, ProblemsTab };

const QString kTitle = QStringLiteral("道路检核");

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

// What stands beside each problem of the file in the list of them.
QString ProblemLine(const Problem& problem)
{
    const QString text = ToQString(problem.Text());
    return problem.severity == designspec::Severity::Error ? QObject::tr("错误: %1").arg(text)
                                                           : QObject::tr("提示: %1").arg(text);
}

// With how many there are besides; empty: none.
QString FirstError(const Problems& problems)
{
    QString first;
    int others = -1;
    for (const Problem& problem : problems) {
        if (problem.severity != designspec::Severity::Error) continue;
        if (++others == 0) first = ToQString(problem.Text());
    }
    return others > 0 ? QObject::tr("%1 (另有 %2 个错误, 见“读取”页)").arg(first).arg(others)
                      : first;
}

} // namespace

RoadCheckWindow::RoadCheckWindow()
{
    setWindowTitle(kTitle);
    // The host ends with its own window.
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* const layout = new QVBoxLayout(this);
    auto* const inputs = new QGridLayout;
    layout->addLayout(inputs);
    MakeInputs(inputs);
    MakeSpeedsAndOptions(inputs);
    m_message = new QLabel;
    SetControlId(m_message, ControlId::Message);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setFrameShape(QFrame::StyledPanel);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(m_message);
    layout->addWidget(MakeResults(), 1);
    layout->addWidget(MakeBottom());
    ConnectInputs();
    ConnectResults();
    ConnectJobs();
    MakeKeys();
    SetTabOrders();
    const int line = fontMetrics().height();
    resize(line * 76, line * 46);
    new WindowPlace(this, QStringLiteral("roadCheck/window"), acedGetAcadFrame());

    m_options->SetOptions(Settings().Options());
    m_specification->Reload();
    m_specification->Choose(Settings().Specification());
    ShowRunning();
    Show(nullptr, {});
}

// What the jobs still have to say is for nobody.
RoadCheckWindow::~RoadCheckWindow()
{
    for (BackgroundJob* const job : Jobs())
        job->disconnect(this);
}

CheckSettings RoadCheckWindow::Settings()
{
    return CheckSettings(ToQString(VMRDPub::GetCurPrjPath()));
}

// Its parts

void RoadCheckWindow::MakeInputs(QGridLayout* layout)
{
    m_file = new QLineEdit;
    SetControlId(m_file, ControlId::File);
    m_browse = new QPushButton(tr("浏览(&B)…"));
    SetControlId(m_browse, ControlId::Browse);
    m_alignment = new QComboBox;
    SetControlId(m_alignment, ControlId::Alignment);
    m_alignment->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_specification = new SpecificationChoice;
    SetControlId(m_specification, ControlId::Specification);
    m_checkAgain = new QPushButton(tr("重新检核(&R)"));
    m_checkAgain->setToolTip(tr("再读一次文件并检核 (F5)"));
    SetControlId(m_checkAgain, ControlId::CheckAgain);

    layout->addWidget(Caption(tr("文件(&F):"), m_file), 0, 0);
    layout->addWidget(m_file, 0, 1, 1, 3);
    layout->addWidget(m_browse, 0, 4);
    layout->addWidget(Caption(tr("路线(&L):"), m_alignment), 1, 0);
    layout->addWidget(m_alignment, 1, 1);
    layout->addWidget(Caption(tr("设计规范(&S):"), m_specification), 1, 2);
    layout->addWidget(m_specification, 1, 3);
    layout->addWidget(m_checkAgain, 1, 4);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
}

void RoadCheckWindow::MakeSpeedsAndOptions(QGridLayout* layout)
{
    m_speeds = new SpeedTableEditor;
    SetControlId(m_speeds, ControlId::Speeds);
    // As high as the options: what is below needs the room on small screens.
    m_speeds->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    m_options = new OptionsPanel;
    layout->addWidget(Caption(tr("设计车速(&V):"), m_speeds), 2, 0, Qt::AlignTop);
    layout->addWidget(m_speeds, 2, 1);
    layout->addWidget(m_options, 2, 2, 1, 3);
}

QWidget* RoadCheckWindow::MakeResults()
{
    m_diagrams = new DiagramView;
    SetControlId(m_diagrams, ControlId::Diagrams);
    m_diagrams->setMinimumHeight(fontMetrics().height() * kLeastLines);
    auto* const results = new QSplitter;
    results->addWidget(MakeTabs());
    results->addWidget(m_diagrams);
    results->setSizes({6000, 5000}); // as they are to one another
    results->setChildrenCollapsible(false);
    return results;
}

QWidget* RoadCheckWindow::MakeTabs()
{
    m_tabs = new QTabWidget;
    SetControlId(m_tabs, ControlId::Tabs);
    m_findings = new FindingsPanel;
    m_problems = new QPlainTextEdit;
    SetControlId(m_problems, ControlId::Problems);
    m_problems->setReadOnly(true);
    m_problems->setTabChangesFocus(true);
    m_tabs->addTab(m_findings, {});
    m_tabs->addTab(MakeUncheckedTable(m_uncheckedModel), {});
    m_tabs->addTab(m_problems, {});
    return m_tabs;
}

QWidget* RoadCheckWindow::MakeBottom()
{
    m_status = new QLabel;
    SetControlId(m_status, ControlId::Status);
    m_status->setTextFormat(Qt::PlainText);
    m_progress = new QProgressBar;
    SetControlId(m_progress, ControlId::Progress);
    m_progress->setRange(0, 0); // how long a file is says little about how long it takes
    m_cancel = new QPushButton(tr("取消(&Q)"));
    SetControlId(m_cancel, ControlId::Cancel);
    m_exportReport = new QPushButton(tr("导出报告(&E)…"));
    SetControlId(m_exportReport, ControlId::ExportReport);
    m_exportDiagrams = new QPushButton(tr("导出图(&P)…"));
    SetControlId(m_exportDiagrams, ControlId::ExportDiagrams);
    auto* const bottom = new QWidget;
    auto* const layout = new QHBoxLayout(bottom);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_status, 1);
    for (QWidget* const one :
         std::initializer_list<QWidget*>{m_progress, m_cancel, m_exportReport, m_exportDiagrams})
        layout->addWidget(one);
    return bottom;
}

void RoadCheckWindow::ConnectInputs()
{
    connect(m_file, &QLineEdit::returnPressed, this, [this] { Open(m_file->text()); });
    connect(m_browse, &QPushButton::clicked, this, &RoadCheckWindow::Browse);
    connect(m_alignment, &QComboBox::activated, this, &RoadCheckWindow::ChooseAlignment);
    connect(m_specification, &SpecificationChoice::Changed, this, &RoadCheckWindow::Check);
    connect(m_specification, &QComboBox::activated, this,
            [this] { Settings().SetSpecification(m_specification->Chosen()); });
    connect(m_speeds, &SpeedTableEditor::Changed, this, [this] {
        if (const Alignment* const road = Road())
            Settings().SetSpeeds(m_path, ToQString(road->name), m_speeds->Text());
        Check();
    });
    connect(m_options, &OptionsPanel::Changed, this, [this] {
        Settings().SetOptions(m_options->Options());
        Check();
    });
    connect(m_checkAgain, &QPushButton::clicked, this, &RoadCheckWindow::CheckAgain);
    connect(&m_watch, &FileWatch::Changed, this, &RoadCheckWindow::Read);
}

// What is selected in the table is in the diagrams, and the other way round.
void RoadCheckWindow::ConnectResults()
{
    connect(m_findings, &FindingsPanel::Activated, this, &RoadCheckWindow::ShowLimit);
    connect(m_findings, &FindingsPanel::SelectionChanged, m_diagrams, &DiagramView::SelectFinding);
    connect(m_findings, &FindingsPanel::ShownChanged, this,
            [this] { m_diagrams->SetShownFindings(m_findings->Shown()); });
    connect(m_diagrams, &DiagramView::FindingClicked, this, [this](int finding) {
        m_tabs->setCurrentIndex(FindingsTab);
        m_findings->Select(finding);
    });
}

void RoadCheckWindow::ConnectJobs()
{
    for (BackgroundJob* const job : Jobs())
        connect(job, &BackgroundJob::RunningChanged, this, &RoadCheckWindow::ShowRunning);
    connect(m_cancel, &QPushButton::clicked, this, &RoadCheckWindow::Cancel);
    connect(m_exportReport, &QPushButton::clicked, this, &RoadCheckWindow::ExportReport);
    connect(m_exportDiagrams, &QPushButton::clicked, this, &RoadCheckWindow::ExportDiagrams);
}

void RoadCheckWindow::MakeKeys()
{
    new QShortcut(QKeySequence::Refresh, this, this, &RoadCheckWindow::CheckAgain);
    new QShortcut(QKeySequence::Open, this, this, &RoadCheckWindow::Browse);
    m_escape = new QShortcut(Qt::Key_Escape, this, this, &RoadCheckWindow::Cancel);
}

// From top to bottom, as far as parts do not have an order of their own.
void RoadCheckWindow::SetTabOrders()
{
    QWidget* before = m_file;
    for (QWidget* const next : std::initializer_list<QWidget*>{
             m_browse, m_alignment, m_specification, m_checkAgain, m_speeds}) {
        setTabOrder(before, next);
        before = next;
    }
}

// Reading and checking

void RoadCheckWindow::Browse()
{
    QFileDialog asking(this, tr("选择道路文件"), QFileInfo(m_path).path(),
                       tr("LandXML (*.xml *.landxml);;所有文件 (*)"));
    asking.setFileMode(QFileDialog::ExistingFile);
    if (asking.exec() == QDialog::Accepted) Open(asking.selectedFiles().value(0));
}

void RoadCheckWindow::Open(const QString& file)
{
    if (file.trimmed().isEmpty()) return;
    m_path = QFileInfo(file.trimmed()).absoluteFilePath();
    m_file->setText(m_path);
    setWindowTitle(tr("%1 — %2").arg(kTitle, QFileInfo(m_path).fileName()));
    m_read = nullptr;
    m_alignment->clear();
    m_watch.Watch(m_path);
    Show(nullptr, {});
    Read();
}

void RoadCheckWindow::CheckAgain()
{
    m_specification->Reload();
    Read();
}

void RoadCheckWindow::Read()
{
    if (m_path.isEmpty()) return;
    m_checking.Cancel();
    const auto read = std::make_shared<RoadFile>();
    m_reading.Start([read, path = FromQString(m_path)](
                        const std::atomic<bool>& cancel) { *read = ReadRoadFile(path, &cancel); },
                    [this, read](const std::wstring& failure) { TakeFile(read, failure); });
}

void RoadCheckWindow::TakeFile(const std::shared_ptr<RoadFile>& read, const std::wstring& failure)
{
    if (!failure.empty()) return Show(nullptr, failure);
    m_read = read;
    FillAlignments();
    ChooseAlignment();
}

// The one that was shown stays.
void RoadCheckWindow::FillAlignments()
{
    const QString shown = m_alignment->currentData().toString();
    m_alignment->clear();
    for (const Alignment& road : m_read->alignments)
        m_alignment->addItem(tr("%1 (%2 ~ %3)")
                                 .arg(ToShown(road.name), ToQString(road.stations.Text(0)),
                                      ToQString(road.stations.Text(road.length))),
                             ToQString(road.name));
    m_alignment->setCurrentIndex(std::max(0, m_alignment->findData(shown)));
}

const Alignment* RoadCheckWindow::Road() const
{
    const auto index = static_cast<size_t>(m_alignment->currentIndex());
    return m_read && index < m_read->alignments.size() ? &m_read->alignments[index] : nullptr;
}

void RoadCheckWindow::ChooseAlignment()
{
    if (const Alignment* const road = Road())
        m_speeds->SetRoad(*road, Settings().Speeds(m_path, ToQString(road->name)));
    Check();
}

// While the file is read there is nothing to check: that follows.
void RoadCheckWindow::Check()
{
    m_checking.Cancel();
    if (m_reading.IsRunning()) return;
    const auto& specification = m_specification->Specification();
    if (specification) m_options->Offer(*specification);
    const Alignment* const road = Road();
    if (!road || !specification || !m_speeds->Problem().isEmpty()) return Show(nullptr, {});

    const auto result = std::make_shared<CheckResult>();
    result->specification = *specification;
    result->options = m_options->Options();
    result->options.speeds = m_speeds->Choices();
    m_checking.Start(
        [result, read = m_read, road](const std::atomic<bool>&) {
            Alignment own = *road;
            // The table shows every speed that holds.
            if (!result->options.speeds.empty()) own.speeds.clear();
            result->road = std::make_shared<const CheckedRoad>(
                CheckRoad(std::move(own), result->specification, result->options));
            if (result->road->hasSpeed)
                result->diagrams = DiagramsOf(result->road->road, result->specification,
                                              result->options, result->road->report);
        },
        [this, result](const std::wstring& failure) {
            Show(failure.empty() ? result : nullptr, failure);
        });
}

void RoadCheckWindow::Show(const std::shared_ptr<const CheckResult>& result,
                           const std::wstring& failure)
{
    m_result = result;
    m_failure = failure;
    const std::shared_ptr<const CheckedRoad> road = result ? result->road : nullptr;
    if (road && road->hasSpeed)
        m_diagrams->Show(road->road, result->diagrams, road->report.findings);
    else
        m_diagrams->Clear();
    m_findings->Show(road);
    m_uncheckedModel.Show(road);
    for (QPushButton* const button : {m_exportReport, m_exportDiagrams})
        button->setEnabled(road && road->hasSpeed);
    UpdateMessage();
    UpdateCounts();
}

bool RoadCheckWindow::IsRunning()
{
    const auto jobs = Jobs();
    return std::any_of(jobs.begin(), jobs.end(),
                       [](const BackgroundJob* job) { return job->IsRunning(); });
}

void RoadCheckWindow::Cancel()
{
    if (!IsRunning()) return;
    for (BackgroundJob* const job : Jobs())
        job->Cancel();
    m_status->setText(tr("已取消。按 F5 重新检核"));
}

void RoadCheckWindow::ShowRunning()
{
    const bool isRunning = IsRunning();
    m_progress->setVisible(isRunning);
    m_cancel->setVisible(isRunning);
    m_escape->setEnabled(isRunning);
}

// What is told

// Why there is nothing to see, or not all.
QString RoadCheckWindow::ProblemText() const
{
    if (!m_failure.empty()) return tr("没有检核: %1").arg(ToQString(m_failure));
    if (m_path.isEmpty()) return tr("请选择道路文件 (LandXML), 或把它拖到主机窗口上");
    if (!m_read) return {};
    if (QString error = FirstError(m_read->problems); !error.isEmpty()) return error;
    if (!m_specification->Specification()) return tr("项目中没有设计规范, 无法检核");
    if (!m_speeds->Problem().isEmpty()) return m_speeds->Problem();
    if (m_result && !m_result->road->hasSpeed)
        return tr("没有设计车速, 无法检核。请在上方的“设计车速”表中输入车速 (Alt+V); "
                  "桩号空着表示全线");
    return {};
}

void RoadCheckWindow::UpdateMessage()
{
    const QString text = ProblemText();
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
}

void RoadCheckWindow::UpdateCounts()
{
    QStringList problems;
    if (m_read)
        for (const Problem& problem : m_read->problems)
            problems << ProblemLine(problem);
    m_problems->setPlainText(problems.join(u'\n'));
    const int unchecked = m_uncheckedModel.rowCount();
    m_tabs->setTabText(FindingsTab, tr("结果 (%1)").arg(m_findings->Findings().size()));
    m_tabs->setTabText(UncheckedTab, tr("未检核 (%1)").arg(unchecked));
    m_tabs->setTabText(ProblemsTab, tr("读取 (%1)").arg(problems.size()));
    if (!m_result) return m_status->clear();
    const FindingCounts counts = CountFindings(m_findings->Findings());
    m_status->setText(tr("错误 %1, 警告 %2, 提示 %3, 未检核 %4")
                          .arg(counts.errors)
                          .arg(counts.warnings)
                          .arg(counts.notes)
                          .arg(unchecked));
}

void RoadCheckWindow::ShowLimit(int finding)
{
    if (finding < 0 || !m_result) return;
    const std::wstring criterion = m_findings->Findings()[static_cast<size_t>(finding)].criterion;
    const QString problem = ShowLimitPage(m_result->specification.Name(), criterion);
    if (!problem.isEmpty()) m_status->setText(problem);
}

// Export

// Filters with one ending each; the file gets that of the chosen one unless its name has another.
QString RoadCheckWindow::AskFileToSave(const QString& title, const QStringList& filters) const
{
    const auto endingOf = [](const QString& filter) {
        return filter.section(QStringLiteral("*."), 1).chopped(1);
    };
    const QFileInfo file(m_path);
    QFileDialog asking(window(), title, file.path(), filters.join(QStringLiteral(";;")));
    asking.setAcceptMode(QFileDialog::AcceptSave);
    asking.setDefaultSuffix(endingOf(filters.front()));
    asking.selectFile(file.completeBaseName());
    connect(&asking, &QFileDialog::filterSelected, &asking,
            [&](const QString& filter) { asking.setDefaultSuffix(endingOf(filter)); });
    return asking.exec() == QDialog::Accepted ? asking.selectedFiles().value(0) : QString();
}

void RoadCheckWindow::ExportReport()
{
    const auto result = m_result;
    const QString path = AskFileToSave(
        tr("导出报告"), {tr("网页 (*.html)"), tr("表格 (*.csv)"), tr("JSON (*.json)")});
    if (path.isEmpty() || !result) return;
    const CString file = FromQString(path);
    const WriteReport write = ReportOf(file);
    if (!write) {
        MessageBox(this, L"报告的扩展名必须是 .html、.csv 或 .json!", L"提示", MB_ICONINFORMATION);
        return;
    }
    const auto problems = std::make_shared<Problems>();
    m_export.Start(
        [=, source = FromQString(m_path), read = m_read](const std::atomic<bool>& cancel) {
            const std::string text = write({{source, read->problems, {*result->road}}},
                                           result->specification, result->options);
            if (!cancel) WriteWholeFile(file, text, *problems);
        },
        [this, problems, path](const std::wstring& failure) {
            CString cause = failure;
            for (const Problem& problem : *problems)
                if (problem.severity == designspec::Severity::Error) cause = problem.Text();
            if (cause.empty())
                m_status->setText(tr("报告已写入: %1").arg(path));
            else
                MessageBox(this, L"报告没有写入。\n\n" + cause, L"提示", MB_ICONERROR);
        });
}

void RoadCheckWindow::ExportDiagrams()
{
    const QString path = AskFileToSave(tr("导出图"), {tr("图片 (*.png)"), tr("矢量图 (*.svg)")});
    if (path.isEmpty()) return;
    if (m_diagrams->SavePicture(path))
        m_status->setText(tr("图已写入: %1").arg(path));
    else
        MessageBox(this, L"图没有写入: " + FromQString(path), L"提示", MB_ICONERROR);
}

} // namespace roadcheck
