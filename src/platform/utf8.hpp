// UTF-8 as a code page, the same on every platform: systems differ in what they make of ill-formed text. The
// text ends in front of its first zero unit; the terminator is not written.

#pragma once

#include "platform/bounded_output.hpp"
#include "veldrin/strings/unit_types.hpp"

namespace VELDRIN_2_18::platform {

// Each maximal ill-formed part gives one U+FFFD.
void decode_utf8(char const* bytes, bounded_output<strings::utf16_unit>& output);

// A lone surrogate gives U+FFFD.
void encode_utf8(strings::utf16_unit const* text, bounded_output<char>& output);

} // namespace VELDRIN_2_18::platform
