// The host's solid modeler. Design standards have no solids; modules start it nevertheless, as
// every module of the family does.
#pragma once

#include "platform/mfc/Export.h"

// True when the modeler runs, from now on or already. It ends with the process.
AFX_EXT_API bool acdbModelerStart();
AFX_EXT_API bool acdbModelerStarted();
