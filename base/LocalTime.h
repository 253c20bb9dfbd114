// The calendar. The machine's time zone is known to the system: linux/ and windows/ have a source
// each.
#pragma once

#include <ctime>

#include "base/Moment.h"

namespace designspec {

std::tm InUtc(Moment moment);
std::tm InLocalTime(Moment moment);
// Takes year, month, day, hour, minute and second. Of a time that the clocks show twice, either; of
// one that they leap over, one near it.
Moment FromLocalTime(std::tm local);

} // namespace designspec
