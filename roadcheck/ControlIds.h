// Ids of the window's controls: the int property "controlId" of each.
#pragma once

#include <QWidget>

#include "platform/mfc/Dialog.h"

namespace roadcheck {

namespace ControlId {

enum : int {
    // what is checked
    File = 6001, // edit field
    Browse,
    Alignment,     // combo box
    Specification, // combo box
    Speeds,        // table
    CheckAgain,
    // options; combo boxes and check boxes
    Mode = 6101,
    RoadType,
    MaxSuper,
    Axis,
    Vehicle,
    Plateau,
    Snow,
    // results
    Message = 6201, // label
    Tabs,
    ShowErrors, // three check boxes
    ShowWarnings,
    ShowNotes,
    RuleFilter, // combo box
    TextFilter, // edit field
    Findings,   // table
    Detail,     // label
    Unchecked,  // table
    Problems,   // text
    Diagrams,
    // below
    Status = 6301, // label
    Progress,
    Cancel,
    ExportReport,
    ExportDiagrams,
};

} // namespace ControlId

inline void SetControlId(QWidget* control, int id)
{
    control->setProperty(designspec::kControlIdProperty, id);
}

} // namespace roadcheck
