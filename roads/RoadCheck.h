// Holds a road against a specification.
#pragma once

#include "base/Export.h"
#include "model/DesignSpecification.h"
#include "roads/Alignment.h"
#include "roads/CheckOptions.h"
#include "roads/Rules.h"

namespace roadcheck {

// Every violation of every element, and what could not be checked and why. Every limit comes
// through the specification's queries and fields. Nothing of both is changed; several threads may
// check at once.
AFX_EXT_API AlignmentReport CheckAlignment(const Alignment& road,
                                           const CDesignSpecification& specification,
                                           const CheckOptions& options);

} // namespace roadcheck
