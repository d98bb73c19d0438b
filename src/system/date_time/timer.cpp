#include "veldrin/system/date_time/timer.hpp"

#include "platform/clock.hpp"

namespace VELDRIN_2_18::system::date_time {

std::uint64_t timer::m_overheadMicroseconds = 0;

timer::timer(timer_resolution resolution)
    : m_resolution(resolution),
      m_divisor(resolution == resolution_microseconds ? windows_timer_frequency() : 1) {}

timer::timer_resolution timer::resolution(timer_resolution resolution) {
    if (resolution == m_resolution) {
        return resolution;
    }
    m_resolution = resolution;
    // Leaving this resolution keeps its divisor.
    if (resolution == resolution_microseconds) {
        m_divisor = windows_timer_frequency();
    }
    reset();
    return resolution;
}

void timer::start() { m_start_time = current_time(); }

void timer::stop() {
    if (!is_timer_running()) {
        return;
    }
    std::uint64_t const interval = current_time() - m_start_time;
    std::uint64_t const cost =
        m_resolution == resolution_microseconds ? m_overheadMicroseconds * m_divisor : 0;
    if (interval > cost) {
        m_accumulated += interval - cost;
    }
    m_start_time = 0;
}

void timer::reset() {
    m_start_time = 0;
    m_accumulated = 0;
}

void timer::restart() {
    reset();
    start();
}

std::uint64_t timer::elapsed_time() const {
    if (!is_timer_running()) {
        return m_accumulated / m_divisor;
    }
    std::uint64_t const elapsed = (m_accumulated + (current_time() - m_start_time)) / m_divisor;
    std::uint64_t const cost = m_resolution == resolution_microseconds ? m_overheadMicroseconds : 0;
    return elapsed > cost ? elapsed - cost : 0;
}

std::uint64_t timer::overhead_microseconds() { return m_overheadMicroseconds; }

void timer::overhead_microseconds(std::uint64_t microseconds) { m_overheadMicroseconds = microseconds; }

std::uint64_t timer::current_time() const {
    switch (m_resolution) {
    case resolution_microseconds:
        return platform::performance_counter() * m_windowsFrequencyMultiplier;
    case resolution_milliseconds:
        return platform::millisecond_clock();
    default:
        return platform::millisecond_clock() / 1000;
    }
}

std::uint64_t timer::windows_timer_frequency() const {
    return platform::performance_frequency() / m_windowsFrequencyMultiplier;
}

TimerOverheadTester::TimerOverheadTester() {
    if (timer::overhead_microseconds() != 0) {
        return;
    }
    timer probe(timer::resolution_microseconds);
    auto const measured = [&probe] {
        probe.restart();
        probe.stop();
        return probe.elapsed_time();
    };
    measured(); // The first is slower than those that follow.
    std::uint64_t const first = measured();
    std::uint64_t const second = measured();
    timer::overhead_microseconds((first + second) >> 1);
}

TimerOverheadTester sAutoTester;

} // namespace VELDRIN_2_18::system::date_time
