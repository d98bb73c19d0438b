// The clocks over the system's own, which answer what the tests want.

#include "platform/clock.hpp"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "support/temporary_directory.hpp"
#include "system/date_time/shown.hpp"

namespace {

// Of no seconds: what the system says.
std::timespec realtime{};
std::timespec monotonic{};

} // namespace

// Stands in front of the system's own.
extern "C" int clock_gettime(clockid_t clock, std::timespec* reading) noexcept {
    std::timespec const& fake = clock == CLOCK_REALTIME ? realtime : monotonic;
    if (fake.tv_sec == 0 || (clock != CLOCK_REALTIME && clock != CLOCK_MONOTONIC)) {
        return static_cast<int>(::syscall(SYS_clock_gettime, clock, reading));
    }
    *reading = fake;
    return 0;
}

namespace {

using namespace VELDRIN_2_18;
using support::shown;
using system::date_time::date_time_t;

class posix_clock : public testing::Test {
protected:
    ~posix_clock() override {
        realtime = {};
        monotonic = {};
        set_time_zone("UTC0");
    }

    static void set_time_zone(std::string const& zone) {
        setenv("TZ", zone.c_str(), 1);
        tzset();
    }
};

std::string shown(platform::broken_down_time const& reading) {
    std::string text;
    for (unsigned int const number : {reading.year, reading.month, reading.day, reading.hour, reading.minute,
                                      reading.second, reading.millisecond}) {
        text += (text.empty() ? "" : " ") + std::to_string(number);
    }
    return text;
}

TEST_F(posix_clock, breaks_down_utc_and_local_time) {
    realtime = {1700000000, 987654321};
    set_time_zone("TST-5:30");
    EXPECT_EQ(shown(platform::utc_time()), "2023 11 14 22 13 20 987");
    EXPECT_EQ(shown(platform::local_time()), "2023 11 15 3 43 20 987");
    set_time_zone("TST8");
    EXPECT_EQ(shown(platform::utc_time()), "2023 11 14 22 13 20 987");
    EXPECT_EQ(shown(platform::local_time()), "2023 11 14 14 13 20 987");
}

TEST_F(posix_clock, breaks_down_times_before_1970) {
    realtime = {-1, 999999999};
    EXPECT_EQ(shown(platform::utc_time()), "1969 12 31 23 59 59 999");
}

TEST_F(posix_clock, gives_dates_and_times) {
    realtime = {1709164800, 0};
    set_time_zone("TST-1");
    EXPECT_EQ(shown(date_time_t::UTC_date_time()), "29.2.2024 00:00:00.000");
    EXPECT_EQ(shown(date_time_t::local_date_time()), "29.2.2024 01:00:00.000");
}

// A zone file, in the format of tzfile(5): UTC with one leap second, at the end of 2016.
std::string zone_with_leap_second() {
    using namespace std::string_view_literals;
    return std::string("TZif\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv) +
           std::string("\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\1\0\0\0\4"sv) + // one leap second, one type
           std::string("\0\0\0\0\0\0UTC\0"sv) + std::string("\x58\x68\x46\x80\0\0\0\1"sv);
}

TEST_F(posix_clock, reads_a_leap_second_as_second_59) {
    support::temporary_directory const directory;
    set_time_zone(":" + directory.file("leap", zone_with_leap_second()));
    struct row {
        std::time_t seconds;
        char const* reading;
        char const* date_time;
    };
    for (row const& each : {row{1483228799, "2016 12 31 23 59 59 500", "31.12.2016 23:59:59.500"},
                            row{1483228800, "2016 12 31 23 59 60 500", "31.12.2016 23:59:59.500"},
                            row{1483228801, "2017 1 1 0 0 0 500", "1.1.2017 00:00:00.500"}}) {
        realtime = {each.seconds, 500000000};
        EXPECT_EQ(shown(platform::local_time()), each.reading);
        EXPECT_EQ(shown(date_time_t::local_date_time()), each.date_time);
    }
}

TEST_F(posix_clock, counts_from_a_monotonic_clock) {
    monotonic = {12, 345678999};
    EXPECT_EQ(platform::performance_counter(), 123456789U);
    EXPECT_EQ(platform::performance_frequency(), 10000000U);
    EXPECT_EQ(platform::millisecond_clock(), 12345U);
    monotonic = {4000000000, 0};
    EXPECT_EQ(platform::performance_counter(), 40000000000000000U);
}

TEST_F(posix_clock, wraps_the_millisecond_clock_at_32_bits) {
    monotonic = {4294967, 295000000};
    EXPECT_EQ(platform::millisecond_clock(), 4294967295U);
    monotonic = {4294967, 296000000};
    EXPECT_EQ(platform::millisecond_clock(), 0U);
    monotonic = {4294968, 0};
    EXPECT_EQ(platform::millisecond_clock(), 704U);
}

TEST_F(posix_clock, agrees_with_the_standard_library) {
    auto const seconds = [] {
        return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    };
    std::time_t const before = seconds();
    platform::broken_down_time const reading = platform::utc_time();
    std::time_t const after = seconds();
    std::tm fields{};
    fields.tm_year = static_cast<int>(reading.year) - 1900;
    fields.tm_mon = static_cast<int>(reading.month) - 1;
    fields.tm_mday = static_cast<int>(reading.day);
    fields.tm_hour = static_cast<int>(reading.hour);
    fields.tm_min = static_cast<int>(reading.minute);
    fields.tm_sec = static_cast<int>(reading.second);
    std::time_t const read = timegm(&fields);
    EXPECT_LE(before, read);
    EXPECT_LE(read, after);
    EXPECT_LT(reading.millisecond, 1000U);

    std::uint64_t const counter = platform::performance_counter();
    EXPECT_LE(counter, platform::performance_counter());
}

} // namespace
