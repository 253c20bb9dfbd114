// A module whose handler throws.
#include <stdexcept>

#include "platform/arx/ArxApp.h"

namespace {

class CThrowingApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void*) override { throw std::runtime_error("broken"); }
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CThrowingApp)
