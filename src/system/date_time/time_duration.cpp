#include "veldrin/system/date_time/time_duration.hpp"

#include "system/date_time/wrapping.hpp"

namespace VELDRIN_2_18::system::date_time {

namespace {

// In 32 bits, wrapping.
std::int32_t in_milliseconds(int hours, int minutes, int seconds) {
    auto const bits = [](int number) { return static_cast<std::uint32_t>(number); };
    return static_cast<std::int32_t>(bits(hours) * 3600000 + bits(minutes) * 60000 + bits(seconds) * 1000);
}

// By way of 64 bits, so that a number that does not fit keeps the low ones.
int truncated(double number) { return static_cast<int>(static_cast<std::int64_t>(number)); }

} // namespace

time_duration::time_duration(int hours, int minutes, int seconds, std::int64_t milliseconds)
    : m_milliseconds(
          _private::wrapping_sum<std::int64_t>(in_milliseconds(hours, minutes, seconds), milliseconds)) {}

int time_duration::hour() const { return truncated(total_hours()); }

int time_duration::minute() const { return truncated(total_minutes()) % 60; }

int time_duration::second() const { return truncated(total_seconds()) % 60; }

int time_duration::millisecond() const { return static_cast<int>(m_milliseconds) % 1000; }

time_duration& time_duration::plus_assign(time_duration const& other) {
    m_milliseconds = _private::wrapping_sum(m_milliseconds, other.m_milliseconds);
    return *this;
}

time_duration& time_duration::minus_assign(time_duration const& other) {
    m_milliseconds = _private::wrapping_difference(m_milliseconds, other.m_milliseconds);
    return *this;
}

time_duration const plus(time_duration const& left, time_duration const& right) {
    return time_duration(left).plus_assign(right);
}

time_duration const minus(time_duration const& left, time_duration const& right) {
    return time_duration(left).minus_assign(right);
}

} // namespace VELDRIN_2_18::system::date_time
