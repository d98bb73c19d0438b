// What a sequence of units spells, one character at a time, in UTF-8 and UTF-16.

#pragma once

#include <cstddef>
#include <cstdint>

#include "veldrin/strings/unit_types.hpp"

namespace VELDRIN_2_18::strings::_private {

// A character and the number of units that it took. With 0 units there is none: what stands there is
// malformed.
struct decoded_character {
    std::uint32_t code_point = 0;
    std::size_t units = 0;
};

constexpr bool is_high_surrogate(std::uint32_t code_point) {
    return code_point >= 0xD800 && code_point < 0xDC00;
}

constexpr bool is_low_surrogate(std::uint32_t code_point) {
    return code_point >= 0xDC00 && code_point < 0xE000;
}

constexpr bool is_surrogate(std::uint32_t code_point) { return code_point >= 0xD800 && code_point < 0xE000; }

// The number of bytes that a lead byte announces; 0 for a byte that is none.
constexpr std::size_t utf8_sequence_length(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC0 || lead >= 0xF8) {
        return 0;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// Decodes the character at the front of `available` units, at least one. Only the form is checked: overlong
// forms, encoded surrogates and values up to 0x1FFFFF are characters.
constexpr decoded_character decode_utf8(char const* text, std::size_t available) {
    auto const lead = static_cast<unsigned char>(text[0]);
    std::size_t const length = utf8_sequence_length(lead);
    if (length <= 1) {
        return {lead, length};
    }
    if (length > available) {
        return {};
    }
    std::uint32_t code_point = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        auto const byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) {
            return {};
        }
        code_point = (code_point << 6) + (byte & 0x3F);
    }
    return {code_point, length};
}

// Decodes the character at the front of `available` units, at least one. A surrogate outside a pair is
// malformed.
constexpr decoded_character decode_utf16(utf16_unit const* text, std::size_t available) {
    std::uint32_t const unit = text[0];
    if (!is_surrogate(unit)) {
        return {unit, 1};
    }
    if (is_low_surrogate(unit) || available < 2 || !is_low_surrogate(text[1])) {
        return {};
    }
    return {(unit << 10) + text[1] - 0x35FDC00, 2};
}

} // namespace VELDRIN_2_18::strings::_private
