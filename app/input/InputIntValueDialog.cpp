#include "app/input/InputIntValueDialog.h"

#include <algorithm>

#include "app/input/NumberText.h"
#include "model/Rules.h"

using namespace designspec;

CInputIntValueDialog::CInputIntValueDialog(const CString& name, const CString& prompt,
                                           const CArray<int>& values, QWidget* parent, int minimum,
                                           int maximum)
    : CCheckedInputDialog(L"输入" + name, prompt, parent), m_name(name), m_values(values),
      m_minimum(minimum), m_maximum(maximum)
{
}

CString CInputIntValueDialog::Fault(CString& value)
{
    value = EnteredText(value);
    if (value.empty()) return m_name + L"不能为空!";
    int number = 0;
    if (!ReadWholeNumber(value, number)) return m_name + L"必须是整数!";
    if (m_minimum != m_maximum && (number < m_minimum || number > m_maximum))
        return RangeText(m_name, m_minimum, m_maximum);
    if (std::find(m_values.begin(), m_values.end(), number) != m_values.end())
        return L"输入的" + m_name + L"已经存在!";
    return {};
}
