// host_start [PROJECT COUNT]: starts as the desktop host does and ends as soon as its window has
// been painted with that many specifications in the list. Without a project a window with nothing
// in it is painted. Ends with status 1 when the list holds something else.
#include <cstdlib>

#include <QApplication>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

#include "host/Appearance.h"
#include "host/ControlIds.h"
#include "host/HostWindow.h"

namespace {

void Paint(QWidget& window)
{
    window.show();
    QApplication::processEvents();
    window.grab();
}

int ListedStyles(const QWidget& window)
{
    for (const QTableView* table : window.findChildren<QTableView*>())
        if (table->property("controlId") == ControlId::Styles) return table->model()->rowCount();
    return -1;
}

int StartHost(const QStringList& arguments)
{
    const QTemporaryDir settings; // the user's own stay what they are
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    SetAppearance();
    HostWindow window;
    const bool opened = window.OpenProject(arguments.at(1));
    window.LoadModules();
    Paint(window);
    return opened && ListedStyles(window) == arguments.at(2).toInt() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("roadhost"));
    QCoreApplication::setApplicationName(QStringLiteral("roadhost"));
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3) return StartHost(arguments);
    QWidget bare;
    Paint(bare);
    return EXIT_SUCCESS;
}
