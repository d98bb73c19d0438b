// Texts from unit values, so that a test reads the same whatever the unit types of the platform are.

#pragma once

#include <cstdint>
#include <initializer_list>

#include "veldrin/strings/ustring.hpp"

namespace support {

template <class Text>
Text text_of_units(std::initializer_list<std::uint32_t> units) {
    Text text;
    for (std::uint32_t const unit : units) {
        text.push_back(static_cast<typename Text::value_type>(unit));
    }
    return text;
}

inline VELDRIN_2_18::strings::ustring8 utf8(std::initializer_list<std::uint32_t> bytes) {
    return text_of_units<VELDRIN_2_18::strings::ustring8>(bytes);
}

inline VELDRIN_2_18::strings::ustring16 utf16(std::initializer_list<std::uint32_t> units) {
    return text_of_units<VELDRIN_2_18::strings::ustring16>(units);
}

inline VELDRIN_2_18::strings::ustring32 utf32(std::initializer_list<std::uint32_t> units) {
    return text_of_units<VELDRIN_2_18::strings::ustring32>(units);
}

} // namespace support
