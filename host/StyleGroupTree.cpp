#include "host/StyleGroupTree.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include "host/ControlIds.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr int kEditorRole = Qt::UserRole;

CStyleEditor* EditorOf(const QTreeWidgetItem* item)
{
    return item ? static_cast<CStyleEditor*>(item->data(0, kEditorRole).value<void*>()) : nullptr;
}

void SetEditor(QTreeWidgetItem* item, CStyleEditor* editor)
{
    item->setData(0, kEditorRole, QVariant::fromValue(static_cast<void*>(editor)));
}

QString PathOf(const QTreeWidgetItem* item)
{
    QString path;
    for (; item; item = item->parent())
        path.prepend(u'/' + item->text(0));
    return path;
}

QString NameOf(const CStyleEditor& editor)
{
    const CStyles* const styles = editor.GetStyles();
    return styles ? ToQString(styles->Name()) : QString();
}

} // namespace

StyleGroupTree::StyleGroupTree(QWidget* parent) : QTreeWidget(parent)
{
    SetControlId(this, ControlId::Groups);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAccessibleName(tr("样式组"));
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { emit CurrentEditorChanged(EditorOf(item)); });
}

void StyleGroupTree::Show(const CStyleManager* manager)
{
    const QString selected = PathOf(currentItem());
    {
        const QSignalBlocker quiet(this);
        clear();
        for (int i = 0; manager && i < manager->GroupsCount(); ++i)
            Add(invisibleRootItem(), *manager->GetGroup(i));
        expandAll();
        bool nested = false;
        for (const QTreeWidgetItem* item : AllItems())
            nested = nested || item->parent();
        setRootIsDecorated(nested);
        Restore(selected);
    }
    emit CurrentEditorChanged(CurrentEditor());
}

// A group with one editor stands for it; several are listed below their group.
void StyleGroupTree::Add(QTreeWidgetItem* parent, const CStyleGroup& group)
{
    auto* item = new QTreeWidgetItem(parent, {ToQString(group.Name())});
    item->setIcon(0, group.Icon());
    item->setSizeHint(0, QSize(0, fontMetrics().height() * 8 / 5));
    const int count = group.HasStyles() ? group.StylesCount() : 0;
    if (count == 1) SetEditor(item, group.GetStyles(0));
    for (int i = 0; count > 1 && i < count; ++i)
        SetEditor(new QTreeWidgetItem(item, {NameOf(*group.GetStyles(i))}), group.GetStyles(i));
    for (int i = 0; i < group.ChildrenCount(); ++i)
        Add(item, *group.GetChild(i));
}

StyleGroupTree::Items StyleGroupTree::AllItems() const
{
    Items items;
    for (QTreeWidgetItemIterator item(const_cast<StyleGroupTree*>(this)); *item; ++item)
        items.push_back(*item);
    return items;
}

void StyleGroupTree::Restore(const QString& path)
{
    QTreeWidgetItem* first = nullptr;
    for (QTreeWidgetItem* item : AllItems()) {
        if (PathOf(item) == path) return setCurrentItem(item);
        if (!first && EditorOf(item)) first = item;
    }
    if (first) setCurrentItem(first);
}

CStyleEditor* StyleGroupTree::CurrentEditor() const
{
    return EditorOf(currentItem());
}

std::vector<CStyleEditor*> StyleGroupTree::Editors() const
{
    std::vector<CStyleEditor*> editors;
    for (const QTreeWidgetItem* item : AllItems())
        if (CStyleEditor* const editor = EditorOf(item)) editors.push_back(editor);
    return editors;
}

void StyleGroupTree::Select(const CStyleEditor* editor)
{
    for (QTreeWidgetItem* item : AllItems())
        if (editor && EditorOf(item) == editor) return setCurrentItem(item);
}
