#include "veldrin/system/date_time/milliseconds.hpp"

#include <cstdint>

#include <gtest/gtest.h>

#include "system/date_time/shown.hpp"

namespace {

using VELDRIN_2_18::system::date_time::milliseconds;
using VELDRIN_2_18::system::date_time::time;
using VELDRIN_2_18::system::date_time::time_duration;

TEST(milliseconds, is_a_duration_of_so_many) {
    time_duration const& duration = milliseconds(INT64_C(-9000000000000000));
    EXPECT_EQ(duration.total_milliseconds(), INT64_C(-9000000000000000));
    EXPECT_EQ(milliseconds().total_milliseconds(), 0);
    EXPECT_EQ(milliseconds(5430250).minute(), 30);
    EXPECT_EQ((milliseconds(5) + milliseconds(6)).total_milliseconds(), 11);
    EXPECT_EQ(support::shown(time(12, 0, 0, 0) + milliseconds(1500)), "12:00:01.500");
}

TEST(milliseconds, is_copied_and_assigned) {
    milliseconds const source(5);
    milliseconds const copy(source);
    milliseconds by_operator;
    milliseconds by_name;
    EXPECT_EQ(&(by_operator = source), &by_operator);
    EXPECT_EQ(&by_name.assign(source), &by_name);
    EXPECT_EQ(copy.total_milliseconds(), 5);
    EXPECT_EQ(by_operator.total_milliseconds(), 5);
    EXPECT_EQ(by_name.total_milliseconds(), 5);
}

TEST(milliseconds, turns_into_the_low_bits_of_its_count) {
    int const few = milliseconds(-5);
    int const many = milliseconds(INT64_C(0x1234567887654321));
    EXPECT_EQ(few, -5);
    EXPECT_EQ(many, static_cast<int>(0x87654321));
}

} // namespace
