// The one conversion helper behind every overload triple: the real function works on `ustring8`, the
// `ustring16` and `ustring32` forms are one line each through `to_utf8` and, where text comes back,
// `from_utf8`.

#pragma once

#include <type_traits>

#include "veldrin/strings/unicode.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::strings::_private {

inline ustring8 const& to_utf8(ustring8 const& text) { return text; }
inline ustring8 to_utf8(ustring16 const& text) { return utf16_to_utf8(text); }
inline ustring8 to_utf8(ustring32 const& text) { return utf32_to_utf8(text); }

template <class Text>
Text from_utf8(ustring8 const& text) {
    if constexpr (std::is_same_v<Text, ustring8>) {
        return text;
    } else if constexpr (std::is_same_v<Text, ustring16>) {
        return utf8_to_utf16(text);
    } else {
        return utf8_to_utf32(text);
    }
}

} // namespace VELDRIN_2_18::strings::_private
