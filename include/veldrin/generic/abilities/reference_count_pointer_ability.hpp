// File: veldrin/generic/abilities/reference_count_pointer_ability.hpp
//
// Intrusive reference counting. A counted class names itself as T and makes its heap objects by
// `make_dynamic`:
//
//     class shape : public reference_count_pointer_ability<shape> { ... };
//
// Flag and count belong to the object. The implicit `operator=` of a counted class would overwrite both, so
// such a class deletes it or writes its own, which leaves this base alone. The implicit copy constructor is
// right.

#pragma once

#include <atomic>
#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/alloc_detection_ability.hpp"

namespace VELDRIN_2_18::memory::pointers {

namespace _private {
struct counting;
}

template <class T>
class rc_pointer;
template <class T>
class shared_pointer;

} // namespace VELDRIN_2_18::memory::pointers

namespace VELDRIN_2_18::generic::abilities {

class VELDRIN_EXPORT reference_count_pointer_ability_b : public alloc_detection_ability {
public:
    reference_count_pointer_ability_b() = default;
    ~reference_count_pointer_ability_b() = default;

    // A copy starts a new count of 0.
    reference_count_pointer_ability_b(reference_count_pointer_ability_b const&) : alloc_detection_ability() {}

    // Copies flag and count as plain values.
    reference_count_pointer_ability_b& operator=(reference_count_pointer_ability_b const& other) {
        alloc_detection_ability::operator=(other);
        m_count.store(other.m_count.load(std::memory_order_relaxed), std::memory_order_relaxed);
        return *this;
    }

protected:
    // Counts one reference, with full ordering.
    void inc_pointer_ref() { m_count.fetch_add(1, std::memory_order_seq_cst); }

    // Drops one reference, with full ordering; returns the new count.
    int dec_pointer_ref() { return static_cast<int>(m_count.fetch_sub(1, std::memory_order_seq_cst) - 1); }

    // Both are a snapshot: other threads may change the count at once.
    bool is_pointer_referenced() const { return get_ref_count() != 0; }
    std::uint32_t get_ref_count() const { return m_count.load(std::memory_order_relaxed); }

private:
    std::atomic<std::uint32_t> m_count{0};
};

template <class T>
class reference_count_pointer_ability : public reference_count_pointer_ability_b {
    template <class>
    friend class memory::pointers::rc_pointer;
    template <class>
    friend class memory::pointers::shared_pointer;
    friend struct memory::pointers::_private::counting;
};

} // namespace VELDRIN_2_18::generic::abilities
