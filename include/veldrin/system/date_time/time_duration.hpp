// File: veldrin/system/date_time/time_duration.hpp
//
// A signed count of milliseconds, of either sign and any length. Sums and differences wrap at 64 bits.
//
//     system::date_time::time_duration duration(1, 30, 0, 0);
//     duration += system::date_time::time_duration(0, 0, 45, 250);
//     duration.minute();          // 30
//     duration.total_minutes();   // 90.754...

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::system::date_time {

class VELDRIN_EXPORT time_duration {
public:
    time_duration() = default;

    // Any values, negative ones too. Hours, minutes and seconds are added up as milliseconds in 32 bits and
    // wrap there, from 597 hours on; `milliseconds` counts in 64.
    time_duration(int hours, int minutes, int seconds, std::int64_t milliseconds);

    time_duration(time_duration const&) = default;

    // The count cut up, each part with the sign of the whole. The hours are all there are, not limited to 24;
    // a part of a count that is too long for 32 bits keeps the low bits. The milliseconds come from the low
    // 32 bits of the count, so beyond 24 days `total_milliseconds() % 1000` is the one to take.
    int hour() const;
    int minute() const;
    int second() const;
    int millisecond() const;

    // The whole count in one unit, with its fraction.
    double total_hours() const { return static_cast<double>(m_milliseconds) / 3600000.0; }
    double total_minutes() const { return static_cast<double>(m_milliseconds) / 60000.0; }
    double total_seconds() const { return static_cast<double>(m_milliseconds) / 1000.0; }
    std::int64_t total_milliseconds() const { return m_milliseconds; }

    bool is_negative() const { return m_milliseconds < 0; }

    time_duration& operator=(time_duration const&) = default;
    time_duration& assign(time_duration const& other) { return *this = other; }

    time_duration& plus_assign(time_duration const& other);
    time_duration& minus_assign(time_duration const& other);
    time_duration& operator+=(time_duration const& other) { return plus_assign(other); }
    time_duration& operator-=(time_duration const& other) { return minus_assign(other); }

private:
    std::int64_t m_milliseconds = 0;
};

VELDRIN_EXPORT time_duration const plus(time_duration const& left, time_duration const& right);
VELDRIN_EXPORT time_duration const minus(time_duration const& left, time_duration const& right);

inline time_duration const operator+(time_duration const& left, time_duration const& right) {
    return plus(left, right);
}
inline time_duration const operator-(time_duration const& left, time_duration const& right) {
    return minus(left, right);
}

} // namespace VELDRIN_2_18::system::date_time
