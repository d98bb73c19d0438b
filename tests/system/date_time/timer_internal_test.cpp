// The timer over clocks that answer what the tests want. The counter counts microseconds unless a test says
// otherwise.

#include "veldrin/system/date_time/timer.hpp"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "system/date_time/fake_clock.hpp"

namespace {

using namespace support;
using VELDRIN_2_18::system::date_time::timer;
using VELDRIN_2_18::system::date_time::TimerOverheadTester;

// The clock at load: three starts and stops, the first of which is thrown away, of 7 and 12 microseconds.
constexpr std::uint64_t readings_at_load[] = {5000, 905000, 1000000, 1007999, 2000000, 2012000, 77};

struct clock_at_load {
    clock_at_load() {
        counter_readings = readings_at_load;
        counter_frequency = 1000000000;
    }
};

// Older than the library's objects.
[[gnu::init_priority(101)]] clock_at_load const set_before_the_library;

struct load_result {
    std::uint64_t overhead;
    std::size_t unread;
    std::size_t frequency_queries;
};

// First called before any test changes the clocks.
load_result const& at_load() {
    static load_result const result = {timer::overhead_microseconds(), counter_readings.size(),
                                       frequency_queries};
    return result;
}

TEST(timer_overhead, is_measured_at_load) {
    EXPECT_EQ(at_load().overhead, 9U);
    EXPECT_EQ(at_load().unread, 1U);
    EXPECT_EQ(at_load().frequency_queries, 1U);
}

class open_timer : public timer {
public:
    using timer::current_time;
    using timer::timer;
    using timer::windows_timer_frequency;
};

class timer_over_fake_clocks : public testing::Test {
protected:
    timer_over_fake_clocks() {
        at_load();
        counter_readings = {};
        timer::overhead_microseconds(0);
        counter_frequency = 1000000;
        frequency_queries = 0;
        millisecond_reading = 5000;
        millisecond_queries = 0;
    }

    ~timer_over_fake_clocks() override {
        EXPECT_TRUE(counter_readings.empty()) << "the counter was read less often than expected";
    }

    // In microseconds, with the usual frequency.
    void counter_reads(std::initializer_list<std::uint64_t> readings) {
        m_readings = readings;
        counter_readings = m_readings;
    }

private:
    std::vector<std::uint64_t> m_readings;
};

using timer_overhead_over_fake_clocks = timer_over_fake_clocks;

TEST_F(timer_overhead_over_fake_clocks, is_not_measured_when_it_is_set) {
    timer::overhead_microseconds(3);
    counter_reads({});
    TimerOverheadTester();
    EXPECT_EQ(timer::overhead_microseconds(), 3U);
    EXPECT_EQ(frequency_queries, 0U);
}

struct measurement {
    std::vector<std::uint64_t> readings;
    std::uint64_t frequency;
    std::uint64_t overhead;
};

TEST_F(timer_overhead_over_fake_clocks, is_the_mean_of_two_samples) {
    for (measurement const& each : {
             measurement{{1, 2, 10, 14, 20, 26}, 1000000, 5},
             measurement{{1, 2, 10, 14, 20, 25}, 1000000, 4},
             measurement{{1, 2, 10, 10, 20, 20}, 1000000, 0},
             // Each sample is cut to whole microseconds.
             measurement{{1, 2, 1000, 2999, 3000, 4999}, 1000000000, 1},
             measurement{{1, 2, 10, 30, 40, 60}, 10000000, 2},
             // What the first pair gives does not matter.
             measurement{{1, 900000, 10, 14, 20, 26}, 1000000, 5},
             // A stop behind a reading of 0 reads nothing.
             measurement{{0, 10, 14, 20, 26}, 1000000, 5},
             measurement{{1, 2, 0, 20, 26}, 1000000, 3},
             measurement{{1, 2, 10, 14, 0}, 1000000, 2},
             measurement{{0, 0, 0}, 1000000, 0},
         }) {
        timer::overhead_microseconds(0);
        counter_frequency = each.frequency;
        counter_readings = each.readings;
        TimerOverheadTester();
        EXPECT_EQ(timer::overhead_microseconds(), each.overhead);
        EXPECT_TRUE(counter_readings.empty());
    }
}

TEST_F(timer_overhead_over_fake_clocks, is_set_and_read) {
    timer::overhead_microseconds(UINT64_MAX);
    EXPECT_EQ(timer::overhead_microseconds(), UINT64_MAX);
}

TEST_F(timer_over_fake_clocks, begins_stopped_at_0) {
    for (auto const resolution : {timer::resolution_microseconds, timer::resolution_milliseconds,
                                  timer::resolution_seconds, static_cast<timer::timer_resolution>(7)}) {
        timer watch(resolution);
        EXPECT_EQ(watch.resolution(), resolution);
        EXPECT_FALSE(watch.is_timer_running());
        EXPECT_EQ(watch.elapsed_time(), 0U);
        watch.stop();
        EXPECT_FALSE(watch.is_timer_running());
        EXPECT_EQ(watch.elapsed_time(), 0U);
    }
    EXPECT_EQ(timer().resolution(), timer::resolution_microseconds);
    EXPECT_EQ(millisecond_queries, 0U);
}

TEST_F(timer_over_fake_clocks, adds_up_its_intervals) {
    timer watch;
    counter_reads({100, 150, 1000, 1007});
    watch.start();
    EXPECT_TRUE(watch.is_timer_running());
    watch.stop();
    EXPECT_FALSE(watch.is_timer_running());
    EXPECT_EQ(watch.elapsed_time(), 50U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 57U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 57U);
}

TEST_F(timer_over_fake_clocks, adds_up_parts_of_a_unit) {
    counter_frequency = 10000000;
    timer watch;
    counter_reads({100, 106, 200, 206});
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 0U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 1U);
}

