// Ids of the host's controls: the int property "controlId" of each widget that is worked with by
// more than its place.
#pragma once

#include <QWidget>

namespace ControlId {

enum : int {
    // style manager
    Groups = 5001, // tree of groups
    Styles,        // table of styles
    Filter,        // edit field
    FilterGroup,   // list: one of the groups by which styles are sorted
    FilterCount,   // label
    Hint,          // label in place of the table
    HintButton,    // what the hint suggests
    ToolBar,
    // message bars
    ErrorBar = 5101,
    ChangeBar,
    NoteBar,
    BarText, // label, in each bar
    BarAction,
    BarClose,
    // panels
    Trace = 5201, // table of trace lines
    TraceErrorsOnly,
    TraceCopy,
    Modules, // table of modules
    ModuleLoad,
    ModuleUnload,
    ModuleAdd,
    ModuleRemove,
    // import
    ImportNames = 5301, // list with check marks
    ImportOverwrite,
    ImportChanges, // text: what the selected one would change
    // the user's guide
    GuideText = 5501,
    GuideContents, // tree of headings
    GuideSearch,   // edit field
    GuideFound,    // label: which place of how many
    GuideBefore,
    GuideNext,
    // deleted styles
    Deleted = 5401, // list
    BringBack,
    ViewDeleted,
};

} // namespace ControlId

inline void SetControlId(QWidget* control, int id)
{
    control->setProperty("controlId", id);
}
