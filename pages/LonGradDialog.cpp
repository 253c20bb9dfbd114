#include "pages/LonGradDialog.h"

#include "app/input/NumberText.h"
#include "model/Rules.h"
#include "pages/framework/MyRecordItemPositiveDouble.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 109;
constexpr int kHeaderWidth = 130; // the captions are longer than on other pages

using C = CDSLonGrad;
// A speed that the user adds takes whole percents until the page is loaded again.
constexpr SpeedTableRow<C, double> kRows[] = {
    {&C::MaxGradRecommendedValues, L"最大纵坡推荐值(%)", InPercent<MakeDecimalCell<1, true>>,
     InPercent<MakeCell<CMyRecordItemPositiveInt>>},
    {&C::MaxGradLimitedValues, L"最大纵坡限制值(%)", InPercent<MakeDecimalCell<1, true>>,
     InPercent<MakeCell<CMyRecordItemPositiveInt>>},
};

struct GradientEdit {
    int edit;
    double C::*value;    // %
    const wchar_t* name; // the field's label; also in messages
};
// In the order in which they are checked.
constexpr GradientEdit kEdits[] = {
    {110, &C::GradeCompensationOnPlateau, L"高原地区最大纵坡折减"},
    {104, &C::MaxGradeOnSnowFrozenRegion, L"积雪冰冻地区最大纵坡"},
    {109, &C::MinGrad, L"最小纵坡"},
};

} // namespace

CLonGradDialog::CLonGradDialog() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
    for (const GradientEdit& one : kEdits) {
        AddLimit(one.edit, one.name);
        DisableInViewMode({one.edit});
    }
}

void CLonGradDialog::InitPage()
{
    m_grid.Create(*this, kRows, {.headerWidth = kHeaderWidth});
}

void CLonGradDialog::LoadStep(const CDSLonGrad& criterion)
{
    for (const GradientEdit& one : kEdits)
        SetDlgItemText(one.edit, DecimalText(criterion.*one.value, 1, true));
    m_grid.Load(criterion);
    m_source = criterion.Criterion;
}

bool CLonGradDialog::StoreStep(CDSLonGrad& criterion, CString& message)
{
    for (const GradientEdit& one : kEdits) {
        const CString text = EnteredTextOf(one.edit);
        const CString name = one.name;
        if (text.empty()) return Refuse(message, name + L"不能是空!", one.edit);
        if (!ReadOneDecimal(text, criterion.*one.value))
            return Refuse(message, GradientText(name), one.edit);
    }
    m_grid.Store(criterion);
    criterion.Criterion = m_source;
    return true;
}
