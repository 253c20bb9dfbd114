#include "host/InstalledFolders.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString FromProgram(const QString& way)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' + way);
}

} // namespace

QString ModuleFolder()
{
    return FromProgram(QStringLiteral(MODULE_FOLDER));
}

QString GuideFolder()
{
    return FromProgram(QStringLiteral(GUIDE_FOLDER));
}
