// Counts what a program allocates by `new` and gives back, and lets it run out of memory. For the one source
// of a test program; the library's own allocations are seen on every platform where the program links it in
// (`*_internal_test.cpp`).

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace support {

inline std::size_t allocations = 0;
inline std::size_t deallocations = 0;

// The allocation behind so many others throws `std::bad_alloc`, and so do all that follow.
inline std::size_t allocations_left = SIZE_MAX;

// True if the action came to its end with memory for so many allocations, false if it ran out.
template <class Action>
bool succeeds_with(std::size_t available, Action action) {
    allocations_left = available;
    bool succeeded = true;
    try {
        action();
    } catch (std::bad_alloc const&) {
        succeeded = false;
    }
    allocations_left = SIZE_MAX;
    return succeeded;
}

} // namespace support

[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const memory = support::allocations_left == 0 ? nullptr : std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    --support::allocations_left;
    ++support::allocations;
    return memory;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    support::deallocations += memory != nullptr ? 1U : 0U;
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
