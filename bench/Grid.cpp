// grid_bench: what the tables of the editor spend on their size, at sizes that double. Runs without
// a display.
#include <QClipboard>
#include <QKeyEvent>

#include "base/Format.h"
#include "bench/Bench.h"
#include "bench/Desktop.h"
#include "bench/Doubling.h"
#include "pages/CurveLenDialog.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr int kColumns = 60;

void Press(QWidget& widget, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QApplication::sendEvent(&widget, &event);
}

// A caption that no number could mean: 12 is cd.
CString RowName(std::int64_t row)
{
    CString name = L"行";
    for (char digit : std::to_string(row))
        name += static_cast<wchar_t>(L'b' + digit - '0');
    return name;
}

// A grid of as many rows, each with a caption and values.
void Fill(CXTPReportControl& grid, std::int64_t rows)
{
    for (int column = 0; column <= kColumns; ++column)
        grid.GetColumns().Add(new CXTPReportColumn(column, Format(L"%d", column), 40));
    for (std::int64_t row = 0; row < rows; ++row) {
        CXTPReportRecord* const record = grid.GetRecords().Add(new CXTPReportRecord);
        record->AddItem(new CXTPReportRecordItem(RowName(row)))->SetEditable(false);
        for (int column = 0; column < kColumns; ++column)
            record->AddItem(new CXTPReportRecordItem(L"100"));
    }
    grid.AllowEdit(true);
    grid.Populate();
    grid.resize(800, 600);
    grid.show();
}

QString Block(std::int64_t rows, bool captions)
{
    QString text;
    for (std::int64_t row = 0; row < rows; ++row) {
        if (captions) text += ToQString(RowName(rows - 1 - row)) + u'\t';
        for (int column = 0; column < kColumns; ++column)
            text += QString::number(200 + column) + (column + 1 < kColumns ? u'\t' : u'\n');
    }
    return text;
}

void PasteBlock(benchmark::State& state, const char* name, bool captions)
{
    CXTPReportControl grid;
    Fill(grid, state.range(0));
    QApplication::clipboard()->setText(Block(state.range(0), captions));
    MeasureGrowth(state, name, [&] {
        grid.GetUndo().Clear();
        grid.setCurrentIndex(grid.IndexOf(0, 1));
        Press(grid, Qt::Key_V);
    });
    Require(grid.ItemAt(grid.IndexOf(0, kColumns))->GetCaption() == L"259", "nothing was pasted");
}

void CopyAll(benchmark::State& state)
{
    CXTPReportControl grid;
    Fill(grid, state.range(0));
    grid.selectAll();
    MeasureGrowth(state, "copy", [&] { Press(grid, Qt::Key_C); });
}

using C = CDSCurveMinLen;

// More speeds than there are: what counts is how the time grows.
void LoadAndStore(benchmark::State& state)
{
    QWidget frame;
    CCurveLenDialog page;
    Require(page.Create(&frame), "the page could not be created");
    C lengths;
    for (SpeedToIntValues* table : {&lengths.HorizontalCurveMinLen, &lengths.CircularCurveMinLen}) {
        table->RemoveAll();
        for (int speed = static_cast<int>(state.range(0)); speed > 0; --speed)
            AddSpeed(*table, speed, 100 + speed);
    }
    C stored;
    CString message;
    MeasureGrowth(state, "speeds", [&] {
        page.LoadStep(lengths);
        page.StoreStep(stored, message);
    });
    Require(stored.CircularCurveMinLen.count == state.range(0), "a speed is missing");
}

} // namespace

int main(int argc, char** argv)
{
    const int status = RunDesktop(argc, argv, "grid_bench", [] {
        RegisterGrowth("Grid/block of 60 columns pasted", 500, 8000,
                       [](benchmark::State& state) { PasteBlock(state, "plain", false); });
        RegisterGrowth("Grid/the same found by captions", 500, 8000,
                       [](benchmark::State& state) { PasteBlock(state, "captions", true); });
        RegisterGrowth("Grid/60 columns copied", 500, 8000, CopyAll);
        RegisterGrowth("Grid/page of speeds loaded and stored", 120, 1920, LoadAndStore);
    });
    CDesignSpecifications::Destroy();
    return status;
}
