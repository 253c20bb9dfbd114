#include "host/ImportDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/ControlIds.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/WindowPlace.h"

using namespace designspec;

namespace {
constexpr int kNameRole = Qt::UserRole;
constexpr int kFileRole = Qt::UserRole + 1;
} // namespace

ImportDialog::ImportDialog(const CStyles& styles, const std::vector<ImportFile>& files,
                           QWidget* parent)
    : QDialog(parent), m_list(new QListWidget),
      m_overwrite(new QCheckBox(tr("覆盖库中已有的样式(&O)"))),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("导入"));
    SetGuideSection(this, L"导入、导出、模板");
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

    Fill(styles, files);
    connect(m_list, &QListWidget::itemChanged, this, &ImportDialog::EnableOK);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    EnableOK();
    resize(fontMetrics().height() * 28, fontMetrics().height() * 22);
    new WindowPlace(this, QStringLiteral("dialogs/import"));
}

void ImportDialog::Fill(const CStyles& styles, const std::vector<ImportFile>& files)
{
    bool known = false;
    for (size_t file = 0; file < files.size(); ++file) {
        const auto& [path, names, ids] = files[file];
        for (size_t i = 0; i < names.size() && i < ids.size(); ++i) {
            const bool has = styles.Item(ids[i]) != nullptr;
            QString shown = ToShown(names[i]);
            if (has) shown = tr("%1  (库中已有)").arg(shown);
            if (files.size() > 1) shown = tr("%1  — %2").arg(shown, QFileInfo(path).fileName());
            auto* item = new QListWidgetItem(shown, m_list);
            item->setData(kNameRole, ToQString(names[i]));
            item->setData(kFileRole, static_cast<int>(file));
            item->setToolTip(ToToolTip(path));
            item->setCheckState(Qt::Checked);
            known = known || has;
        }
    }
    m_list->setCurrentRow(0);
    m_overwrite->setEnabled(known);
    m_overwrite->setToolTip(known ? QString() : tr("文件中没有库中已有的样式"));
}

std::optional<CStringArray> ImportDialog::Names(int file) const
{
    CStringArray names;
    bool isAll = true;
    for (int i = 0; i < m_list->count(); ++i) {
        const QListWidgetItem& item = *m_list->item(i);
        if (item.data(kFileRole).toInt() != file) continue;
        const bool isChecked = item.checkState() == Qt::Checked;
        isAll = isAll && isChecked;
        if (isChecked) names.push_back(FromQString(item.data(kNameRole).toString()));
    }
    if (names.empty()) return std::nullopt;
    return isAll ? CStringArray() : names;
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
