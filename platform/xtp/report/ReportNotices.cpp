#include "platform/xtp/report/ReportNotices.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include "platform/mfc/MessageBox.h"
#include "platform/xtp/report/ReportPaste.h"

using namespace designspec;

void ReportNotices::Add(const CString& notice)
{
    auto same = std::find_if(m_notices.begin(), m_notices.end(),
                             [&notice](const Notice& one) { return one.text == notice; });
    if (same == m_notices.end()) same = m_notices.insert(same, {notice, {}});
    if (!m_cell.empty()) same->cells.push_back(m_cell);
    QMetaObject::invokeMethod(
        m_owner, [this] { ShowLater(); }, Qt::QueuedConnection);
}

CString ReportNotices::Take()
{
    CString text;
    for (const Notice& notice : std::exchange(m_notices, {})) {
        text += (text.empty() ? L"" : L"\n") + notice.text;
        if (!notice.cells.empty()) text += L"\n    " + FirstNames(notice.cells);
    }
    return text;
}

void ReportNotices::ShowLater()
{
    constexpr std::chrono::milliseconds kWait(20);
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        Show();
    else
        QTimer::singleShot(kWait, m_owner, [this] { ShowLater(); });
}

void ReportNotices::Show()
{
    const CString text = Take();
    if (text.empty() || !m_owner->window()->isVisible()) return;
    MessageBox(m_owner, text, L"提示", MB_ICONINFORMATION);
}
