// The tree of style groups and their editors.
#pragma once

#include <QTreeWidget>

#include "platform/vmrd/VMRDPrj/StyleManager.h"

class StyleGroupTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit StyleGroupTree(QWidget* parent = nullptr);

    // Shows the groups of the manager, none for null. What was selected stays so, or the first
    // that has an editor is.
    void Show(const CStyleManager* manager);

    CStyleEditor* CurrentEditor() const;
    // Every editor of the tree, from top to bottom.
    std::vector<CStyleEditor*> Editors() const;
    // Selects it; nothing happens when it is not in the tree.
    void Select(const CStyleEditor* editor);

signals:
    void CurrentEditorChanged(CStyleEditor* editor);

private:
    using Items = std::vector<QTreeWidgetItem*>;
    void Add(QTreeWidgetItem* parent, const CStyleGroup& group);
    Items AllItems() const;
    void Restore(const QString& path);
};
