// Storage in which a text is built before it is copied into its result. Unlike a string's it is not filled
// first, and for short texts it takes no allocation.

#pragma once

#include <array>
#include <cstddef>
#include <memory>

namespace VELDRIN_2_18::strings::_private {

template <class Unit>
class work_text {
public:
    explicit work_text(std::size_t size)
        : m_size(size),
          m_heap(size > m_local.size() ? std::make_unique_for_overwrite<Unit[]>(size) : nullptr) {}

    Unit* data() { return m_heap != nullptr ? m_heap.get() : m_local.data(); }
    std::size_t size() const { return m_size; }

private:
    std::array<Unit, 512> m_local;
    std::size_t m_size;
    std::unique_ptr<Unit[]> m_heap;
};

} // namespace VELDRIN_2_18::strings::_private
