#include "pages/MaxSuperElevPage.h"

#include <QCheckBox>

#include "app/input/NumberText.h"
#include "base/Format.h"
#include "pages/GradualChangeRatioItem.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 117;
constexpr int kSnowEdit = 120;
constexpr int kSnowCheck = 121;

using C = CDSMaxSuperElevation;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::GradualChangeRatio1, L"旋转轴在中线\n的超高渐变率", MakeCell<CGradualChangeRatioItem>},
    {&C::GradualChangeRatio2, L"旋转轴在边线\n的超高渐变率", MakeCell<CGradualChangeRatioItem>},
    {&C::MaxSuperElev, L"最大超高"},
};
constexpr int kMaxRow = 2;

// The message for a value out of range says 0~20: both ends are outside.
bool IsMaxSuperElev(int percent)
{
    return percent >= 1 && percent <= 19;
}

CString WithoutLineBreak(CString text)
{
    std::erase(text, L'\n');
    return text;
}

} // namespace

CMaxSuperElevPage::CMaxSuperElevPage() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
    DisableInViewMode({kSnowCheck, kSnowEdit});
}

void CMaxSuperElevPage::InitPage()
{
    EnableByCheck(kSnowCheck, {kSnowEdit});
    if (const auto* const check = GetDlgItem<QCheckBox>(kSnowCheck))
        connect(check, &QCheckBox::toggled, this, [this](bool checked) {
            if (!checked) SetDlgItemText(kSnowEdit, {});
        });
    // Speeds that the user adds get narrower columns than those that were there.
    m_grid.Create(*this, kRows, {.headerWidth = 100, .speedWidth = 50, .addedWidth = 40});
}

void CMaxSuperElevPage::LoadStep(const CDSMaxSuperElevation& criterion)
{
    m_grid.Load(criterion);
    const int snow = criterion.MaxSuperElevOnSFR;
    CheckDlgButton(kSnowCheck, snow >= 1);
    SetDlgItemText(kSnowEdit, snow >= 1 ? Format(L"%d", snow) : CString());
}

bool CMaxSuperElevPage::StoreStep(CDSMaxSuperElevation& criterion, CString& message)
{
    for (const auto& row : kRows)
        (criterion.*row.table).RemoveAll();
    for (int speed : m_grid.Speeds())
        if (!StoreSpeed(speed, criterion, message)) return false;
    return StoreSnow(criterion, message);
}

// All rows of a speed must be filled.
bool CMaxSuperElevPage::StoreSpeed(int speed, CDSMaxSuperElevation& criterion, CString& message)
{
    for (int row = 0; row < m_grid.GetRowCount(); ++row) {
        const CMyRecordItemValue* const cell = m_grid.Cell(row, speed);
        const CString name = WithoutLineBreak(m_grid.RowHeader(row)->GetCaption());
        if (!cell || cell->IsEmpty())
            return Refuse(message, Format(L"设计车速 %d 对应的 %s 不能为空!", speed, name), kGrid);
        const int value = static_cast<int>(cell->GetNumber());
        if (row == kMaxRow && !IsMaxSuperElev(value))
            return Refuse(message,
                          Format(L"设计车速 %d 对应的 %s 值不合法, 必须在0~20之间!", speed, name),
                          kGrid);
        AddSpeed(criterion.*kRows[row].table, speed, value);
    }
    return true;
}

bool CMaxSuperElevPage::StoreSnow(CDSMaxSuperElevation& criterion, CString& message)
{
    int snow = 0;
    if (IsDlgButtonChecked(kSnowCheck) && !ReadSnow(snow))
        return Refuse(message, L"积雪冰冻地区最大超高必须为大于0的正整数!", kSnowEdit);
    criterion.MaxSuperElevOnSFR = snow;
    return true;
}

bool CMaxSuperElevPage::ReadSnow(int& value) const
{
    return ReadWholeNumber(EnteredTextOf(kSnowEdit), value) && value >= 1;
}

CArray<int> CMaxSuperElevPage::GetMaxSuperElevations() const
{
    CArray<int> found;
    int snow = 0;
    if (IsDlgButtonChecked(kSnowCheck) && ReadSnow(snow)) found.push_back(snow);
    for (int speed : m_grid.Speeds()) {
        const CMyRecordItemValue* const cell = m_grid.Cell(kMaxRow, speed);
        const int value = cell ? static_cast<int>(cell->GetNumber()) : 0; // 0 when it is empty
        if (IsMaxSuperElev(value) && std::find(found.begin(), found.end(), value) == found.end())
            found.push_back(value);
    }
    return found;
}
