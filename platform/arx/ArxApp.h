// The application object of a module: one handler for each message of the host.
#pragma once

#include "platform/arx/AppMessages.h"
#include "base/Export.h"

// `packet` is the module's file name (const wchar_t*).
class AFX_EXT_CLASS AcRxDbxApp {
public:
    AcRxDbxApp() = default;
    AcRxDbxApp(const AcRxDbxApp&) = delete;
    AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;
    virtual ~AcRxDbxApp() = default;

    // Hands a message to its handler; kRetOK for one that has none.
    virtual AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);

    virtual AcRx::AppRetCode On_kInitAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void* packet);
};

// A module of the program with its windows and documents.
class AFX_EXT_CLASS AcRxArxApp : public AcRxDbxApp {};

// In one source file of a module: makes its application object and the function that the host
// calls. Nothing is thrown across that function; an exception is answered with kRetError.
#define IMPLEMENT_ARX_ENTRYPOINT(app_class)                                                        \
    extern "C" AFX_EXT_API AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) \
    {                                                                                              \
        static app_class app;                                                                      \
        try {                                                                                      \
            return app.acrxEntryPoint(message, packet);                                            \
        } catch (...) {                                                                            \
            return AcRx::kRetError;                                                                \
        }                                                                                          \
    }
