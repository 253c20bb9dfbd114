#include "app/input/InputGradientDialog.h"

#include <algorithm>

#include "app/input/NumberText.h"
#include "model/Rules.h"

using namespace designspec;

CInputGradientDialog::CInputGradientDialog(const CString& title, const CString& prompt,
                                           const CArray<double>& gradients, QWidget* parent)
    : CCheckedInputDialog(title, prompt, parent), m_gradients(gradients)
{
}

CString CInputGradientDialog::Fault(CString& value)
{
    value = EnteredText(value);
    if (value.empty()) return L"坡度不能为空!";
    double gradient = 0;
    // Zero passes, and so does a point at the very end.
    if (!ReadOneDecimal(value, gradient)) return kRowGradientText;
    if (std::find(m_gradients.begin(), m_gradients.end(), gradient) != m_gradients.end())
        return L"输入的坡度已经存在!";
    return {};
}
