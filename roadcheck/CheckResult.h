// A road as it was checked, with all that shows it.
#pragma once

#include <memory>

#include "roads/Diagram.h"
#include "roads/RoadVerification.h"

namespace roadcheck {

struct CheckResult {
    std::shared_ptr<const CheckedRoad> road;
    std::vector<Diagram> diagrams;
    CDesignSpecification specification; // what it was held against, and with what options
    CheckOptions options;
};

} // namespace roadcheck
