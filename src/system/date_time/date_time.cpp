#include "veldrin/system/date_time/date_time.hpp"

#include "system/date_time/clock_reading.hpp"

namespace VELDRIN_2_18::system::date_time {

namespace {

date_time_t date_time_of(platform::broken_down_time const& reading) {
    return {_private::date_of(reading), _private::time_of(reading)};
}

bool is_a_day_or_more(time_duration const& duration) {
    return duration.hour() >= 24 || duration.hour() <= -24;
}

// Sets the day of the month to the hours beyond whole days, and returns as many days.
date_duration overwrite_day(date& target, time_duration const& duration) {
    int const hours = duration.hour() % 24;
    target.day(static_cast<unsigned int>(hours));
    return hours;
}

} // namespace

date_time_t const date_time_t::local_date_time() { return date_time_of(platform::local_time()); }

date_time_t const date_time_t::UTC_date_time() { return date_time_of(platform::utc_time()); }

date_time_t& date_time_t::assign(date_time::date const& new_date) {
    m_date = new_date;
    return *this;
}

date_time_t& date_time_t::assign(date_time::time const& new_time) {
    m_time = new_time;
    return *this;
}

date_time_t& date_time_t::assign(date_time::date const& new_date, date_time::time const& new_time) {
    return assign(new_date).assign(new_time);
}

date_time_t& date_time_t::plus_assign(time_duration const& duration) {
    if (is_a_day_or_more(duration)) {
        m_date += overwrite_day(m_date, duration);
    }
    m_time += duration;
    return *this;
}

date_time_t& date_time_t::minus_assign(time_duration const& duration) {
    if (is_a_day_or_more(duration)) {
        m_date -= overwrite_day(m_date, duration);
    }
    m_time -= duration;
    return *this;
}

} // namespace VELDRIN_2_18::system::date_time
