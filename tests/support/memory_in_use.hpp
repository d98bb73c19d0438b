// Measures how much memory a program holds by `new`. For the one source of a test program; the library's own
// memory is seen on every platform where the program links it in (`*_internal_test.cpp`).

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace support {

inline std::size_t bytes_in_use = 0;
inline std::size_t most_bytes_in_use = 0;
inline std::size_t bytes_taken = 0;

// How many bytes more than before it, at most, were in use at one time while the function ran.
template <class Function>
std::size_t peak_memory_of(Function function) {
    std::size_t const before = bytes_in_use;
    most_bytes_in_use = before;
    function();
    return most_bytes_in_use - before;
}

// How many bytes were taken while the function ran, whether they were given back or not.
template <class Function>
std::size_t memory_taken_by(Function function) {
    std::size_t const before = bytes_taken;
    function();
    return bytes_taken - before;
}

// In front of each block stands its size.
inline constexpr std::size_t header_size = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

} // namespace support

[[gnu::noinline]] void* operator new(std::size_t size) {
    auto* const block = static_cast<std::size_t*>(std::malloc(size + support::header_size));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *block = size;
    support::bytes_taken += size;
    support::bytes_in_use += size;
    support::most_bytes_in_use = std::max(support::most_bytes_in_use, support::bytes_in_use);
    return reinterpret_cast<char*>(block) + support::header_size;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        void* const block = static_cast<char*>(memory) - support::header_size;
        support::bytes_in_use -= *static_cast<std::size_t*>(block);
        std::free(block);
    }
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
