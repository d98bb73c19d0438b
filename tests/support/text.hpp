// Texts of any unit type, written as ordinary literals.

#pragma once

#include <string>
#include <string_view>

namespace support {

// One unit a byte, of the byte's value; a `char` text is the bytes themselves.
template <class Unit>
std::basic_string<Unit> text_of(std::string_view bytes) {
    std::basic_string<Unit> text;
    for (char const byte : bytes) {
        text.push_back(static_cast<Unit>(static_cast<unsigned char>(byte)));
    }
    return text;
}

} // namespace support
