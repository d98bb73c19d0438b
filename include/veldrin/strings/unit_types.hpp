// File: veldrin/strings/unit_types.hpp
//
// The code units of the text classes: 8, 16 and 32 bits on every platform.

#pragma once

#include <string>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::strings {

#ifdef _WIN32
using utf16_unit = wchar_t;
using utf32_unit = unsigned long;
#else
using utf16_unit = char16_t;
using utf32_unit = char32_t;
#endif

static_assert(sizeof(utf16_unit) == 2 && sizeof(utf32_unit) == 4,
              "the text classes hold 16- and 32-bit units");

// UTF-16 text with no class of its own: the wide string of the platform's interfaces.
using wide_string = std::basic_string<utf16_unit>;

} // namespace VELDRIN_2_18::strings
