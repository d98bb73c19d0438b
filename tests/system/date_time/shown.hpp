// Dates, times and their failures as text, so that a test compares whole values at once.

#pragma once

#include <cstdio>
#include <string>

#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/system/date_time/date_time.hpp"

namespace support {

// Day, month and year as they are read: "15.6.2021".
inline std::string shown(VELDRIN_2_18::system::date_time::date const& value) {
    return std::to_string(value.day()) + "." + std::to_string(value.month()) + "." +
           std::to_string(value.year());
}

// "09:05:00.250"
inline std::string shown(VELDRIN_2_18::system::date_time::time const& value) {
    char text[64];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", value.hour(), value.minute(), value.second(),
                  value.millisecond());
    return text;
}

// "15.6.2021 09:05:00.250"
inline std::string shown(VELDRIN_2_18::system::date_time::date_time_t const& value) {
    return shown(value.date()) + " " + shown(value.time());
}

// What `shown_failure` gives for each failure there is.
inline std::string failure(std::string const& message, std::string const& file, std::string const& function) {
    return message + " value out of valid range, system/date_time/" + file +
           ", VELDRIN_2_18::system::date_time::" + file + "::" + function;
}

inline std::string const bad_day = failure("day", "date", "day");
inline std::string const bad_month = failure("month", "date", "month");
inline std::string const bad_date = failure("date", "date", "minus_assign");
inline std::string const bad_hour = failure("Hour", "time", "hour");
inline std::string const bad_minute = failure("Minute", "time", "minute");
inline std::string const bad_second = failure("Second", "time", "second");
inline std::string const bad_millisecond = failure("Millisecond", "time", "millisecond");

// Message, source unit and function of the `out_of_range` that the action throws, or "none".
template <class Action>
std::string shown_failure(Action const& action) {
    try {
        action();
        return "none";
    } catch (VELDRIN_2_18::exceptions::out_of_range const& thrown) {
        return std::string(thrown.message()) + ", " + thrown.error_state().file() + ", " +
               thrown.error_state().function() + (thrown.error_state().line() == 0 ? ", no line" : "");
    }
}

} // namespace support
