#include "platform/mfc/MessageBox.h"

#include <QMessageBox>
#include <QPushButton>

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr UINT kButtonMask = 0x0F;
constexpr UINT kIconMask = 0xF0;

QMessageBox::Icon IconOf(UINT flags)
{
    switch (flags & kIconMask) {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

int MessageBox(QWidget* owner, const CString& text, const CString& caption, UINT flags)
{
    QMessageBox box(owner ? owner->window() : nullptr);
    box.setWindowTitle(ToQString(caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(text));
    box.setIcon(IconOf(flags));

    const bool question = (flags & kButtonMask) == MB_YESNO;
    QPushButton* const first = box.addButton(
        question ? QStringLiteral("是(&Y)") : QStringLiteral("确定(&O)"), QMessageBox::AcceptRole);
    QPushButton* second = nullptr;
    if ((flags & kButtonMask) != MB_OK)
        second = box.addButton(question ? QStringLiteral("否(&N)") : QStringLiteral("取消(&C)"),
                               QMessageBox::RejectRole);
    box.setDefaultButton(second && (flags & MB_DEFBUTTON2) ? second : first);
    box.setEscapeButton(second ? second : first);
    box.exec();

    const bool refused = second && box.clickedButton() != first;
    if (question) return refused ? IDNO : IDYES;
    return refused ? IDCANCEL : IDOK;
}
