#include "veldrin/system/date_time/date.hpp"

#include <algorithm>

#include "system/date_time/clock_reading.hpp"
#include "veldrin/exceptions/logic_error.hpp"

namespace VELDRIN_2_18::system::date_time {

namespace {

constexpr char const* source_unit = "system/date_time/date";

// From March on the months of a year come in pairs of 61 days, but for the third, July and August, of 62, and
// the last. This is the length of a pair's first month.
constexpr unsigned int days_in_first_month(unsigned int pair) { return pair == 3 || pair == 4 ? 30 : 31; }

} // namespace

date::date(unsigned int day, unsigned int month, unsigned int year) {
    this->day(day);
    this->month(month);
    this->year(year);
}

date const date::local_date() { return _private::date_of(platform::local_time()); }

date const date::UTC_date() { return _private::date_of(platform::utc_time()); }

unsigned int date::day(unsigned int value) {
    if (!is_valid_day(value)) {
        throw exceptions::out_of_range("day value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::date::day");
    }
    return m_fields.day(value);
}

unsigned int date::month(unsigned int value) {
    if (!is_valid_month(value)) {
        throw exceptions::out_of_range("month value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::date::month");
    }
    return m_fields.month(value);
}

bool date::is_leap_year() const { return (year() % 4 == 0 && year() % 100 != 0) || year() % 400 == 0; }

date const& date::plus_assign(date_duration const& duration) {
    pJulian_day_number(pJulian_day_number() + static_cast<unsigned int>(duration.days()));
    return *this;
}

date const& date::minus_assign(date_duration const& duration) {
    unsigned int const number = pJulian_day_number();
    if (duration.days() >= static_cast<int>(number)) {
        throw exceptions::out_of_range("date value out of valid range", __LINE__, source_unit,
                                       "VELDRIN_2_18::system::date_time::date::minus_assign");
    }
    pJulian_day_number(number - static_cast<unsigned int>(duration.days()));
    return *this;
}

unsigned int date::get_days() const {
    switch (month()) {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
        return m_fields.day();
    case 2:
        return std::min(m_fields.day(), is_leap_year() ? 29U : 28U);
    case 4:
    case 6:
    case 9:
    case 11:
        return std::min(m_fields.day(), 30U);
    default:
        return 0;
    }
}

unsigned int date::pJulian_day_number() const {
    // The year begins in March, so that its leap day is its last.
    bool const is_at_end_of_year = month() < 3;
    unsigned int const march_year = year() - (is_at_end_of_year ? 1 : 0);
    unsigned int const months = month() + (is_at_end_of_year ? 12 : 0) - 3;
    unsigned int const pair = months / 2;

    unsigned int const days_of_years =
        365 * march_year + march_year / 4 + march_year / 400 - march_year / 100;
    unsigned int const days_of_pairs = 61 * pair + (pair > 2 ? 1 : 0);
    unsigned int const days_of_month = months % 2 != 0 ? days_in_first_month(pair) : 0;
    return days_of_years + days_of_pairs + days_of_month + m_fields.day();
}

void date::pJulian_day_number(unsigned int number) {
    unsigned int const days = number - 1;
    unsigned int const days_in_400_years = days % 146097;
    unsigned int const days_in_100_years = days_in_400_years % 36524;
    unsigned int const days_in_4_years = days_in_100_years % 1461;
    unsigned int const day_of_year = days_in_4_years % 365 + 1;
    // A leap day is the last of 4, or of 400, years. The two quotients that are 4 then, and not 3, take it
    // into the next year: it becomes 1 March.
    unsigned int const march_year = 400 * (days / 146097) + 100 * (days_in_400_years / 36524) +
                                    4 * (days_in_100_years / 1461) + days_in_4_years / 365;

    unsigned int const pair = (day_of_year - 1 - (day_of_year > 183 ? 1 : 0)) / 61;
    unsigned int const day_of_pair = day_of_year - 61 * pair - (pair > 2 ? 1 : 0);
    unsigned int const first_month = days_in_first_month(pair);
    bool const is_second_month = day_of_pair > first_month;
    unsigned int const month_from_january = 3 + 2 * pair + (is_second_month ? 1 : 0);

    bool const is_at_end_of_year = month_from_january > 12;
    m_fields.year(march_year + (is_at_end_of_year ? 1 : 0));
    m_fields.month(month_from_january - (is_at_end_of_year ? 12 : 0));
    m_fields.day(day_of_pair - (is_second_month ? first_month : 0));
}

} // namespace VELDRIN_2_18::system::date_time
