#include "pages/WideningGrid.h"

#include <algorithm>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "pages/InputRadiusRangeDialog.h"
#include "pages/InputWideningTypeDialog.h"
#include "pages/framework/MyRecordItemPositiveDouble.h"
#include "platform/mfc/MessageBox.h"

using namespace designspec;

namespace {

constexpr wchar_t kCorner[] = L"圆曲线半径\\加宽类别";
constexpr int kHeaderWidth = 100;
constexpr int kRangeWidth = 50;
constexpr int kCaptionHeight = 65; // three lines
constexpr const wchar_t* kStandardCategories[] = {L"小型汽车", L"普通汽车", L"铰接车",
                                                  L"1类: 5m",  L"2类: 8m",  L"3类: 5.2m+8.8m"};

const CMyRadiusRangeColumn* RangeOf(const CXTPReportColumn* column)
{
    return dynamic_cast<const CMyRadiusRangeColumn*>(column);
}

CString OneLine(CString caption)
{
    std::erase(caption, L'\n');
    return caption;
}

// A pasted caption that can be a category: a word, in no way a value.
CString CategoryName(const CString& caption)
{
    const bool isCategory = !CaptionParts(caption).word.empty() && Printable(caption) == caption;
    return isCategory ? Trim(caption) : CString();
}

// The range that a pasted caption means: "250~400", "250<R≤400", "250-400 m".
std::optional<RadiusRange> RangeIn(const CString& caption)
{
    const CaptionParts parts(caption);
    const size_t end = parts.numbers.find(L';') + 1;
    RadiusRange range;
    const CString text =
        parts.numbers.substr(0, end - 1) + L'~' + TrimRight(parts.numbers.substr(end), L";");
    const bool isRange = parts.IsNumber() && ReadRadiusRange(text, range).empty();
    return isRange ? std::optional(range) : std::nullopt;
}

bool Contains(const std::vector<CString>& names, const CString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&name](const CString& one) { return EqualNoCase(one, name); });
}

} // namespace

void CWideningGrid::Create(CDSPage& page)
{
    CreateGrid(
        page, [](int) { return MakeDecimalCell<2, false>(); }, CDSPage::kGridPlaceholder,
        CDSPage::kGrid, kCorner, kHeaderWidth);
    Control().GetPaintManager()->SetHeaderHeight(kCaptionHeight);
    Control().SetRowOffer({L"加宽类别", L"", CategoryName, [this](const CStringArray& names) {
                               for (const CString& name : names)
                                   AddRow(name);
                           }});
    Control().SetColumnOffer({L"圆曲线半径范围", L" m",
                              [this](const CString& caption) { return RangeName(caption); },
                              [this](const CStringArray& names) { AddRanges(names); }});
    // What undo brings back may have been captioned before the ends changed their rule.
    QObject::connect(&Control(), &CXTPReportControl::UndoDone, &page, [this] { Recaption(); });
}

// Columns

std::vector<CMyRadiusRangeColumn*> CWideningGrid::Ranges() const
{
    std::vector<CMyRadiusRangeColumn*> ranges;
    for (const auto& column : Control().GetColumns().All())
        if (auto* const range = dynamic_cast<CMyRadiusRangeColumn*>(column.get()))
            ranges.push_back(range);
    return ranges;
}

void CWideningGrid::SetExcludesMin(bool excludesMin)
{
    Control().CommitEdit();
    Control().GetUndo().Step([&] {
        m_excludesMin = excludesMin;
        Recaption();
    });
}

void CWideningGrid::Recaption()
{
    for (CMyRadiusRangeColumn* range : Ranges())
        range->SetRange(range->GetMin(), range->GetMax(), m_excludesMin);
    Control().Populate();
}

void CWideningGrid::InsertRange(int at, int min, int max)
{
    auto* const range = new CMyRadiusRangeColumn(AddCells(), kRangeWidth);
    range->SetRange(min, max, m_excludesMin);
    Control().GetColumns().InsertAt(at, range);
}

