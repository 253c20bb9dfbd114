// The host's main window, which a module's dialogs have as their parent.
#pragma once

#include "base/Export.h"

class QWidget;

// Null until the host has named one, and after that one is gone.
AFX_EXT_API QWidget* acedGetAcadFrame();

namespace designspec {

AFX_EXT_API void SetFrame(QWidget* frame);

}
