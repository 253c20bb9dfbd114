#include "pages/RadiusDialog.h"

#include "base/Format.h"
#include "base/Number.h"
#include "model/Rules.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 104;
constexpr int kMaxRadCheck = 107;
constexpr int kMaxRadEdit = 108;
constexpr int kMaxRadSource = 109;
constexpr int kMinRadSource = 110;

using C = CDSCircularCurveRad;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::noSuperelevationMinRad, L"不设超高最小半径(m)"},
    {&C::SuperelevationRecommendRad, L"设超高推荐半径(m)"},
    {&C::SuperelevationMinRad, L"设超高最小半径(m)"},
};

} // namespace

CRadiusDialog::CRadiusDialog() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kMaxRadSource, m_maxRadSource);
    AddSourceButton(kMinRadSource, m_minRadSource);
    AddLimit(kMaxRadEdit, L"圆曲线最大半径");
    DisableInViewMode({kMaxRadCheck, kMaxRadEdit});
}

void CRadiusDialog::InitPage()
{
    EnableByCheck(kMaxRadCheck, {kMaxRadEdit, kMaxRadSource});
    m_grid.Create(*this, kRows, {.gridId = 1001});
}

void CRadiusDialog::LoadStep(const CDSCircularCurveRad& criterion)
{
    m_grid.Load(criterion);
    const bool limited = IsRadius(criterion.MaxRad);
    SetDlgItemText(kMaxRadEdit, limited ? Format(L"%d", criterion.MaxRad) : CString());
    CheckDlgButton(kMaxRadCheck, limited);
    m_maxRadSource = criterion.MaxRadCriterion;
    m_minRadSource = criterion.MinRadCriterion;
}

bool CRadiusDialog::StoreStep(CDSCircularCurveRad& criterion, CString& message)
{
    if (!StoreMaxRad(criterion, message)) return false;
    m_grid.Store(criterion);
    criterion.MaxRadCriterion = m_maxRadSource;
    criterion.MinRadCriterion = m_minRadSource;
    return true;
}

bool CRadiusDialog::StoreMaxRad(CDSCircularCurveRad& criterion, CString& message)
{
    if (!IsDlgButtonChecked(kMaxRadCheck)) {
        criterion.MaxRad = 0;
        return true;
    }
    const CString text = EnteredTextOf(kMaxRadEdit);
    if (text.empty()) return Refuse(message, L"圆曲线最大半径不能为空!", kMaxRadEdit);
    criterion.MaxRad = Wtoi(text);
    const bool whole = IsNumericText(text) && text.find(L'.') == CString::npos;
    if (!whole || !IsRadius(criterion.MaxRad)) return Refuse(message, kMaxRadText, kMaxRadEdit);
    return true;
}
