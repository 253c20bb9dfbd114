#include "roadcheck/RoadCheckWindow.h"

#include <algorithm>

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

#include "base/File.h"
#include "platform/arx/Frame.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/WindowPlace.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
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

const QString kTitle = QStringLiteral("道路检核");

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
    SetGuideSection(this, L"道路检核");
    // The host ends with its own window.
    setAttribute(Qt::WA_QuitOnClose, false);
    ConnectInputs();
    ConnectResults();
    ConnectJobs();
    MakeKeys();
    const int line = fontMetrics().height();
    resize(line * 76, line * 46);
    new WindowPlace(this, QStringLiteral("roadCheck/window"), acedGetAcadFrame());

    m_form.options->SetOptions(Settings().Options());
    m_form.specification->Reload();
    m_form.specification->Choose(Settings().Specification());
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

// What its controls do

void RoadCheckWindow::ConnectInputs()
{
    connect(m_form.file, &QLineEdit::returnPressed, this, [this] { Open(m_form.file->text()); });
    connect(m_form.browse, &QPushButton::clicked, this, &RoadCheckWindow::Browse);
    connect(m_form.alignment, &QComboBox::activated, this, &RoadCheckWindow::ChooseAlignment);
    connect(m_form.specification, &SpecificationChoice::Changed, this, &RoadCheckWindow::Check);
    connect(m_form.specification, &QComboBox::activated, this,
            [this] { Settings().SetSpecification(m_form.specification->Chosen()); });
    connect(m_form.speeds, &SpeedTableEditor::Changed, this, [this] {
        if (const Alignment* const road = Road())
            Settings().SetSpeeds(m_path, ToQString(road->name), m_form.speeds->Text());
        Check();
    });
    connect(m_form.options, &OptionsPanel::Changed, this, [this] {
        Settings().SetOptions(m_form.options->Options());
        Check();
    });
    connect(m_form.checkAgain, &QPushButton::clicked, this, &RoadCheckWindow::CheckAgain);
    connect(&m_watch, &FileWatch::Changed, this, &RoadCheckWindow::Read);
}

// What is selected in the table is in the diagrams, and the other way round.
void RoadCheckWindow::ConnectResults()
{
    connect(m_form.findings, &FindingsPanel::Activated, this, &RoadCheckWindow::ShowLimit);
    connect(m_form.findings, &FindingsPanel::SelectionChanged, m_form.diagrams,
            &DiagramView::SelectFinding);
    connect(m_form.findings, &FindingsPanel::ShownChanged, this,
            [this] { m_form.diagrams->SetShownFindings(m_form.findings->Shown()); });
    connect(m_form.diagrams, &DiagramView::FindingClicked, this, [this](int finding) {
        m_form.tabs->setCurrentIndex(RoadCheckForm::FindingsTab);
        m_form.findings->Select(finding);
    });
}

void RoadCheckWindow::ConnectJobs()
{
    for (BackgroundJob* const job : Jobs())
        connect(job, &BackgroundJob::RunningChanged, this, &RoadCheckWindow::ShowRunning);
    connect(m_form.cancel, &QPushButton::clicked, this, &RoadCheckWindow::Cancel);
    connect(m_form.exportReport, &QPushButton::clicked, this, &RoadCheckWindow::ExportReport);
    connect(m_form.exportDiagrams, &QPushButton::clicked, this, &RoadCheckWindow::ExportDiagrams);
}

void RoadCheckWindow::MakeKeys()
{
    new QShortcut(QKeySequence::Refresh, this, this, &RoadCheckWindow::CheckAgain);
    new QShortcut(QKeySequence::Open, this, this, &RoadCheckWindow::Browse);
    m_escape = new QShortcut(Qt::Key_Escape, this, this, &RoadCheckWindow::Cancel);
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
    m_form.file->setText(m_path);
    setWindowTitle(tr("%1 — %2").arg(kTitle, QFileInfo(m_path).fileName()));
    m_read = nullptr;
    m_form.alignment->clear();
    m_watch.Watch(m_path);
    Show(nullptr, {});
    Read();
}

void RoadCheckWindow::CheckAgain()
{
    m_form.specification->Reload();
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
    const QString shown = m_form.alignment->currentData().toString();
    m_form.alignment->clear();
    for (const Alignment& road : m_read->alignments)
        m_form.alignment->addItem(tr("%1 (%2 ~ %3)")
                                      .arg(ToShown(road.name), ToQString(road.stations.Text(0)),
                                           ToQString(road.stations.Text(road.length))),
                                  ToQString(road.name));
    m_form.alignment->setCurrentIndex(std::max(0, m_form.alignment->findData(shown)));
}

const Alignment* RoadCheckWindow::Road() const
{
    const auto index = static_cast<size_t>(m_form.alignment->currentIndex());
    return m_read && index < m_read->alignments.size() ? &m_read->alignments[index] : nullptr;
}