void CWideningGrid::AddRange(int min, int max)
{
    InsertRange(Control().GetColumns().GetCount(), min, max);
}

// Menu

// The standard categories, then the rows of other names.
std::vector<CString> CWideningGrid::Categories() const
{
    std::vector<CString> categories(std::begin(kStandardCategories), std::end(kStandardCategories));
    for (int row = 0; row < GetRowCount(); ++row)
        if (const CString& name = RowHeader(row)->GetCaption(); !Contains(categories, name))
            categories.push_back(name);
    return categories;
}

CMenu CWideningGrid::MakeMenu(const CXTPReportColumn* column) const
{
    CMenu menu;
    UINT id = kFirstCommand;
    for (const CString& category : Categories())
        menu.AppendMenu(MF_STRING | (FindRow(category) >= 0 ? MF_CHECKED : 0), id++,
                        CMenu::Escape(Printable(category)));
    menu.AppendMenu(MF_STRING, id++, L"输入加宽类别...");
    menu.AppendMenu(MF_SEPARATOR);
    if (const CMyRadiusRangeColumn* range = RangeOf(column))
        menu.AppendMenu(MF_STRING, id++, L"移除“" + OneLine(range->GetCaption()) + L"”");
    menu.AppendMenu(GetRowCount() == 0 ? MF_GRAYED : MF_STRING, id, L"输入圆曲线半径...");
    return menu;
}

void CWideningGrid::Choose(int index, const CXTPReportColumn* column)
{
    const std::vector<CString> categories = Categories();
    const int afterCategories = index - static_cast<int>(categories.size());
    if (afterCategories < 0)
        ToggleCategory(categories[static_cast<size_t>(index)]);
    else if (afterCategories == 0)
        AskForCategory();
    else if (afterCategories == 1 && RangeOf(column))
        Control().GetColumns().Remove(column);
    else
        AskForRange();
}

void CWideningGrid::ToggleCategory(const CString& category)
{
    if (const int row = FindRow(category); row >= 0)
        RemoveRow(row);
    else
        AddRow(category);
}

void CWideningGrid::AskForCategory()
{
    CInputWideningTypeDialog dialog(&Page());
    CString category;
    if (!dialog.Input(category)) return;
    if (FindRow(category) >= 0)
        MessageBox(&Page(), L"输入的加宽类别已经存在!", L"提示", MB_ICONINFORMATION);
    else
        AddRow(category);
}

void CWideningGrid::AskForRange()
{
    CInputRadiusRangeDialog dialog(&Page());
    CString text;
    if (!dialog.Input(text)) return;
    if (CanAdd(dialog.GetRange()))
        InsertInOrder(dialog.GetRange());
    else
        MessageBox(&Page(), L"输入的圆曲线半径范围已经存在!", L"提示", MB_ICONINFORMATION);
}

bool CWideningGrid::CanAdd(const RadiusRange& added) const
{
    const std::vector<CMyRadiusRangeColumn*> ranges = Ranges();
    return std::none_of(ranges.begin(), ranges.end(), [&added](const auto* range) {
        return range->GetMin() == added.min || range->GetMax() == added.max;
    });
}

void CWideningGrid::InsertInOrder(const RadiusRange& added)
{
    const std::vector<CMyRadiusRangeColumn*> ranges = Ranges();
    const auto lower = std::find_if(ranges.begin(), ranges.end(), [&added](const auto* range) {
        return range->GetMin() < added.min;
    });
    InsertRange(1 + static_cast<int>(lower - ranges.begin()), added.min, added.max);
}

CString CWideningGrid::RangeName(const CString& caption) const
{
    const auto range = RangeIn(caption);
    return range && CanAdd(*range) ? Format(L"%d~%d", range->min, range->max) : CString();
}

void CWideningGrid::AddRanges(const CStringArray& names)
{
    for (const CString& name : names)
        if (const auto range = RangeIn(name); range && CanAdd(*range)) InsertInOrder(*range);
}
