#include "host/ModulePanel.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/File.h"
#include "host/ControlIds.h"
#include "host/HostModules.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

enum Column { NameColumn, StateColumn, ReasonColumn };

QString StateOf(const ModuleInfo* module)
{
    if (!module || module->state == ModuleState::Unloaded) return QObject::tr("未加载");
    if (module->state == ModuleState::Failed) return QObject::tr("加载失败");
    return module->count > 1 ? QObject::tr("已加载 (%1)").arg(module->count)
                             : QObject::tr("已加载");
}

QTreeWidget* MakeList()
{
    auto* list = new QTreeWidget;
    SetControlId(list, ControlId::Modules);
    list->setHeaderLabels(
        {QObject::tr("模块 (打勾: 启动时加载)"), QObject::tr("状态"), QObject::tr("原因")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    const int line = list->fontMetrics().height();
    list->header()->resizeSection(NameColumn, line * 16);
    list->header()->resizeSection(StateColumn, line * 6);
    return list;
}

} // namespace

ModulePanel::ModulePanel(HostModules& modules, QWidget* parent)
    : QWidget(parent), m_modules(modules), m_list(MakeList()), m_buttons(new QHBoxLayout)
{
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(m_buttons);
    m_load = AddButton(ControlId::ModuleLoad, tr("加载(&L)"), tr("加载选中的模块"));
    m_unload = AddButton(ControlId::ModuleUnload, tr("卸载(&U)"), tr("卸载选中的模块"));
    QPushButton* const add =
        AddButton(ControlId::ModuleAdd, tr("添加…(&A)"), tr("选择一个模块文件并加载它"));
    m_remove = AddButton(ControlId::ModuleRemove, tr("移除(&M)"), tr("启动时不再加载选中的模块"));
    m_buttons->addStretch();
    connect(m_load, &QPushButton::clicked, this, &ModulePanel::Load);
    connect(m_unload, &QPushButton::clicked, this, &ModulePanel::Unload);
    connect(add, &QPushButton::clicked, this, &ModulePanel::AddFile);
    connect(m_remove, &QPushButton::clicked, this, &ModulePanel::Remove);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &ModulePanel::Adjust);
    connect(m_list, &QTreeWidget::itemChanged, this, [this](const QTreeWidgetItem* item) {
        m_modules.SetAtStart(item->text(NameColumn), item->checkState(NameColumn) == Qt::Checked);
        Adjust();
    });
    m_modulesChanged = ModulesChanged().Connect([this] { Fill(); });
    Fill();
}

QPushButton* ModulePanel::AddButton(int id, const QString& caption, const QString& tip)
{
    auto* button = new QPushButton(caption);
    SetControlId(button, id);
    button->setToolTip(tip);
    m_buttons->addWidget(button);
    return button;
}

// First those of the start list, then those that others loaded.
void ModulePanel::Fill()
{
    const QString selected = Selected();
    const std::vector<ModuleInfo> known = KnownModules();
    const QStringList atStart = m_modules.AtStart();
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const QString& name : atStart) {
            const auto module = std::find_if(known.begin(), known.end(), [&](const auto& one) {
                return IsSameModule(ToQString(one.name), name);
            });
            AddRow(name, module == known.end() ? nullptr : &*module);
        }
        for (const ModuleInfo& module : known)
            if (!m_modules.IsAtStart(ToQString(module.name)))
                AddRow(ToQString(module.name), &module);
        for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
            QTreeWidgetItem* const item = m_list->topLevelItem(row);
            if (item->text(NameColumn) == selected || row == 0) m_list->setCurrentItem(item);
        }
    }
    Adjust();
}

void ModulePanel::AddRow(const QString& name, const ModuleInfo* module)
{
    const QString reason = module ? ToQString(module->reason) : QString();
    auto* item = new QTreeWidgetItem(m_list, {name, StateOf(module), reason});
    item->setToolTip(ReasonColumn, ToToolTip(reason));
    item->setCheckState(NameColumn, m_modules.IsAtStart(name) ? Qt::Checked : Qt::Unchecked);
}

QString ModulePanel::Selected() const
{
    const QTreeWidgetItem* const item = m_list->currentItem();
    return item ? item->text(NameColumn) : QString();
}

// A module that only another module uses is that one's to unload.
void ModulePanel::Adjust()
{
    const QString name = Selected();
    const bool ours = m_modules.IsLoaded(name);
    m_load->setEnabled(!name.isEmpty() && !ours);
    m_unload->setEnabled(ours);
    m_remove->setEnabled(m_modules.IsAtStart(name));
}

void ModulePanel::Load()
{
    m_modules.Load(Selected());
    Fill();
}

void ModulePanel::Unload()
{
    m_modules.Unload(Selected());
    Fill();
}

void ModulePanel::AddFile()
{
    const QString path = AskFileToOpen(this, tr("添加模块"), tr("模块 (*.arx);;所有文件 (*)"));
    if (path.isEmpty()) return;
    const CString file = FromQString(path.section(u'/', -1));
    Problems unseen;
    const bool installed =
        IsSameFile(FromQString(path), VMRDPub::GetInstallPath() + L"\\" + file, unseen)
            .value_or(false);
    const QString name = installed ? ToQString(file) : path;
    if (m_modules.Load(name)) m_modules.SetAtStart(name, true);
    Fill();
}

void ModulePanel::Remove()
{
    m_modules.SetAtStart(Selected(), false);
    Fill();
}
