#include "roads/Limit.h"

namespace roadcheck {

namespace {

template <class Table, class Value, class Query>
Limit Ask(const Table& table, Value value, Query query, int speed, QueryValue::QueryMode mode,
          Limit limit)
{
    if (table.count == 0) return limit;
    limit.state = query(&table, speed, mode, value) ? Limit::Given : Limit::Unanswered;
    limit.value = value;
    return limit;
}

} // namespace

Limit AskTable(const SpeedToIntValues& table, int speed, QueryValue::QueryMode mode,
               const wchar_t* path, const std::wstring& source)
{
    return Ask(table, 0, QueryValue::QueryIntValBySpeed, speed, mode,
               {Limit::Absent, 0, path, &source});
}

Limit AskTable(const SpeedToDoubleValues& table, int speed, QueryValue::QueryMode mode,
               const wchar_t* path, const std::wstring& source)
{
    return Ask(table, 0.0, QueryValue::QueryDoubleValBySpeed, speed, mode,
               {Limit::Absent, 0, path, &source});
}

Limit AskField(double value, const wchar_t* path, const std::wstring& source)
{
    return {value == 0 ? Limit::Absent : Limit::Given, value, path, &source};
}

} // namespace roadcheck
