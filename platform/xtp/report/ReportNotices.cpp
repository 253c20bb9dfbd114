#include "platform/xtp/report/ReportNotices.h"

#include <algorithm>
#include <utility>

#include <QWidget>

#include "platform/mfc/MessageBox.h"

using namespace designspec;

void ReportNotices::Add(const CString& notice)
{
    if (std::find(m_notices.begin(), m_notices.end(), notice) != m_notices.end()) return;
    m_notices.push_back(notice);
    QMetaObject::invokeMethod(
        m_owner, [this] { Show(); }, Qt::QueuedConnection);
}

void ReportNotices::Show()
{
    CString text;
    for (const CString& notice : std::exchange(m_notices, {}))
        text += (text.empty() ? L"" : L"\n") + notice;
    if (text.empty() || !m_owner->window()->isVisible()) return;
    MessageBox(m_owner, text, L"提示", MB_ICONINFORMATION);
}
