// What a road is held against a specification with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/DesignSpecification.h"

namespace roadcheck {

// A design speed for the whole road, or between two stations.
struct SpeedChoice {
    struct Stretch {
        double from = 0, to = 0; // stations, m
    };
    std::optional<Stretch> stretch;
    int speed = 0; // km/h
};

// The axis that the carriageway turns about where superelevation begins (超高旋转轴).
enum class RunoffAxis { Centre, Edge };

struct CheckOptions {
    std::vector<SpeedChoice> speeds; // they override what the file says; a later one an earlier one
    // How a speed between two of a table is answered; Upper is the safe side.
    QueryValue::QueryMode mode = QueryValue::Upper;
    CDSMaxResultantGrad::RoadType roadType = CDSMaxResultantGrad::CityRoad;
    bool plateau = false;        // take the reduction of gradients on plateaus
    bool snow = false;           // take the limits of snowy and frozen regions
    std::optional<int> maxSuper; // %, the table of superelevations; otherwise that of the speed
    RunoffAxis axis = RunoffAxis::Centre;
    std::wstring car; // design vehicle for widening; empty: no widening is told
};

// The design vehicles that the specification has a widening for, in their order there.
AFX_EXT_API std::vector<CString> VehiclesOf(const CDesignSpecification& specification);

// Why options that come from outside cannot be used: a speed that no road is designed for, a road
// type that there is not, a vehicle that the specification does not have, which would leave every
// curve unchecked. Empty when they can.
AFX_EXT_API CString OptionsProblem(const CheckOptions& options,
                                   const CDesignSpecification& specification);

} // namespace roadcheck
