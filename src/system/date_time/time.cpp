#include "veldrin/system/date_time/time.hpp"

#include "system/date_time/clock_reading.hpp"
#include "system/date_time/wrapping.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/system/date_time/milliseconds.hpp"

namespace VELDRIN_2_18::system::date_time {

namespace {

constexpr char const* source_unit = "system/date_time/time";

constexpr std::int64_t milliseconds_in_day = 86400000;

} // namespace

time::time(unsigned int hour, unsigned int minute, unsigned int second, unsigned int millisecond) {
    this->hour(hour);
    this->minute(minute);
    this->second(second);
    this->millisecond(millisecond);
}

time time::local_time() { return _private::time_of(platform::local_time()); }

time time::UTC_time() { return _private::time_of(platform::utc_time()); }

int time::hour(unsigned int value) {
    if (!is_valid_hour(static_cast<int>(value))) {
        throw exceptions::out_of_range("Hour value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::time::hour");
    }
    return static_cast<int>(m_fields.hour(value));
}

int time::minute(unsigned int value) {
    if (!is_valid_minute(static_cast<int>(value))) {
        throw exceptions::out_of_range("Minute value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::time::minute");
    }
    return static_cast<int>(m_fields.minute(value));
}

int time::second(unsigned int value) {
    if (!is_valid_second(static_cast<int>(value))) {
        throw exceptions::out_of_range("Second value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::time::second");
    }
    return static_cast<int>(m_fields.second(value));
}

int time::millisecond(unsigned int value) {
    if (!is_valid_millisecond(static_cast<int>(value))) {
        throw exceptions::out_of_range("Millisecond value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::time::millisecond");
    }
    return static_cast<int>(m_fields.millisecond(value));
}

time const& time::plus_assign(time_duration const& duration) {
    time_duration const since_midnight = minus(*this, time()) + duration;
    // One day more makes a moment of the day before come out positive. What is earlier still keeps its sign,
    // and is refused by a setter.
    milliseconds const in_day =
        _private::wrapping_sum(since_midnight.total_milliseconds(), milliseconds_in_day) %
        milliseconds_in_day;
    hour(static_cast<unsigned int>(in_day.hour()));
    minute(static_cast<unsigned int>(in_day.minute()));
    second(static_cast<unsigned int>(in_day.second()));
    millisecond(static_cast<unsigned int>(in_day.millisecond()));
    return *this;
}

time const& time::minus_assign(time_duration const& duration) {
    return plus_assign(time_duration() - duration);
}

time_duration const minus(time const& left, time const& right) {
    return {left.hour() - right.hour(), left.minute() - right.minute(), left.second() - right.second(),
            left.millisecond() - right.millisecond()};
}

time const plus(time const& start, time_duration const& duration) {
    return time(start).plus_assign(duration);
}

time const plus(time_duration const& duration, time const& start) { return plus(start, duration); }

time const minus(time const& start, time_duration const& duration) {
    return time(start).minus_assign(duration);
}

} // namespace VELDRIN_2_18::system::date_time
