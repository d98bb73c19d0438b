// File: veldrin/strings/case.hpp
//
// Upper and lower case, unit by unit. A unit is changed as the standard `tolower` and `toupper` say under the
// character locale of the process, if its value is at most 127 in an 8-bit text or at most 255 in the others;
// every other unit passes as it is. So in UTF-8 text only ASCII letters change.
//
//     strings::to_lower(strings::ustring8("\xC3\x84PFEL"));   // "\xC3\x84pfel"

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::strings {

VELDRIN_EXPORT ustring8 to_lower(ustring8 const& text);
VELDRIN_EXPORT ustring16 to_lower(ustring16 const& text);
VELDRIN_EXPORT ustring32 to_lower(ustring32 const& text);

VELDRIN_EXPORT ustring8 to_upper(ustring8 const& text);
VELDRIN_EXPORT ustring16 to_upper(ustring16 const& text);
VELDRIN_EXPORT ustring32 to_upper(ustring32 const& text);

// A copy of the whole text in which the units from `first` up to but not including `last` are in lower case:
// "ABCDEF" with 1 and 3 gives "AbcDEF". `last` is a position, not a length; one beyond the text, such as
// `std::size_t(-1)`, stands for its end. Nothing changes if `first` is not below `last`.
VELDRIN_EXPORT ustring8 lower_case(ustring8 const& text, std::uint64_t first, std::uint64_t last);
VELDRIN_EXPORT ustring16 lower_case(ustring16 const& text, std::uint64_t first, std::uint64_t last);
VELDRIN_EXPORT ustring32 lower_case(ustring32 const& text, std::uint64_t first, std::uint64_t last);

namespace gh2 {

VELDRIN_EXPORT wide_string tolower(wide_string const& text);
VELDRIN_EXPORT wide_string toupper(wide_string const& text);

} // namespace gh2

} // namespace VELDRIN_2_18::strings
