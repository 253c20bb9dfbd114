#include "host/HostWindow.h"

#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QToolBar>
#include <QVBoxLayout>

#include "base/File.h"
#include "base/NoCase.h"
#include "host/ControlIds.h"
#include "host/Icons.h"
#include "host/MessageBar.h"
#include "host/ModulePanel.h"
#include "host/ProjectFolders.h"
#include "host/ProjectMenu.h"
#include "host/StyleGroupTree.h"
#include "host/StyleManagerView.h"
#include "host/ToolMenu.h"
#include "host/TracePanel.h"
#include "platform/arx/Commands.h"
#include "platform/arx/Frame.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"
#include "platform/vmrd/VMRDEnv/Styles.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kStateKey = QStringLiteral("window/state");
// Not the application's display name: the window system would put that behind each title.
const QString kTitle = QStringLiteral("道路设计");
constexpr int kMostNames = 3; // of changed files, in a message

QString ShortList(const QStringList& names)
{
    const QString shown = names.mid(0, kMostNames).join(u'、');
    return names.size() <= kMostNames ? shown
                                      : QObject::tr("%1 等 %2 个").arg(shown).arg(names.size());
}

bool IsStyleFile(const QString& path)
{
    return EndsInNoCase(FromQString(path), kStyleFileEnding);
}

// Those of the files that are dragged which can be opened.
QStringList OpenableFiles(const QMimeData& dragged)
{
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        const QString file = url.toLocalFile();
        if (IsStyleFile(file) || CanOpenWithCommand(FromQString(file).c_str())) files << file;
    }
    return files;
}

} // namespace

HostWindow::HostWindow()
{
    SetFrame(this);
    SetGuideSection(this, L"样式管理器");
    m_guide = new Guide(this);
    setWindowTitle(kTitle);
    setAcceptDrops(true);
    setCentralWidget(MakeCenter());
    MakePanels();
    MakeToolBar();
    MakeMenus();
    Connect();
    ShowNoProject();
    const int line = fontMetrics().height();
    resize(
        QSize(line * 74, line * 38).boundedTo(screen()->availableSize() - QSize(line, line * 3)));
    const QSettings settings;
    restoreGeometry(settings.value(kGeometryKey).toByteArray());
    restoreState(settings.value(kStateKey).toByteArray());
}

HostWindow::~HostWindow()
{
    m_modules.UnloadAll();
}

QWidget* HostWindow::MakeCenter()
{
    m_errorBar = new MessageBar(MessageBar::Kind::Error, ControlId::ErrorBar);
    m_changeBar = new MessageBar(MessageBar::Kind::Change, ControlId::ChangeBar);
    m_noteBar = new MessageBar(MessageBar::Kind::Note, ControlId::NoteBar);
    m_styles = new StyleManagerView;
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->addWidget(m_styles, 1);
    // Below the list: a bar that comes must not move the rows under the mouse.
    for (MessageBar* bar : {m_errorBar, m_changeBar, m_noteBar})
        layout->addWidget(bar);
    return center;
}

QDockWidget* HostWindow::MakePanel(const QString& title, const QString& name, QWidget* panel,
                                   Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, this);
    SetGuideSection(dock, L"提示条、跟踪面板、模块面板");
    dock->setObjectName(name);
    dock->setWidget(panel);
    addDockWidget(area, dock);
    dock->hide();
    return dock;
}

void HostWindow::MakePanels()
{
    m_tracePanel = MakePanel(tr("跟踪"), QStringLiteral("trace"), new TracePanel(m_log),
                             Qt::BottomDockWidgetArea);
    m_modulePanel = MakePanel(tr("模块"), QStringLiteral("modules"), new ModulePanel(m_modules),
                              Qt::BottomDockWidgetArea);
    tabifyDockWidget(m_tracePanel, m_modulePanel);
}

