#include "veldrin/system/date_time/time.hpp"

#include <climits>
#include <cstdint>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "system/date_time/shown.hpp"

namespace {

using namespace support;
using VELDRIN_2_18::system::date_time::time;
using VELDRIN_2_18::system::date_time::time_duration;

static_assert(time::min_hour == 0 && time::max_hour == 23);
static_assert(time::min_minute == 0 && time::max_minute == 59);
static_assert(time::min_second == 0 && time::max_second == 59);
static_assert(time::min_millisecond == 0 && time::max_millisecond == 999);
static_assert(!std::is_polymorphic_v<time>);
static_assert(std::is_same_v<decltype(std::declval<time&>() = time()), time&>);
static_assert(std::is_same_v<decltype(std::declval<time&>() += time_duration()), time const&>);
static_assert(std::is_same_v<decltype(time() - time()), time_duration const>);
static_assert(std::is_same_v<decltype(time() - time_duration()), time const>);

class open_time : public time {
public:
    using time::is_valid_hour;
    using time::is_valid_millisecond;
    using time::is_valid_minute;
    using time::is_valid_second;
};

time_duration of(std::int64_t milliseconds) { return time_duration(0, 0, 0, milliseconds); }

TEST(time, begins_with_zeros) { EXPECT_EQ(shown(time()), "00:00:00.000"); }

TEST(time, takes_hour_minute_second_and_millisecond) {
    EXPECT_EQ(shown(time(1, 2, 3, 4)), "01:02:03.004");
    EXPECT_EQ(shown(time(23, 59, 59, 999)), "23:59:59.999");
}

TEST(time, sets_each_field_up_to_its_maximum_and_returns_it) {
    time value(1, 2, 3, 4);
    EXPECT_EQ(value.hour(23), 23);
    EXPECT_EQ(shown(value), "23:02:03.004");
    EXPECT_EQ(value.minute(59), 59);
    EXPECT_EQ(shown(value), "23:59:03.004");
    EXPECT_EQ(value.second(59), 59);
    EXPECT_EQ(shown(value), "23:59:59.004");
    EXPECT_EQ(value.millisecond(999), 999);
    EXPECT_EQ(shown(value), "23:59:59.999");
    EXPECT_EQ(value.hour(0), 0);
    EXPECT_EQ(value.minute(0), 0);
    EXPECT_EQ(value.second(0), 0);
    EXPECT_EQ(value.millisecond(0), 0);
    EXPECT_EQ(shown(value), "00:00:00.000");
}

TEST(time, keeps_a_field_that_it_refuses_to_set) {
    time value(1, 2, 3, 4);
    for (unsigned int const beyond : {0U, 1U, 1000U, UINT_MAX - 1000, 0x80000000U}) {
        EXPECT_EQ(shown_failure([&] { value.hour(24 + beyond); }), bad_hour);
        EXPECT_EQ(shown_failure([&] { value.minute(60 + beyond); }), bad_minute);
        EXPECT_EQ(shown_failure([&] { value.second(60 + beyond); }), bad_second);
        EXPECT_EQ(shown_failure([&] { value.millisecond(1000 + beyond); }), bad_millisecond);
    }
    // A negative number is too large.
    EXPECT_EQ(shown_failure([&] { value.hour(static_cast<unsigned int>(-1)); }), bad_hour);
    EXPECT_EQ(shown(value), "01:02:03.004");
}

TEST(time, is_checked_in_the_order_of_its_fields) {
    EXPECT_EQ(shown_failure([] { time(24, 60, 60, 1000); }), bad_hour);
    EXPECT_EQ(shown_failure([] { time(23, 60, 60, 1000); }), bad_minute);
    EXPECT_EQ(shown_failure([] { time(23, 59, 60, 1000); }), bad_second);
    EXPECT_EQ(shown_failure([] { time(23, 59, 59, 1000); }), bad_millisecond);
}

TEST(time, tests_values_as_unsigned_numbers) {
    open_time const value;
    EXPECT_TRUE(value.is_valid_hour(0) && value.is_valid_hour(23));
    EXPECT_FALSE(value.is_valid_hour(24) || value.is_valid_hour(-1) || value.is_valid_hour(INT_MIN));
    EXPECT_TRUE(value.is_valid_minute(0) && value.is_valid_minute(59));
    EXPECT_FALSE(value.is_valid_minute(60) || value.is_valid_minute(-1) || value.is_valid_minute(INT_MIN));
    EXPECT_TRUE(value.is_valid_second(0) && value.is_valid_second(59));
    EXPECT_FALSE(value.is_valid_second(60) || value.is_valid_second(-1) || value.is_valid_second(INT_MIN));
    EXPECT_TRUE(value.is_valid_millisecond(0) && value.is_valid_millisecond(999));
    EXPECT_FALSE(value.is_valid_millisecond(1000) || value.is_valid_millisecond(-1) ||
                 value.is_valid_millisecond(INT_MIN));
}

TEST(time, is_copied_and_assigned) {
    time const source(1, 2, 3, 4);
    time const copy(source);
    time by_operator;
    time by_name;
    EXPECT_EQ(&(by_operator = source), &by_operator);
    EXPECT_EQ(&by_name.assign(source), &by_name);
    EXPECT_EQ(shown(copy), "01:02:03.004");
    EXPECT_EQ(shown(by_operator), "01:02:03.004");
    EXPECT_EQ(shown(by_name), "01:02:03.004");
}

struct move {
    time start;
    std::int64_t milliseconds;
    std::string end;
};

// Without it a row is printed byte by byte, padding included.
void PrintTo(move const& move, std::ostream* stream) { *stream << move.end; }

// Each by every function that moves a time.
class moved_time : public testing::TestWithParam<move> {};

INSTANTIATE_TEST_SUITE_P(
    table, moved_time,
    testing::Values(move{time(1, 2, 3, 4), 0, "01:02:03.004"}, move{time(23, 59, 59, 999), 1, "00:00:00.000"},
                    move{time(), -1, "23:59:59.999"}, move{time(1, 2, 3, 4), 3661001, "02:03:04.005"},
                    move{time(2, 3, 4, 5), -3661001, "01:02:03.004"},
                    move{time(23, 0, 0, 0), 7200000, "01:00:00.000"},
                    move{time(12, 0, 0, 0), 86400000, "12:00:00.000"},
                    // Whole days count for nothing,
                    move{time(12, 0, 0, 0), INT64_C(86400000) * 1000 + 1, "12:00:00.001"},
                    move{time(12, 0, 0, 0), -86400000, "12:00:00.000"},
                    move{time(), -86400000, "00:00:00.000"},
                    // also where a part of a day would be refused.
                    move{time(), INT64_C(-86400000) * 2, "00:00:00.000"},
                    move{time(12, 0, 0, 0), INT64_C(-86400000) * 7 - 43200000, "00:00:00.000"}));

TEST_P(moved_time, comes_out_the_same_by_every_function) {
    auto const& [start, milliseconds, end] = GetParam();
    time_duration const duration = of(milliseconds);
    time_duration const negated = of(-milliseconds);
    EXPECT_EQ(shown(plus(start, duration)), end);
    EXPECT_EQ(shown(plus(duration, start)), end);
    EXPECT_EQ(shown(start + duration), end);
    EXPECT_EQ(shown(duration + start), end);
    EXPECT_EQ(shown(minus(start, negated)), end);
    EXPECT_EQ(shown(start - negated), end);

    time moved = start;
    EXPECT_EQ(&moved.plus_assign(duration), &moved);
    EXPECT_EQ(shown(moved), end);
    moved = start;
    EXPECT_EQ(&(moved += duration), &moved);
    EXPECT_EQ(shown(moved), end);
    moved = start;
    EXPECT_EQ(&moved.minus_assign(negated), &moved);
    EXPECT_EQ(shown(moved), end);
    moved = start;
    EXPECT_EQ(&(moved -= negated), &moved);
    EXPECT_EQ(shown(moved), end);
}

struct refused_move {
    time start;
    std::int64_t milliseconds;
    std::string failure;
    std::string left;
};

void PrintTo(refused_move const& move, std::ostream* stream) { *stream << move.milliseconds; }

class refused_time : public testing::TestWithParam<refused_move> {};

INSTANTIATE_TEST_SUITE_P(
    table, refused_time,
    testing::Values(refused_move{time(1, 2, 3, 4), -86400000 - 3723004 - 3600000, bad_hour, "01:02:03.004"},
                    refused_move{time(1, 2, 3, 4), -86400000 - 3723004 - 3599999, bad_minute, "00:02:03.004"},
                    refused_move{time(1, 2, 3, 4), -86400000 - 3723004 - 59999, bad_second, "00:00:03.004"},
                    refused_move{time(1, 2, 3, 4), -86400000 - 3723004 - 999, bad_millisecond,
                                 "00:00:00.004"},
                    refused_move{time(1, 2, 3, 4), -86400000 - 3723004 - 1, bad_millisecond, "00:00:00.004"},
                    // The sums wrap at 64 bits.
                    refused_move{time(1, 0, 0, 0), INT64_MAX, bad_hour, "01:00:00.000"},
                    refused_move{time(1, 0, 0, 0), INT64_MIN + 1, bad_hour, "01:00:00.000"}));

TEST_P(refused_time, keeps_the_fields_that_were_set_before) {
    refused_move const& row = GetParam();
    time_duration const duration = of(row.milliseconds);
    time_duration const negated = of(-row.milliseconds);
    time moved = row.start;
    EXPECT_EQ(shown_failure([&] { moved.plus_assign(duration); }), row.failure);
    EXPECT_EQ(shown(moved), row.left);
    moved = row.start;
    EXPECT_EQ(shown_failure([&] { moved += duration; }), row.failure);
    EXPECT_EQ(shown(moved), row.left);
    moved = row.start;
    EXPECT_EQ(shown_failure([&] { moved.minus_assign(negated); }), row.failure);
    EXPECT_EQ(shown(moved), row.left);
    moved = row.start;
    EXPECT_EQ(shown_failure([&] { moved -= negated; }), row.failure);
    EXPECT_EQ(shown(moved), row.left);

    time const start = row.start;
    EXPECT_EQ(shown_failure([&] { plus(start, duration); }), row.failure);
    EXPECT_EQ(shown_failure([&] { minus(start, negated); }), row.failure);
    EXPECT_EQ(shown(start), shown(row.start));
}

TEST(time, subtracts_the_shortest_duration_there_is_as_if_it_were_added) {
    // Negated it is itself.
    time value(12, 0, 0, 0);
    EXPECT_EQ(shown_failure([&] { value -= of(INT64_MIN); }), bad_hour);
    EXPECT_EQ(shown(value), "12:00:00.000");
}

TEST(time, moves_from_every_second_of_the_day) {
    std::int64_t const day = 86400000;
    for (int second = 0; second < 86400; ++second) {
        std::int64_t const milliseconds = second * 1000 + second % 1000;
        time const start(static_cast<unsigned int>(second / 3600),
                         static_cast<unsigned int>(second / 60 % 60), static_cast<unsigned int>(second % 60),
                         static_cast<unsigned int>(second % 1000));
        for (std::int64_t const distance :
             {INT64_C(-86399999), INT64_C(-43200001), INT64_C(-999), INT64_C(0), INT64_C(1), INT64_C(59999),
              INT64_C(3600000), INT64_C(90061001)}) {
            std::int64_t const expected = (milliseconds + distance + day) % day;
            time const moved = start + of(distance);
            ASSERT_EQ(moved.hour() * 3600000 + moved.minute() * 60000 + moved.second() * 1000 +
                          moved.millisecond(),
                      expected)
                << shown(start) << " + " << distance;
        }
    }
}

TEST(time, minus_another_is_the_duration_between_them_on_one_day) {
    EXPECT_EQ((time(2, 3, 4, 5) - time(1, 2, 3, 4)).total_milliseconds(), 3661001);
    EXPECT_EQ(minus(time(10, 0, 0, 0), time(9, 59, 59, 999)).total_milliseconds(), 1);
    EXPECT_EQ((time(23, 59, 59, 999) - time()).total_milliseconds(), 86399999);
    EXPECT_EQ((time() - time(23, 59, 59, 999)).total_milliseconds(), -86399999);
    EXPECT_EQ((time(5, 6, 7, 8) - time(5, 6, 7, 8)).total_milliseconds(), 0);

    time_duration const back = time(1, 0, 0, 0) - time(2, 0, 0, 0);
    EXPECT_EQ(back.total_milliseconds(), -3600000);
    EXPECT_TRUE(back.is_negative());
    EXPECT_EQ(back.hour(), -1);
    EXPECT_EQ(back.minute(), 0);
}

} // namespace
