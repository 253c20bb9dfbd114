#include "roads/RoadCheck.h"

#include "roads/Checking.h"

namespace roadcheck {

AlignmentReport CheckAlignment(const Alignment& road, const CDesignSpecification& specification,
                               const CheckOptions& options)
{
    return Checking(road, specification, options).Run();
}

} // namespace roadcheck
