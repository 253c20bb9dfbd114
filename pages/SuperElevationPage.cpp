#include "pages/SuperElevationPage.h"

#include <algorithm>

#include <QListWidget>
#include <QSignalBlocker>

#include "base/Format.h"
#include "base/Number.h"
#include "model/PageLayout.h"
#include "model/Rules.h"
#include "pages/RadiusRangeItem.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 115;
constexpr int kList = 122;

void AddOnce(CArray<int>& values, int value)
{
    if (std::find(values.begin(), values.end(), value) == values.end()) values.push_back(value);
}

CString RowCaption(int superElev)
{
    return Format(L"超高 %d%% 时圆\n曲线半径范围", superElev);
}

} // namespace

CSuperElevationPageCallback::CSuperElevationPageCallback(CSuperElevationPage* page)
    : CDSPageCallback(page), m_page(page)
{
}

bool CSuperElevationPageCallback::Validate(CString& message)
{
    return m_page->Check(message);
}

void CSuperElevationPageCallback::OnShow()
{
    m_page->RebuildList();
    CDSPageCallback::OnShow();
}

bool CSuperElevationPageCallback::IsBuiltIn()
{
    m_page->TakeTable();
    return CDSPageCallback::IsBuiltIn();
}

CSuperElevationPage::CSuperElevationPage(const CMaxSuperElevPage* maxPage)
    : CCriterionPage(kDialogResource), m_maxPage(maxPage)
{
    AddSourceButton(kSourceButton, m_source);
}

void CSuperElevationPage::InitPage()
{
    m_grid.Create(*this, [](int) { return new CRadiusRangeItem; },
                  {.headerWidth = 100, .speedWidth = 70, .addedWidth = 70});
    ExtendMenu();
    m_grid.Control().SetRowOffer(
        {L"超高", L"", [this](const CString& caption) { return SuperElevationName(caption); },
         [this](const CStringArray& names) {
             for (const CString& name : names)
                 AddSuperElevation(Wtoi(name));
         }});
    m_list = GetDlgItem<QListWidget>(kList);
    connect(m_list, &QListWidget::currentRowChanged, this, [this] { OnSelected(); });
}

CString CSuperElevationPage::TableHeading() const
{
    const Field& tables = *FindField(CDSSuperElevation::Fields(), L"definitions");
    return InForm(*FindField(tables.RowFields(), L"maxSuperElev"), Format(L"%d", m_current));
}

// Load and store

void CSuperElevationPage::LoadStep(const CDSSuperElevation& criterion)
{
    m_tables.clear();
    CArray<int> maxima;
    for (const SuperElevDefinition& definition : criterion.definitions) {
        m_tables.try_emplace(definition.maxSuperElev, definition.rows);
        AddOnce(maxima, definition.maxSuperElev);
    }
    m_source = criterion.Criterion;
    m_current = kNone;
    FillList(maxima);
    m_current = SelectedMaximum();
    ShowCurrent();
}

bool CSuperElevationPage::StoreStep(CDSSuperElevation& criterion, CString&)
{
    criterion.definitions.RemoveAll();
    criterion.Criterion = m_source;
    for (int maximum : MaximaInUse())
        if (const auto found = m_tables.find(maximum); found != m_tables.end())
            criterion.definitions.Add({maximum, found->second});
    return true;
}

CArray<int> CSuperElevationPage::MaximaInUse() const
{
    return m_maxPage ? m_maxPage->GetMaxSuperElevations() : CArray<int>();
}

bool CSuperElevationPage::Check(CString& message)
{
    if (!CommitGrids(message)) return false;
    CommitTable();
    for (int maximum : MaximaInUse())
        if (!CheckTable(maximum, message)) return false;
    return true;
}

bool CSuperElevationPage::CheckTable(int maximum, CString& message)
{
    const Rows& rows = m_tables.contains(maximum) ? m_tables[maximum] : Rows();
    if (rows.IsEmpty())
        return Refuse(message, NoSuperElevTableText(maximum), kList,
                      [this, maximum] { SelectMaximum(maximum); });
    return std::all_of(rows.begin(), rows.end(), [&](const SuperElevSpeedRow& row) {
        return CheckSpeed(maximum, row, message);
    });
}

// The ranges of a speed join without a gap.
bool CSuperElevationPage::CheckSpeed(int maximum, const SuperElevSpeedRow& row, CString& message)
{
    for (std::int32_t i = 0; i + 1 < row.ranges.count; ++i) {
        const SuperElevRange& range = row.ranges[i];
        const SuperElevRange& next = row.ranges[i + 1];
        if (range.maxRadius != next.minRadius)
            return Refuse(message,
                          SuperElevGapText(maximum, row.speed, range.superElev, next.superElev),
                          kGrid, [this, maximum, speed = row.speed, superElev = range.superElev] {
                              SelectMaximum(maximum);
                              m_grid.GoTo(RowOf(superElev), speed);
                          });
    }
    return true;
}

// List of maximum superelevations

// Keeps the selection; when its value has gone, the first one is selected.
void CSuperElevationPage::FillList(CArray<int> maxima)
{
    std::sort(maxima.begin(), maxima.end(), std::greater());
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (int maximum : maxima) {
        auto* const item = new QListWidgetItem(ToQString(Format(L"最大%d%%", maximum)), m_list);
        item->setData(Qt::UserRole, maximum);
    }
    const auto kept = std::find(maxima.begin(), maxima.end(), m_current);
    m_list->setCurrentRow(kept == maxima.end() ? 0 : static_cast<int>(kept - maxima.begin()));
}

