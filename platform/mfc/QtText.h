// CString to and from Qt's text. What is no valid character (a byte kept from a file name)
// survives the round trip.
#pragma once

#include <QString>

#include "base/Export.h"
#include "platform/mfc/String.h"

namespace designspec {

AFX_EXT_API QString ToQString(std::wstring_view text);
AFX_EXT_API CString FromQString(QStringView text);

} // namespace designspec
