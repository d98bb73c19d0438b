// File: veldrin/strings/replace.hpp
//
// Replaces every occurrence of one text by another, in place. Comparison is by code units; nothing here knows
// characters.
//
//     strings::ustring8 text("aaa");
//     strings::replace_all(text, "aa", "b");   // 1, and text is "ba"

#pragma once

#include <cstdint>
#include <string>

#include "veldrin/export.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::strings {

// Finds are taken from left to right and do not overlap, and what was put in is not searched again. Returns
// the number of replacements; 0, with `text` untouched, if `from` is empty.
VELDRIN_EXPORT std::int32_t replace_all(std::string& text, std::string const& from, std::string const& to);
VELDRIN_EXPORT std::int32_t replace_all(wide_string& text, wide_string const& from, wide_string const& to);
VELDRIN_EXPORT std::int32_t replace_all(ustring8& text, ustring8 const& from, ustring8 const& to);
VELDRIN_EXPORT std::int32_t replace_all(ustring16& text, ustring16 const& from, ustring16 const& to);
VELDRIN_EXPORT std::int32_t replace_all(ustring32& text, ustring32 const& from, ustring32 const& to);

namespace gh2 {

VELDRIN_EXPORT std::int32_t replace_all(wide_string& text, wide_string const& from, wide_string const& to);

} // namespace gh2

} // namespace VELDRIN_2_18::strings
