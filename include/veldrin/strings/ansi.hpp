// File: veldrin/strings/ansi.hpp
//
// Text in the system's ANSI code page: `code_page` with `system_ansi`, for the wide string of the platform's
// interfaces. Where the system has no such page, the page is UTF-8.
//
//     strings::gh2::to_ansi(strings::gh2::from_ansi("file.txt"));   // "file.txt"

#pragma once

#include <string>

#include "veldrin/export.hpp"
#include "veldrin/strings/unit_types.hpp"

namespace VELDRIN_2_18::strings::gh2 {

// Both stop at the first zero unit. What the other side lacks becomes its default character.
VELDRIN_EXPORT std::string to_ansi(wide_string const& text);
VELDRIN_EXPORT wide_string from_ansi(std::string const& text);

} // namespace VELDRIN_2_18::strings::gh2
