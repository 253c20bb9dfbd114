#include "host/ImportDialog.h"

#include <algorithm>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
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

// What of the file's name tells more than the style's: files of a project are called as the style,
// with its identity behind.
QString FileLabel(const QString& path, const QString& style)
{
    static const QRegularExpression kIdentity(
        QStringLiteral("[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}$"));
    const QFileInfo file(path);
    QString name = file.completeBaseName();
    name.remove(kIdentity);
    return name == style || name.isEmpty() ? QString() : name + u'.' + file.suffix();
}

QString ChangeText(const std::optional<StyleChanges>& changes)
{
    if (!changes) return QObject::tr("库中已有");
    if (changes->inOneLine.empty()) return QObject::tr("库中已有, 相同");
    return QObject::tr("库中已有, 覆盖改变 %1").arg(ToShown(changes->inOneLine));
}
} // namespace

ImportDialog::ImportDialog(const CStyles& styles, const std::vector<ImportFile>& files,
                           QWidget* parent)
    : QDialog(parent), m_list(new QListWidget), m_shown(new QPlainTextEdit),
      m_overwrite(new QCheckBox(tr("覆盖库中已有的样式(&O)"))),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("导入"));
    SetGuideSection(this, L"导入、导出、模板");
    SetControlId(m_list, ControlId::ImportNames);
    SetControlId(m_overwrite, ControlId::ImportOverwrite);
    SetControlId(m_shown, ControlId::ImportChanges);
    m_shown->setReadOnly(true);
    m_shown->setTabChangesFocus(true);
    m_shown->setAccessibleName(tr("覆盖会改变的值"));
    m_shown->setPlaceholderText(tr("选中的样式库中没有, 或者相同。"));
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
    auto* parts = new QSplitter(Qt::Vertical);
    parts->addWidget(m_list);
    parts->addWidget(m_shown);
    parts->setStretchFactor(0, 3);
    parts->setStretchFactor(1, 2);
    parts->setChildrenCollapsible(false);
    layout->addWidget(parts, 1);
    layout->addWidget(m_overwrite);
    layout->addWidget(m_buttons);

    Fill(styles, files);
    connect(m_list, &QListWidget::itemChanged, this, &ImportDialog::EnableOK);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::currentItemChanged, this, &ImportDialog::ShowChanges);
    ShowChanges();
    EnableOK();
    resize(fontMetrics().height() * 40, fontMetrics().height() * 30);
    new WindowPlace(this, QStringLiteral("dialogs/import"));
}

void ImportDialog::Fill(const CStyles& styles, const std::vector<ImportFile>& files)
{
    bool known = false;
    for (size_t file = 0; file < files.size(); ++file) {
        const auto& [path, names, ids, changes] = files[file];
        for (size_t i = 0; i < names.size() && i < ids.size(); ++i) {
            const bool has = styles.Item(ids[i]) != nullptr;
            QString shown = ToShown(names[i]);
            m_changes.push_back(i < changes.size() ? changes[i] : std::nullopt);
            if (has) shown = tr("%1  (%2)").arg(shown, ChangeText(m_changes.back()));
            const QString label = FileLabel(path, ToQString(names[i]));
            if (files.size() > 1 && !label.isEmpty()) shown = tr("%1  — %2").arg(shown, label);
            auto* item = new QListWidgetItem(shown, m_list);
            item->setData(kNameRole, ToQString(names[i]));
            item->setData(kFileRole, static_cast<int>(file));
            item->setToolTip(ToToolTip(path));
            item->setCheckState(Qt::Checked);
            known = known || has;
        }
    }
    const auto changing = std::find_if(m_changes.begin(), m_changes.end(),
                                       [](const auto& one) { return one && !one->all.empty(); });
    m_list->setCurrentRow(
        changing == m_changes.end() ? 0 : static_cast<int>(changing - m_changes.begin()));
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

void ImportDialog::ShowChanges()
{
    const int row = m_list->currentRow();
    QStringList lines;
    if (row >= 0 && m_changes[static_cast<size_t>(row)])
        for (const CString& line : m_changes[static_cast<size_t>(row)]->all)
            lines << ToShown(line);
    m_shown->setPlainText(lines.join(u'\n'));
}

void ImportDialog::EnableOK()
{
    bool any = false;
    for (int i = 0; i < m_list->count(); ++i)
        any = any || m_list->item(i)->checkState() == Qt::Checked;
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(any);
}
