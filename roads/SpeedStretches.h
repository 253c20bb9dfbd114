// The design speed at each place of a road.
#pragma once

#include <optional>
#include <vector>

#include "base/Export.h"
#include "roads/Alignment.h"
#include "roads/CheckOptions.h"

namespace roadcheck {

class AFX_EXT_CLASS SpeedStretches {
public:
    // What the options say, and the file's speeds where they say nothing; where the file gives
    // several, the highest.
    SpeedStretches(const Alignment& road, const std::vector<SpeedChoice>& choices);

    bool IsEmpty() const { return m_stretches.empty(); }
    // The highest design speed between two places, km/h; at a place when both are one. Nothing when
    // there is none.
    std::optional<int> Highest(double from, double to) const;
    // In order of place, without overlaps.
    const std::vector<DesignSpeed>& Stretches() const { return m_stretches; }

private:
    std::vector<DesignSpeed> m_stretches;
};

} // namespace roadcheck