void RoadCheckWindow::ChooseAlignment()
{
    if (const Alignment* const road = Road())
        m_form.speeds->SetRoad(*road, Settings().Speeds(m_path, ToQString(road->name)));
    Check();
}

// While the file is read there is nothing to check: that follows.
void RoadCheckWindow::Check()
{
    m_checking.Cancel();
    if (m_reading.IsRunning()) return;
    const auto& specification = m_form.specification->Specification();
    if (specification) m_form.options->Offer(*specification);
    const Alignment* const road = Road();
    if (!road || !specification || !m_form.speeds->Problem().isEmpty()) return Show(nullptr, {});

    const auto result = std::make_shared<CheckResult>();
    result->specification = *specification;
    result->options = m_form.options->Options();
    result->options.speeds = m_form.speeds->Choices();
    m_checking.Start(
        [result, read = m_read, road](const std::atomic<bool>& cancel) {
            Alignment own = *road;
            // The table shows every speed that holds.
            if (!result->options.speeds.empty()) own.speeds.clear();
            result->road = std::make_shared<const CheckedRoad>(
                CheckRoad(std::move(own), result->specification, result->options, &cancel));
            if (result->road->hasSpeed && !cancel)
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
        m_form.diagrams->Show(road->road, result->diagrams, road->report.findings);
    else
        m_form.diagrams->Clear();
    m_form.findings->Show(road);
    m_uncheckedModel.Show(road);
    for (QPushButton* const button : {m_form.exportReport, m_form.exportDiagrams})
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
    m_form.status->setText(tr("已取消。按 F5 重新检核"));
}

void RoadCheckWindow::ShowRunning()
{
    const bool isRunning = IsRunning();
    m_form.progress->setVisible(isRunning);
    m_form.cancel->setVisible(isRunning);
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
    if (!m_form.specification->Specification()) return tr("项目中没有设计规范, 无法检核");
    if (!m_form.speeds->Problem().isEmpty()) return m_form.speeds->Problem();
    if (m_result && !m_result->road->hasSpeed)
        return tr("没有设计车速, 无法检核。请在上方的“设计车速”表中输入车速 (Alt+V); "
                  "桩号空着表示全线");
    return {};
}

void RoadCheckWindow::UpdateMessage()
{
    const QString text = ProblemText();
    m_form.message->setText(text);
    m_form.message->setVisible(!text.isEmpty());
}

void RoadCheckWindow::UpdateCounts()
{
    QStringList problems;
    if (m_read)
        for (const Problem& problem : m_read->problems)
            problems << ProblemLine(problem);
    m_form.problems->setPlainText(problems.join(u'\n'));
    const int unchecked = m_uncheckedModel.rowCount();
    m_form.tabs->setTabText(RoadCheckForm::FindingsTab,
                            tr("结果 (%1)").arg(m_form.findings->Findings().size()));
    m_form.tabs->setTabText(RoadCheckForm::UncheckedTab, tr("未检核 (%1)").arg(unchecked));
    m_form.tabs->setTabText(RoadCheckForm::ProblemsTab, tr("读取 (%1)").arg(problems.size()));
    if (!m_result) return m_form.status->clear();
    const FindingCounts counts = CountFindings(m_form.findings->Findings());
    m_form.status->setText(tr("错误 %1, 警告 %2, 提示 %3, 未检核 %4")
                               .arg(counts.errors)
                               .arg(counts.warnings)
                               .arg(counts.notes)
                               .arg(unchecked));
}

void RoadCheckWindow::ShowLimit(int finding)
{
    if (finding < 0 || !m_result) return;
    const std::wstring criterion =
        m_form.findings->Findings()[static_cast<size_t>(finding)].criterion;
    const QString problem = ShowLimitPage(m_result->specification.Name(), criterion);
    if (!problem.isEmpty()) m_form.status->setText(problem);
}

// Export

// Filters with one ending each; the file gets that of the chosen one unless its name has another.
QString RoadCheckWindow::AskFileToSave(const QString& title, const QStringList& filters) const
{
    const QFileInfo file(m_path);
    QFileDialog asking(window(), title, file.path(), filters.join(QStringLiteral(";;")));
    asking.setAcceptMode(QFileDialog::AcceptSave);
    TakeEndingOfFilter(asking);
    asking.selectFile(file.completeBaseName());
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
                m_form.status->setText(tr("报告已写入: %1").arg(path));
            else
                MessageBox(this, L"报告没有写入。\n\n" + cause, L"提示", MB_ICONERROR);
        });
}

void RoadCheckWindow::ExportDiagrams()
{
    const QString path = AskFileToSave(tr("导出图"), {tr("图片 (*.png)"), tr("矢量图 (*.svg)")});
    if (path.isEmpty()) return;
    if (m_form.diagrams->SavePicture(path))
        m_form.status->setText(tr("图已写入: %1").arg(path));
    else
        MessageBox(this, L"图没有写入: " + FromQString(path), L"提示", MB_ICONERROR);
}

} // namespace roadcheck
