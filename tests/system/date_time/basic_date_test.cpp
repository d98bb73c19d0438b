#include "veldrin/system/date_time/basic_date.hpp"

#include <climits>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::system::date_time::basic_date;

TEST(basic_date, begins_with_zeros) {
    basic_date const fields;
    EXPECT_EQ(fields.year(), 0U);
    EXPECT_EQ(fields.month(), 0U);
    EXPECT_EQ(fields.day(), 0U);
}

TEST(basic_date, stores_and_returns_whatever_it_is_given) {
    basic_date fields;
    EXPECT_EQ(fields.year(UINT_MAX), UINT_MAX);
    EXPECT_EQ(fields.month(13), 13U);
    EXPECT_EQ(fields.day(32), 32U);
    EXPECT_EQ(fields.year(), UINT_MAX);
    EXPECT_EQ(fields.month(), 13U);
    EXPECT_EQ(fields.day(), 32U);
}

TEST(basic_date, is_assigned_field_by_field) {
    basic_date source;
    source.year(1);
    source.month(2);
    source.day(3);
    basic_date target;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.year(), 1U);
    EXPECT_EQ(target.month(), 2U);
    EXPECT_EQ(target.day(), 3U);
}

} // namespace
