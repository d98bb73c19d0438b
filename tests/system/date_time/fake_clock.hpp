// Clocks that answer what a test wants, in the place of the system's. For the one source of a test program
// that links the library as an archive. They work before any object of the program is built, too.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "platform/clock.hpp"

namespace support {

// What the next readings of the performance counter give; one more than these ends the program.
inline std::span<std::uint64_t const> counter_readings;
inline std::uint64_t counter_frequency = 0;
inline std::size_t frequency_queries = 0;

inline std::uint32_t millisecond_reading = 0;
inline std::size_t millisecond_queries = 0;

inline VELDRIN_2_18::platform::broken_down_time local_reading{};
inline VELDRIN_2_18::platform::broken_down_time utc_reading{};
inline std::size_t local_queries = 0;
inline std::size_t utc_queries = 0;

} // namespace support

namespace VELDRIN_2_18::platform {

broken_down_time local_time() {
    ++support::local_queries;
    return support::local_reading;
}

broken_down_time utc_time() {
    ++support::utc_queries;
    return support::utc_reading;
}

std::uint64_t performance_counter() {
    if (support::counter_readings.empty()) {
        std::abort();
    }
    std::uint64_t const reading = support::counter_readings.front();
    support::counter_readings = support::counter_readings.subspan(1);
    return reading;
}

std::uint64_t performance_frequency() {
    ++support::frequency_queries;
    return support::counter_frequency;
}

std::uint32_t millisecond_clock() {
    ++support::millisecond_queries;
    return support::millisecond_reading;
}

} // namespace VELDRIN_2_18::platform
