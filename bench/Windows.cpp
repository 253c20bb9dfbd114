// windows_bench: what somebody waits for who compares, looks back or prints in a project with 500
// specifications and 50 versions of each. A turn ends with the window painted.
#include "app/CompareDialog.h"
#include "app/HistoryDialog.h"
#include "app/PreviewDialog.h"
#include "bench/Desktop.h"
#include "bench/VersionedProject.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Frame.h"
#include "print/ReportFile.h"

namespace {

constexpr int kSpecifications = 500, kVersions = 50;

class OpenProject {
public:
    OpenProject()
    {
        VMRDPub::SetCurPrjPath(ToWide(m_project.Folder().string()));
        CDesignSpecifications::Destroy();
        Library().Update();
        Require(Library().Count() == kSpecifications, "a specification is missing");
        Library().Item(1)->CircularCurveRad.MaxRad += 1;
        SetFrame(&m_frame);
        m_frame.show();
    }
    ~OpenProject() { SetFrame(nullptr); }
    OpenProject(const OpenProject&) = delete;
    OpenProject& operator=(const OpenProject&) = delete;

    CDesignSpecifications& Library() const { return *CDesignSpecifications::GetInstance(); }
    QWidget* Frame() { return &m_frame; }

private:
    VersionedProject m_project{kSpecifications, kVersions};
    QWidget m_frame;
};

OpenProject& Project()
{
    static OpenProject project;
    return project;
}

void Paint(QWidget& window)
{
    window.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(window.grab());
}

void Compare(benchmark::State& state)
{
    OpenProject& project = Project();
    for (auto _ : state) {
        CCompareDialog dialog(project.Frame());
        dialog.Begin({project.Library().Item(0)->ID(), project.Library().Item(1)->ID()});
        Paint(dialog);
    }
}

void LookBack(benchmark::State& state)
{
    OpenProject& project = Project();
    for (auto _ : state) {
        CHistoryDialog dialog(project.Frame());
        dialog.Begin(project.Library().Item(kSpecifications / 2)->ID());
        Paint(dialog);
    }
}

void Preview(benchmark::State& state)
{
    OpenProject& project = Project();
    for (auto _ : state) {
        CPreviewDialog dialog({*project.Library().Item(0)}, project.Frame());
        Paint(dialog);
    }
}

void WritePdf(benchmark::State& state)
{
    OpenProject& project = Project();
    std::vector<const CDesignSpecification*> all;
    for (int i = 0; i < state.range(0); ++i)
        all.push_back(project.Library().Item(i));
    for (auto _ : state) {
        const PaperReport report(ContentsOf(all, {}), QSizeF(595, 842));
        Require(PdfOf(report, {}).size() > 1000, "no file");
    }
}

// Windows wait, so time is the clock's.
template <class Function> auto* Register(const char* name, Function function)
{
    return benchmark::RegisterBenchmark(name, function)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    const int status = RunDesktop(argc, argv, "windows_bench", [] {
        Register("Windows/two of 500 specifications compared", Compare);
        Register("Windows/history of one of 500 with 50 versions each", LookBack);
        Register("Windows/print preview", Preview);
        Register("Windows/PDF of so many specifications", WritePdf)->Arg(1)->Arg(50);
    });
    CDesignSpecifications::Destroy();
    return status;
}