int CSuperElevationPage::SelectedMaximum() const
{
    const QListWidgetItem* const item = m_list->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : kNone;
}

void CSuperElevationPage::SelectMaximum(int maximum)
{
    for (int i = 0; i < m_list->count(); ++i)
        if (m_list->item(i)->data(Qt::UserRole).toInt() == maximum) m_list->setCurrentRow(i);
}

void CSuperElevationPage::OnSelected()
{
    if (SelectedMaximum() == m_current) return;
    CommitTable();
    m_current = SelectedMaximum();
    ShowCurrent();
}

void CSuperElevationPage::RebuildList()
{
    CommitTable();
    CArray<int> maxima = MaximaInUse();
    for (int i = 0; i < m_list->count(); ++i) {
        const int listed = m_list->item(i)->data(Qt::UserRole).toInt();
        const auto table = m_tables.find(listed);
        if (table != m_tables.end() && !table->second.IsEmpty()) AddOnce(maxima, listed);
    }
    FillList(maxima);
    OnSelected();
}

// The table in the grid

void CSuperElevationPage::ShowCurrent()
{
    m_grid.RemoveRows();
    const Rows rows = m_tables.contains(m_current) ? m_tables[m_current] : Rows();
    CArray<int> speeds;
    CArray<int> superElevs;
    for (const SuperElevSpeedRow& row : rows) {
        AddOnce(speeds, row.speed);
        for (const SuperElevRange& range : row.ranges)
            AddOnce(superElevs, range.superElev);
    }
    m_grid.SetSpeeds(speeds);
    for (int superElev : superElevs)
        AddSuperElevation(superElev);
    for (const SuperElevSpeedRow& row : rows)
        for (const SuperElevRange& range : row.ranges)
            if (auto* const cell =
                    dynamic_cast<CRadiusRangeItem*>(m_grid.Cell(RowOf(range.superElev), row.speed)))
                cell->SetRange(range.minRadius, range.maxRadius);
    m_grid.ShowLoaded();
    if (m_current >= kLowestSuperElev && m_grid.GetRowCount() == 0) SayWhatToDo();
}

void CSuperElevationPage::SayWhatToDo()
{
    CString text = Format(L"最大超高 %d%% 还没有超高表", m_current);
    if (!IsViewMode())
        text += Format(L": 右键单击表头, 在“超高”中添加 %d%% 到 %d%% 各行, 再添加车速", m_current,
                       kLowestSuperElev);
    m_grid.Control().SetRemark(text);
}

void CSuperElevationPage::CommitTable()
{
    CommitGrids();
    TakeTable();
}

void CSuperElevationPage::TakeTable()
{
    if (m_current < 1) return;
    Rows rows;
    for (int speed : m_grid.Speeds())
        if (auto ranges = RangesOf(speed); !ranges.IsEmpty()) rows.Add({speed, ranges});
    if (!rows.IsEmpty() || m_tables.contains(m_current)) m_tables[m_current] = rows;
}

GrowArray<SuperElevRange> CSuperElevationPage::RangesOf(int speed) const
{
    GrowArray<SuperElevRange> ranges;
    for (int row = 0; row < m_grid.GetRowCount(); ++row) {
        const auto* const cell = dynamic_cast<const CRadiusRangeItem*>(m_grid.Cell(row, speed));
        if (cell && !cell->IsEmpty())
            ranges.Add({cell->GetMinRadius(), cell->GetMaxRadius(),
                        static_cast<int>(m_grid.RowHeader(row)->GetItemData())});
    }
    return ranges;
}

// Menu of superelevations

void CSuperElevationPage::ExtendMenu()
{
    SpeedMenuExtension extension;
    extension.append = [this](CMenu& menu, UINT firstId) { AppendSuperElevations(menu, firstId); };
    extension.choose = [this](int index) { ToggleSuperElevation(m_current - index); };
    extension.isOffered = [this] { return m_current >= 1; };
    m_grid.ExtendMenu(extension);
}

void CSuperElevationPage::AppendSuperElevations(CMenu& menu, UINT firstId) const
{
    CMenu superElevs;
    for (int superElev = m_current; superElev >= kLowestSuperElev; --superElev)
        superElevs.AppendMenu(MF_STRING | (RowOf(superElev) >= 0 ? MF_CHECKED : 0), firstId++,
                              Format(L"%d%%", superElev));
    menu.AppendMenu(MF_POPUP, std::move(superElevs), L"超高");
}

void CSuperElevationPage::ToggleSuperElevation(int superElev)
{
    if (const int row = RowOf(superElev); row >= 0)
        m_grid.RemoveRow(row);
    else
        AddSuperElevation(superElev);
}

// The superelevation of the table that a pasted caption means: "6", "6%", "超高 6%"; empty when it
// is none.
CString CSuperElevationPage::SuperElevationName(const CString& caption) const
{
    const auto number = CaptionParts(caption).OnlyNumber(CaptionParts(RowCaption(m_current)).word);
    if (!number || *number < kLowestSuperElev || *number > m_current) return {};
    const int superElev = static_cast<int>(*number);
    return superElev == *number ? Format(L"%d%%", superElev) : CString();
}

// Before the first lower one: the check of the ranges goes by this order.
void CSuperElevationPage::AddSuperElevation(int superElev)
{
    int at = 0;
    while (at < m_grid.GetRowCount() &&
           static_cast<int>(m_grid.RowHeader(at)->GetItemData()) > superElev)
        ++at;
    m_grid.InsertRow(at, RowCaption(superElev), static_cast<unsigned>(superElev));
}
