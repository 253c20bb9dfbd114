#include "pages/CurveWideningPage.h"

#include <QComboBox>
#include <QShortcut>
#include <QSignalBlocker>

#include "base/Text.h"
#include "model/Rules.h"
#include "platform/xtp/report/ReportPaste.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 116;
constexpr int kMode = 123;
constexpr int kExcludesMin = 0; // items of the mode
constexpr int kIncludesMin = 1;

} // namespace

CCurveWideningPage::CCurveWideningPage() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
    AddLimit(kMode, L"半径范围含上限、不含下限");
    DisableInViewMode({kMode});
}

void CCurveWideningPage::InitPage()
{
    m_grid.Create(*this);
    m_mode = GetDlgItem<QComboBox>(kMode);
    connect(m_mode, &QComboBox::currentIndexChanged, this,
            [this](int item) { m_grid.SetExcludesMin(item != kIncludesMin); });
    ReportUndo& undo = m_grid.Control().GetUndo();
    undo.Keep([this] { return m_grid.ExcludesMin() ? kExcludesMin : kIncludesMin; },
              [this](int item) {
                  const QSignalBlocker blocker(m_mode);
                  m_mode->setCurrentIndex(item);
                  m_grid.RestoreExcludesMin(item != kIncludesMin);
              });
    // Undo is the grid's, also right after the choice.
    auto* const shortcut = new QShortcut(QKeySequence::Undo, m_mode);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [&undo] { undo.Undo(); });
}

// Load

void CCurveWideningPage::LoadStep(const CDSCurveWidening& criterion)
{
    m_mode->setCurrentIndex(criterion.IsGMinAndLEMaxMode ? kExcludesMin : kIncludesMin);
    m_grid.RemoveRows();
    LoadRanges(criterion);
    LoadWidenings(criterion);
    m_grid.ShowLoaded();
    m_source = criterion.Criterion;
}

void CCurveWideningPage::LoadRanges(const CDSCurveWidening& criterion)
{
    for (const WideningRange& range : criterion.ranges)
        m_grid.AddRange(range.min, range.max);
}

// Of two widenings for one category the first one counts, as it does for queries.
void CCurveWideningPage::LoadWidenings(const CDSCurveWidening& criterion)
{
    for (const WideningRange& range : criterion.ranges)
        for (const Widening& one : range.widenings)
            if (m_grid.FindRow(one.carType) < 0) m_grid.AddRow(one.carType);

    const std::vector<CMyRadiusRangeColumn*> columns = m_grid.Ranges();
    for (std::int32_t i = 0; i < criterion.ranges.count; ++i)
        for (const Widening& one : criterion.ranges[i].widenings)
            if (auto* cell =
                    m_grid.Cell(m_grid.FindRow(one.carType), columns[static_cast<size_t>(i)]);
                cell && cell->IsEmpty())
                cell->SetNumber(one.widening);
}

// Store

bool CCurveWideningPage::StoreStep(CDSCurveWidening& criterion, CString& message)
{
    criterion.Criterion = m_source;
    criterion.ranges.RemoveAll();
    criterion.IsGMinAndLEMaxMode = m_mode->currentIndex() != kIncludesMin;
    if (!CheckContinuity(message)) return false;
    for (const CMyRadiusRangeColumn* column : m_grid.Ranges())
        criterion.ranges.Add({column->GetMin(), column->GetMax(), {}});
    for (int row = 0; row < m_grid.GetRowCount(); ++row)
        if (!StoreRow(row, criterion, message)) return false;

    GrowArray<WideningRange> filled;
    for (const WideningRange& range : criterion.ranges)
        if (!range.widenings.IsEmpty()) filled.Add(range);
    criterion.ranges = filled;
    return true;
}

// Each range ends where the one to its left begins.
bool CCurveWideningPage::CheckContinuity(CString& message)
{
    const CMyRadiusRangeColumn* left = nullptr;
    for (const CMyRadiusRangeColumn* column : m_grid.Ranges()) {
        if (left && column->GetMax() != left->GetMin())
            return Refuse(message, WideningRangeGapText(column->GetMin(), column->GetMax()), kGrid,
                          [this, column] { GoToRange(column); });
        left = column;
    }
    return true;
}

// Without a row there is no cell that could be shown, nor a range that could be added.
void CCurveWideningPage::GoToRange(const CMyRadiusRangeColumn* range)
{
    m_grid.GoTo(0, range);
    if (m_grid.GetRowCount() == 0)
        m_grid.Control().SetRemark(
            L"还没有加宽类别: 右键单击表头, 添加类别后输入圆曲线半径, 或移除“" +
            OneLine(range->GetCaption()) + L"”");
}

// A category may leave out ranges at either end, not between two.
bool CCurveWideningPage::StoreRow(int row, CDSCurveWidening& criterion, CString& message)
{
    const CString& category = m_grid.RowHeader(row)->GetCaption();
    std::vector<bool> filled;
    std::int32_t range = 0;
    for (const CMyRadiusRangeColumn* column : m_grid.Ranges()) {
        const CMyRecordItemValue* const cell = m_grid.Cell(row, column);
        GrowArray<Widening>& widenings = criterion.ranges[range++].widenings;
        const bool isFilled = cell && !cell->IsEmpty();
        filled.push_back(isFilled);
        if (const auto gaps = Gaps(filled); !gaps.empty())
            return Refuse(message, WideningGapText(category), kGrid,
                          [this, row, gaps] { GoToGap(row, gaps); });
        if (isFilled) widenings.Add({category, cell->GetNumber()});
    }
    return true;
}

// The message names the category alone; which radii are left out stands below the grid.
void CCurveWideningPage::GoToGap(int row, const std::vector<size_t>& gaps)
{
    const std::vector<CMyRadiusRangeColumn*> ranges = m_grid.Ranges();
    CStringArray names;
    for (const size_t gap : gaps)
        names.push_back(ranges[gap]->GetCaption());
    m_grid.GoTo(row, ranges[gaps.front()]);
    m_grid.Control().SetRemark(Printable(m_grid.RowHeader(row)->GetCaption()) + L" 空缺: " +
                               FirstNames(names));
}
