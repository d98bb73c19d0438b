// File: veldrin/system/date_time/timer.hpp
//
// A stopwatch that adds up the time between any number of starts and stops, in microseconds, milliseconds or
// seconds. What a start and a stop cost by themselves is measured when the library is loaded and is taken off
// at the resolution of microseconds.
//
//     system::date_time::timer watch(system::date_time::timer::resolution_milliseconds);
//     watch.start();
//     work();
//     watch.stop();
//     watch.elapsed_time();   // 1250 after one and a quarter seconds of work
//
// A timer belongs to one thread at a time; the overhead is shared by all, and unguarded.

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::system::date_time {

class VELDRIN_EXPORT timer {
public:
    // The unit of `elapsed_time`, and with it the clock: the performance counter for microseconds, the 32-bit
    // millisecond clock for the others. All other values mean seconds.
    enum timer_resolution : std::int32_t {
        resolution_microseconds = 0,
        resolution_milliseconds = 1,
        resolution_seconds = 2,
    };

    // Stopped, with nothing added up.
    timer(timer_resolution resolution = resolution_microseconds);
    timer(timer const&) = default;
    ~timer() = default;

    // A running timer's copy runs too.
    timer& operator=(timer const&) = default;

    timer_resolution resolution() const { return m_resolution; }

    // Returns the resolution. Any other than the present one stops the timer and clears it. What microseconds
    // are divided by stays in force when they are left: a timer that has ever had this resolution goes on
    // dividing by it, and reads far too little at the others. Make a new timer instead.
    timer_resolution resolution(timer_resolution resolution);

    // What was added up is kept. On a running timer the time since the first start is lost.
    void start();

    // Adds the time since the start. No effect on a stopped timer.
    void stop();

    // Stops, and clears what was added up.
    void reset();

    // `reset` and `start`.
    void restart();

    // The time added up, that of a running timer since its start included, in whole units of the resolution.
    // At microseconds the overhead is off each finished interval, which counts no less than 0 for that. While
    // the timer runs it is off the sum once more, which then is no less than 0.
    std::uint64_t elapsed_time() const;

    bool is_timer_running() const { return m_start_time != 0; }

    // The cost of a start and a stop, in microseconds.
    static std::uint64_t overhead_microseconds();
    static void overhead_microseconds(std::uint64_t microseconds);

protected:
    // The clock of the resolution: thousandths of a count of the performance counter, milliseconds, or
    // seconds.
    std::uint64_t current_time() const;

    // The counts of the performance counter in a millisecond: what turns a reading into microseconds.
    std::uint64_t windows_timer_frequency() const;

private:
    static constexpr std::uint64_t m_windowsFrequencyMultiplier = 1000;
    static std::uint64_t m_overheadMicroseconds;

    timer_resolution m_resolution;
    std::uint64_t m_start_time = 0; // 0: not running
    std::uint64_t m_accumulated = 0;
    std::uint64_t m_divisor;
};

// Measures the overhead when it is made, unless that is set already: the mean of two starts and stops.
struct VELDRIN_EXPORT TimerOverheadTester {
    TimerOverheadTester();
};

// Made when the library is loaded; in the static form, when the program is.
extern VELDRIN_EXPORT TimerOverheadTester sAutoTester;

} // namespace VELDRIN_2_18::system::date_time
