#include "pages/CurveWideningPage.h"

#include <QComboBox>

#include "model/Rules.h"

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
    DisableInViewMode({kMode});
}

void CCurveWideningPage::InitPage()
{
    m_grid.Create(*this);
    m_mode = GetDlgItem<QComboBox>(kMode);
    connect(m_mode, &QComboBox::currentIndexChanged, this,
            [this](int item) { m_grid.SetExcludesMin(item != kIncludesMin); });
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
            return Refuse(message, WideningRangeGapText(column->GetMin(), column->GetMax()), kGrid);
        left = column;
    }
    return true;
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
        filled.push_back(cell && !cell->IsEmpty());
        if (!Gaps(filled).empty()) return Refuse(message, WideningGapText(category), kGrid);
        if (filled.back()) widenings.Add({category, cell->GetNumber()});
    }
    return true;
}