TEST_F(timer_over_fake_clocks, reads_on_while_it_runs) {
    timer watch;
    counter_reads({100, 150, 200, 260, 290, 300});
    watch.start();
    watch.stop();
    watch.start();
    EXPECT_EQ(watch.elapsed_time(), 110U);
    EXPECT_TRUE(watch.is_timer_running());
    EXPECT_EQ(watch.elapsed_time(), 140U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 150U);
}

TEST_F(timer_over_fake_clocks, loses_the_time_before_a_second_start) {
    timer watch;
    counter_reads({100, 150, 1000, 1500, 1507});
    watch.start();
    watch.stop();
    watch.start();
    watch.start();
    EXPECT_TRUE(watch.is_timer_running());
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 57U);
}

TEST_F(timer_over_fake_clocks, is_reset) {
    timer watch;
    counter_reads({100, 150, 1000, 2000, 2003});
    watch.start();
    watch.stop();
    watch.start();
    watch.reset();
    EXPECT_FALSE(watch.is_timer_running());
    EXPECT_EQ(watch.elapsed_time(), 0U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 3U);
}

TEST_F(timer_over_fake_clocks, is_restarted) {
    timer watch;
    counter_reads({100, 150, 1000, 1007, 2000, 2003});
    watch.start();
    watch.stop();
    watch.restart();
    EXPECT_TRUE(watch.is_timer_running());
    EXPECT_EQ(watch.elapsed_time(), 7U);
    watch.restart();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 3U);
}

TEST_F(timer_over_fake_clocks, does_not_run_from_a_reading_of_0) {
    timer watch;
    counter_reads({0, 100, 107});
    watch.start();
    EXPECT_FALSE(watch.is_timer_running());
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 0U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 7U);
    // The multiplied reading is what counts.
    counter_reads({std::uint64_t(1) << 61});
    watch.start();
    EXPECT_FALSE(watch.is_timer_running());
}

TEST_F(timer_over_fake_clocks, wraps_with_the_multiplied_counter) {
    timer watch;
    std::uint64_t const last = UINT64_MAX / 1000;
    counter_reads({last, last + 50});
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 50U);
}

TEST_F(timer_over_fake_clocks, takes_the_overhead_off_each_interval) {
    timer watch;
    timer::overhead_microseconds(10);
    counter_reads({100, 150, 200, 250});
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 40U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 80U);
}

TEST_F(timer_over_fake_clocks, counts_an_interval_within_the_overhead_as_0) {
    timer watch;
    timer::overhead_microseconds(10);
    counter_reads({100, 109, 200, 210, 300, 311, 400, 400});
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 0U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 0U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 1U);
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 1U);
}

