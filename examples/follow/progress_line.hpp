// One line that tells how far a reader has come, and takes itself away before anything else is printed.

#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>

class progress_line {
public:
    // Prints nothing at all unless visible.
    progress_line(std::ostream& out, bool visible) : m_out(out), m_visible(visible) {}
    progress_line(progress_line const&) = delete;
    progress_line& operator=(progress_line const&) = delete;
    ~progress_line() { clear(); }

    // The position in the file and its length in bytes; the rate is that since the start. Not more often than
    // an eye can follow.
    void show(std::int64_t position, std::int64_t length, std::uint64_t entries);
    void clear();

private:
    std::ostream& m_out;
    bool m_visible;
    bool m_is_shown = false;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point m_shown = m_start;
};
