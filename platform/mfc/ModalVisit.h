// Windows that wait for the user, opened for somebody who only wants to see them.
#pragma once

#include <functional>
#include <vector>

#include "platform/mfc/Export.h"

class QAction;
class QMenu;
class QWidget;

using ModalVisit = std::function<void(QWidget* window)>;

// Runs `open`, which shows dialogs, message boxes or menus, one after the other, and waits in
// each. Each gets the next of the visits once it is shown and is closed after it, as Esc does; one
// for which there is no visit left is closed at once. A visit may close its window itself, and may
// open others with this function. The number of visits that were paid.
AFX_EXT_API size_t VisitModals(const std::function<void()>& open,
                               const std::vector<ModalVisit>& visits);

// Chooses an item of an open menu or of one of its sub-menus as Enter does. False when it is not
// there or greyed.
AFX_EXT_API bool ChooseMenuItem(QMenu* menu, QAction* item);
