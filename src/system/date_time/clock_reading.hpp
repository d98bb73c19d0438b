// A reading of the system's clock as a date and as a time.

#pragma once

#include <algorithm>

#include "platform/clock.hpp"
#include "veldrin/system/date_time/date.hpp"
#include "veldrin/system/date_time/time.hpp"

namespace VELDRIN_2_18::system::date_time::_private {

inline date date_of(platform::broken_down_time const& reading) {
    return {reading.day, reading.month, reading.year};
}

// A time has no second 60, which is a leap second.
inline time time_of(platform::broken_down_time const& reading) {
    unsigned int const second = std::min(reading.second, time::max_second);
    return {reading.hour, reading.minute, second, reading.millisecond};
}

} // namespace VELDRIN_2_18::system::date_time::_private
