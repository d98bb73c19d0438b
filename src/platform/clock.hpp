// The system's clocks. None of them can fail.

#pragma once

#include <cstdint>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::platform {

// One reading of the clock. The month and the day count from 1; the second is 60 in a leap second.
struct broken_down_time {
    unsigned int year;
    unsigned int month;
    unsigned int day;
    unsigned int hour;
    unsigned int minute;
    unsigned int second;
    unsigned int millisecond;
};

broken_down_time local_time();
broken_down_time utc_time();

// A counter that never runs backward, and its counts in a second: 1000 or more.
std::uint64_t performance_counter();
std::uint64_t performance_frequency();

// Milliseconds from any origin.
std::uint32_t millisecond_clock();

} // namespace VELDRIN_2_18::platform
