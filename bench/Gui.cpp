// What an engineer at the desktop waits for: the main dialog, a page, a new speed, the host. Each
// turn ends with the window painted. Runs without a display.
#include <QAbstractItemModel>
#include <QProcess>

#include "app/DSMainDialog.h"
#include "bench/Desktop.h"
#include "bench/TemporaryProject.h"
#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"
#include "platform/arx/Frame.h"

using namespace designspec;

namespace {

constexpr int kSpeeds = 12;
constexpr int kSpecifications = 200;

void Paint(QWidget& window)
{
    window.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(window.grab());
}

void BareWindow(benchmark::State& state)
{
    for (auto _ : state) {
        QDialog window;
        Paint(window);
    }
}

// Every table of radii gets the same speeds.
void FillRadii(CDSCircularCurveRad& radii)
{
    for (SpeedToIntValues* table :
         {&radii.noSuperelevationMinRad, &radii.SuperelevationRecommendRad,
          &radii.SuperelevationMinRad}) {
        table->RemoveAll();
        for (int i = 0; i < kSpeeds; ++i)
            AddSpeed(*table, 130 - 10 * i, 1000 - 50 * i);
    }
}

// A project with one specification that has as many speeds, open while it lives.
class OpenSpecification {
public:
    OpenSpecification()
    {
        CDesignSpecifications& library = m_project.Open();
        auto* made = new CDesignSpecification;
        made->SetName(m_name.c_str());
        FillRadii(made->CircularCurveRad);
        library.Add(made);
        designspec::SetFrame(&m_frame);
        m_frame.show();
    }
    ~OpenSpecification() { designspec::SetFrame(nullptr); }
    OpenSpecification(const OpenSpecification&) = delete;
    OpenSpecification& operator=(const OpenSpecification&) = delete;

    const CString& Name() const { return m_name; }
    QWidget* Frame() { return &m_frame; }

private:
    TemporaryProject m_project{1}; // a folder to be in; what it holds is not read
    CString m_name = L"十二种车速";
    QWidget m_frame;
};

void OpenDialog(benchmark::State& state)
{
    OpenSpecification open;
    for (auto _ : state) {
        CDSMainDialog dialog(open.Name(), false, nullptr, open.Frame());
        Paint(dialog);
    }
}

void SwitchPage(benchmark::State& state)
{
    OpenSpecification open;
    CDSMainDialog dialog(open.Name(), false, nullptr, open.Frame());
    Paint(dialog);
    int page = 0;
    for (auto _ : state) {
        page = (page + 1) % dialog.PageCount();
        dialog.SelectPage(page);
        Paint(dialog);
    }
}

using C = CDSCircularCurveRad;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::noSuperelevationMinRad, L"不设超高最小半径(m)"},
    {&C::SuperelevationRecommendRad, L"设超高推荐半径(m)"},
    {&C::SuperelevationMinRad, L"设超高最小半径(m)"},
};
constexpr UINT kFormWithGrid = 104;

class RadiusCallback : public CDSPageCallback<&CDesignSpecification::CircularCurveRad> {
    using CDSPageCallback::CDSPageCallback;
};

// A page with the grid of radii alone.
class GridPage : public CCriterionPage<C> {
public:
    GridPage() : CCriterionPage(kFormWithGrid) {}
    CDSCallback& Callback() override { return m_callback; }
    void LoadStep(const C& criterion) override { m_grid.Load(criterion); }
    bool StoreStep(C& criterion, CString&) override
    {
        m_grid.Store(criterion);
        return true;
    }

    CSpeedTableGrid<C> m_grid;

protected:
    void InitPage() override { m_grid.Create(*this, kRows, {.gridId = 1001}); }

private:
    RadiusCallback m_callback{this};
};

void AddOneSpeed(benchmark::State& state)
{
    QWidget frame;
    GridPage page;
    Require(page.Create(&frame), "the page could not be created");
    C radii;
    FillRadii(radii);
    for (auto _ : state) {
        state.PauseTiming();
        page.m_grid.Load(radii);
        Paint(page);
        state.ResumeTiming();
        page.m_grid.AddSpeed(75);
        page.m_grid.Control().Populate();
        Paint(page);
    }
    Require(page.m_grid.Speeds().size() == kSpeeds + 1, "the speed was not added");
}

// A program from its start to its end.
void RunProgram(benchmark::State& state, const QStringList& arguments)
{
    for (auto _ : state)
        Require(QProcess::execute(QStringLiteral(BINARY_DIR "/host_start"), arguments) == 0,
                "host_start failed");
}

// Windows and processes wait, so time is the clock's.
template <class Function> void Register(const char* name, Function function)
{
    benchmark::RegisterBenchmark(name, function)->UseRealTime()->Unit(benchmark::kMillisecond);
}

void RegisterHost()
{
    static const TemporaryProject project(kSpecifications);
    const QStringList arguments = {QString::fromStdString(project.Folder().string()),
                                   QString::number(kSpecifications)};
    Register("Desktop/host with 200 specifications/designspec",
             [arguments](benchmark::State& state) { RunProgram(state, arguments); });
    Register("Desktop/host with 200 specifications/bare Qt window",
             [](benchmark::State& state) { RunProgram(state, {}); });
}

} // namespace

int main(int argc, char** argv)
{
    const int status = RunDesktop(argc, argv, "gui_bench", [] {
        Register("Desktop/main dialog opened/designspec", OpenDialog);
        Register("Desktop/main dialog opened/bare Qt window", BareWindow);
        Register("Desktop/page switched/designspec", SwitchPage);
        Register("Desktop/speed added/designspec", AddOneSpeed);
        RegisterHost();
    });
    CDesignSpecifications::Destroy();
    return status;
}