TEST_F(timer_over_fake_clocks, takes_the_overhead_off_the_running_interval) {
    timer watch;
    timer::overhead_microseconds(10);
    counter_reads({100, 109, 110, 111, 150, 200, 230});
    watch.start();
    EXPECT_EQ(watch.elapsed_time(), 0U);
    EXPECT_EQ(watch.elapsed_time(), 0U);
    EXPECT_EQ(watch.elapsed_time(), 1U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 40U);
    watch.start();
    EXPECT_EQ(watch.elapsed_time(), 60U);
    watch.reset();
}

TEST_F(timer_over_fake_clocks, takes_the_overhead_of_the_running_interval_off_the_sum) {
    timer watch;
    timer::overhead_microseconds(10);
    counter_reads({100, 150, 200, 204, 204});
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 40U);
    watch.start();
    EXPECT_EQ(watch.elapsed_time(), 34U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 40U);
}

TEST_F(timer_over_fake_clocks, takes_nothing_off_without_an_overhead) {
    timer watch;
    counter_reads({100, 101, 102});
    watch.start();
    EXPECT_EQ(watch.elapsed_time(), 1U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 2U);
}

TEST_F(timer_over_fake_clocks, takes_no_overhead_off_coarser_units) {
    timer watch(timer::resolution_milliseconds);
    timer::overhead_microseconds(10);
    watch.start();
    millisecond_reading += 3;
    EXPECT_EQ(watch.elapsed_time(), 3U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 3U);
}

TEST_F(timer_over_fake_clocks, counts_whole_seconds_of_the_clock) {
    for (auto const resolution : {timer::resolution_seconds, static_cast<timer::timer_resolution>(3),
                                  static_cast<timer::timer_resolution>(-1)}) {
        timer watch(resolution);
        millisecond_reading = 5999;
        watch.start();
        EXPECT_EQ(watch.elapsed_time(), 0U);
        millisecond_reading = 6000;
        EXPECT_EQ(watch.elapsed_time(), 1U);
        millisecond_reading = 8999;
        watch.stop();
        EXPECT_EQ(watch.elapsed_time(), 3U);
        millisecond_reading = 999;
        watch.start();
        EXPECT_FALSE(watch.is_timer_running());
    }
}

TEST_F(timer_over_fake_clocks, is_not_guarded_against_the_wrap_of_the_millisecond_clock) {
    timer watch(timer::resolution_milliseconds);
    millisecond_reading = UINT32_MAX;
    watch.start();
    millisecond_reading = 4;
    EXPECT_EQ(watch.elapsed_time(), 0xFFFFFFFF00000005U);
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 0xFFFFFFFF00000005U);
}

TEST_F(timer_over_fake_clocks, reads_the_clock_of_its_resolution) {
    open_timer const fine;
    counter_reads({7});
    EXPECT_EQ(fine.current_time(), 7000U);
    millisecond_reading = 4294967295;
    EXPECT_EQ(open_timer(timer::resolution_milliseconds).current_time(), 4294967295U);
    EXPECT_EQ(open_timer(timer::resolution_seconds).current_time(), 4294967U);
}

TEST_F(timer_over_fake_clocks, divides_the_frequency) {
    counter_frequency = 3579545;
    EXPECT_EQ(open_timer().windows_timer_frequency(), 3579U);
    timer watch;
    counter_reads({100, 3579645});
    watch.start();
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 3579545000U / 3579);
}

TEST_F(timer_over_fake_clocks, asks_for_the_frequency_only_for_a_new_resolution) {
    timer watch;
    EXPECT_EQ(frequency_queries, 1U);
    counter_reads({100, 101, 102});
    watch.start();
    watch.elapsed_time();
    watch.stop();
    watch.resolution(timer::resolution_microseconds);
    watch.resolution(timer::resolution_milliseconds);
    EXPECT_EQ(frequency_queries, 1U);
    watch.resolution(timer::resolution_microseconds);
    EXPECT_EQ(frequency_queries, 2U);
    timer const seconds(timer::resolution_seconds);
    EXPECT_EQ(frequency_queries, 2U);
}

TEST_F(timer_over_fake_clocks, goes_on_at_the_resolution_that_it_has) {
    timer watch;
    counter_reads({100, 150, 1000, 1007});
    watch.start();
    watch.stop();
    watch.start();
    EXPECT_EQ(watch.resolution(watch.resolution()), timer::resolution_microseconds);
    EXPECT_TRUE(watch.is_timer_running());
    watch.stop();
    EXPECT_EQ(watch.elapsed_time(), 57U);
}

