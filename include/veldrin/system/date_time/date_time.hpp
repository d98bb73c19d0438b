// File: veldrin/system/date_time/date_time.hpp
//
// A date and a time of day side by side. Arithmetic on the whole does not treat it as one moment: nothing
// carries from the time into the date, a `date_duration` does nothing, and 24 hours or more overwrite the day
// of the month. Where a moment is to be moved by days, move the date and put it back.
//
//     namespace dt = system::date_time;
//     dt::date_time_t moment(dt::date(15, 6, 2021), dt::time(23, 0, 0, 0));
//     moment += dt::time_duration(2, 0, 0, 0);                  // 15 June 2021, 01:00
//     moment += dt::date_duration(5);                           // the same
//     dt::date day = moment.date();
//     day += dt::date_duration(5);
//     moment = day;                                             // 20 June 2021, 01:00

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/system/date_time/date.hpp"
#include "veldrin/system/date_time/date_duration.hpp"
#include "veldrin/system/date_time/time.hpp"
#include "veldrin/system/date_time/time_duration.hpp"

namespace VELDRIN_2_18::system::date_time {

// The types are written `date_time::date` and `date_time::time`: the plain names are members here.
class VELDRIN_EXPORT date_time_t {
public:
    static constexpr unsigned int max_months_in_year = date_time::date::max_months_in_year;
    static constexpr unsigned int max_weeks_in_year = date_time::date::max_weeks_in_year;

    // Not that of `date`, which is 31.
    static constexpr unsigned int max_days_in_month = 32;

    static constexpr unsigned int min_hour = date_time::time::min_hour;
    static constexpr unsigned int max_hour = date_time::time::max_hour;
    static constexpr unsigned int min_minute = date_time::time::min_minute;
    static constexpr unsigned int max_minute = date_time::time::max_minute;
    static constexpr unsigned int min_second = date_time::time::min_second;
    static constexpr unsigned int max_second = date_time::time::max_second;
    static constexpr unsigned int min_millisecond = date_time::time::min_millisecond;
    static constexpr unsigned int max_millisecond = date_time::time::max_millisecond;

    // All fields 0.
    date_time_t() = default;
    date_time_t(date_time_t const&) = default;
    date_time_t(date_time::date const& new_date, date_time::time const& new_time)
        : m_time(new_time), m_date(new_date) {}
    ~date_time_t() = default;

    // Now. Both parts come from one reading of the clock, so that they belong together at midnight too.
    static date_time_t const local_date_time();
    static date_time_t const UTC_date_time();

    // What these do and throw is told in `date` and `time`.
    unsigned int year() const { return m_date.year(); }
    unsigned int month() const { return m_date.month(); }
    unsigned int day() const { return m_date.day(); }
    unsigned int year(unsigned int value) { return m_date.year(value); }
    unsigned int month(unsigned int value) { return m_date.month(value); }
    unsigned int day(unsigned int value) { return m_date.day(value); }
    bool is_leap_year() const { return m_date.is_leap_year(); }
    bool is_day_constrained() const { return m_date.is_day_constrained(); }
    int hour() const { return m_time.hour(); }
    int minute() const { return m_time.minute(); }
    int second() const { return m_time.second(); }
    int millisecond() const { return m_time.millisecond(); }
    int hour(unsigned int value) { return m_time.hour(value); }
    int minute(unsigned int value) { return m_time.minute(value); }
    int second(unsigned int value) { return m_time.second(value); }
    int millisecond(unsigned int value) { return m_time.millisecond(value); }

    date_time::time const& time() const { return m_time; }
    date_time::date const& date() const { return m_date; }

    // A date or a time alone replaces its part and leaves the other.
    date_time_t& operator=(date_time::date const& new_date) { return assign(new_date); }
    date_time_t& operator=(date_time::time const& new_time) { return assign(new_time); }
    date_time_t& operator=(date_time_t const&) = default;
    date_time_t& assign(date_time::date const& new_date);
    date_time_t& assign(date_time::time const& new_time);
    date_time_t& assign(date_time::date const& new_date, date_time::time const& new_time);
    date_time_t& assign(date_time_t const& other) { return *this = other; }

    // Leave the object as it is.
    date_time_t& plus_assign(date_duration const&) { return *this; }
    date_time_t& minus_assign(date_duration const&) { return *this; }
    date_time_t& operator+=(date_duration const& duration) { return plus_assign(duration); }
    date_time_t& operator-=(date_duration const& duration) { return minus_assign(duration); }

    // Less than 24 hours, of either sign, move the time part, which wraps past midnight by itself.
    //
    // From 24 hours on, with r = duration.hour() % 24, the date's day is first set to r, and then the date is
    // moved by r days, in the direction of the operation; then the time part is moved as above. So 25 hours
    // from 15 June lead to 2 June. Throws what the parts throw, which keep what was changed before: the day's
    // setter where r is 0 or negative, as it is for 24 hours and for every negative duration; `date` where it
    // would come before its first day; `time` where a subtraction of more than a day leads too far.
    date_time_t& plus_assign(time_duration const& duration);
    date_time_t& minus_assign(time_duration const& duration);
    date_time_t& operator+=(time_duration const& duration) { return plus_assign(duration); }
    date_time_t& operator-=(time_duration const& duration) { return minus_assign(duration); }

private:
    date_time::time m_time;
    date_time::date m_date;
};

} // namespace VELDRIN_2_18::system::date_time
