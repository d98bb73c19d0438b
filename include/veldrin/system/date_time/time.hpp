// File: veldrin/system/date_time/time.hpp
//
// A time of day, to the millisecond. Arithmetic stays inside the day and wraps past midnight.
//
//     using system::date_time::time, system::date_time::time_duration;
//     time const late(23, 30, 0, 0);
//     time const early = late + time_duration(1, 0, 0, 0);   // 00:30:00.000
//     time_duration const apart = early - late;              // -23 hours: the midnight between is not seen

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/system/date_time/basic_time.hpp"
#include "veldrin/system/date_time/time_duration.hpp"

namespace VELDRIN_2_18::system::date_time {

class VELDRIN_EXPORT time {
public:
    static constexpr unsigned int min_hour = 0;
    static constexpr unsigned int max_hour = 23;
    static constexpr unsigned int min_minute = 0;
    static constexpr unsigned int max_minute = 59;
    static constexpr unsigned int min_second = 0;
    static constexpr unsigned int max_second = 59;
    static constexpr unsigned int min_millisecond = 0;
    static constexpr unsigned int max_millisecond = 999;

    // All fields 0.
    time() = default;
    time(time const&) = default;

    // Throws as the four setters do, in this order.
    time(unsigned int hour, unsigned int minute, unsigned int second, unsigned int millisecond);

    // Now, by the system's clock. A leap second reads as second 59.
    static time local_time();
    static time UTC_time();

    int hour() const { return static_cast<int>(m_fields.hour()); }
    int minute() const { return static_cast<int>(m_fields.minute()); }
    int second() const { return static_cast<int>(m_fields.second()); }
    int millisecond() const { return static_cast<int>(m_fields.millisecond()); }

    // Each returns the value. Throws `exceptions::out_of_range` for one above the field's maximum; the field
    // keeps its value then.
    int hour(unsigned int value);
    int minute(unsigned int value);
    int second(unsigned int value);
    int millisecond(unsigned int value);

    time& operator=(time const&) = default;
    time& assign(time const& other) { return *this = other; }

    // Moves by the duration, of either sign, and wraps past midnight; days count for nothing. A move that
    // would end more than 24 hours before midnight throws `exceptions::out_of_range`, unless it ends at
    // whole days before it. Hour, minute, second and millisecond are set in this order, and those set before
    // the one that throws keep their new values: they are 0.
    time const& plus_assign(time_duration const& duration);
    time const& operator+=(time_duration const& duration) { return plus_assign(duration); }

    // `plus_assign` of the negated duration.
    time const& minus_assign(time_duration const& duration);
    time const& operator-=(time_duration const& duration) { return minus_assign(duration); }

protected:
    // The value is taken as unsigned: a negative one is too large.
    bool is_valid_hour(int value) const { return static_cast<unsigned int>(value) <= max_hour; }
    bool is_valid_minute(int value) const { return static_cast<unsigned int>(value) <= max_minute; }
    bool is_valid_second(int value) const { return static_cast<unsigned int>(value) <= max_second; }
    bool is_valid_millisecond(int value) const { return static_cast<unsigned int>(value) <= max_millisecond; }

private:
    basic_time m_fields;
};

// How long it is from `right` to `left` on one day: negative if `left` is the earlier.
VELDRIN_EXPORT time_duration const minus(time const& left, time const& right);

// The time moved by the duration, as by `plus_assign` and `minus_assign`.
VELDRIN_EXPORT time const plus(time const& start, time_duration const& duration);
VELDRIN_EXPORT time const plus(time_duration const& duration, time const& start);
VELDRIN_EXPORT time const minus(time const& start, time_duration const& duration);

inline time_duration const operator-(time const& left, time const& right) { return minus(left, right); }
inline time const operator+(time const& start, time_duration const& duration) {
    return plus(start, duration);
}
inline time const operator+(time_duration const& duration, time const& start) {
    return plus(duration, start);
}
inline time const operator-(time const& start, time_duration const& duration) {
    return minus(start, duration);
}

} // namespace VELDRIN_2_18::system::date_time
