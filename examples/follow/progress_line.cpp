#include "progress_line.hpp"

#include <ostream>

void progress_line::show(std::int64_t position, std::int64_t length, std::uint64_t entries) {
    auto const now = std::chrono::steady_clock::now();
    if (!m_visible || now - m_shown < std::chrono::milliseconds(50)) {
        return;
    }
    m_shown = now;
    std::chrono::duration<double> const elapsed = now - m_start;
    auto const rate = static_cast<std::uint64_t>(static_cast<double>(entries) / elapsed.count());
    clear();
    m_out << "byte " << position << " of " << length << ", " << entries << " entries, " << rate << " a second"
          << std::flush;
    m_is_shown = true;
}

void progress_line::clear() {
    if (m_is_shown) {
        m_out << "\r\033[K" << std::flush;
        m_is_shown = false;
    }
}
