#include "host/DeletedStylesDialog.h"

#include <algorithm>

#include <QDateTime>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/File.h"
#include "host/ControlIds.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/QtText.h"
#include "platform/mfc/WindowPlace.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

QTreeWidget* MakeList()
{
    auto* list = new QTreeWidget;
    SetControlId(list, ControlId::Deleted);
    list->setHeaderLabels({QObject::tr("名称"), QObject::tr("删除时间"), QObject::tr("文件")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    return list;
}

// A file gets its place among the deleted ones when it is deleted.
QString TimeOf(const CString& path)
{
    const QFileInfo file(QString::fromStdString(NativePath(path)));
    return file.metadataChangeTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace

DeletedStylesDialog::DeletedStylesDialog(CStyleEditor& editor, QWidget* parent)
    : QDialog(parent), m_editor(editor), m_list(MakeList()), m_message(new QLabel)
{
    setWindowTitle(tr("已删除的样式"));
    SetGuideSection(this, L"删除与恢复");
    m_message->setWordWrap(true);
    auto* buttons = new QDialogButtonBox;
    m_bringBack = buttons->addButton(tr("恢复(&R)"), QDialogButtonBox::ActionRole);
    SetControlId(m_bringBack, ControlId::BringBack);
    m_bringBack->setDefault(true);
    if (m_editor.EnableViewDeleted()) {
        m_view = buttons->addButton(tr("查看(&V)…"), QDialogButtonBox::ActionRole);
        SetControlId(m_view, ControlId::ViewDeleted);
        connect(m_view, &QPushButton::clicked, this, &DeletedStylesDialog::View);
        connect(m_list, &QTreeWidget::itemDoubleClicked, this, &DeletedStylesDialog::View);
    }
    SetControlId(buttons->addButton(tr("关闭(&C)"), QDialogButtonBox::RejectRole), IDCANCEL);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(m_message);
    layout->addWidget(buttons);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &DeletedStylesDialog::EnableButton);
    connect(m_bringBack, &QPushButton::clicked, this, &DeletedStylesDialog::BringBack);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Fill();
    resize(fontMetrics().height() * 40, fontMetrics().height() * 20);
    new WindowPlace(this, QStringLiteral("dialogs/deleted"));
}

void DeletedStylesDialog::Fill()
{
    m_list->clear();
    CStyles* const styles = m_editor.GetStyles();
    if (!styles) return;
    Problems problems;
    m_deleted = styles->Files().Deleted(problems);
    for (const DeletedStyle& deleted : m_deleted) {
        const QString file = ToQString(deleted.file);
        const CString path = styles->Files().DeletedPath() + L"/" + deleted.file;
        auto* item = new QTreeWidgetItem(m_list, {ToShown(deleted.name), TimeOf(path), file});
        item->setToolTip(2, ToToolTip(file));
        if (!styles->Item(deleted.id)) continue;
        item->setDisabled(true);
        item->setText(0, tr("%1  (库中已有)").arg(item->text(0)));
        item->setToolTip(0, tr("库中有同一标识的样式; 先删除它才能恢复这一份"));
    }
    TraceProblems(problems);
    m_list->header()->resizeSection(0, m_list->fontMetrics().height() * 14);
    m_list->resizeColumnToContents(1);
    m_list->setCurrentItem(m_list->topLevelItem(0));
    if (m_list->topLevelItemCount() == 0) m_message->setText(tr("没有已删除的样式。"));
    EnableButton();
}

void DeletedStylesDialog::EnableButton()
{
    m_bringBack->setEnabled(!m_list->selectedItems().isEmpty());
    if (m_view) m_view->setEnabled(m_list->selectedItems().size() == 1);
}

// The user may have brought it back there.
void DeletedStylesDialog::View()
{
    if (m_list->selectedItems().size() != 1) return;
    const int row = m_list->indexOfTopLevelItem(m_list->selectedItems().front());
    const GUID id = m_deleted[static_cast<size_t>(row)].id;
    m_editor.ViewDeleted(id);
    Fill();
    m_list->setCurrentItem(m_list->topLevelItem(std::min(row, m_list->topLevelItemCount() - 1)));
    const CStyles* const styles = m_editor.GetStyles();
    if (styles && styles->Item(id)) m_broughtBack.push_back(id);
}

void DeletedStylesDialog::BringBack()
{
    QStringList done;
    QStringList failed;
    Problems problems;
    StyleFolder& files = m_editor.GetStyles()->Files();
    const auto held = files.Hold(problems);
    std::vector<StyleEntry> present = files.Present(problems);
    for (QTreeWidgetItem* item : m_list->selectedItems()) {
        const DeletedStyle& deleted =
            m_deleted[static_cast<size_t>(m_list->indexOfTopLevelItem(item))];
        const bool back = held && files.BringBack(deleted.file, present, problems);
        (back ? done : failed) << item->text(0);
        if (back) m_broughtBack.push_back(deleted.id);
    }
    TraceProblems(problems);
    m_editor.Refurbish();
    Fill();
    QStringList message;
    if (!done.isEmpty()) message << tr("已恢复: %1").arg(done.join(u'、'));
    if (!failed.isEmpty()) message << tr("无法恢复: %1。原因见跟踪面板。").arg(failed.join(u'、'));
    m_message->setText(message.join(u'\n'));
}
