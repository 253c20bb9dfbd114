#include "pages/MaxSuperElevPage.h"

#include <QCheckBox>

#include "app/input/NumberText.h"
#include "base/Format.h"
#include "model/Rules.h"
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
    {&C::MaxSuperElev, L"最大超高", InPercent<MakeCell<CMyRecordItemPositiveInt>>},
};
constexpr int kMaxRow = 2;

CString WithoutLineBreak(CString text)
{
    std::erase(text, L'\n');
    return text;
}

} // namespace

CMaxSuperElevPage::CMaxSuperElevPage() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
    AddLimit(kSnowEdit, L"积雪冰冻地区最大超高");
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
    CheckDlgButton(kSnowCheck, IsSnowSuperElev(snow));
    SetDlgItemText(kSnowEdit, IsSnowSuperElev(snow) ? Format(L"%d", snow) : CString());
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
        const auto goThere = [this, row, speed] { m_grid.GoTo(row, speed); };
        if (!cell || cell->IsEmpty())
            return Refuse(message, NoValueAtSpeedText(speed, name), kGrid, goThere);
        const int value = static_cast<int>(cell->GetNumber());
        if (row == kMaxRow && !IsMaxSuperElev(value))
            return Refuse(message, MaxSuperElevText(speed, name), kGrid, goThere);
        AddSpeed(criterion.*kRows[row].table, speed, value);
    }
    return true;
}

CString CMaxSuperElevPage::RuleOf(const CMyRecordItemValue& cell, const QModelIndex& index) const
{
    return index.row() == kMaxRow ? kMaxSuperElevRange : CCriterionPage::RuleOf(cell, index);
}

bool CMaxSuperElevPage::StoreSnow(CDSMaxSuperElevation& criterion, CString& message)
{
    int snow = 0;
    if (IsDlgButtonChecked(kSnowCheck) && !ReadSnow(snow))
        return Refuse(message, kSnowSuperElevText, kSnowEdit);
    criterion.MaxSuperElevOnSFR = snow;
    return true;
}

bool CMaxSuperElevPage::ReadSnow(int& value) const
{
    return ReadWholeNumber(EnteredTextOf(kSnowEdit), value) && IsSnowSuperElev(value);
}

CArray<int> CMaxSuperElevPage::GetMaxSuperElevations() const
{
    C shown;
    m_grid.Store(shown);
    int snow = 0;
    const bool hasSnow = IsDlgButtonChecked(kSnowCheck) && ReadSnow(snow);
    shown.MaxSuperElevOnSFR = hasSnow ? snow : 0;
    return MaximaInUse(shown);
}
