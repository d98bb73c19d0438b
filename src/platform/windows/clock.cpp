#include "platform/clock.hpp"

#include "platform/windows/system.hpp"
// Behind the header that it needs.
#include <timeapi.h>

namespace VELDRIN_2_18::platform {

namespace {

broken_down_time now(void (*read)(SYSTEMTIME*)) {
    SYSTEMTIME reading;
    read(&reading);
    return {reading.wYear,   reading.wMonth,  reading.wDay,         reading.wHour,
            reading.wMinute, reading.wSecond, reading.wMilliseconds};
}

std::uint64_t number_from(BOOL (*read)(LARGE_INTEGER*)) {
    LARGE_INTEGER number{};
    read(&number);
    return static_cast<std::uint64_t>(number.QuadPart);
}

} // namespace

broken_down_time local_time() { return now(::GetLocalTime); }

broken_down_time utc_time() { return now(::GetSystemTime); }

std::uint64_t performance_counter() { return number_from(::QueryPerformanceCounter); }

std::uint64_t performance_frequency() { return number_from(::QueryPerformanceFrequency); }

std::uint32_t millisecond_clock() { return ::timeGetTime(); }

} // namespace VELDRIN_2_18::platform
