#include "veldrin/system/date_time/basic_time.hpp"

#include <climits>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::system::date_time::basic_time;

TEST(basic_time, begins_with_zeros) {
    basic_time const fields;
    EXPECT_EQ(fields.hour(), 0U);
    EXPECT_EQ(fields.minute(), 0U);
    EXPECT_EQ(fields.second(), 0U);
    EXPECT_EQ(fields.millisecond(), 0U);
}

TEST(basic_time, stores_and_returns_whatever_it_is_given) {
    basic_time fields;
    EXPECT_EQ(fields.hour(24), 24U);
    EXPECT_EQ(fields.minute(60), 60U);
    EXPECT_EQ(fields.second(61), 61U);
    EXPECT_EQ(fields.millisecond(UINT_MAX), UINT_MAX);
    EXPECT_EQ(fields.hour(), 24U);
    EXPECT_EQ(fields.minute(), 60U);
    EXPECT_EQ(fields.second(), 61U);
    EXPECT_EQ(fields.millisecond(), UINT_MAX);
}

TEST(basic_time, is_assigned_field_by_field) {
    basic_time source;
    source.hour(1);
    source.minute(2);
    source.second(3);
    source.millisecond(4);
    basic_time target;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.hour(), 1U);
    EXPECT_EQ(target.minute(), 2U);
    EXPECT_EQ(target.second(), 3U);
    EXPECT_EQ(target.millisecond(), 4U);
}

} // namespace
