#include "pages/framework/SpeedGrid.h"

#include <algorithm>

#include "app/input/InputIntValueDialog.h"
#include "base/Format.h"
#include "base/Number.h"
#include "model/Rules.h"

using namespace designspec;

namespace {

class SpeedColumn : public CXTPReportColumn {
public:
    SpeedColumn(int itemIndex, int speed, int width)
        : CXTPReportColumn(itemIndex, Format(L"%d", speed), width), m_speed(speed)
    {
    }
    int GetSpeed() const { return m_speed; } // km/h

private:
    int m_speed;
};

// Of any column but the first, which is the row headers'.
int SpeedOf(const CXTPReportColumn* column)
{
    return static_cast<const SpeedColumn*>(column)->GetSpeed();
}

// The speed that a pasted heading means: "80", "80 km/h", "V=80"; empty when it is none.
CString SpeedName(const CString& heading)
{
    const double number = CaptionParts(heading).OnlyNumber({}).value_or(0);
    if (!(number >= kLowestSpeed && number <= kHighestSpeed)) return {};
    const int speed = static_cast<int>(number);
    return speed == number ? Format(L"%d", speed) : CString();
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
    m_layout = layout;
    CreateGrid(page, addedCell, layout.placeholder, layout.gridId, L"设计车速(km/h)",
               layout.headerWidth);
    ReportOffer offer{L"车速", L" km/h", SpeedName, [this](const CStringArray& speeds) {
                          for (const CString& speed : speeds)
                              AddSpeed(Wtoi(speed));
                      }};
    for (int speed : kStandardSpeeds)
        offer.usual.push_back(Format(L"%d", speed));
    Control().SetColumnOffer(offer);
}

// Columns

CXTPReportColumn* CSpeedGrid::NewColumn(int itemIndex, int speed, int width) const
{
    return new SpeedColumn(itemIndex, speed, width);
}

CArray<int> CSpeedGrid::Speeds() const
{
    CArray<int> speeds;
    const CXTPReportColumns& columns = Control().GetColumns();
    for (int i = 1; i < columns.GetCount(); ++i)
        speeds.push_back(SpeedOf(columns.GetAt(i)));
    return speeds;
}

CXTPReportColumn* CSpeedGrid::FindColumn(int speed) const
{
    const auto& columns = Control().GetColumns().All();
    const auto place = std::lower_bound(
        columns.begin() + 1, columns.end(), speed,
        [](const auto& column, int wanted) { return SpeedOf(column.get()) > wanted; });
    return place != columns.end() && SpeedOf(place->get()) == speed ? place->get() : nullptr;
}

void CSpeedGrid::SetSpeeds(CArray<int> speeds)
{
    RemoveValueColumns();
    std::sort(speeds.begin(), speeds.end());
    std::reverse(speeds.begin(), speeds.end());
    for (size_t i = 0; i < speeds.size(); ++i)
        Control().GetColumns().Add(
            NewColumn(static_cast<int>(i) + 1, speeds[i], m_layout.speedWidth));
}

void CSpeedGrid::AddSpeed(int speed)
{
    CXTPReportColumns& columns = Control().GetColumns();
    int at = 1;
    while (at < columns.GetCount() && SpeedOf(columns.GetAt(at)) >= speed)
        ++at;
    columns.InsertAt(at, NewColumn(AddCells(), speed, m_layout.addedWidth));
}

void CSpeedGrid::RemoveSpeed(int speed)
{
    Control().GetColumns().Remove(FindColumn(speed));
}

CMyRecordItemValue* CSpeedGrid::Cell(int row, int speed) const
{
    return CHeaderedGrid::Cell(row, FindColumn(speed));
}

// Menu

CMenu CSpeedGrid::MakeMenu(const CXTPReportColumn*) const
{
    if (m_extension.isOffered && !m_extension.isOffered()) return {};
    const bool extended = static_cast<bool>(m_extension.append);
    // Without a row there is nothing yet that a speed could have a value for.
    const UINT state = extended && GetRowCount() == 0 ? MF_GRAYED : MF_ENABLED;
    CMenu menu;
    UINT id = kFirstCommand;
    for (const SpeedChoice& choice : SpeedChoices(Speeds()))
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

void CSpeedGrid::Choose(int index, const CXTPReportColumn*)
{
    const std::vector<SpeedChoice> choices = SpeedChoices(Speeds());
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
    CInputIntValueDialog dialog(L"车速", L"设计车速(km/h):", Speeds(), &Page(), kLowestSpeed,
                                kHighestSpeed);
    CString text;
    if (dialog.Input(text)) AddSpeed(Wtoi(text));
}
