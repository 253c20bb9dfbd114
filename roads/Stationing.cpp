#include "roads/Stationing.h"

#include <algorithm>
#include <cmath>

#include "base/AxisTicks.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

namespace {

// Places that differ by less, m, are one: what unit conversion leaves over.
constexpr double kSamePlace = 1e-6;

constexpr double kKilometre = 1000;

} // namespace

std::wstring StationText(double station, int decimals)
{
    const double parts = std::pow(10, decimals); // of a metre
    const double rounded = std::round(std::fabs(station) * parts);
    const double kilometres = std::floor(rounded / (parts * kKilometre));
    const wchar_t* const sign = station < 0 && rounded > 0 ? L"-" : L"";
    const int width = decimals > 0 ? 4 + decimals : 3;
    return Format(L"%sK%.0f+%0*.*f", sign, kilometres, width, decimals,
                  rounded / parts - kilometres * kKilometre);
}

std::optional<double> ParseStation(std::wstring_view text)
{
    std::wstring rest = Trim(text);
    double sign = 1;
    if (!rest.empty() && (rest[0] == L'-' || rest[0] == L'+')) {
        if (rest[0] == L'-') sign = -1;
        rest.erase(0, 1);
    }
    if (!rest.empty() && (rest[0] == L'K' || rest[0] == L'k')) rest.erase(0, 1);
    const size_t plus = rest.find(L'+');
    int kilometres = 0;
    if (plus != std::wstring::npos) {
        if (!ParseInt(ToUtf8(rest.substr(0, plus)), kilometres) || kilometres < 0) return {};
        rest.erase(0, plus + 1);
    }
    // A second sign is none of a station's.
    if (rest.empty() || rest[0] == L'-' || rest[0] == L'+') return {};
    double metres = 0;
    if (!ParseDouble(ToUtf8(rest), metres)) return {};
    return sign * (kilometres * kKilometre + metres);
}

double Stationing::At(double at) const
{
    const StationEquation* last = nullptr;
    for (const StationEquation& one : m_equations)
        if (one.at <= at + kSamePlace) last = &one;
    return last ? last->ahead + last->step * (at - last->at) : m_start + at;
}

std::vector<double> Stationing::Places(double station, double length) const
{
    std::vector<double> places;
    StationEquation part = {0, m_start, 1};
    for (size_t i = 0; i <= m_equations.size(); ++i) {
        const double end = i < m_equations.size() ? m_equations[i].at : length;
        const double at = part.at + (station - part.ahead) * part.step;
        const bool inside = at >= part.at - kSamePlace && at <= end + kSamePlace;
        if (inside && (places.empty() || at > places.back() + kSamePlace)) places.push_back(at);
        if (i < m_equations.size()) part = m_equations[i];
    }
    return places;
}

std::vector<double> Stationing::RoundPlaces(double from, double to, double step) const
{
    std::vector<double> places;
    StationEquation part = {0, m_start, 1};
    for (size_t i = 0; i <= m_equations.size(); ++i) {
        const bool isLast = i == m_equations.size();
        const double begin = i == 0 ? from : std::max(from, part.at);
        const double end = isLast ? to : std::min(to, m_equations[i].at);
        if (begin <= end) {
            const double a = part.ahead + part.step * (begin - part.at);
            const double b = part.ahead + part.step * (end - part.at);
            const size_t before = places.size();
            for (const double station : MultiplesOf(step, std::min(a, b), std::max(a, b))) {
                const double at = part.at + (station - part.ahead) * part.step;
                // On an equation the station ahead counts.
                if (isLast || at < m_equations[i].at - kSamePlace) places.push_back(at);
            }
            if (part.step < 0)
                std::reverse(places.begin() + static_cast<std::ptrdiff_t>(before), places.end());
        }
        if (!isLast) part = m_equations[i];
    }
    return places;
}

} // namespace roadcheck