void HostWindow::MakeToolBar()
{
    auto* bar = addToolBar(tr("样式"));
    SetControlId(bar, ControlId::ToolBar);
    bar->setObjectName(QStringLiteral("styles"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setMovable(false);
    m_styles->Actions().AddToToolBar(bar);
}

void HostWindow::MakeMenus()
{
    m_projects = new ProjectMenu(this);
    menuBar()->addMenu(m_projects);
    m_styles->Actions().AddTo(menuBar()->addMenu(tr("样式(&S)")));
    QMenu* const view = menuBar()->addMenu(tr("视图(&V)"));
    QAction* const modules = m_modulePanel->toggleViewAction();
    modules->setShortcut(QKeySequence(tr("Ctrl+M")));
    view->addAction(modules);
    QAction* const trace = m_tracePanel->toggleViewAction();
    trace->setShortcut(QKeySequence(tr("Ctrl+T")));
    view->addAction(trace);
    for (QDockWidget* panel : {m_modulePanel, m_tracePanel})
        connect(panel->toggleViewAction(), &QAction::triggered, panel, [panel](bool shown) {
            if (shown) panel->raise();
        });
    menuBar()->addMenu(new ToolMenu(this));
    // The key is the guide's own: it is one of every window.
    menuBar()->addMenu(tr("帮助(&H)"))->addAction(tr("使用指南(&G)\tF1"), this, [this] {
        m_guide->Show(GuideSectionOf(this));
    });
}

void HostWindow::Connect()
{
    connect(&m_log, &TraceLog::LineAdded, this, &HostWindow::ShowError);
    connect(&m_watcher, &LibraryWatcher::Changed, this, [this] {
        m_changeUntold = true;
        ShowChange();
    });
    connect(m_guide, &Guide::Missing, this,
            [this](const QString& file) { m_errorBar->Show(tr("找不到使用指南: %1").arg(file)); });
    connect(m_projects, &ProjectMenu::Open, this, &HostWindow::OpenProject);
    connect(m_projects, &ProjectMenu::New, this, &HostWindow::NewProject);
    connect(&m_styles->Commands(), &StyleCommands::Begun, this, &HostWindow::BeginCommand);
    connect(&m_styles->Commands(), &StyleCommands::ReloadWanted, this, &HostWindow::Reload);
    connect(&m_styles->Commands(), &StyleCommands::Note, this,
            [this](const QString& text) { m_noteBar->Show(text); });
    connect(&m_styles->Commands(), &StyleCommands::Undoable, this, [this](const QString& text) {
        m_noteBar->Show(text, tr("撤销(&U)"), [this] { m_styles->Commands().Undo(); });
    });
    connect(&m_styles->Commands(), &StyleCommands::Failed, this, &HostWindow::ShowFailure);
}

void HostWindow::ShowNoProject()
{
    m_styles->SetHint(tr("还没有打开项目。项目是含有“规范”文件夹的文件夹。"), tr("打开项目(&O)…"),
                      [this] { m_projects->AskOpen(); });
    if (!m_toImport.isEmpty())
        m_noteBar->Show(tr("打开或新建项目后导入: %1").arg(ShortList(m_toImport)));
}

bool HostWindow::OpenProject(const QString& folder)
{
    if (!IsProject(folder)) {
        RecentProjects().Remove(folder);
        m_errorBar->Show(tr("不是项目, 没有“规范”文件夹: %1").arg(folder), tr("在此新建项目(&W)"),
                         [this, folder] { NewProject(folder); });
        return false;
    }
    const QString path = QDir(folder).absolutePath();
    VMRDPub::SetCurPrjPath(FromQString(path));
    RecentProjects().Add(path);
    setWindowTitle(tr("%1 — %2").arg(QDir(path).dirName(), kTitle));
    m_styles->SetHint({});
    m_watcher.Watch(CurrentStylesFolder());
    Reload();
    m_styles->SelectOne();
    m_hasProject = true;
    OfferImport();
    return true;
}

bool HostWindow::NewProject(const QString& folder)
{
    return CreateProject(folder) && OpenProject(folder);
}

// What the bars said was about the files as they were.
void HostWindow::Reload()
{
    for (MessageBar* bar : {m_errorBar, m_changeBar, m_noteBar})
        bar->hide();
    m_watcher.Acknowledge();
    if (CPrjManager* const project = CPrjManager::GetInstance())
        project->GetStyleManager()->Refurbish();
    m_errorsLast = !m_errorBar->isHidden();
    m_changeUntold = true;
    ShowChange();
}

void HostWindow::LoadModules()
{
    m_modules.LoadAtStart();
    m_errorsLast = !m_errorBar->isHidden();
    m_styles->SelectOne();
}

void HostWindow::OpenFiles(const QStringList& paths)
{
    for (const QString& path : paths) {
        const QString file = QFileInfo(path).absoluteFilePath();
        if (CanOpenWithCommand(FromQString(file).c_str()))
            OpenWithCommand(FromQString(file).c_str());
        else if (IsStyleFile(file) && !m_styles->Groups().Editors().empty())
            m_toImport << file;
        else
            m_errorBar->Show(tr("没有已加载的模块能打开这种文件: %1").arg(path), tr("模块(&M)"),
                             [this] { ShowModules(); });
    }
    OfferImport();
}

// Not at once: whoever has dropped the files waits until they are taken.
void HostWindow::OfferImport()
{
    if (m_toImport.isEmpty()) return;
    if (!m_hasProject) return ShowNoProject();
    QMetaObject::invokeMethod(
        this, [this] { m_styles->Offer(std::exchange(m_toImport, {})); }, Qt::QueuedConnection);
}

// What was said of the command before has been read, or never will be.
void HostWindow::BeginCommand()
{
    m_cause.clear();
    m_noteBar->hide();
    if (!m_errorsLast) m_errorBar->hide();
}

bool HostWindow::IsOwnFile(const CString& file)
{
    CPrjManager* const project = CPrjManager::GetInstance();
    return project && project->GetStyleManager()->IsOwnFile(file);
}

void HostWindow::ShowError(const TraceLine& line)
{
    if (line.severity != TraceLevel::Error) return;
    m_errors = m_errorBar->isHidden() ? 1 : m_errors + 1;
    const QString text = ToQString(line.Text());
    m_cause = text;
    m_errorBar->Show(m_errors == 1 ? text : tr("%1\n(另有 %2 条)").arg(text).arg(m_errors - 1),
                     tr("详情(&D)"), [this] { ShowTrace(); });
}

// What failed was told to the trace before, with its cause; this says what it means.
void HostWindow::ShowFailure(const QString& text)
{
    const QString cause = m_cause.isEmpty() ? QString() : u'\n' + m_cause;
    m_errorBar->Show(text + cause, tr("详情(&D)"), [this] { ShowTrace(); });
    m_errorsLast = false;
}

void HostWindow::ShowTrace()
{
    m_tracePanel->show();
    m_tracePanel->raise();
}

void HostWindow::ShowModules()
{
    m_modulePanel->show();
    m_modulePanel->raise();
}

// Under an open dialog the list must stay what it is: the message waits until the dialog is gone.
void HostWindow::ShowChange()
{
    if (!m_changeUntold || QApplication::activeModalWidget()) return;
    m_changeUntold = false;
    const QStringList names = m_watcher.Differing();
    if (m_watcher.IsGone())
        m_changeBar->Show(tr("“规范”文件夹已不在原处: %1")
                              .arg(QString::fromStdString(NativePath(CurrentStylesFolder()))),
                          tr("打开项目(&O)…"), [this] { m_projects->AskOpen(); });
    else if (!names.isEmpty())
        m_changeBar->Show(tr("“规范”中的文件在外部有变化: %1").arg(ShortList(names)),
                          tr("重新加载(&R)"), [this] { Reload(); });
    else
        m_changeBar->hide();
}

bool HostWindow::event(QEvent* event)
{
    const bool done = QMainWindow::event(event);
    if (event->type() == QEvent::WindowUnblocked) ShowChange();
    return done;
}

// An open dialog is answered first.
void HostWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (QApplication::activeModalWidget() || OpenableFiles(*event->mimeData()).isEmpty()) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void HostWindow::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    OpenFiles(OpenableFiles(*event->mimeData()));
}

void HostWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_projects) m_projects->RenewIcons();
}

void HostWindow::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState());
    QMainWindow::closeEvent(event);
}
