// Superelevation tables: the superelevation that a circular curve of a given radius receives.
#pragma once

#include <optional>

#include "base/Export.h"

#include "model/Field.h"

struct SuperElevRange {
    std::int32_t minRadius = 0; // m, inclusive
    std::int32_t maxRadius = 0; // m, exclusive
    std::int32_t superElev = 0; // %

    static std::span<const designspec::Field> Fields();
    bool operator==(const SuperElevRange&) const = default;
};

struct SuperElevSpeedRow {
    std::int32_t speed = 0; // km/h
    GrowArray<SuperElevRange> ranges;

    static std::span<const designspec::Field> Fields();
    bool operator==(const SuperElevSpeedRow&) const = default;
};

struct SuperElevDefinition {
    std::int32_t maxSuperElev = 0;     // %, one of the values of CDSMaxSuperElevation::MaxSuperElev
    GrowArray<SuperElevSpeedRow> rows; // meant to stand highest speed first

    static std::span<const designspec::Field> Fields();
    bool operator==(const SuperElevDefinition&) const = default;
};

class AFX_EXT_CLASS CDSSuperElevation {
public:
    GrowArray<SuperElevDefinition> definitions;
    CString Criterion; // data source

    CDSSuperElevation();
    CDSSuperElevation(const CDSSuperElevation& other);
    CDSSuperElevation& operator=(const CDSSuperElevation& other);
    ~CDSSuperElevation();

    // The superelevation (%) of a curve of `radius` (m) at `speed` (km/h), in the table of
    // `maxSuperElev` (%). `speedTolerance` (km/h) is how far the speed may lie outside the rows.
    // Returns 0 when `superElev` was written; a speed between two rows also gives 0, without
    // writing, for a mode other than Nearest, Upper and Lower. Otherwise:
    //   -1  the mode is Interpolate
    //   -2  no table for maxSuperElev, or one without rows
    //   -3  the speed is at or above the top row and beyond the tolerance or the mode is Upper,
    //       or it is at or below the bottom row and the mode is Lower
    //   -4  the speed is below the bottom row by more than the tolerance
    //   -5  the row has no range for the radius
    //
    // Between two rows the walk does not stop at the first lower row, so with rows in descending
    // order Lower ends on the last row and Upper on the one before it: callers rely on it.
    int QuerySuperElevation(int maxSuperElev, int speed, QueryValue::QueryMode mode,
                            int speedTolerance, int radius, int& superElev) const;

    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSSuperElevation&) const = default;
};

namespace designspec {

// What QuerySuperElevation returned, and the superelevation (%) if it wrote one: a result of 0 that
// leaves it unwritten is no answer either.
struct SuperElevationAnswer {
    int code;
    std::optional<int> superElev;
};
AFX_EXT_API SuperElevationAnswer AskSuperElevation(const CDSSuperElevation& tables,
                                                   int maxSuperElev, int speed,
                                                   QueryValue::QueryMode mode, int speedTolerance,
                                                   int radius);

} // namespace designspec
