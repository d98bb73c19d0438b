#include "veldrin/system/date_time/time_duration.hpp"

#include <climits>
#include <cstdint>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::system::date_time::time_duration;

time_duration of(std::int64_t milliseconds) { return time_duration(0, 0, 0, milliseconds); }

TEST(time_duration, is_built_from_its_parts) {
    struct row {
        int hours, minutes, seconds;
        std::int64_t milliseconds, total;
    };
    for (row const& each : {
             row{0, 0, 0, 0, 0},
             row{1, 2, 3, 4, 3723004},
             row{-1, -2, -3, -4, -3723004},
             row{1, -60, 61, -1000, 60000},
             row{100, 0, 0, 0, 360000000},
             row{596, 0, 0, 0, 2145600000},
             // The first three are added up in 32 bits and sign-extended,
             row{597, 0, 0, 0, -2145767296},
             row{0, 35792, 0, 0, -2147447296},
             row{0, 0, 2147484, 0, -2147483296},
             row{596, 0, 1884, 0, -2147483296},
             row{-2000, 0, 0, 0, 1389934592},
             row{INT_MAX, INT_MAX, INT_MAX, 0, -3661000},
             // the last in 64.
             row{597, 0, 0, 2145767296, 0},
             row{0, 0, 0, INT64_MAX, INT64_MAX},
             row{0, 0, 0, INT64_MIN, INT64_MIN},
             row{0, 0, 1, INT64_MAX, INT64_MIN + 999},
         }) {
        time_duration const duration(each.hours, each.minutes, each.seconds, each.milliseconds);
        EXPECT_EQ(duration.total_milliseconds(), each.total);
    }
    EXPECT_EQ(time_duration().total_milliseconds(), 0);
}

TEST(time_duration, is_cut_into_parts) {
    struct row {
        std::int64_t count;
        int hour, minute, second, millisecond;
    };
    for (row const& each : {
             row{0, 0, 0, 0, 0},
             row{3723004, 1, 2, 3, 4},
             row{3599999, 0, 59, 59, 999},
             row{360000000, 100, 0, 0, 0},
             row{-1, 0, 0, 0, -1},
             row{-5430250, -1, -30, -30, -250},
             row{-3600000, -1, 0, 0, 0},
             // The milliseconds come from the low 32 bits, as a signed number.
             row{INT64_C(2147483648), 596, 31, 23, -648},
             row{INT64_C(4294967296), 1193, 2, 47, 0},
             row{INT64_C(4294967295), 1193, 2, 47, -1},
             // A part that does not fit keeps its low bits,
             row{INT64_MAX, -2047687697, 56, -28, -1},
             row{INT64_MIN, 2047687697, -56, 28, 0},
             row{INT64_C(4611686018427599999), 1123639799, -36, -12, 95},
             // and the division is one of real numbers, so that this one is rounded up to 2 to the power
             // of 40.
             row{INT64_C(3958241859993599999), 0, 0, 0, -1},
         }) {
        time_duration const duration = of(each.count);
        EXPECT_EQ(duration.hour(), each.hour) << each.count;
        EXPECT_EQ(duration.minute(), each.minute) << each.count;
        EXPECT_EQ(duration.second(), each.second) << each.count;
        EXPECT_EQ(duration.millisecond(), each.millisecond) << each.count;
    }
}

TEST(time_duration, is_read_whole_in_each_unit) {
    EXPECT_EQ(of(5400000).total_hours(), 1.5);
    EXPECT_EQ(of(5400000).total_minutes(), 90.0);
    EXPECT_EQ(of(5400000).total_seconds(), 5400.0);
    EXPECT_EQ(of(5400000).total_milliseconds(), 5400000);
    EXPECT_EQ(of(-900000).total_hours(), -0.25);
    EXPECT_EQ(of(-15000).total_minutes(), -0.25);
    EXPECT_EQ(of(-250).total_seconds(), -0.25);
    EXPECT_EQ(of(1).total_hours(), 1 / 3600000.0);
    EXPECT_EQ(of(INT64_MAX).total_hours(), 2562047788015.2153);
    EXPECT_EQ(of(INT64_MIN).total_minutes(), -153722867280912.94);
    EXPECT_EQ(of(INT64_MIN).total_seconds(), -9223372036854776.0);
    EXPECT_EQ(time_duration().total_hours(), 0.0);
}

TEST(time_duration, is_negative_below_zero) {
    EXPECT_TRUE(of(-1).is_negative());
    EXPECT_TRUE(of(INT64_MIN).is_negative());
    EXPECT_FALSE(of(0).is_negative());
    EXPECT_FALSE(of(1).is_negative());
    // Only the low bits are those of a negative number.
    EXPECT_FALSE(of(INT64_C(2147483648)).is_negative());
}

TEST(time_duration, is_copied_and_assigned) {
    time_duration const source = of(5);
    time_duration const copy(source);
    time_duration by_operator;
    time_duration by_name;
    EXPECT_EQ(&(by_operator = source), &by_operator);
    EXPECT_EQ(&by_name.assign(source), &by_name);
    EXPECT_EQ(copy.total_milliseconds(), 5);
    EXPECT_EQ(by_operator.total_milliseconds(), 5);
    EXPECT_EQ(by_name.total_milliseconds(), 5);
}

TEST(time_duration, adds_and_subtracts_and_wraps) {
    struct row {
        std::int64_t left, right, sum, difference;
    };
    for (row const& each :
         {row{5, 3, 8, 2}, row{3, 5, 8, -2}, row{-5, 3, -2, -8},
          row{INT64_C(3000000000), INT64_C(3000000000), INT64_C(6000000000), 0},
          row{INT64_MAX, 1, INT64_MIN, INT64_MAX - 1}, row{INT64_MIN, 1, INT64_MIN + 1, INT64_MAX},
          row{0, INT64_MIN, INT64_MIN, INT64_MIN}}) {
        time_duration const left = of(each.left);
        time_duration const right = of(each.right);
        EXPECT_EQ(plus(left, right).total_milliseconds(), each.sum);
        EXPECT_EQ((left + right).total_milliseconds(), each.sum);
        EXPECT_EQ(minus(left, right).total_milliseconds(), each.difference);
        EXPECT_EQ((left - right).total_milliseconds(), each.difference);

        time_duration changed = left;
        EXPECT_EQ(&changed.plus_assign(right), &changed);
        EXPECT_EQ(changed.total_milliseconds(), each.sum);
        changed = left;
        EXPECT_EQ(&(changed += right), &changed);
        EXPECT_EQ(changed.total_milliseconds(), each.sum);
        changed = left;
        EXPECT_EQ(&changed.minus_assign(right), &changed);
        EXPECT_EQ(changed.total_milliseconds(), each.difference);
        changed = left;
        EXPECT_EQ(&(changed -= right), &changed);
        EXPECT_EQ(changed.total_milliseconds(), each.difference);
    }
}

} // namespace
