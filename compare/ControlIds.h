// Ids of the controls of the windows that compare: the int property "controlId" of each.
#pragma once

#include <QWidget>

#include "platform/mfc/Dialog.h"

namespace designspec::CompareId {

enum : int {
    // the view of differences
    Filter = 7001, // edit field
    OnlyDifferent, // check box
    Tree,
    Values,  // table
    Cells,   // table
    Scope,   // label: what the arrows act on
    ToLeft,  // button: the right values to the left; of three: mine count
    ToRight, // the other way
    TakeBack,
    Undo,
    Redo,
};

inline void SetControlId(QWidget* control, int id)
{
    control->setProperty(kControlIdProperty, id);
}

} // namespace designspec::CompareId
