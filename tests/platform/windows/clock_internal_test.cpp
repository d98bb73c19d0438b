#include "platform/clock.hpp"

#include <tuple>

#include <gtest/gtest.h>

#include "platform/windows/system.hpp"

#include <timeapi.h>

namespace {

using namespace VELDRIN_2_18;

auto fields_of(platform::broken_down_time const& time) {
    return std::make_tuple(time.year, time.month, time.day, time.hour, time.minute, time.second,
                           time.millisecond);
}

auto fields_of(SYSTEMTIME const& time) {
    return std::make_tuple(unsigned{time.wYear}, unsigned{time.wMonth}, unsigned{time.wDay},
                           unsigned{time.wHour}, unsigned{time.wMinute}, unsigned{time.wSecond},
                           unsigned{time.wMilliseconds});
}

// The reading lies between two of the system's own.
void expect_reading(platform::broken_down_time (*read)(), void (*read_system)(SYSTEMTIME*)) {
    SYSTEMTIME before;
    SYSTEMTIME after;
    read_system(&before);
    platform::broken_down_time const reading = read();
    read_system(&after);
    EXPECT_LE(fields_of(before), fields_of(reading));
    EXPECT_LE(fields_of(reading), fields_of(after));
}

TEST(windows_clock, reads_the_local_time_and_utc) {
    expect_reading(platform::local_time, ::GetLocalTime);
    expect_reading(platform::utc_time, ::GetSystemTime);
}

TEST(windows_clock, counts_as_the_system_does) {
    LARGE_INTEGER before;
    LARGE_INTEGER after;
    ::QueryPerformanceCounter(&before);
    auto const reading = static_cast<LONGLONG>(platform::performance_counter());
    ::QueryPerformanceCounter(&after);
    EXPECT_LE(before.QuadPart, reading);
    EXPECT_LE(reading, after.QuadPart);
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    EXPECT_EQ(static_cast<LONGLONG>(platform::performance_frequency()), frequency.QuadPart);
    EXPECT_GE(frequency.QuadPart, 1000);
}

TEST(windows_clock, counts_milliseconds_as_the_system_does) {
    DWORD const before = ::timeGetTime();
    std::uint32_t const reading = platform::millisecond_clock();
    DWORD const after = ::timeGetTime();
    // The difference is the same when the clock starts anew at 0 in between.
    EXPECT_LE(reading - before, after - before);
}

} // namespace
