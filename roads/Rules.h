// The rules that a road is held against a specification by. Help, documents and the window's filter
// are made of this table; a new rule is one entry, its function and its test.
#pragma once

#include <span>
#include <string_view>

#include "base/Export.h"
#include "roads/RoadReport.h"

namespace roadcheck {

class Checking;

// What the road's file must give for a rule to be asked.
enum class RuleNeed {
    Plan,
    Profile,
    PlanAndProfile,
    Superelevation, // a plan and cross slopes
    Runoff,         // cross slopes and lanes
};

struct Rule {
    const wchar_t* id;
    RuleSeverity severity;
    const wchar_t* title;
    RuleNeed need;
    void (*check)(Checking& checking);
};

// In the order in which they are told of one place.
AFX_EXT_API std::span<const Rule> Rules();
// Null when there is none.
AFX_EXT_API const Rule* FindRule(std::wstring_view id);

// 错误, 警告, 提示.
AFX_EXT_API const wchar_t* SeverityLabel(RuleSeverity severity);
// For programs: error, warning, note.
AFX_EXT_API const char* SeverityName(RuleSeverity severity);

} // namespace roadcheck
