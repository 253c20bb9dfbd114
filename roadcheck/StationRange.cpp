#include "roadcheck/StationRange.h"

#include <algorithm>

namespace roadcheck {

void StationRange::SetLength(double length)
{
    if (length == m_length) return;
    m_length = length;
    ShowAll();
}

void StationRange::ShowAll()
{
    Show(0, m_length);
}

void StationRange::Zoom(double factor, double about)
{
    const double length = Length();
    if (length <= 0) return;
    const double least = std::min(kLeast, m_length);
    const double shown = std::clamp(length / factor, least, m_length);
    Show(about - (about - m_from) * shown / length, shown);
}

void StationRange::MoveTo(double from)
{
    Show(from, Length());
}

void StationRange::Reveal(double from, double to)
{
    if (from >= m_from && to <= m_to) return;
    constexpr double kMargin = 0.1; // of the stretch, on each side
    const double length = to - from;
    const double shown = length > Length() ? length * (1 + 2 * kMargin) : Length();
    Show((from + to - shown) / 2, shown);
}

void StationRange::Show(double from, double length)
{
    length = std::min(length, m_length);
    m_from = std::clamp(from, 0.0, m_length - length);
    m_to = m_from + length;
}

} // namespace roadcheck
