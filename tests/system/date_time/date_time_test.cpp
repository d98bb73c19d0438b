#include "veldrin/system/date_time/date_time.hpp"

#include <climits>
#include <cstdint>
#include <ostream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "system/date_time/shown.hpp"
#include "veldrin/system/date_time/milliseconds.hpp"

namespace {

using namespace support;
using VELDRIN_2_18::system::date_time::date;
using VELDRIN_2_18::system::date_time::date_duration;
using VELDRIN_2_18::system::date_time::date_time_t;
using VELDRIN_2_18::system::date_time::milliseconds;
using VELDRIN_2_18::system::date_time::time;
using VELDRIN_2_18::system::date_time::time_duration;

static_assert(date_time_t::max_months_in_year == 12);
static_assert(date_time_t::max_weeks_in_year == 52);
static_assert(date_time_t::max_days_in_month == 32);
static_assert(date_time_t::min_hour == 0 && date_time_t::max_hour == 23);
static_assert(date_time_t::min_minute == 0 && date_time_t::max_minute == 59);
static_assert(date_time_t::min_second == 0 && date_time_t::max_second == 59);
static_assert(date_time_t::min_millisecond == 0 && date_time_t::max_millisecond == 999);
static_assert(!std::is_polymorphic_v<date_time_t>);

template <class Value>
concept is_ordered = requires(Value const& value) {
    value < value;
};

static_assert(!is_ordered<date> && !is_ordered<time> && !is_ordered<date_time_t>);

date_time_t const noon(date(15, 6, 2021), time(12, 0, 0, 0));

TEST(date_time, begins_with_zeros) { EXPECT_EQ(shown(date_time_t()), "0.0.0 00:00:00.000"); }

TEST(date_time, is_made_of_its_parts) {
    date_time_t const value(date(15, 6, 2021), time(1, 2, 3, 4));
    EXPECT_EQ(shown(value), "15.6.2021 01:02:03.004");
    EXPECT_EQ(value.day(), 15U);
    EXPECT_EQ(value.month(), 6U);
    EXPECT_EQ(value.year(), 2021U);
    EXPECT_EQ(value.hour(), 1);
    EXPECT_EQ(value.minute(), 2);
    EXPECT_EQ(value.second(), 3);
    EXPECT_EQ(value.millisecond(), 4);
}

TEST(date_time, sets_the_fields_of_its_parts) {
    date_time_t value = noon;
    EXPECT_EQ(value.day(31), 31U);
    EXPECT_EQ(value.month(2), 2U);
    EXPECT_EQ(value.year(2023), 2023U);
    EXPECT_EQ(value.hour(1), 1);
    EXPECT_EQ(value.minute(2), 2);
    EXPECT_EQ(value.second(3), 3);
    EXPECT_EQ(value.millisecond(4), 4);
    EXPECT_EQ(shown(value), "28.2.2023 01:02:03.004");
    EXPECT_TRUE(value.is_day_constrained());
    EXPECT_FALSE(value.is_leap_year());
    value.month(3);
    value.year(2024);
    EXPECT_EQ(value.day(), 31U);
    EXPECT_FALSE(value.is_day_constrained());
    EXPECT_TRUE(value.is_leap_year());
}

TEST(date_time, fails_as_its_parts_do) {
    date_time_t value = noon;
    EXPECT_EQ(shown_failure([&] { value.day(0); }), bad_day);
    // Its own maximum of 32 is not the one that is tested.
    EXPECT_EQ(shown_failure([&] { value.day(32); }), bad_day);
    EXPECT_EQ(shown_failure([&] { value.month(13); }), bad_month);
    EXPECT_EQ(shown_failure([&] { value.hour(24); }), bad_hour);
    EXPECT_EQ(shown_failure([&] { value.minute(60); }), bad_minute);
    EXPECT_EQ(shown_failure([&] { value.second(60); }), bad_second);
    EXPECT_EQ(shown_failure([&] { value.millisecond(1000); }), bad_millisecond);
    EXPECT_EQ(shown(value), shown(noon));
}

TEST(date_time, is_copied_and_assigned_whole) {
    date_time_t const copy(noon);
    date_time_t by_operator;
    date_time_t by_name;
    date_time_t by_parts;
    EXPECT_EQ(&(by_operator = noon), &by_operator);
    EXPECT_EQ(&by_name.assign(noon), &by_name);
    EXPECT_EQ(&by_parts.assign(noon.date(), noon.time()), &by_parts);
    EXPECT_EQ(shown(copy), shown(noon));
    EXPECT_EQ(shown(by_operator), shown(noon));
    EXPECT_EQ(shown(by_name), shown(noon));
    EXPECT_EQ(shown(by_parts), shown(noon));
}

TEST(date_time, is_assigned_one_part) {
    date_time_t value = noon;
    EXPECT_EQ(&(value = date(1, 2, 3)), &value);
    EXPECT_EQ(shown(value), "1.2.3 12:00:00.000");
    EXPECT_EQ(&(value = time(4, 5, 6, 7)), &value);
    EXPECT_EQ(shown(value), "1.2.3 04:05:06.007");
    EXPECT_EQ(&value.assign(date(8, 9, 10)), &value);
    EXPECT_EQ(shown(value), "8.9.10 04:05:06.007");
    EXPECT_EQ(&value.assign(time(11, 12, 13, 14)), &value);
    EXPECT_EQ(shown(value), "8.9.10 11:12:13.014");
}

TEST(date_time, stays_where_it_is_when_moved_by_days) {
    date_time_t value(date(31, 4, 2021), time(1, 2, 3, 4));
    EXPECT_EQ(&value.plus_assign(date_duration(5)), &value);
    EXPECT_EQ(&(value += date_duration(5)), &value);
    EXPECT_EQ(&value.minus_assign(date_duration(5)), &value);
    EXPECT_EQ(&(value -= date_duration(INT_MAX)), &value);
    EXPECT_EQ(shown(value), "30.4.2021 01:02:03.004");
    // Nothing was worked out from the stored day either.
    EXPECT_TRUE(value.is_day_constrained());
}

struct move {
    date_time_t start;
    time_duration duration;
    std::string failure;
    std::string end;
};

// Without it a row is printed byte by byte, padding included.
void PrintTo(move const& move, std::ostream* stream) { *stream << move.end << move.failure; }

std::string const june = "15.6.2021 ";

class date_time_plus : public testing::TestWithParam<move> {};

INSTANTIATE_TEST_SUITE_P(
    table, date_time_plus,
    testing::Values(
        // Less than 24 hours do not reach the date.
        move{noon, {2, 0, 0, 0}, "none", june + "14:00:00.000"},
        move{{date(15, 6, 2021), time(23, 0, 0, 0)}, {2, 0, 0, 0}, "none", june + "01:00:00.000"},
        move{{date(15, 6, 2021), time(1, 0, 0, 0)}, {-2, 0, 0, 0}, "none", june + "23:00:00.000"},
        move{noon, {23, 59, 59, 999}, "none", june + "11:59:59.999"},
        move{noon, {-23, -59, -59, -999}, "none", june + "12:00:00.001"},
        // From there on the day is overwritten by the hours beyond whole days, and they are added to it as
        // days.
        move{noon, {25, 0, 0, 0}, "none", "2.6.2021 13:00:00.000"},
        move{noon, {25, 59, 59, 999}, "none", "2.6.2021 13:59:59.999"},
        move{noon, {47, 0, 0, 0}, "none", "16.7.2021 11:00:00.000"},
        move{noon, {49, 0, 0, 0}, "none", "2.6.2021 13:00:00.000"},
        move{{date(15, 2, 2021), time()}, {24 + 15, 0, 0, 0}, "none", "2.3.2021 15:00:00.000"},
        move{{date(31, 2, 2021), time()}, {25, 0, 0, 0}, "none", "2.2.2021 01:00:00.000"},
        move{{date(15, 12, 2021), time()}, {24 + 16, 0, 0, 0}, "none", "1.1.2022 16:00:00.000"},
        // There is no day 0, nor a negative one.
        move{noon, {24, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        move{noon, {24, 59, 59, 999}, bad_day, june + "12:00:00.000"},
        move{noon, {48, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        move{noon, {-24, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        move{noon, {-25, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        move{noon, {-49, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        // 2 to the power of 32 hours and 5 more are 5; and as an `int` this many are the lowest one.
        move{noon, milliseconds(INT64_C(4294967301) * 3600000), "none", june + "09:00:00.000"},
        move{noon, milliseconds(INT64_C(2147483648) * 3600000), bad_day, june + "12:00:00.000"}));

TEST_P(date_time_plus, moves_the_parts_or_fails) {
    move const& row = GetParam();
    date_time_t by_name = row.start;
    EXPECT_EQ(shown_failure([&] { EXPECT_EQ(&by_name.plus_assign(row.duration), &by_name); }), row.failure);
    EXPECT_EQ(shown(by_name), row.end);
    date_time_t by_operator = row.start;
    EXPECT_EQ(shown_failure([&] { EXPECT_EQ(&(by_operator += row.duration), &by_operator); }), row.failure);
    EXPECT_EQ(shown(by_operator), row.end);
}

class date_time_minus : public testing::TestWithParam<move> {};

INSTANTIATE_TEST_SUITE_P(
    table, date_time_minus,
    testing::Values(
        move{noon, {2, 0, 0, 0}, "none", june + "10:00:00.000"},
        move{{date(15, 6, 2021), time(1, 0, 0, 0)}, {2, 0, 0, 0}, "none", june + "23:00:00.000"},
        move{noon, {-13, 0, 0, 0}, "none", june + "01:00:00.000"},
        move{noon, {23, 59, 59, 999}, "none", june + "12:00:00.001"},
        // The hours are those of the duration, not of the negated one.
        move{noon, {25, 0, 0, 0}, "none", "31.5.2021 11:00:00.000"},
        move{noon, {26, 0, 0, 0}, "none", "31.5.2021 10:00:00.000"},
        move{{date(15, 3, 2021), time(23, 0, 0, 0)}, {47, 0, 0, 0}, "none", "28.2.2021 00:00:00.000"},
        move{noon, {24, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        move{noon, {-24, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        move{noon, {-25, 0, 0, 0}, bad_day, june + "12:00:00.000"},
        // What had changed before a part failed stays changed.
        move{{date(15, 3, 0), time(12, 0, 0, 0)}, {25, 0, 0, 0}, bad_date, "1.3.0 12:00:00.000"},
        move{{date(15, 6, 2021), time()}, {25, 0, 0, 0}, bad_hour, "31.5.2021 00:00:00.000"},
        move{{date(15, 6, 2021), time(1, 2, 3, 4)}, {26, 2, 3, 5}, bad_hour, "31.5.2021 01:02:03.004"},
        move{{date(15, 6, 2021), time(1, 2, 3, 4)},
             {25, 2, 3, 5},
             bad_millisecond,
             "31.5.2021 00:00:00.004"}));

TEST_P(date_time_minus, moves_the_parts_or_fails) {
    move const& row = GetParam();
    date_time_t by_name = row.start;
    EXPECT_EQ(shown_failure([&] { EXPECT_EQ(&by_name.minus_assign(row.duration), &by_name); }), row.failure);
    EXPECT_EQ(shown(by_name), row.end);
    date_time_t by_operator = row.start;
    EXPECT_EQ(shown_failure([&] { EXPECT_EQ(&(by_operator -= row.duration), &by_operator); }), row.failure);
    EXPECT_EQ(shown(by_operator), row.end);
}

} // namespace
