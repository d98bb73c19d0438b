// File: veldrin/memory/pointers/counted_pointer.hpp
//
// What `rc_pointer` and `shared_pointer` have in common; callers include those.

#pragma once

#include <utility>

#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"

namespace VELDRIN_2_18::memory::pointers::_private {

struct counting {
    template <class T>
    static void add_reference(generic::abilities::reference_count_pointer_ability<T>& object) {
        object.inc_pointer_ref();
    }

    // True if the last reference of a heap object is gone, so that it must be destroyed.
    template <class T>
    static bool drop_reference(generic::abilities::reference_count_pointer_ability<T>& object) {
        return object.dec_pointer_ref() == 0 && object.is_created_dynamic();
    }
};

template <class T, class Destroyer>
class counted_pointer {
public:
    counted_pointer() = default;

    // Counts one reference, unless the pointer is null.
    counted_pointer(T* object) noexcept { take(object); }

    // A pointer made as a copy of itself is empty.
    counted_pointer(counted_pointer const& other) noexcept {
        if (this != &other) {
            take(other.m_object);
        }
    }
    counted_pointer(counted_pointer&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}

    ~counted_pointer() { release(); }

    // Nothing happens if the pointer already holds this object.
    counted_pointer& operator=(T* object) {
        if (object != m_object) {
            // The new object is counted first: it may live only inside the one that is released.
            counted_pointer replacement(object);
            std::swap(m_object, replacement.m_object);
        }
        return *this;
    }
    counted_pointer& operator=(counted_pointer const& other) { return *this = other.m_object; }
    counted_pointer& operator=(counted_pointer&& other) noexcept {
        if (this != &other) {
            counted_pointer replacement(std::move(other));
            std::swap(m_object, replacement.m_object);
        }
        return *this;
    }

    T* get() const { return m_object; }
    bool is_null() const { return m_object == nullptr; }
    explicit operator bool() const { return !is_null(); }

    // No check: dereferencing an empty pointer is the caller's fault.
    T& operator*() const { return *m_object; }
    T* operator->() const { return m_object; }

    // On an empty pointer throws the literal "unreferanced object" as a plain `char const*`.
    T& checked() const {
        if (is_null()) {
            throw static_cast<char const*>("unreferanced object");
        }
        return *m_object;
    }

    friend bool operator==(counted_pointer const& left, counted_pointer const& right) {
        return left.m_object == right.m_object;
    }
    friend bool operator!=(counted_pointer const& left, counted_pointer const& right) {
        return left.m_object != right.m_object;
    }

    // A plain pointer is compared as it is: a counted one made of it would destroy an object that nothing
    // refers to yet.
    friend bool operator==(counted_pointer const& left, T const* right) { return left.m_object == right; }
    friend bool operator==(T const* left, counted_pointer const& right) { return left == right.m_object; }
    friend bool operator!=(counted_pointer const& left, T const* right) { return left.m_object != right; }
    friend bool operator!=(T const* left, counted_pointer const& right) { return left != right.m_object; }

private:
    void take(T* object) noexcept {
        m_object = object;
        if (m_object != nullptr) {
            counting::add_reference(*m_object);
        }
    }

// The compiler sees that an object is on the stack, but not that its flag keeps it from being destroyed here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wfree-nonheap-object"
    void release() {
        T* const object = std::exchange(m_object, nullptr);
        if (object != nullptr && counting::drop_reference(*object)) {
            Destroyer::destroy(object);
        }
    }
#pragma GCC diagnostic pop

    T* m_object = nullptr;
};

} // namespace VELDRIN_2_18::memory::pointers::_private
