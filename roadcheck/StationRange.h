// The part of a road that is shown.
#pragma once

namespace roadcheck {

// Never less than kLeast (or the whole road), never beyond its ends. Places are m along.
class StationRange {
public:
    static constexpr double kLeast = 1; // m

    // All of a road; what is shown stays when it has that length already.
    void SetLength(double length);

    double From() const { return m_from; }
    double To() const { return m_to; }
    double Length() const { return m_to - m_from; }

    void ShowAll();
    // Shows 1 / factor of what is shown; the place `about` stays where it is, unless an end of the
    // road is in the way.
    void Zoom(double factor, double about);
    // Moves so that it begins there.
    void MoveTo(double from);
    void Pan(double by) { MoveTo(m_from + by); }
    // Shows the stretch, in the middle; nothing moves when it is seen already. What is longer than
    // what is shown is shown with a margin.
    void Reveal(double from, double to);

private:
    void Show(double from, double length);

    double m_length = 0;
    double m_from = 0, m_to = 0;
};

} // namespace roadcheck
