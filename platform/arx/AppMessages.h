// What the host says to its modules, and what they answer.
#pragma once

namespace AcRx {

enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,   // the module was loaded
    kUnloadAppMsg = 2, // the module is about to be unloaded
    kLoadDwgMsg = 3,   // a document was opened
    kUnloadDwgMsg = 4, // a document is about to be closed
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 10,
    kDependencyMsg = 11,
    kNoDependencyMsg = 12,
    kOleUnloadAppMsg = 13,
    kPreQuitMsg = 14,
    kInitDialogMsg = 15,
    kEndDialogMsg = 16,
};

enum AppRetCode {
    kRetOK = 0,
    kRetError = 3, // to kInitAppMsg: do not keep the module loaded
};

} // namespace AcRx
