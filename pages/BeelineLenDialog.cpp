#include "pages/BeelineLenDialog.h"

#include "app/input/NumberText.h"
#include "model/Rules.h"

using namespace designspec;

// One limit: its controls, and its fields of the criterion.
struct BeelineLenRow {
    int check;
    int edit;
    int sourceButton;
    double CDSBeelineLen::*value;
    CString CDSBeelineLen::*source;
    const wchar_t* name; // the field's label; also in messages
};

namespace {

constexpr UINT kDialogResource = 103;

constexpr BeelineLenRow kRows[] = {
    {103, 104, 109, &CDSBeelineLen::MaxLen, &CDSBeelineLen::MaxLenCriterion, L"最大直线长度"},
    {105, 106, 110, &CDSBeelineLen::MinLenInOneDir, &CDSBeelineLen::MinLenInOneDirCriterion,
     L"同向曲线间最小直线长度"},
    {107, 108, 112, &CDSBeelineLen::MinLenReverseCurve, &CDSBeelineLen::MinLenReverseCurveCriterion,
     L"反向曲线间最小直线长度"},
};

} // namespace

CBeelineLenDialog::CBeelineLenDialog() : CCriterionPage(kDialogResource)
{
    CString* source = m_sources;
    for (const BeelineLenRow& row : kRows) {
        AddSourceButton(row.sourceButton, *source++);
        AddLimit(row.edit, row.name);
        DisableInViewMode({row.check, row.edit});
    }
}

void CBeelineLenDialog::InitPage()
{
    for (const BeelineLenRow& row : kRows)
        EnableByCheck(row.check, {row.edit, row.sourceButton});
}

void CBeelineLenDialog::LoadStep(const CDSBeelineLen& criterion)
{
    CString* source = m_sources;
    for (const BeelineLenRow& row : kRows) {
        const double value = criterion.*row.value;
        const bool limited = IsStraightLimit(value);
        CheckDlgButton(row.check, limited);
        SetDlgItemText(row.edit, limited ? DecimalText(value, 1, true) : CString());
        *source++ = limited ? criterion.*row.source : CString();
    }
}

bool CBeelineLenDialog::StoreStep(CDSBeelineLen& criterion, CString& message)
{
    CString* source = m_sources;
    for (const BeelineLenRow& row : kRows)
        if (!StoreRow(row, *source++, criterion, message)) return false;
    return true;
}

bool CBeelineLenDialog::StoreRow(const BeelineLenRow& row, const CString& source,
                                 CDSBeelineLen& criterion, CString& message)
{
    double& value = criterion.*row.value;
    if (!IsDlgButtonChecked(row.check)) {
        value = 0;
        (criterion.*row.source).clear();
        return true;
    }
    const CString text = EnteredTextOf(row.edit);
    const CString name = row.name;
    if (text.empty()) return Refuse(message, name + L"不能是空!", row.edit);
    if (!ReadOneDecimal(text, value) || !IsStraightLimit(value))
        return Refuse(message, StraightText(name), row.edit);
    criterion.*row.source = source;
    return true;
}
