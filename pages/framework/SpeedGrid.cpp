#include "pages/framework/SpeedGrid.h"

#include <algorithm>

#include "app/input/InputIntValueDialog.h"
#include "pages/framework/MyReportPaintManager.h"
#include "pages/framework/XTPReportRecordItemHeard.h"
#include "platform/windows/Number.h"

namespace {

constexpr int kStandardSpeeds[] = {120, 100, 80, 60, 50, 40, 30, 20}; // km/h
constexpr int kLowestSpeed = 10;                                      // that may be entered
constexpr int kHighestSpeed = 150;
constexpr UINT kFirstCommand = 10001;

int SpeedOf(const CXTPReportColumn* column)
{
    return Wtoi(column->GetCaption());
}

} // namespace

std::vector<SpeedChoice> SpeedChoices(const CArray<int>& present)
{
    std::vector<SpeedChoice> choices;
    for (int speed : kStandardSpeeds)
        choices.push_back({speed, false});
    for (int speed : present) {
        const auto same = std::find_if(choices.begin(), choices.end(),
                                       [speed](const auto& one) { return one.speed == speed; });
        if (same != choices.end()) {
            same->present = true;
            continue;
        }
        const auto lower = std::find_if(choices.begin(), choices.end(),
                                        [speed](const auto& one) { return one.speed < speed; });
        choices.insert(lower, {speed, true});
    }
    return choices;
}

void CSpeedGrid::Create(CDSPage& page, const AddedCell& addedCell, const SpeedGridLayout& layout)
{
    m_page = &page;
    m_layout = layout;
    m_addedCell = addedCell;
    m_control =
        page.CreateGrid(layout.placeholder, layout.gridId, L"设计车速(km/h)", layout.headerWidth);
    QObject::connect(m_control, &CXTPReportControl::RowRightClick, m_page,
                     [this](auto*, auto*, const QPoint& pos) { OnRightClick(pos); });
    QObject::connect(m_control, &CXTPReportControl::HeaderRightClick, m_page,
                     [this](auto*, const QPoint& pos) { OnRightClick(pos); });
}

// Rows

CXTPReportRecord* CSpeedGrid::InsertRow(int at, const CString& caption, unsigned itemData)
{
    auto* const header = new CXTPReportRecordItemHeard(caption);
    header->SetEditable(false);
    header->SetItemData(itemData);
    if (caption.find(L'\n') != CString::npos) {
        // The default row would cut the second line off.
        auto* manager = dynamic_cast<CMyReportPaintManager*>(m_control->GetPaintManager());
        if (!manager) m_control->SetPaintManager(manager = new CMyReportPaintManager);
        header->SetRowHeight(manager->GetTwoLineHeight());
    }
    CXTPReportRecords& records = m_control->GetRecords();
    CXTPReportRecord* const record = records.InsertAt(at, new CXTPReportRecord);
    record->AddItem(header);
    FillRow(records.IndexOf(record), LastItemIndex());
    return record;
}

CXTPReportRecord* CSpeedGrid::AddRow(const CString& caption, unsigned itemData)
{
    return InsertRow(GetRowCount(), caption, itemData);
}

CXTPReportRecordItem* CSpeedGrid::RowHeader(int row) const
{
    const CXTPReportRecord* const record = m_control->GetRecords().GetAt(row);
    return record ? record->GetItem(0) : nullptr;
}

void CSpeedGrid::RemoveRows()
{
    m_control->GetRecords().RemoveAll();
    SetSpeeds({});
}

// The highest index of a cell that a column shows or a row has; 0 when there are headers alone.
int CSpeedGrid::LastItemIndex() const
{
    int last = 0;
    for (const auto& column : m_control->GetColumns().All())
        last = std::max(last, column->GetItemIndex());
    for (const auto& record : m_control->GetRecords().All())
        last = std::max(last, record->GetItemCount() - 1);
    return last;
}

void CSpeedGrid::FillRow(int row, int lastItem)
{
    CXTPReportRecord* const record = m_control->GetRecords().GetAt(row);
    while (record->GetItemCount() <= lastItem)
        record->AddItem(m_addedCell(row));
}

// Columns

CXTPReportColumn* CSpeedGrid::NewColumn(int itemIndex, int speed, int width) const
{
    return new CXTPReportColumn(itemIndex, Format(L"%d", speed), width, false, false);
}

