// The host's main window: holds its parts together, and nothing more.
#pragma once

#include <QMainWindow>

#include "host/Guide.h"
#include "host/HostModules.h"
#include "host/LibraryWatcher.h"
#include "host/TraceLog.h"

class MessageBar;
class ProjectMenu;
class QDockWidget;
class StyleManagerView;

class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    HostWindow();
    ~HostWindow() override;

    // Makes the folder the current project, reads its libraries and remembers it. False, with a
    // message, when it is no project.
    bool OpenProject(const QString& folder);
    bool NewProject(const QString& folder);
    // Loads the modules of the start list.
    void LoadModules();
    // Each goes to the command of a module that opens such files; styles are offered for import as
    // soon as control is back at the event loop, or once a project is open. A message when nothing
    // opens such a file.
    void OpenFiles(const QStringList& paths);

    Guide& Help() { return *m_guide; }
    StyleManagerView& Styles() { return *m_styles; }
    void ShowTrace();
    void ShowModules();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    static bool IsOwnFile(const CString& file);
    QWidget* MakeCenter();
    QDockWidget* MakePanel(const QString& title, const QString& name, QWidget* panel,
                           Qt::DockWidgetArea area);
    void MakePanels();
    void MakeMenus();
    void MakeToolBar();
    void Connect();

    void ShowNoProject();
    void OfferImport();
    void ShowError(const TraceLine& line);
    void ShowFailure(const QString& text);
    void BeginCommand();
    void ShowChange();
    void Reload();

    TraceLog m_log;
    HostModules m_modules;
    bool m_hasProject = false;
    QStringList m_toImport; // files that wait to be offered
    LibraryWatcher m_watcher{&HostWindow::IsOwnFile};
    bool m_changeUntold = false; // what the watcher has seen waits to be told
    int m_errors = 0;            // since the error bar was shown
    bool m_errorsLast = false;   // they are true until the files are read anew
    QString m_cause;             // the last error since a command was begun

    Guide* m_guide = nullptr;
    StyleManagerView* m_styles = nullptr;
    MessageBar* m_errorBar = nullptr;
    MessageBar* m_changeBar = nullptr;
    MessageBar* m_noteBar = nullptr;
    ProjectMenu* m_projects = nullptr;
    QDockWidget* m_modulePanel = nullptr;
    QDockWidget* m_tracePanel = nullptr;
};
