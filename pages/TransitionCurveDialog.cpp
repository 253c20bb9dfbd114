#include "pages/TransitionCurveDialog.h"

#include "model/Rules.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 107;
constexpr int kBySuperelevation = 111;
constexpr int kByMinRad = 112;
constexpr int kRadiusPlaceholder = 113;
constexpr int kRadiusHint = 125;
constexpr int kRadiusGrid = 10002;

using C = CTransitionCurveMinLen;
constexpr SpeedTableRow<C> kLengthRows[] = {{&C::MinLen, L"缓和曲线最小长度(m)"}};
constexpr SpeedTableRow<C> kRadiusRows[] = {{&C::NoTCByMinRad, L"最小圆曲线半径(m)"}};

} // namespace

CTransitionCurveDialog::CTransitionCurveDialog() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
    AddLimit(kBySuperelevation, L"不设超高时不设缓和曲线");
    DisableInViewMode({kBySuperelevation, kByMinRad});
    HideInViewMode(kRadiusHint);
}

void CTransitionCurveDialog::InitPage()
{
    m_lengths.Create(*this, kLengthRows, {.headerWidth = 135});
    m_radii.Create(*this, kRadiusRows,
                   {.placeholder = kRadiusPlaceholder, .gridId = kRadiusGrid, .headerWidth = 140});
    EnableByCheck(kByMinRad, {kRadiusGrid});
}

void CTransitionCurveDialog::LoadStep(const CTransitionCurveMinLen& criterion)
{
    m_lengths.Load(criterion);
    m_radii.Load(criterion);
    // The other one goes out by itself.
    CheckDlgButton(criterion.NoTCBySuperelevation ? kBySuperelevation : kByMinRad, true);
    m_source = criterion.Criterion;
}

bool CTransitionCurveDialog::StoreStep(CTransitionCurveMinLen& criterion, CString& message)
{
    criterion.Criterion = m_source;
    m_lengths.Store(criterion);
    if (criterion.MinLen.count == 0) return Refuse(message, kNoTransitionLenText, kGrid);
    return StoreCondition(criterion, message);
}

bool CTransitionCurveDialog::StoreCondition(CTransitionCurveMinLen& criterion, CString& message)
{
    if (IsDlgButtonChecked(kBySuperelevation)) {
        criterion.NoTCByMinRad.RemoveAll();
        criterion.NoTCBySuperelevation = 1;
        return true;
    }
    // A flag that is set stays set beside the radii.
    m_radii.Store(criterion);
    if (criterion.NoTCByMinRad.count == 0)
        return Refuse(message, kNoTransitionRadText, kRadiusGrid);
    return true;
}
