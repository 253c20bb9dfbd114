#include "base/LocalTime.h"

namespace designspec {

std::tm InLocalTime(Moment moment)
{
    const std::time_t time = moment.time_since_epoch().count();
    std::tm broken{};
    localtime_r(&time, &broken);
    return broken;
}

Moment FromLocalTime(std::tm local)
{
    local.tm_isdst = -1;
    return Moment(std::chrono::seconds(std::mktime(&local)));
}

} // namespace designspec
