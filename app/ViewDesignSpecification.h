// What the module offers to others of the family beside its library.
#pragma once

#include "base/Export.h"

// Shows the default specification, without letting the user change it, and waits until the window
// is closed. `page` is the page to show first: group label, backslash and page label; null or any
// other text shows the first one. Does nothing when there is no default specification.
extern "C" AFX_EXT_API void ViewDesignSpecification(const wchar_t* page);

// The same with the specification of that name.
extern "C" AFX_EXT_API void ViewDesignSpecificationOf(const wchar_t* name, const wchar_t* page);
