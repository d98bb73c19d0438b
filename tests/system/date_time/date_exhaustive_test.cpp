// Every day from 1 March of the year 0 to the end of the year 4000, against a calendar that is walked day by
// day.

#include "veldrin/system/date_time/date.hpp"

#include <vector>

#include <gtest/gtest.h>

#include "system/date_time/open_date.hpp"
#include "system/date_time/shown.hpp"

namespace {

using support::date_of_number;
using support::open_date;
using support::shown;
using VELDRIN_2_18::system::date_time::date;

struct plain_day {
    unsigned int day;
    unsigned int month;
    unsigned int year;

    bool is_leap_day() const { return month == 2 && day == 29; }

    bool is(date const& value) const {
        return value.day() == day && value.month() == month && value.year() == year;
    }

    date as_date() const { return date(day, month, year); }
};

unsigned int length_of_month(unsigned int month, unsigned int year) {
    unsigned int const lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool const is_leap_year = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
    return month == 2 && is_leap_year ? 29 : lengths[month - 1];
}

plain_day next(plain_day const& before) {
    if (before.day < length_of_month(before.month, before.year)) {
        return {before.day + 1, before.month, before.year};
    }
    return before.month < 12 ? plain_day{1, before.month + 1, before.year} : plain_day{1, 1, before.year + 1};
}

// By day number; the one at 0 is no day.
std::vector<plain_day> const& all_days() {
    static std::vector<plain_day> const days = [] {
        std::vector<plain_day> result = {{0, 0, 0}, {1, 3, 0}};
        while (result.back().year <= 4000) {
            result.push_back(next(result.back()));
        }
        return result;
    }();
    return days;
}

// What arithmetic makes of the day: 1 March of a 29 February.
plain_day const& result_of(std::size_t number) {
    plain_day const& found = all_days()[number];
    return found.is_leap_day() ? all_days()[number + 1] : found;
}

TEST(every_date, is_as_many_as_there_are_days) {
    EXPECT_EQ(all_days().size() - 1, 1461277U);
    EXPECT_EQ(shown(all_days().back().as_date()), "1.1.4001");
}

TEST(every_date, has_its_day_number_and_comes_back_from_it) {
    for (unsigned int number = 1; number + 1 < all_days().size(); ++number) {
        plain_day const& day = all_days()[number];
        open_date const value(day.day, day.month, day.year);
        ASSERT_EQ(value.day(), day.day) << number;
        ASSERT_FALSE(value.is_day_constrained()) << number;
        ASSERT_EQ(value.pJulian_day_number(), number);
        ASSERT_TRUE(result_of(number).is(date_of_number(number)))
            << number << " gives " << shown(date_of_number(number));
    }
}

TEST(every_date, moves_to_every_distance) {
    date const first(1, 3, 0);
    date const last(1, 1, 4001);
    auto const end = static_cast<int>(all_days().size());
    for (int number = 1; number + 1 < end; ++number) {
        plain_day const& expected = result_of(static_cast<std::size_t>(number));
        date value = first;
        value += number - 1;
        ASSERT_TRUE(expected.is(value)) << "forward " << number - 1 << ": " << shown(value);
        value = last;
        value -= end - 1 - number;
        ASSERT_TRUE(expected.is(value)) << "back " << end - 1 - number << ": " << shown(value);
    }
}

TEST(every_date, moves_by_some_distances) {
    auto const end = static_cast<int>(all_days().size());
    for (int number = 1; number + 1 < end; ++number) {
        date const start = all_days()[static_cast<std::size_t>(number)].as_date();
        for (int const distance : {0, 1, 2, 365, 36525}) {
            date value = start;
            if (number + distance + 1 < end) {
                value += distance;
                ASSERT_TRUE(result_of(static_cast<std::size_t>(number + distance)).is(value))
                    << shown(start) << " + " << distance << ": " << shown(value);
            }
            if (number > distance) {
                value = start;
                value -= distance;
                ASSERT_TRUE(result_of(static_cast<std::size_t>(number - distance)).is(value))
                    << shown(start) << " - " << distance << ": " << shown(value);
            }
        }
    }
}

// Days that the month does not have count on into the next one.
TEST(every_date, moves_from_the_stored_day) {
    for (std::size_t number = 1; number + 32 < all_days().size(); ++number) {
        plain_day const& first_of_month = all_days()[number];
        if (first_of_month.day != 1) {
            continue;
        }
        unsigned int const length = length_of_month(first_of_month.month, first_of_month.year);
        for (unsigned int day = length + 1; day <= 31; ++day) {
            open_date value(day, first_of_month.month, first_of_month.year);
            ASSERT_EQ(value.day(), length);
            ASSERT_EQ(value.pJulian_day_number(), number + day - 1);
            value += 0;
            ASSERT_TRUE(result_of(number + day - 1).is(value)) << shown(value);
        }
    }
}

} // namespace
