// A benchmark program of windows, which runs without a display.
#pragma once

#include <functional>

#include <QApplication>

#include <benchmark/benchmark.h>

// Runs what `add` registers, and what `argv` has chosen of it; `name` is the program's, for its
// settings. The status to end with.
inline int RunDesktop(int argc, char** argv, const char* name, const std::function<void()>& add)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("roadhost"));
    QCoreApplication::setApplicationName(QString::fromUtf8(name));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    add();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
