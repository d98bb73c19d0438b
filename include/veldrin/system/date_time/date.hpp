// File: veldrin/system/date_time/date.hpp
//
// A day of the Gregorian calendar, whose leap rule is applied to all years. The fields are kept as they were
// set: the day may exceed the length of the month, up to 31, and only reading limits it. So it survives a
// passage through a shorter month.
//
//     system::date_time::date payday(31, 1, 2023);
//     payday.month(2);                                     // payday.day() is 28
//     payday.month(3);                                     // payday.day() is 31 again
//     payday += system::date_time::date_duration(1);       // 1 April 2023
//
// Arithmetic never gives a 29 February: where one would come out there is the 1 March that follows it. So 28
// February 2008 plus one day and plus two days are both 1 March 2008, and 1 March 2008 minus one day is
// itself.

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/system/date_time/basic_date.hpp"
#include "veldrin/system/date_time/date_duration.hpp"

namespace VELDRIN_2_18::system::date_time {

class VELDRIN_EXPORT date {
public:
    static constexpr unsigned int max_months_in_year = 12;
    static constexpr unsigned int max_weeks_in_year = 52;
    static constexpr unsigned int max_days_in_month = 31;

    // All fields 0: no valid date, but one that may exist.
    date() = default;
    date(date const&) = default;

    // Throws as the setters of day and month do, in this order. Every year is taken.
    date(unsigned int day, unsigned int month, unsigned int year);

    // Today, by the system's clock.
    static date const local_date();
    static date const UTC_date();

    unsigned int year() const { return m_fields.year(); }

    // January is 1.
    unsigned int month() const { return m_fields.month(); }

    // The stored day limited to the length of the month; 0 where the month is 0.
    unsigned int day() const { return get_days(); }

    // The setters return the value. These two throw `exceptions::out_of_range` for a day outside 1 to 31,
    // whatever the month, and for a month outside 1 to 12; the field keeps its value then.
    unsigned int day(unsigned int value);
    unsigned int month(unsigned int value);
    unsigned int year(unsigned int value) { return m_fields.year(value); }

    // Divisible by 4 and not by 100, or by 400. The year 0 is one.
    bool is_leap_year() const;

    // True if `day()` is not the day that is stored.
    bool is_day_constrained() const { return day() != m_fields.day(); }

    date const& operator=(date const& other) { return assign(other); }
    date const& assign(date const& other) {
        m_fields = other.m_fields;
        return *this;
    }

    // Moves by so many days, backward for a negative count. The stored day counts, not the limited one: a 31
    // April is the day behind 30 April, so moving it by 0 days gives 1 May. The range is not tested; day
    // numbers wrap at 32 bits.
    date const& plus_assign(date_duration const& duration);
    date const& operator+=(date_duration const& duration) { return plus_assign(duration); }

    // The same in the other direction, but throws `exceptions::out_of_range`, leaving the date as it was, if
    // that would lead to a day before 1 March of the year 0. Day numbers are compared as signed 32-bit
    // numbers there: those from 9 September 5879610 on are negative, and only a count below that of the date
    // can be taken off it.
    date const& minus_assign(date_duration const& duration);
    date const& operator-=(date_duration const& duration) { return minus_assign(duration); }

protected:
    bool is_valid_day(unsigned int value) const { return value >= 1 && value <= max_days_in_month; }
    bool is_valid_month(unsigned int value) const { return value >= 1 && value <= max_months_in_year; }

    // The same as `day()`.
    unsigned int get_days() const;

    // The count of days in which 1 March of the year 0 has the number 1 and 1 January 1970 the number 719469.
    // It is worked out from the stored day, unsigned, in 32 bits. Nothing is promised for January and
    // February of the year 0.
    unsigned int pJulian_day_number() const;

    // Sets all fields to the day of that number. Every number gives a day and a month that exist; that of a
    // 29 February gives 1 March, and every other number is what `pJulian_day_number` then gives.
    void pJulian_day_number(unsigned int number);

private:
    basic_date m_fields;
};

} // namespace VELDRIN_2_18::system::date_time
