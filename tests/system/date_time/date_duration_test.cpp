#include "veldrin/system/date_time/date_duration.hpp"

#include <climits>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::system::date_time::date_duration;

TEST(date_duration, is_a_signed_count_of_days) {
    EXPECT_EQ(date_duration().days(), 0);
    EXPECT_EQ(date_duration(7).days(), 7);
    EXPECT_EQ(date_duration(INT_MIN).days(), INT_MIN);
    date_duration duration;
    EXPECT_EQ(duration.days(-3), -3);
    EXPECT_EQ(duration.days(), -3);
}

TEST(date_duration, is_copied_and_assigned) {
    date_duration const source(5);
    date_duration const copy(source);
    date_duration by_operator;
    date_duration by_name;
    EXPECT_EQ(&(by_operator = source), &by_operator);
    EXPECT_EQ(&by_name.assign(source), &by_name);
    EXPECT_EQ(copy.days(), 5);
    EXPECT_EQ(by_operator.days(), 5);
    EXPECT_EQ(by_name.days(), 5);
}

TEST(date_duration, adds_and_subtracts_and_wraps) {
    struct row {
        int left, right, sum, difference;
    };
    for (row const& each : {row{5, 3, 8, 2}, row{3, 5, 8, -2}, row{-5, 3, -2, -8}, row{0, 0, 0, 0},
                            row{INT_MAX, 1, INT_MIN, INT_MAX - 1}, row{INT_MIN, 1, INT_MIN + 1, INT_MAX},
                            row{0, INT_MIN, INT_MIN, INT_MIN}, row{INT_MIN, INT_MIN, 0, 0}}) {
        date_duration sum(each.left);
        date_duration sum_by_operator(each.left);
        EXPECT_EQ(&sum.plus_assign(each.right), &sum);
        EXPECT_EQ(&(sum_by_operator += each.right), &sum_by_operator);
        EXPECT_EQ(sum.days(), each.sum);
        EXPECT_EQ(sum_by_operator.days(), each.sum);

        date_duration difference(each.left);
        date_duration difference_by_operator(each.left);
        EXPECT_EQ(&difference.minus_assign(each.right), &difference);
        EXPECT_EQ(&(difference_by_operator -= each.right), &difference_by_operator);
        EXPECT_EQ(difference.days(), each.difference);
        EXPECT_EQ(difference_by_operator.days(), each.difference);
    }
}

} // namespace
