#include "host/ImportDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/ControlIds.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/WindowPlace.h"

using namespace designspec;

namespace {
constexpr int kNameRole = Qt::UserRole;
}

ImportDialog::ImportDialog(const CStyles& styles, const CStringArray& names,
                           const CArray<GUID>& ids, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget),
      m_overwrite(new QCheckBox(tr("覆盖库中已有的样式(&O)"))),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("导入"));
    SetControlId(m_list, ControlId::ImportNames);
    SetControlId(m_overwrite, ControlId::ImportOverwrite);
    QPushButton* const ok = m_buttons->button(QDialogButtonBox::Ok);
    ok->setText(tr("导入(&I)"));
    SetControlId(ok, IDOK);
    QPushButton* const cancel = m_buttons->button(QDialogButtonBox::Cancel);
    cancel->setText(tr("取消(&C)"));
    SetControlId(cancel, IDCANCEL);

    auto* label = new QLabel(tr("要导入的样式(&S):"));
    label->setBuddy(m_list);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list);
    layout->addWidget(m_overwrite);
    layout->addWidget(m_buttons);

    Fill(styles, names, ids);
    connect(m_list, &QListWidget::itemChanged, this, &ImportDialog::EnableOK);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    EnableOK();
    resize(fontMetrics().height() * 28, fontMetrics().height() * 22);
    new WindowPlace(this, QStringLiteral("dialogs/import"));
}

void ImportDialog::Fill(const CStyles& styles, const CStringArray& names, const CArray<GUID>& ids)
{
    bool known = false;
    for (size_t i = 0; i < names.size() && i < ids.size(); ++i) {
        const QString name = ToQString(names[i]);
        const bool has = styles.Item(ids[i]) != nullptr;
        const QString shown = ToShown(names[i]);
        auto* item = new QListWidgetItem(has ? tr("%1  (库中已有)").arg(shown) : shown, m_list);
        item->setData(kNameRole, name);
        item->setCheckState(Qt::Checked);
        known = known || has;
    }
    m_list->setCurrentRow(0);
    m_overwrite->setEnabled(known);
    m_overwrite->setToolTip(known ? QString() : tr("文件中没有库中已有的样式"));
}

CStringArray ImportDialog::Names() const
{
    CStringArray names;
    for (int i = 0; i < m_list->count(); ++i)
        if (m_list->item(i)->checkState() == Qt::Checked)
            names.push_back(FromQString(m_list->item(i)->data(kNameRole).toString()));
    if (static_cast<int>(names.size()) == m_list->count()) names.clear();
    return names;
}

bool ImportDialog::Overwrite() const
{
    return m_overwrite->isChecked();
}

void ImportDialog::EnableOK()
{
    bool any = false;
    for (int i = 0; i < m_list->count(); ++i)
        any = any || m_list->item(i)->checkState() == Qt::Checked;
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(any);
}
