// roadhost: the desktop host of the road-design modules.
#include <csignal>
#include <cstdio>
#include <initializer_list>

#include <string_view>

#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QIcon>
#include <QSettings>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QWindow>

#include "base/Text.h"
#include "host/Appearance.h"
#include "host/HostApplication.h"
#include "host/HostWindow.h"
#include "host/InstalledFolders.h"
#include "host/ProjectFolders.h"
#include "host/ReportOption.h"
#include "host/Snapshot.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

constexpr char kSnapshotOption[] = "snapshot";
constexpr char kReportOption[] = "report";
constexpr char kDarkOption[] = "dark";
constexpr char kOpenOption[] = "open";

// Without a display Qt says of many a call that there is nothing to do; nobody needs to know.
void KeepQuiet(QtMsgType, const QMessageLogContext&, const QString&) {}

bool HasOption(int argc, char** argv, std::initializer_list<std::string_view> names)
{
    for (int i = 1; i < argc; ++i)
        for (const std::string_view name : names)
            if (std::string_view(argv[i]).starts_with(name)) return true;
    return false;
}

// No window is larger than the screen, and the one that there is without a display is small:
// pictures show windows as on a usual one.
QByteArray ScreenOption()
{
    static QTemporaryFile file; // goes at the end
    const QByteArray screen = R"({"screens": [{"name": "usual", "x": 0, "y": 0, "width": 1920,
        "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    if (!file.open() || file.write(screen) != screen.size() || !file.flush()) return {};
    return ":configfile=" + file.fileName().toUtf8();
}

// Pictures and help need no display, and a window that flashes by serves nobody.
void DoWithoutDisplay()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen" + ScreenOption());
    qInstallMessageHandler(KeepQuiet);
}

// Pictures are the same whatever the user has set, and leave his settings alone.
void UseSettingsIn(const QTemporaryDir& folder)
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    for (const auto format : {QSettings::IniFormat, QSettings::NativeFormat}) // Qt's own as well
        QSettings::setPath(format, QSettings::UserScope, folder.path());
}

bool HasDisplay()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

void AddOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QObject::tr("道路设计主机: 管理项目的样式库。"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("PROJECT"),
                                 QObject::tr("项目文件夹 (含有“规范”); 没有时打开上次的项目"),
                                 QStringLiteral("[PROJECT]"));
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        QObject::tr("要打开的文件: .hds 文件可以导入项目, 其余用已加载的模块打开"),
        QStringLiteral("[FILE...]"));
    parser.addOption({QString::fromLatin1(kSnapshotOption),
                      QObject::tr("把每个窗口的图片写入 DIR, 不需要显示器"),
                      QStringLiteral("DIR")});
    parser.addOption({QString::fromLatin1(kReportOption),
                      QObject::tr("把样式的报告写入 FILE (.pdf 或 .html), 不需要显示器"),
                      QStringLiteral("FILE")});
    parser.addOption({QStringLiteral("compare"),
                      QObject::tr("报告中标出与此样式不同的值: 名称或标识"),
                      QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("project"), QObject::tr("同 PROJECT"), QStringLiteral("DIR")});
    parser.addOption({QString::fromLatin1(kDarkOption), QObject::tr("深色界面")});
    parser.addOption({QStringLiteral("spec"),
                      QObject::tr("图片或报告中的样式: 名称或标识; 报告可有几个"),
                      QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("theirs"), QObject::tr("图片中别人同时存入样式库的文件"),
                      QStringLiteral("FILE")});
    parser.addOption(
        {QString::fromLatin1(kOpenOption), QObject::tr("同 FILE; 可重复"), QStringLiteral("FILE")});
}

