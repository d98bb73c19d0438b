// Dates and times from a clock that answers what the tests want. It ends the program when its performance
// counter is read: who uses no timer does not link the measurement of its overhead.

#include "veldrin/system/date_time/date_time.hpp"

#include <gtest/gtest.h>

#include "system/date_time/fake_clock.hpp"
#include "system/date_time/shown.hpp"

namespace {

using namespace support;
using VELDRIN_2_18::system::date_time::date;
using VELDRIN_2_18::system::date_time::date_time_t;
using VELDRIN_2_18::system::date_time::time;

class system_clock : public testing::Test {
protected:
    system_clock() {
        local_reading = {2024, 2, 29, 1, 2, 3, 4};
        utc_reading = {2023, 12, 31, 23, 59, 59, 999};
        local_queries = 0;
        utc_queries = 0;
    }

    static void expect_queries(std::size_t local, std::size_t utc) {
        EXPECT_EQ(local_queries, local);
        EXPECT_EQ(utc_queries, utc);
    }
};

TEST_F(system_clock, gives_the_local_date) {
    EXPECT_EQ(shown(date::local_date()), "29.2.2024");
    expect_queries(1, 0);
}

TEST_F(system_clock, gives_the_utc_date) {
    EXPECT_EQ(shown(date::UTC_date()), "31.12.2023");
    expect_queries(0, 1);
}

TEST_F(system_clock, gives_the_local_time) {
    EXPECT_EQ(shown(time::local_time()), "01:02:03.004");
    expect_queries(1, 0);
}

TEST_F(system_clock, gives_the_utc_time) {
    EXPECT_EQ(shown(time::UTC_time()), "23:59:59.999");
    expect_queries(0, 1);
}

TEST_F(system_clock, gives_both_local_parts_from_one_reading) {
    EXPECT_EQ(shown(date_time_t::local_date_time()), "29.2.2024 01:02:03.004");
    expect_queries(1, 0);
}

TEST_F(system_clock, gives_both_utc_parts_from_one_reading) {
    EXPECT_EQ(shown(date_time_t::UTC_date_time()), "31.12.2023 23:59:59.999");
    expect_queries(0, 1);
}

TEST_F(system_clock, reads_a_leap_second_as_second_59) {
    local_reading = {2017, 1, 1, 0, 59, 60, 500};
    utc_reading = {2016, 12, 31, 23, 59, 60, 500};
    EXPECT_EQ(shown(time::local_time()), "00:59:59.500");
    EXPECT_EQ(shown(time::UTC_time()), "23:59:59.500");
    EXPECT_EQ(shown(date_time_t::local_date_time()), "1.1.2017 00:59:59.500");
    EXPECT_EQ(shown(date_time_t::UTC_date_time()), "31.12.2016 23:59:59.500");
}

TEST_F(system_clock, is_checked_like_any_other_values) {
    local_reading = {2024, 0, 1, 0, 0, 0, 0};
    EXPECT_EQ(shown_failure([] { date::local_date(); }), bad_month);
    local_reading = {2024, 13, 32, 24, 0, 0, 0};
    EXPECT_EQ(shown_failure([] { date::local_date(); }), bad_day);
    EXPECT_EQ(shown_failure([] { time::local_time(); }), bad_hour);
    EXPECT_EQ(shown_failure([] { date_time_t::local_date_time(); }), bad_day);
    utc_reading.millisecond = 1000;
    EXPECT_EQ(shown_failure([] { time::UTC_time(); }), bad_millisecond);
    EXPECT_EQ(shown_failure([] { date_time_t::UTC_date_time(); }), bad_millisecond);
}

} // namespace
