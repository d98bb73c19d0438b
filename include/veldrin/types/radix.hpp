// File: veldrin/types/radix.hpp
//
// The base in which a number is written. An enumerator's value is the base itself; 0 leaves the choice to the
// text, by its prefix.
//
//     types::radix_t::base radix = types::radix_t::hexadecimal;   // 16
//     radix = static_cast<types::radix_t::base>(7);               // bases without a name are cast

#pragma once

#include <cstdint>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::types {

class radix_t {
public:
    enum base : std::int32_t {
        detect = 0,
        binary = 2,
        octal = 8,
        decimal = 10,
        hexadecimal = 16,
        maximum = 36,
    };
};

} // namespace VELDRIN_2_18::types