TEST_F(timer_over_fake_clocks, is_cleared_by_another_resolution) {
    timer watch(timer::resolution_milliseconds);
    watch.start();
    millisecond_reading += 3;
    watch.stop();
    watch.start();
    EXPECT_EQ(watch.resolution(timer::resolution_seconds), timer::resolution_seconds);
    EXPECT_EQ(watch.resolution(), timer::resolution_seconds);
    EXPECT_FALSE(watch.is_timer_running());
    EXPECT_EQ(watch.elapsed_time(), 0U);
    watch.start();
    EXPECT_EQ(watch.resolution(timer::resolution_microseconds), timer::resolution_microseconds);
    EXPECT_FALSE(watch.is_timer_running());
    EXPECT_EQ(watch.elapsed_time(), 0U);
}

TEST_F(timer_over_fake_clocks, keeps_the_divisor_of_microseconds) {
    auto const elapsed = [](timer& watch, std::uint32_t milliseconds) {
        watch.start();
        millisecond_reading += milliseconds;
        watch.stop();
        return watch.elapsed_time();
    };
    counter_frequency = 50000;
    timer always_coarse(timer::resolution_milliseconds);
    EXPECT_EQ(elapsed(always_coarse, 149), 149U);
    EXPECT_EQ(always_coarse.resolution(timer::resolution_seconds), timer::resolution_seconds);
    EXPECT_EQ(elapsed(always_coarse, 150000), 150U);

    timer once_fine(timer::resolution_milliseconds);
    once_fine.resolution(timer::resolution_microseconds);
    once_fine.resolution(timer::resolution_milliseconds);
    EXPECT_EQ(elapsed(once_fine, 149), 2U);
    once_fine.resolution(timer::resolution_seconds);
    EXPECT_EQ(elapsed(once_fine, 150000), 3U);

    timer made_fine;
    made_fine.resolution(timer::resolution_milliseconds);
    EXPECT_EQ(elapsed(made_fine, 149), 2U);

    // Asked for anew when they come back.
    counter_frequency = 1000000;
    once_fine.resolution(timer::resolution_microseconds);
    counter_reads({100, 107});
    once_fine.start();
    once_fine.stop();
    EXPECT_EQ(once_fine.elapsed_time(), 7U);
}

TEST_F(timer_over_fake_clocks, is_copied_while_it_runs) {
    counter_frequency = 2000000;
    timer source;
    counter_reads({100, 200, 1000, 1100, 1200, 1300});
    source.start();
    source.stop();
    source.start();
    timer copy(source);
    timer target(timer::resolution_seconds);
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.resolution(), timer::resolution_microseconds);
    EXPECT_TRUE(target.is_timer_running());
    copy.stop();
    EXPECT_EQ(copy.elapsed_time(), 100U);
    target.stop();
    EXPECT_EQ(target.elapsed_time(), 150U);
    EXPECT_TRUE(source.is_timer_running());
    EXPECT_EQ(source.elapsed_time(), 200U);
    target = source;
    target.reset();
    EXPECT_TRUE(source.is_timer_running());
}

TEST_F(timer_over_fake_clocks, reads_its_clock_as_seldom_as_can_be) {
    timer watch(timer::resolution_milliseconds);
    watch.stop();
    watch.reset();
    watch.elapsed_time();
    EXPECT_EQ(millisecond_queries, 0U);
    watch.start();
    EXPECT_EQ(millisecond_queries, 1U);
    watch.elapsed_time();
    EXPECT_EQ(millisecond_queries, 2U);
    watch.stop();
    EXPECT_EQ(millisecond_queries, 3U);
    watch.elapsed_time();
    EXPECT_EQ(millisecond_queries, 3U);
    watch.restart();
    EXPECT_EQ(millisecond_queries, 4U);
}

TEST_F(timer_over_fake_clocks, allocates_nothing) {
    counter_reads({100, 107, 110, 120});
    std::size_t const before = support::allocations;
    timer watch;
    watch.start();
    watch.stop();
    watch.restart();
    watch.elapsed_time();
    watch.reset();
    EXPECT_EQ(support::allocations, before);
}

} // namespace
