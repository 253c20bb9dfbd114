// host_bench: what the desktop host spends on large projects, at sizes that double. Runs without a
// display.
#include <filesystem>
#include <fstream>

#include <QApplication>
#include <QLineEdit>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

#include "bench/Bench.h"
#include "bench/Desktop.h"
#include "bench/Doubling.h"
#include "host/ControlIds.h"
#include "host/HostWindow.h"
#include "host/StyleManagerView.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

constexpr char kWhole[] = "<StyleLibrary>\n<Group Name=\"设计规范\">\n<Styles Name=\"设计规范\">\n"
                          "<Style Name=\"%1\" ID=\"%2\"/>\n"
                          "</Styles>\n</Group>\n</StyleLibrary>\n";
constexpr char kBroken[] = "<StyleLibrary>\n<Group Name=\"%1%2\"\n";

// A project with as many files of that content; the host's settings stand in it.
class Project {
public:
    Project(std::int64_t files, const char* content)
    {
        const QString folder = m_folder.filePath(QStringLiteral("规范/"));
        std::filesystem::create_directory(folder.toStdString());
        for (std::int64_t i = 0; i < files; ++i) {
            const QString name = QStringLiteral("规范%1").arg(i);
            const QString id = ToQString(VMRDPub::GUIDToStr(CoCreateGuid()));
            std::ofstream file((folder + name + id + QStringLiteral(".hds")).toStdString());
            file << QString::fromUtf8(content).arg(name, id).toStdString() << std::flush;
            Require(file.good(), "a file could not be written");
        }
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    }
    QString Path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

QTableView& Table(const QWidget& window, int id)
{
    for (QTableView* table : window.findChildren<QTableView*>())
        if (table->property("controlId") == id) return *table;
    Require(false, "a table is missing");
    std::abort();
}

void Open(HostWindow& window, const Project& project)
{
    window.LoadModules();
    Require(window.OpenProject(project.Path()), "the project could not be opened");
    window.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(window.grab());
}

// Each file that cannot be read is a line of the trace panel and of the message bar.
void OpenBrokenFiles(benchmark::State& state)
{
    const Project project(state.range(0), kBroken);
    MeasureGrowth(state, "broken", [&] {
        HostWindow window;
        window.ShowTrace();
        Open(window, project);
        Require(Table(window, ControlId::Trace).model()->rowCount() >= state.range(0),
                "a line of the trace is missing");
    });
}

// What happens after each command.
void RefreshWithEverythingSelected(benchmark::State& state)
{
    const Project project(state.range(0), kWhole);
    HostWindow window;
    Open(window, project);
    QTableView& table = Table(window, ControlId::Styles);
    Require(table.model()->rowCount() == state.range(0), "a specification is missing");
    table.selectAll();
    CStyles& library = *window.Styles().Commands().Editor()->GetStyles();
    MeasureGrowth(state, "selected", [&] {
        library.Refurbish();
        QApplication::processEvents();
    });
    Require(std::ssize(window.Styles().Selected()) == state.range(0), "not all are selected");
}

// From a letter in the field to the list that is drawn: five hundred whole specifications.
void TypeIntoTheFilter(benchmark::State& state)
{
    const Project project(500, kWhole);
    HostWindow window;
    Open(window, project);
    QTableView& table = Table(window, ControlId::Styles);
    QLineEdit* field = nullptr;
    for (QLineEdit* one : window.findChildren<QLineEdit*>())
        if (one->property("controlId") == ControlId::Filter) field = one;
    Require(field, "there is no filter");
    const auto type = [&](const QString& text) {
        field->setText(text);
        QApplication::processEvents();
        benchmark::DoNotOptimize(window.grab());
    };
    window.activateWindow();
    field->setFocus();
    QApplication::processEvents();
    const bool isFirst = state.range(0) == 0;
    const QString words[] = {QStringLiteral("z"), QStringLiteral("250"), QStringLiteral("cgzx 60"),
                             QStringLiteral("没有")};
    if (!isFirst) type(words[0]);
    std::size_t next = 0;
    for (auto _ : state)
        type(words[isFirst ? 0 : next++ % std::size(words)]);
    Require(!isFirst || table.model()->rowCount() == 500, "not all are found");
}

} // namespace

int main(int argc, char** argv)
{
    return RunDesktop(argc, argv, "host_bench", [] {
        RegisterGrowth("Host/broken files opened", 1000, 16000, OpenBrokenFiles);
        RegisterGrowth("Host/everything selected and refreshed", 1000, 16000,
                       RefreshWithEverythingSelected);
        benchmark::RegisterBenchmark("Host/first keystroke of the filter, 500", TypeIntoTheFilter)
            ->Arg(0)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark("Host/keystroke of the filter, 500", TypeIntoTheFilter)
            ->Arg(1)
            ->Unit(benchmark::kMillisecond);
    });
}
