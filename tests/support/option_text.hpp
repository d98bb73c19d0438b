// Options of a message argument, written readably.

#pragma once

#include <algorithm>
#include <string>

#include "veldrin/strings/ustring.hpp"

namespace support {

// "base=hex,fieldsize=8" with the byte 0x01 in the place of each "=" and ",".
inline VELDRIN_2_18::strings::ustring8 option_text(std::string text) {
    std::replace(text.begin(), text.end(), '=', '\x01');
    std::replace(text.begin(), text.end(), ',', '\x01');
    return text;
}

} // namespace support
