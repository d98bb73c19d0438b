// The platform's code page conversions. Both functions read up to and including the first zero unit and write
// nothing beyond `output_size` units. They return the size of the result with its terminator counted, or 0 on
// failure: an unknown code page, a result whose size does not fit an `int`, an output that is too small. An
// output that is too small is filled all the same, with whole characters at least. An `output_size` of 0 asks
// for the needed size alone, and `output` may be null.
//
// A character that the code page lacks becomes its best fit there, or the code page's default character.

#pragma once

#include "veldrin/strings/unit_types.hpp"

namespace VELDRIN_2_18::platform {

int multi_byte_to_wide(int code_page, char const* bytes, strings::utf16_unit* output, int output_size);

int wide_to_multi_byte(int code_page, strings::utf16_unit const* text, char* output, int output_size);

} // namespace VELDRIN_2_18::platform