// What opens over the window goes by its frame, which it has once it can be seen.
void WaitForFrame(const QWidget& window)
{
    const QDeadlineTimer limit(2000);
    while (!window.windowHandle()->isExposed() && !limit.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

// Those that are named as such, and those that stand where a project could.
QStringList FilesOf(const QCommandLineParser& parser)
{
    QStringList files = parser.values(QString::fromLatin1(kOpenOption));
    for (const QString& named : parser.positionalArguments())
        if (QFileInfo(named).isFile()) files << named;
    return files;
}

// Does what needs no user, and gives the status to end with.
int DoOption(HostWindow& window, const QCommandLineParser& parser)
{
    const QStringList specs = parser.values(QStringLiteral("spec"));
    if (parser.isSet(QString::fromLatin1(kReportOption)))
        return WriteReport(window, {parser.value(QString::fromLatin1(kReportOption)), specs,
                                    parser.value(QStringLiteral("compare"))});
    return WriteSnapshots(window,
                          {parser.value(QString::fromLatin1(kSnapshotOption)), specs.value(0),
                           parser.value(QStringLiteral("theirs")), FilesOf(parser)});
}

QString ProjectOf(const QCommandLineParser& parser)
{
    for (const QString& named : parser.positionalArguments())
        if (!QFileInfo(named).isFile()) return named;
    if (QString asked = parser.value(QStringLiteral("project")); !asked.isEmpty())
        return asked;
    if (parser.isSet(QString::fromLatin1(kReportOption))) return QStringLiteral(".");
    return RecentProjects().List().value(0);
}

// Without a window, what is wrong with files is told on standard error. True once something was.
Connection TellErrors(bool& told)
{
    return ConnectTrace([&told](const TraceLine& line) {
        if (line.severity != TraceLevel::Error) return;
        told = true;
        std::fprintf(stderr, "%s\n", ToUtf8(line.Text()).c_str());
    });
}

int RunWithoutUser(const QCommandLineParser& parser)
{
    const QTemporaryDir settings;
    UseSettingsIn(settings);
    bool told = false;
    Connection errors;
    if (parser.isSet(QString::fromLatin1(kReportOption))) errors = TellErrors(told);
    HostWindow window;
    const QString project = ProjectOf(parser);
    const bool opened = !project.isEmpty() && window.OpenProject(project);
    window.LoadModules();
    if (!opened) {
        std::fprintf(stderr, "没有可以打开的项目: %s\n", qUtf8Printable(project));
        return 3;
    }
    const int status = DoOption(window, parser);
    return status == 0 && told ? 3 : status;
}

int RunDesktop(const QCommandLineParser& parser, bool hasChineseFont)
{
    HostWindow window;
    if (!hasChineseFont)
        TraceFile(TraceLevel::Error, {}, 0, L"系统没有中文字体, 请安装一种 (如 fonts-noto-cjk)");
    const QString project = ProjectOf(parser);
    if (!project.isEmpty()) window.OpenProject(project);
    window.LoadModules();
    const QStringList files = FilesOf(parser);
    window.show();
    if (!files.isEmpty()) WaitForFrame(window);
    window.OpenFiles(files);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const bool needsNoUser = HasOption(argc, argv, {"--snapshot", "--report"});
    if (needsNoUser || HasOption(argc, argv, {"-h", "--help", "-v", "--version"}))
        DoWithoutDisplay();
    if (!HasDisplay()) {
        std::fputs("没有显示器。可以用 --snapshot DIR 输出各窗口的图片, "
                   "用 --report FILE.pdf 输出报告。\n",
                   stderr);
        return 2;
    }
    // A write beyond the size limit of files is to fail with a message, not to end the process.
    std::signal(SIGXFSZ, SIG_IGN);
    HostApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("roadhost"));
    QCoreApplication::setApplicationName(QStringLiteral("roadhost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(DESIGNSPEC_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("roadhost"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/host/roadhost.svg")));
    VMRDPub::SetInstallPath(FromQString(ModuleFolder()));
    const bool chinese = SetAppearance();

    QCommandLineParser parser;
    AddOptions(parser);
    parser.process(application);
    if (parser.isSet(QString::fromLatin1(kDarkOption))) UseDarkColours();
    return needsNoUser ? RunWithoutUser(parser) : RunDesktop(parser, chinese);
}
