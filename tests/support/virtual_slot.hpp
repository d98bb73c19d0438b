// Where an operation stands in its class's virtual table.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace support {

// By the C++ ABI that both platforms' compilers follow, a pointer to a virtual member function holds the byte
// offset of its slot, in some of them with the lowest bit set. A virtual destructor takes two slots: one ends
// the object, one frees it as well.
template <class Operation>
std::size_t virtual_slot(Operation operation) {
    std::uintptr_t words[2];
    static_assert(sizeof operation == sizeof words);
    std::memcpy(words, &operation, sizeof words);
    return words[0] / sizeof(void*);
}

} // namespace support
