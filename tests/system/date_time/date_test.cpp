#include "veldrin/system/date_time/date.hpp"

#include <climits>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "system/date_time/open_date.hpp"
#include "system/date_time/shown.hpp"

namespace {

using namespace support;
using VELDRIN_2_18::system::date_time::date;
using VELDRIN_2_18::system::date_time::date_duration;

static_assert(date::max_months_in_year == 12);
static_assert(date::max_weeks_in_year == 52);
static_assert(date::max_days_in_month == 31);
static_assert(!std::is_polymorphic_v<date>);
static_assert(std::is_same_v<decltype(std::declval<date&>() = date()), date const&>);
static_assert(std::is_same_v<decltype(std::declval<date&>() += 1), date const&>);
static_assert(std::is_same_v<decltype(date::local_date()), date const>);

TEST(date, begins_with_zeros) {
    date const value;
    EXPECT_EQ(shown(value), "0.0.0");
    EXPECT_TRUE(value.is_leap_year());
    EXPECT_FALSE(value.is_day_constrained());
}

TEST(date, takes_the_day_first) { EXPECT_EQ(shown(date(15, 6, 2021)), "15.6.2021"); }

TEST(date, takes_days_1_to_31_whatever_the_month) {
    date value(1, 2, 2021);
    for (unsigned int day = 1; day <= 31; ++day) {
        EXPECT_EQ(value.day(day), day);
        EXPECT_EQ(shown_failure([&] { date(day, 2, 2021); }), "none");
    }
    value = date(15, 6, 2021);
    for (unsigned int const day : {0U, 32U, UINT_MAX}) {
        EXPECT_EQ(shown_failure([&] { value.day(day); }), bad_day);
        EXPECT_EQ(shown_failure([&] { date(day, 1, 2000); }), bad_day);
    }
    EXPECT_EQ(shown(value), "15.6.2021");
}

TEST(date, takes_months_1_to_12) {
    date value(1, 1, 2021);
    for (unsigned int month = 1; month <= 12; ++month) {
        EXPECT_EQ(value.month(month), month);
        EXPECT_EQ(value.month(), month);
    }
    value = date(15, 6, 2021);
    for (unsigned int const month : {0U, 13U, UINT_MAX}) {
        EXPECT_EQ(shown_failure([&] { value.month(month); }), bad_month);
        EXPECT_EQ(shown_failure([&] { date(1, month, 2000); }), bad_month);
    }
    EXPECT_EQ(shown(value), "15.6.2021");
}

TEST(date, reports_a_bad_day_before_a_bad_month) {
    EXPECT_EQ(shown_failure([] { date(0, 13, 2000); }), bad_day);
}

TEST(date, takes_every_year) {
    date value(1, 2, UINT_MAX);
    EXPECT_EQ(value.year(), UINT_MAX);
    EXPECT_EQ(value.year(0), 0U);
    EXPECT_EQ(shown(value), "1.2.0");
}

TEST(date, knows_the_leap_years) {
    for (unsigned int const year : {0U, 4U, 400U, 1600U, 2000U, 2024U, 4000U, 4294967200U, 4294967292U}) {
        EXPECT_TRUE(date(1, 1, year).is_leap_year()) << year;
    }
    for (unsigned int const year : {1U, 2U, 3U, 100U, 1700U, 1900U, 2023U, 2100U, 4294967100U, UINT_MAX}) {
        EXPECT_FALSE(date(1, 1, year).is_leap_year()) << year;
    }
}

TEST(date, reads_the_day_limited_to_the_month) {
    unsigned int const lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (unsigned int const year : {2021U, 2024U, 1900U, 2000U}) {
        bool const is_leap_year = year == 2024 || year == 2000;
        for (unsigned int month = 1; month <= 12; ++month) {
            unsigned int const length = month == 2 && is_leap_year ? 29 : lengths[month - 1];
            for (unsigned int day = 1; day <= 31; ++day) {
                open_date const value(day, month, year);
                EXPECT_EQ(value.day(), day < length ? day : length) << shown(value);
                EXPECT_EQ(value.get_days(), value.day());
                EXPECT_EQ(value.is_day_constrained(), day > length) << shown(value);
            }
        }
    }
}

TEST(date, keeps_the_stored_day_through_a_shorter_month) {
    date value(29, 2, 2023);
    EXPECT_EQ(value.day(), 28U);
    EXPECT_TRUE(value.is_day_constrained());
    value.year(2024);
    EXPECT_EQ(value.day(), 29U);
    EXPECT_FALSE(value.is_day_constrained());
    value.year(2023);
    value.month(3);
    EXPECT_EQ(value.day(), 29U);
    EXPECT_FALSE(value.is_day_constrained());
}

TEST(date, returns_the_day_that_it_stores_and_not_the_one_that_it_reads) {
    date value(1, 2, 2023);
    EXPECT_EQ(value.day(31), 31U);
    EXPECT_EQ(value.day(), 28U);
}

TEST(date, without_a_month_reads_day_0) {
    date value;
    EXPECT_EQ(value.day(7), 7U);
    EXPECT_EQ(value.day(), 0U);
    EXPECT_TRUE(value.is_day_constrained());
    value.month(1);
    EXPECT_EQ(value.day(), 7U);
}

TEST(date, is_copied_and_assigned_with_the_stored_day) {
    date const source(31, 2, 2023);
    date copy(source);
    date by_operator(1, 1, 1);
    date by_name(1, 1, 1);
    EXPECT_EQ(&(by_operator = source), &by_operator);
    EXPECT_EQ(&by_name.assign(source), &by_name);
    for (date* const each : {&copy, &by_operator, &by_name}) {
        EXPECT_EQ(shown(*each), "28.2.2023");
        each->month(3);
        EXPECT_EQ(shown(*each), "31.3.2023");
    }
}

TEST(date, tests_days_and_months) {
    open_date const value;
    EXPECT_FALSE(value.is_valid_day(0));
    EXPECT_TRUE(value.is_valid_day(1));
    EXPECT_TRUE(value.is_valid_day(31));
    EXPECT_FALSE(value.is_valid_day(32));
    EXPECT_FALSE(value.is_valid_month(0));
    EXPECT_TRUE(value.is_valid_month(1));
    EXPECT_TRUE(value.is_valid_month(12));
    EXPECT_FALSE(value.is_valid_month(13));
}

TEST(date, counts_days_from_march_of_the_year_0) {
    EXPECT_EQ(open_date(1, 3, 0).pJulian_day_number(), 1U);
    EXPECT_EQ(open_date(1, 1, 1970).pJulian_day_number(), 719469U);
    EXPECT_EQ(open_date(1, 1, 2000).pJulian_day_number(), 730426U);
    EXPECT_EQ(open_date(1, 3, 2000).pJulian_day_number(), 730486U);
    EXPECT_EQ(open_date(1, 3, 6000000).pJulian_day_number(), 2191455001U);
    // Wrapped.
    EXPECT_EQ(open_date(1, 3, UINT_MAX).pJulian_day_number(), 1041529205U);
}

TEST(date, is_set_by_a_day_number_without_a_test) {
    EXPECT_EQ(shown(date_of_number(719469)), "1.1.1970");
    EXPECT_EQ(shown(date_of_number(1)), "1.3.0");
    EXPECT_EQ(shown(date_of_number(0)), "20.3.11759221");
    EXPECT_EQ(shown(date_of_number(UINT_MAX)), "19.3.11759221");
    EXPECT_EQ(shown(date_of_number(0x7FFFFFFF)), "8.9.5879610");
}

TEST(date, moves_forward_and_backward) {
    struct row {
        date start;
        int days;
        char const* end;
    };
    for (row const& each : {
             row{date(1, 1, 2000), 0, "1.1.2000"},
             row{date(1, 1, 2000), 58, "28.2.2000"},
             row{date(1, 1, 2000), 59, "1.3.2000"},
             row{date(1, 1, 2000), 60, "1.3.2000"},
             row{date(1, 1, 2000), 61, "2.3.2000"},
             row{date(28, 2, 2008), 1, "1.3.2008"},
             row{date(28, 2, 2008), 2, "1.3.2008"},
             row{date(28, 2, 2008), 3, "2.3.2008"},
             row{date(1, 3, 2008), -1, "1.3.2008"},
             row{date(1, 3, 2008), -2, "28.2.2008"},
             row{date(29, 2, 2008), 0, "1.3.2008"},
             row{date(28, 2, 2007), 1, "1.3.2007"},
             row{date(1, 3, 2007), -1, "28.2.2007"},
             row{date(28, 2, 1900), 1, "1.3.1900"},
             row{date(31, 12, 2021), 1, "1.1.2022"},
             row{date(1, 1, 2022), -1, "31.12.2021"},
             row{date(15, 6, 2021), 146097, "15.6.2421"},
             row{date(15, 6, 2021), -146097, "15.6.1621"},
             // Day numbers wrap.
             row{date(1, 1, 2000), INT_MAX, "11.7.5881610"},
             row{date(1, 1, 2000), INT_MIN, "12.7.5881610"},
             row{date(1, 3, 0), -1, "20.3.11759221"},
         }) {
        date moved(each.start);
        EXPECT_EQ(&moved.plus_assign(each.days), &moved);
        EXPECT_EQ(shown(moved), each.end);
        EXPECT_FALSE(moved.is_day_constrained());
        moved = each.start;
        EXPECT_EQ(&(moved += each.days), &moved);
        EXPECT_EQ(shown(moved), each.end);
    }
}

TEST(date, subtracts_as_far_as_its_first_day) {
    struct row {
        date start;
        int days;
        char const* end;
    };
    for (row const& each : {
             row{date(3, 3, 2000), 1, "2.3.2000"},
             row{date(3, 3, 2000), 2, "1.3.2000"},
             row{date(3, 3, 2000), 3, "1.3.2000"},
             row{date(3, 3, 2000), 4, "28.2.2000"},
             row{date(31, 4, 2021), 0, "1.5.2021"},
             row{date(1, 1, 2000), 730425, "1.3.0"},
             row{date(2, 3, 0), 1, "1.3.0"},
             row{date(1, 3, 0), 0, "1.3.0"},
             // A negative count leads forward.
             row{date(31, 12, 2021), -1, "1.1.2022"},
             row{date(1, 1, 2000), -INT_MAX, "11.7.5881610"},
             // Taken as signed this day number is negative, but above the count.
             row{date(1, 3, 6000000), INT_MIN, "21.8.120389"},
         }) {
        date moved(each.start);
        EXPECT_EQ(&moved.minus_assign(each.days), &moved);
        EXPECT_EQ(shown(moved), each.end);
        EXPECT_FALSE(moved.is_day_constrained());
        moved = each.start;
        EXPECT_EQ(&(moved -= each.days), &moved);
        EXPECT_EQ(shown(moved), each.end);
    }
}

TEST(date, does_not_move_before_its_first_day) {
    struct row {
        date start;
        int days;
    };
    for (row const& each : {row{date(1, 3, 0), 1}, row{date(1, 3, 0), 2}, row{date(1, 3, 0), INT_MAX},
                            row{date(30, 4, 2000), 730546}, row{date(30, 4, 2000), INT_MAX},
                            row{date(1, 3, 6000000), 0}, row{date(1, 3, 6000000), -1}}) {
        date moved(each.start);
        EXPECT_EQ(shown_failure([&] { moved.minus_assign(each.days); }), bad_date);
        EXPECT_EQ(shown_failure([&] { moved -= each.days; }), bad_date);
        EXPECT_EQ(shown(moved), shown(each.start));
    }
}

TEST(date, keeps_the_stored_day_when_it_does_not_move) {
    date value(31, 4, 2021);
    EXPECT_EQ(shown_failure([&] { value -= INT_MAX; }), bad_date);
    value.month(5);
    EXPECT_EQ(value.day(), 31U);
}

TEST(date, moves_from_the_stored_day) {
    date value(31, 4, 2021);
    EXPECT_EQ(shown(value), "30.4.2021");
    value += date_duration(0);
    EXPECT_EQ(shown(value), "1.5.2021");
}

} // namespace
