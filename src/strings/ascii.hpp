// Character classes of ASCII, whatever the locale.

#pragma once

namespace VELDRIN_2_18::strings::_private {

inline bool is_ascii_digit(char byte) { return byte >= '0' && byte <= '9'; }

inline bool is_ascii_letter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

} // namespace VELDRIN_2_18::strings::_private
