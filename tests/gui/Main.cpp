// The main of the GUI tests: an application without a display.
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "tests/gui/Modal.h"

namespace {

QtMessageHandler g_usual = nullptr;

// The display that there is not tells over and over what it cannot do.
void LeaveOutThePlugin(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QStringLiteral("This plugin does not support")))
        g_usual(type, context, text);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    g_usual = qInstallMessageHandler(LeaveOutThePlugin);
    const QApplication application(argc, argv);
    const QTemporaryDir settings; // windows remember their places
    QCoreApplication::setOrganizationName(QStringLiteral("designspec-test"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QApplication::setQuitOnLastWindowClosed(false);
    WatchModals();
    return RUN_ALL_TESTS();
}
