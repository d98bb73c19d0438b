// Sums and differences that wrap, as those of unsigned numbers do.

#pragma once

#include <type_traits>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::system::date_time::_private {

template <class Number>
Number wrapping_sum(Number left, Number right) {
    using bits = std::make_unsigned_t<Number>;
    return static_cast<Number>(static_cast<bits>(left) + static_cast<bits>(right));
}

template <class Number>
Number wrapping_difference(Number left, Number right) {
    using bits = std::make_unsigned_t<Number>;
    return static_cast<Number>(static_cast<bits>(left) - static_cast<bits>(right));
}

} // namespace VELDRIN_2_18::system::date_time::_private
