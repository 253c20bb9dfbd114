// A limit as a specification's query or field gives it.
#pragma once

#include <string>

#include "model/SpeedTable.h"

namespace roadcheck {

struct Limit {
    enum State {
        Absent,     // the specification has no such limit
        Unanswered, // it has, but not for what was asked
        Given,
    };
    State state = Absent;
    double value = 0;
    const wchar_t* path = L"";            // of the table or field
    const std::wstring* source = nullptr; // where it says that it comes from

    explicit operator bool() const { return state == Given; }
};

// What the table answers for the speed; an empty table is no limit.
Limit AskTable(const SpeedToIntValues& table, int speed, QueryValue::QueryMode mode,
               const wchar_t* path, const std::wstring& source);
Limit AskTable(const SpeedToDoubleValues& table, int speed, QueryValue::QueryMode mode,
               const wchar_t* path, const std::wstring& source);
// A field; 0 means that there is no such limit.
Limit AskField(double value, const wchar_t* path, const std::wstring& source);

} // namespace roadcheck
