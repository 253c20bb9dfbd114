#include "host/ProjectMenu.h"

#include <QDir>

#include "host/Icons.h"
#include "host/ProjectFolders.h"
#include "platform/mfc/FileChoice.h"

using namespace designspec;

ProjectMenu::ProjectMenu(QWidget* window)
    : QMenu(tr("项目(&P)"), window),
      m_new(addAction(tr("新建项目(&N)…"), QKeySequence(tr("Ctrl+Shift+O")), this,
                      &ProjectMenu::AskNew)),
      m_open(addAction(tr("打开项目(&O)…"), QKeySequence::Open, this, &ProjectMenu::AskOpen)),
      m_recent(addMenu(tr("最近的项目(&R)")))
{
    addSeparator();
    addAction(tr("退出(&X)"), QKeySequence(tr("Ctrl+Q")), window, &QWidget::close);
    connect(this, &QMenu::aboutToShow, this, &ProjectMenu::FillRecent);
    RenewIcons();
}

void ProjectMenu::RenewIcons()
{
    m_new->setIcon(HostIcon("project-new"));
    m_open->setIcon(HostIcon("project-open"));
}

QString ProjectMenu::StartFolder() const
{
    const QString last = RecentProjects().List().value(0);
    return last.isEmpty() ? QDir::homePath() : QFileInfo(last).path();
}

void ProjectMenu::AskNew()
{
    const QString folder = AskFolder(parentWidget(), tr("新建项目: 选择文件夹"), StartFolder());
    if (!folder.isEmpty()) emit New(folder);
}

void ProjectMenu::AskOpen()
{
    const QString folder = AskFolder(parentWidget(), tr("打开项目"), StartFolder());
    if (!folder.isEmpty()) emit Open(folder);
}

void ProjectMenu::FillRecent()
{
    m_recent->clear();
    m_recent->setEnabled(!RecentProjects().List().isEmpty());
    int number = 0;
    for (const QString& folder : RecentProjects().List()) {
        const QString shown = QDir::toNativeSeparators(folder).replace(u'&', QStringLiteral("&&"));
        m_recent->addAction(tr("&%1  %2").arg(++number % 10).arg(shown), this,
                            [this, folder] { emit Open(folder); });
    }
}
