// A module that will not be loaded.
#include "platform/arx/ArxApp.h"

namespace {

class CRefusingApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void*) override { return AcRx::kRetError; }
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CRefusingApp)
