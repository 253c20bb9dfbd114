// Shows the modules and their state, loads and unloads them.
#pragma once

#include <QWidget>

#include "platform/arx/Modules.h"

class HostModules;
class QHBoxLayout;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class ModulePanel : public QWidget {
    Q_OBJECT

public:
    explicit ModulePanel(HostModules& modules, QWidget* parent = nullptr);

private:
    QPushButton* AddButton(int id, const QString& caption, const QString& tip);
    void Fill();
    void AddRow(const QString& name, const designspec::ModuleInfo* module);
    void Adjust();
    void Load();
    void Unload();
    void AddFile();
    void Remove();
    QString Selected() const;

    HostModules& m_modules;
    QTreeWidget* m_list;
    QHBoxLayout* m_buttons;
    QPushButton* m_load;
    QPushButton* m_unload;
    QPushButton* m_remove;
    designspec::Connection m_modulesChanged;
};
