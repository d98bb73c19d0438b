// What a code page conversion writes to: an output that may be too small, or only a question for the size.

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::platform {

// Counts all units, keeps those that fit.
template <class Unit>
class bounded_output {
public:
    bounded_output(Unit* output, int output_size)
        : m_output(output), m_size(output_size > 0 ? static_cast<std::size_t>(output_size) : 0) {}

    void append(std::uint32_t unit) {
        if (m_count < m_size) {
            m_output[m_count] = static_cast<Unit>(unit);
        }
        ++m_count;
    }

    int result() const {
        bool const is_size_query = m_size == 0;
        std::size_t const limit = is_size_query ? std::numeric_limits<int>::max() : m_size;
        return m_count <= limit ? static_cast<int>(m_count) : 0;
    }

private:
    Unit* m_output;
    std::size_t m_size;
    std::size_t m_count = 0;
};

} // namespace VELDRIN_2_18::platform
