// From a limit to the page of the editor that holds it.
#pragma once

#include <QString>

#include "model/DesignSpecification.h"

namespace roadcheck {

// The page (group label, backslash, page label) of the criterion that a path begins with; empty
// when there is none of that name.
CString PageOf(const std::wstring& criterion);

// Shows that page of the specification, without letting the user change it, and waits until the
// window is closed. What is in the way otherwise; empty: it was shown.
QString ShowLimitPage(const CString& specification, const std::wstring& criterion);

// Whether the module is loaded that edits specifications, shows their pages and reads them from
// their files.
bool IsEditorLoaded();

} // namespace roadcheck
