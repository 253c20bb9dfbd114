// Which section of the user's guide tells about a window: its heading there.
#pragma once

#include <QString>

#include "base/Export.h"

class QWidget;

namespace designspec {

AFX_EXT_API void SetGuideSection(QWidget* window, const wchar_t* heading);
// That of the widget, or of the first one that it stands in or belongs to; empty when none has one.
AFX_EXT_API QString GuideSectionOf(const QWidget* widget);

} // namespace designspec
