#include "platform/mfc/Dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QUiLoader>

#include "base/Format.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/WindowPlace.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

// Loads a form into a dialog that stands already, instead of making a new one.
class CFormLoader : public QUiLoader {
public:
    explicit CFormLoader(QWidget* form) : m_form(form) {}

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        if (parent) return QUiLoader::createWidget(className, parent, name);
        m_form->setObjectName(name);
        return m_form;
    }

private:
    QWidget* m_form;
};

// The captions of the two buttons of every dialog are fixed; the key is told by the tooltip.
void GiveKey(QPushButton* button, const QKeySequence& key)
{
    button->setShortcut(key);
    button->setToolTip(key.toString(QKeySequence::NativeText));
}

QWidget* FindControl(const QWidget* parent, int id)
{
    for (QObject* object : parent->children()) {
        auto* const child = qobject_cast<QWidget*>(object);
        if (!child || child->isWindow()) continue;
        const QVariant value = child->property(kControlIdProperty);
        if (value.isValid() && value.toInt() == id) return child;
        if (dynamic_cast<CDialog*>(child)) continue;
        if (QWidget* const found = FindControl(child, id)) return found;
    }
    return nullptr;
}

} // namespace

CDialog::CDialog(UINT nIDTemplate, QWidget* pParent) : QDialog(pParent)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_bLoaded = LoadTemplate(nIDTemplate);
    WireButtons();
    new WindowPlace(this, QStringLiteral("dialogs/%1").arg(nIDTemplate));
}

CDialog::~CDialog() = default;

bool CDialog::LoadTemplate(UINT nIDTemplate)
{
    QFile file(QStringLiteral(":/dialogs/%1.ui").arg(nIDTemplate));
    CFormLoader loader(this);
    if (file.open(QIODevice::ReadOnly) && loader.load(&file)) return true;
    Trace(Format(L"对话框资源 %u 不存在或无法读取", nIDTemplate));
    return false;
}

void CDialog::WireButtons()
{
    if (auto* const ok = GetDlgItem<QPushButton>(IDOK)) {
        ok->setDefault(true);
        connect(ok, &QPushButton::clicked, this, [this] { OnOK(); });
        GiveKey(ok, Qt::ALT | Qt::Key_O);
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
            connect(new QShortcut(Qt::CTRL | enter, this), &QShortcut::activated, ok,
                    &QPushButton::click);
    }
    if (auto* const cancel = GetDlgItem<QPushButton>(IDCANCEL)) {
        connect(cancel, &QPushButton::clicked, this, [this] { OnCancel(); });
        GiveKey(cancel, Qt::ALT | Qt::Key_C);
    }
}

bool CDialog::InitOnce()
{
    if (m_bInitialised) return true;
    m_bInitialised = true;
    return OnInitDialog();
}

int CDialog::DoModal()
{
    InitOnce();
    return exec();
}

bool CDialog::Create(QWidget* pParent)
{
    if (!pParent || !m_bLoaded) return false;
    m_bChild = true;
    setParent(pParent, Qt::Widget);
    hide();                     // until somebody shows it; the parent's own showing does not count
    setAttribute(Qt::WA_Moved); // its place is its parent's matter, not the dialog's
    return InitOnce();
}

void CDialog::EndDialog(int nResult)
{
    if (!m_bChild) done(nResult);
}

QWidget* CDialog::GetDlgItem(int nID) const
{
    return FindControl(this, nID);
}

CString CDialog::GetDlgItemText(int nID) const
{
    QWidget* const control = GetDlgItem(nID);
    if (const auto* edit = qobject_cast<QLineEdit*>(control)) return FromQString(edit->text());
    if (const auto* label = qobject_cast<QLabel*>(control)) return FromQString(label->text());
    if (const auto* group = qobject_cast<QGroupBox*>(control)) return FromQString(group->title());
    if (const auto* list = qobject_cast<QComboBox*>(control))
        return FromQString(list->currentText());
    if (const auto* button = qobject_cast<QAbstractButton*>(control))
        return FromQString(button->text());
    return {};
}

void CDialog::SetDlgItemText(int nID, const CString& text)
{
    QWidget* const control = GetDlgItem(nID);
    const QString value = ToQString(text);
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        edit->setText(value);
    else if (auto* label = qobject_cast<QLabel*>(control))
        label->setText(value);
    else if (auto* group = qobject_cast<QGroupBox*>(control))
        group->setTitle(value);
    else if (auto* list = qobject_cast<QComboBox*>(control))
        list->setCurrentText(value);
    else if (auto* button = qobject_cast<QAbstractButton*>(control))
        button->setText(value);
}

void CDialog::SetWindowText(const CString& text)
{
    setWindowTitle(ToQString(text));
}

CString CDialog::GetWindowText() const
{
    return FromQString(windowTitle());
}

void CDialog::CheckDlgButton(int nID, bool check)
{
    if (auto* const button = GetDlgItem<QAbstractButton>(nID)) button->setChecked(check);
}

bool CDialog::IsDlgButtonChecked(int nID) const
{
    const auto* const button = GetDlgItem<QAbstractButton>(nID);
    return button && button->isChecked();
}

void CDialog::EnableWindow(int nID, bool enable)
{
    if (QWidget* const control = GetDlgItem(nID)) control->setEnabled(enable);
}

void CDialog::ShowWindow(int nID, bool show)
{
    if (QWidget* const control = GetDlgItem(nID)) control->setVisible(show);
}

bool CDialog::OnInitDialog()
{
    return true;
}

void CDialog::OnOK()
{
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

void CDialog::accept()
{
    OnOK();
}

void CDialog::reject()
{
    OnCancel();
}

void CDialog::setVisible(bool visible)
{
    if (visible) InitOnce();
    QDialog::setVisible(visible);
}

void CDialog::keyPressEvent(QKeyEvent* event)
{
    // Enter and Esc in a page are for the dialog around it.
    if (m_bChild)
        event->ignore();
    else
        QDialog::keyPressEvent(event);
}
