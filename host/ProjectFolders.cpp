#include "host/ProjectFolders.h"

#include <QDir>
#include <QSettings>

#include "base/File.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDEnv/StyleFolder.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

const QString kKey = QStringLiteral("recentProjects");

QString LibraryFolder(const QString& folder)
{
    return QDir(folder).filePath(ToQString(kStylesFolder));
}

} // namespace

bool IsProject(const QString& folder)
{
    return !folder.isEmpty() && QFileInfo(LibraryFolder(folder)).isDir();
}

bool CreateProject(const QString& folder)
{
    Problems problems;
    const bool made =
        !folder.isEmpty() && CreateFolder(FromQString(LibraryFolder(folder)), problems);
    TraceProblems(problems);
    return made;
}

QStringList RecentProjects::List() const
{
    return QSettings().value(kKey).toStringList();
}

void RecentProjects::Add(const QString& folder)
{
    QStringList list = List();
    const QString path = QDir(folder).absolutePath();
    list.removeAll(path);
    list.prepend(path);
    QSettings().setValue(kKey, list.mid(0, kMost));
}

void RecentProjects::Remove(const QString& folder)
{
    QStringList list = List();
    list.removeAll(QDir(folder).absolutePath());
    QSettings().setValue(kKey, list);
}
