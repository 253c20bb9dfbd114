// Speed tables: limits by design speed, and the queries that other modules ask them.
#pragma once

#include <cstddef>

#include "model/GrowArray.h"
#include "base/Export.h"

class CXTPPropExchange;

template <class T> struct SpeedEntry {
    std::int32_t speed = 0; // design speed, km/h
    T value = 0;            // the limit at that speed; its unit is the criterion's

    bool operator==(const SpeedEntry&) const = default;
};

// A list, not a map: nothing keeps it sorted or free of speeds that stand twice. The built-in
// tables and those loaded from files stand highest speed first; whoever reads a table must not
// rely on that.
using SpeedToIntValues = GrowArray<SpeedEntry<std::int32_t>>;
using SpeedToDoubleValues = GrowArray<SpeedEntry<double>>;

static_assert(offsetof(SpeedToIntValues, entries) == 0);
static_assert(offsetof(SpeedToIntValues, capacity) == sizeof(void*));
static_assert(offsetof(SpeedToIntValues, count) == sizeof(void*) + 4);
static_assert(offsetof(SpeedToIntValues, growBy) == sizeof(void*) + 8);
static_assert(sizeof(SpeedEntry<std::int32_t>) == 8 && sizeof(SpeedEntry<double>) == 16);

namespace QueryValue {

// What a query answers for a speed that lies between two speeds of the table.
enum QueryMode : int {
    Nearest = 0,     // the nearer speed's value; at equal distance the higher speed's
    Upper = 1,       // the next higher speed's value
    Lower = 2,       // the next lower speed's value
    Interpolate = 3, // between the two, in proportion
    Exact = 4,       // nothing
};

// The limit for a design speed (km/h). A speed that stands in the table gives its value in every
// mode. Outside the table's speeds the nearest end answers, save that Upper has no answer above
// and Lower none below. False, with `value` untouched, when the table has no answer; an empty
// table never has one. For a mode that is none of the five, a speed between two others returns
// true and leaves `value`.
//
// Interpolate on whole numbers takes the product of the two differences in 32 bits, adds one half
// and cuts off the fraction, which rounds half up for positive results.
AFX_EXT_API bool QueryIntValBySpeed(const SpeedToIntValues* table, int speed, QueryMode mode,
                                    int& value);
// The same for decimals; Interpolate does not round.
AFX_EXT_API bool QueryDoubleValBySpeed(const SpeedToDoubleValues* table, int speed, QueryMode mode,
                                       double& value);

} // namespace QueryValue

// Stores a table as the child element `key` of the exchange's section, one Item with speed and
// value for each entry, or loads it from there: the caller has emptied the table, and it ends
// highest speed first. A missing element leaves it empty; a missing number reads as 0.
AFX_EXT_API void PX_SpeedToIntValues(CXTPPropExchange* pPX, const wchar_t* key,
                                     SpeedToIntValues& table);
AFX_EXT_API void PX_SpeedToDoubleValues(CXTPPropExchange* pPX, const wchar_t* key,
                                        SpeedToDoubleValues& table);

namespace designspec {

// The whole number that `value` has before its point, held within 32 bits; 0 for no number.
AFX_EXT_API int TruncateToInt(double value);

// Puts the pair behind the others.
template <class T> void AddSpeed(GrowArray<SpeedEntry<T>>& table, int speed, T value)
{
    table.Add({speed, value});
}

// Orders a table highest speed first; entries of one speed keep their order.
AFX_EXT_API void SortDescending(SpeedToIntValues& table);
AFX_EXT_API void SortDescending(SpeedToDoubleValues& table);

// The Item elements of a table, straight in the exchange's section; likewise.
AFX_EXT_API void ExchangeItems(CXTPPropExchange* pPX, SpeedToIntValues& table);
AFX_EXT_API void ExchangeItems(CXTPPropExchange* pPX, SpeedToDoubleValues& table);

} // namespace designspec
