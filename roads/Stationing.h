// Stations: the places along a road as people name them, "K12+345.600".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Export.h"

namespace roadcheck {

// "K12+345.600" of 12345.6 m; "-K0+012.300" of -12.3 m. Rounded to that many decimals of a metre, 0
// to 3.
AFX_EXT_API std::wstring StationText(double station, int decimals = 3);
// Metres of "K12+345.6", "k12+345.6", "12+345.6", "12345.6" and the like, with or without a sign.
// Nothing when the text is no station.
AFX_EXT_API std::optional<double> ParseStation(std::wstring_view text);

// From here on stations are counted anew (断链).
struct StationEquation {
    double at = 0;    // m along the alignment
    double ahead = 0; // the station that this place has from here on
    double step = 1;  // 1: stations grow along the alignment; -1: they fall
};

// How the stations of one alignment are counted.
class AFX_EXT_CLASS Stationing {
public:
    explicit Stationing(double start = 0) : m_start(start) {}

    // In order of place.
    void Add(const StationEquation& equation) { m_equations.push_back(equation); }
    // The station of the alignment's start.
    double Start() const { return m_start; }

    // The station of the place `at` metres along. On an equation it is the one ahead.
    double At(double at) const;
    std::wstring Text(double at) const { return StationText(At(at)); }
    // The places along an alignment of that length that have the station: none, or several where an
    // equation lets stations come twice. In order.
    std::vector<double> Places(double station, double length) const;
    // The places between two of them that have stations which are multiples of `step` (m, above 0),
    // in order.
    std::vector<double> RoundPlaces(double from, double to, double step) const;

private:
    double m_start;
    std::vector<StationEquation> m_equations;
};

} // namespace roadcheck
