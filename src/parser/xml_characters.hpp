// What the XML parsers share: the classes of single characters, and the characters that references stand for.

#pragma once

#include <string_view>

#include "strings/ascii.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/types/radix.hpp"

namespace VELDRIN_2_18::parser::_private {

inline bool is_white_space(char byte) { return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n'; }

inline bool is_name_character(char byte) {
    return strings::_private::is_ascii_letter(byte) || strings::_private::is_ascii_digit(byte) || byte == '_';
}

inline bool is_hexadecimal_digit(char byte) {
    return strings::_private::is_ascii_digit(byte) || (byte >= 'A' && byte <= 'F') ||
           (byte >= 'a' && byte <= 'f');
}

// A reference by name, without its "&".
struct named_character {
    std::string_view name;
    char character;
};

inline constexpr named_character named_characters[] = {
    {"amp;", '&'}, {"apos;", '\''}, {"gt;", '>'}, {"lt;", '<'}, {"nbsp;", ' '}, {"quot;", '"'},
};

// A reference by number: the one byte of that value, or the greatest byte. Without an "x" in front of them
// the radix is detected from the digits: those that start with "0" are octal. No digits give 0.
inline char numbered_character(std::string_view digits, bool is_hexadecimal) {
    auto const radix = is_hexadecimal ? types::radix_t::hexadecimal : types::radix_t::detect;
    return static_cast<char>(generic::convert::str_to_uint8(digits.data(), digits.size(), radix, false));
}

} // namespace VELDRIN_2_18::parser::_private
