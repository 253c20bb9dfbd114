// The tables of a page as curves: what is drawn over what, for those who show them.
#pragma once

#include "model/PageLayout.h"

namespace designspec {

struct CurvePoint {
    double at;                // on the axis across; of a step, where it begins
    double end;               // where the step ends; `at` where there is none
    double value;             // on the axis upwards
    std::size_t line, column; // its cell in the table
    bool isOdd = false; // breaks the order of its curve, and is no built-in limit: a slip, perhaps
};

struct Curve {
    CString name;
    std::vector<CurvePoint> points; // from left to right
};

// What an axis shows.
struct CurveAxis {
    CString quantity; // 半径
    CString unit;     // m

    AFX_EXT_API CString Title() const;            // 半径(m)
    AFX_EXT_API CString Text(double value) const; // 250 m
    bool operator==(const CurveAxis&) const = default;
};

// Curves of one quantity over the same axis.
struct CurveChart {
    CString heading; // of the table: 最大超高 6%; mostly empty
    CurveAxis across, up;
    bool isSteps =
        false; // each value holds from `at` to `end`; else lines lead from point to point
    std::vector<Curve> curves;
};

// What is said of a point that is odd.
inline constexpr wchar_t kOddValueText[] = L"与前后的值走向不符, 可能输错";

// A table of a criterion's page, as it is laid out or as the page itself shows it: captions are
// found however they are written, and a cell may be empty. By design speed there is a curve for
// each line, and a chart for each quantity that the lines have; grade lengths stand over the
// gradient and superelevations over the radius, with a curve for each speed, widenings over the
// radius with a curve for each category of vehicles. Curves without a point are there as well;
// numbers of 1e15 and more give none.
AFX_EXT_API std::vector<CurveChart> ChartsOf(const CriterionInfo& criterion,
                                             const TableLayout& table);
// Those of all tables that the criterion's page has. None for a page without tables.
AFX_EXT_API std::vector<CurveChart> ChartsOf(const CriterionInfo& criterion,
                                             const CDesignSpecification& specification);

} // namespace designspec
