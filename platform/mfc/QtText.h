// CString to and from Qt's text. What is no valid character (a byte kept from a file name)
// survives the round trip.
#pragma once

#include <QString>

#include "base/Export.h"
#include "platform/mfc/String.h"

namespace designspec {

AFX_EXT_API QString ToQString(std::wstring_view text);
AFX_EXT_API CString FromQString(QStringView text);

// What a file holds, on one line, as lists and labels show it.
AFX_EXT_API QString ToShown(std::wstring_view text);
// A tooltip that shows the text as it is: it is never taken for markup.
AFX_EXT_API QString ToToolTip(const QString& text);

} // namespace designspec
