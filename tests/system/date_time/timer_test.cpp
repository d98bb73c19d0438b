// The timer by the system's clocks, between two readings of the standard library's.

#include "veldrin/system/date_time/timer.hpp"

#include <chrono>
#include <cstdint>
#include <ratio>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::system::date_time::sAutoTester;
using VELDRIN_2_18::system::date_time::timer;
using VELDRIN_2_18::system::date_time::TimerOverheadTester;
using clock = std::chrono::steady_clock;

static_assert(timer::resolution_microseconds == 0);
static_assert(timer::resolution_milliseconds == 1);
static_assert(timer::resolution_seconds == 2);
static_assert(std::is_convertible_v<timer::timer_resolution, timer>);
static_assert(!std::is_polymorphic_v<timer>);
static_assert(std::is_same_v<decltype(sAutoTester), TimerOverheadTester>);

template <class Unit>
std::uint64_t units_since(clock::time_point start) {
    return static_cast<std::uint64_t>(std::chrono::duration_cast<Unit>(clock::now() - start).count());
}

void spend(std::chrono::milliseconds duration) {
    auto const start = clock::now();
    while (clock::now() - start < duration) {
    }
}

// No less than what passed while it ran, and no more than what passed in all; each to one unit.
template <class Unit>
void expect_right(timer::timer_resolution resolution) {
    timer watch(resolution);
    auto const outer_start = clock::now();
    watch.start();
    auto const inner_start = clock::now();
    spend(std::chrono::milliseconds(20));
    std::uint64_t const inner = units_since<Unit>(inner_start);
    watch.stop();
    std::uint64_t const outer = units_since<Unit>(outer_start);
    EXPECT_GE(watch.elapsed_time() + 1, inner);
    EXPECT_LE(watch.elapsed_time(), outer + 1);
}

class timer_by_the_system : public testing::Test {
protected:
    timer_by_the_system() { timer::overhead_microseconds(0); }
    ~timer_by_the_system() override { timer::overhead_microseconds(m_overhead); }

private:
    std::uint64_t const m_overhead = timer::overhead_microseconds();
};

TEST_F(timer_by_the_system, is_right_at_each_resolution) {
    expect_right<std::chrono::microseconds>(timer::resolution_microseconds);
    expect_right<std::chrono::milliseconds>(timer::resolution_milliseconds);
    expect_right<std::chrono::seconds>(timer::resolution_seconds);
}

TEST_F(timer_by_the_system, gives_larger_values_while_it_runs) {
    timer watch;
    watch.start();
    spend(std::chrono::milliseconds(2));
    std::uint64_t const first = watch.elapsed_time();
    spend(std::chrono::milliseconds(2));
    EXPECT_GE(first, 1999U);
    EXPECT_GE(watch.elapsed_time(), first + 1999);
    EXPECT_TRUE(watch.is_timer_running());
}

TEST_F(timer_by_the_system, measures_an_overhead_that_is_less_than_what_it_takes) {
    auto const start = clock::now();
    TimerOverheadTester();
    EXPECT_LE(timer::overhead_microseconds(), units_since<std::chrono::microseconds>(start) + 1);
}

} // namespace
