// What the host says to its modules, and what they answer.
#pragma once

namespace AcRx {

// This host sends no others.
enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,   // the module was loaded
    kUnloadAppMsg = 2, // the module is about to be unloaded
};

enum AppRetCode {
    kRetOK = 0,
    kRetError = 3, // to kInitAppMsg: do not keep the module loaded
};

} // namespace AcRx
