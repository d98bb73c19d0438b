// What `format_memory` and `format_metric` share: a number that moves from unit to unit, and how it is
// written.

#pragma once

#include <cstdint>
#include <optional>
#include <type_traits>

#include "i18n/format_options.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::i18n::_private {

struct scaled_number_layout {
    // Both are kept as they are written, and handed on so.
    strings::ustring8 precision;
    strings::ustring8 field_size;

    // The number in `precision`; 0 asks for a whole number.
    int digits;
};

// Sets the precision's text and number.
option_setter sets_precision(scaled_number_layout& layout);

// By `format_double` with the layout's texts.
strings::ustring8 write_real(double value, scaled_number_layout const& layout);

// In decimal.
strings::ustring8 write_whole(std::uint64_t value);

// A place in a row of units, each of them the same factor larger than the one before it.
struct unit_scale {
    int index = 0;
    std::optional<int> target;
};

// Moves the value to the target unit; without one, up while it is at least the factor and the index is below
// `last`. Whole numbers wrap.
template <class Number>
Number move_to_unit(Number value, unit_scale& scale, Number factor, int last) {
    if (!scale.target) {
        for (; value >= factor && scale.index < last; ++scale.index) {
            value /= factor;
        }
        return value;
    }
    for (; scale.index < *scale.target; ++scale.index) {
        value /= factor;
    }
    for (; scale.index > *scale.target; --scale.index) {
        if constexpr (std::is_integral_v<Number>) {
            value =
                static_cast<Number>(static_cast<std::uint64_t>(value) * static_cast<std::uint64_t>(factor));
        } else {
            value *= factor;
        }
    }
    return value;
}

} // namespace VELDRIN_2_18::i18n::_private
