// Reads the roads of a LandXML file (1.0, 1.1, 1.2 and 2.0).
#pragma once

#include <atomic>

#include "base/Export.h"
#include "roads/Alignment.h"

namespace roadcheck {

// Memory depends on the alignments of the file, not on its size: terrain, pipes and the like are
// passed over. Elements go by their names, whatever their namespace, and parts may stand in any
// order. A file that holds no alignment with a plan or a profile, or cannot be read to its end, has
// an error among its problems; alignments that came before the error are there all the same. Ends
// early, with an error, once `cancel` is true.
AFX_EXT_API RoadFile ReadRoadFile(const std::wstring& path,
                                  const std::atomic<bool>* cancel = nullptr);

} // namespace roadcheck
