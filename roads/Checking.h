// One road on its way past the rules: what they look at, and where they tell what they find.
#pragma once

#include <atomic>

#include "model/DesignSpecification.h"
#include "roads/Curves.h"
#include "roads/Limit.h"
#include "roads/Rules.h"
#include "roads/SpeedStretches.h"

namespace roadcheck {

// What a value offends by is told from here on: m, and as a percentage.
inline constexpr double kTolerance = 0.001;

// The stretch of a road that a rule looks at.
struct Stretch {
    ElementName element;
    double from = 0, to = 0; // m along
};

class Checking {
public:
    Checking(const Alignment& road, const CDesignSpecification& specification,
             const CheckOptions& options);

    const Alignment& road;
    const CDesignSpecification& specification;
    const CheckOptions& options;
    const std::vector<Curve> curves;
    const std::vector<Grade> grades;
    const SpeedStretches speeds;

    // Asks every rule that the road's file gives enough for; the others are told as unchecked.
    // Asks no further rule once `cancel` is true.
    AlignmentReport Run(const std::atomic<bool>* cancel = nullptr);

    // For the rules. The speed of a stretch; nothing, and the stretch is told as unchecked, when
    // there is none.
    std::optional<int> SpeedOf(const Stretch& stretch);
    // True when the road has less than the limit; a limit without an answer is told as unchecked.
    bool IsBelow(const Stretch& stretch, int speed, double value, const Limit& limit);
    bool IsAbove(const Stretch& stretch, int speed, double value, const Limit& limit);
    void Tell(const Stretch& stretch, int speed, double value, const Limit& limit,
              const wchar_t* unit, const std::wstring& message);
    // Tells a length or radius, m, that is below its limit: "WHAT 85 m, 小于LEAST 100 m".
    void TellIfShort(const Stretch& stretch, int speed, double value, const Limit& limit,
                     const std::wstring& what, const std::wstring& least);
    void Skip(const Stretch& stretch, const std::wstring& why);

    Limit Ask(const SpeedToIntValues& table, int speed, const wchar_t* path,
              const std::wstring& source) const
    {
        return AskTable(table, speed, options.mode, path, source);
    }
    Limit Ask(const SpeedToDoubleValues& table, int speed, const wchar_t* path,
              const std::wstring& source) const
    {
        return AskTable(table, speed, options.mode, path, source);
    }

    // The superelevation (%) that the tables give an arc of that radius, m. Absent: none is needed,
    // as the radius is large enough, or there are no tables. `why` tells why it is unanswered.
    Limit TableSuperelevation(int speed, double radius, std::wstring& why) const;
    // The highest superelevation that the file gives between two places, %; 0 when it gives none
    // there.
    double FileSuperelevation(double from, double to) const;
    bool FileGivesSuperelevation() const { return !road.superelevations.empty(); }

private:
    bool CanAsk(RuleNeed need, std::wstring& why) const;
    void TellElementsWithoutShape();

    const Rule* m_rule = nullptr; // the one that is asked
    std::vector<double> m_reach;  // how far the superelevations up to each one go, m along
    AlignmentReport m_report;
};

// The radius, m, as the whole number that a query takes: the next below, which asks for no less. A
// radius that conversion of units left a little below a whole number is that number.
int WholeRadius(double radius);

// "12.5", "80": up to three decimals.
AFX_EXT_API std::wstring NumberText(double number);

} // namespace roadcheck
