#include "pages/InputRadiusRangeDialog.h"

#include "app/input/NumberText.h"

CInputRadiusRangeDialog::CInputRadiusRangeDialog(QWidget* parent)
    : CCheckedInputDialog(L"输入圆曲线半径", L"圆曲线半径范围(m, 以~分隔):", parent)
{
}

CString CInputRadiusRangeDialog::Fault(CString& value)
{
    value = EnteredText(value);
    if (value.empty()) return L"圆曲线半径范围不能为空!";
    return ReadRadiusRange(value, m_range);
}
