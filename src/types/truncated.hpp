// File: types/truncated.hpp
//
// A real number cast to an integer, with a result for every value:
//
//     truncated<std::int32_t>(-2.9);       // -2
//     truncated<signed char>(300.0);       // 44, the low bits

#pragma once

#include <cstdint>
#include <limits>
#include <type_traits>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::types::_private {

// Whatever does not fit into 64 bits becomes the smallest 64-bit integer; narrower results keep the low bits.
template <class Result, class Real>
Result truncated(Real value) {
    constexpr Real limit = 0x1p63F;
    if (std::is_same_v<Result, std::uint64_t> && value >= limit && value < 2 * limit) {
        return static_cast<Result>(static_cast<std::uint64_t>(value));
    }
    bool const fits = value >= -limit && value < limit;
    return static_cast<Result>(fits ? static_cast<std::int64_t>(value)
                                    : std::numeric_limits<std::int64_t>::min());
}

} // namespace VELDRIN_2_18::types::_private
