#include "platform/clock.hpp"

#include <ctime>

namespace VELDRIN_2_18::platform {

namespace {

constexpr std::uint64_t nanoseconds_in_second = 1000000000;

// Counts of 100 ns: a reading may be multiplied by 1000, and 64 bits last for 58 years then.
constexpr std::uint64_t counts_in_second = 10000000;

std::timespec reading_of(clockid_t clock) {
    std::timespec reading{};
    ::clock_gettime(clock, &reading);
    return reading;
}

template <std::tm* (*break_down)(std::time_t const*, std::tm*)>
broken_down_time now() {
    std::timespec const reading = reading_of(CLOCK_REALTIME);
    // The system's clock ends in the year 2262, so every reading can be broken down.
    std::tm fields{};
    break_down(&reading.tv_sec, &fields);
    auto const number = [](auto value) { return static_cast<unsigned int>(value); };
    return {number(fields.tm_year + 1900),    number(fields.tm_mon + 1), number(fields.tm_mday),
            number(fields.tm_hour),           number(fields.tm_min),     number(fields.tm_sec),
            number(reading.tv_nsec / 1000000)};
}

// Whole units since the origin of the clock, with so many units in a second.
std::uint64_t monotonic_clock(std::uint64_t units_in_second) {
    std::timespec const reading = reading_of(CLOCK_MONOTONIC);
    return static_cast<std::uint64_t>(reading.tv_sec) * units_in_second +
           static_cast<std::uint64_t>(reading.tv_nsec) / (nanoseconds_in_second / units_in_second);
}

} // namespace

broken_down_time local_time() { return now<&::localtime_r>(); }

broken_down_time utc_time() { return now<&::gmtime_r>(); }

std::uint64_t performance_counter() { return monotonic_clock(counts_in_second); }

std::uint64_t performance_frequency() { return counts_in_second; }

std::uint32_t millisecond_clock() { return static_cast<std::uint32_t>(monotonic_clock(1000)); }

} // namespace VELDRIN_2_18::platform
