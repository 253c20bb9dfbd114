// The form that files keep specifications in, for those that come from elsewhere.
#pragma once

#include "model/Criteria.h"

namespace designspec {

// Puts the rows of every table into the order that they are kept in; rows of equal keys stay as
// they stood to each other. Takes out what no file keeps: a table that a switch takes out of use, a
// gradient without lengths.
AFX_EXT_API void Arrange(CDesignSpecification& specification);

} // namespace designspec
