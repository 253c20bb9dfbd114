// The menu of what modules offer: their commands, group by group. It is hidden while there is none.
#pragma once

#include <QMenu>

#include "base/Signal.h"

class ToolMenu : public QMenu {
    Q_OBJECT

public:
    explicit ToolMenu(QWidget* window);

private:
    void Fill();

    designspec::Connection m_commandsChanged;
};