CArray<int> CSpeedGrid::Speeds() const
{
    CArray<int> speeds;
    const CXTPReportColumns& columns = m_control->GetColumns();
    for (int i = 1; i < columns.GetCount(); ++i)
        speeds.push_back(SpeedOf(columns.GetAt(i)));
    return speeds;
}

CXTPReportColumn* CSpeedGrid::FindColumn(int speed) const
{
    const CXTPReportColumns& columns = m_control->GetColumns();
    for (int i = 1; i < columns.GetCount(); ++i)
        if (SpeedOf(columns.GetAt(i)) == speed) return columns.GetAt(i);
    return nullptr;
}

void CSpeedGrid::SetSpeeds(CArray<int> speeds)
{
    CXTPReportColumns& columns = m_control->GetColumns();
    while (columns.GetCount() > 1)
        columns.RemoveAt(columns.GetCount() - 1);
    for (const auto& record : m_control->GetRecords().All())
        while (record->GetItemCount() > 1)
            record->GetItems().RemoveAt(record->GetItemCount() - 1);

    std::sort(speeds.begin(), speeds.end());
    std::reverse(speeds.begin(), speeds.end());
    for (size_t i = 0; i < speeds.size(); ++i)
        columns.Add(NewColumn(static_cast<int>(i) + 1, speeds[i], m_layout.speedWidth));
}

void CSpeedGrid::AddSpeed(int speed)
{
    const int item = LastItemIndex() + 1;
    for (int row = 0; row < GetRowCount(); ++row)
        FillRow(row, item);
    CXTPReportColumns& columns = m_control->GetColumns();
    int at = 1;
    while (at < columns.GetCount() && SpeedOf(columns.GetAt(at)) >= speed)
        ++at;
    columns.InsertAt(at, NewColumn(item, speed, m_layout.addedWidth));
}

void CSpeedGrid::RemoveSpeed(int speed)
{
    m_control->GetColumns().Remove(FindColumn(speed));
}

CMyRecordItemValue* CSpeedGrid::Cell(int row, int speed) const
{
    const CXTPReportRecord* const record = m_control->GetRecords().GetAt(row);
    const CXTPReportColumn* const column = FindColumn(speed);
    if (!record || !column) return nullptr;
    return dynamic_cast<CMyRecordItemValue*>(record->GetItem(column->GetItemIndex()));
}

void CSpeedGrid::ShowLoaded()
{
    m_control->Populate();
    m_control->ClearUndo();
}

// Menu

void CSpeedGrid::OnRightClick(const QPoint& globalPos)
{
    if (m_page->IsViewMode()) return;
    if (m_extension.isOffered && !m_extension.isOffered()) return;
    const std::vector<SpeedChoice> choices = SpeedChoices(Speeds());
    const UINT id = MakeMenu(choices).TrackPopupMenu(globalPos, m_control);
    if (id == 0) return;
    const CXTPReportUserChange change(*m_control, L"添加或删除");
    Choose(choices, static_cast<int>(id - kFirstCommand));
    m_control->Populate();
}

CMenu CSpeedGrid::MakeMenu(const std::vector<SpeedChoice>& choices) const
{
    const bool extended = static_cast<bool>(m_extension.append);
    // Without a row there is nothing yet that a speed could have a value for.
    const UINT state = extended && GetRowCount() == 0 ? MF_GRAYED : MF_ENABLED;
    CMenu menu;
    UINT id = kFirstCommand;
    for (const SpeedChoice& choice : choices)
        menu.AppendMenu(MF_STRING | state | (choice.present ? MF_CHECKED : 0), id++,
                        Format(L"%d km/h", choice.speed));
    if (!extended) menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | state, id++, L"输入车速...");
    if (extended) {
        menu.AppendMenu(MF_SEPARATOR);
        m_extension.append(menu, id);
    }
    return menu;
}

void CSpeedGrid::Choose(const std::vector<SpeedChoice>& choices, int index)
{
    const int count = static_cast<int>(choices.size());
    if (index > count) {
        m_extension.choose(index - count - 1);
        return;
    }
    if (index == count) {
        AskForSpeed();
        return;
    }
    const SpeedChoice& choice = choices[static_cast<size_t>(index)];
    if (choice.present)
        RemoveSpeed(choice.speed);
    else
        AddSpeed(choice.speed);
}

void CSpeedGrid::AskForSpeed()
{
    CInputIntValueDialog dialog(L"车速", L"设计车速(km/h):", Speeds(), m_page, kLowestSpeed,
                                kHighestSpeed);
    CString text;
    if (dialog.Input(text)) AddSpeed(Wtoi(text));
}
