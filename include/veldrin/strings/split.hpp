// File: veldrin/strings/split.hpp
//
// Cuts a text at a delimiter. Comparison is by code units; nothing here knows characters.
//
//     strings::split_string(strings::ustring8("a,b,c"), ",", 1);   // "a", "b,c"

#pragma once

#include <string>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::strings {

// The pieces of `text` between the delimiters, from left to right. At most `limit` cuts are made: the rest
// stays whole in one last piece. A `limit` of 0 or below means no limit.
// An empty piece at the start or between two delimiters is kept, one at the end is not: ",a,,b," gives "",
// "a", "", "b". An empty `text` gives no piece at all; with an empty `delimiter` the whole text, empty or
// not, is the one piece.
VELDRIN_EXPORT std::vector<std::string> split_string(std::string const& text, std::string const& delimiter,
                                                     int limit);
VELDRIN_EXPORT std::vector<wide_string> split_string(wide_string const& text, wide_string const& delimiter,
                                                     int limit);
VELDRIN_EXPORT std::vector<ustring8> split_string(ustring8 const& text, ustring8 const& delimiter, int limit);
VELDRIN_EXPORT std::vector<ustring16> split_string(ustring16 const& text, ustring16 const& delimiter,
                                                   int limit);
VELDRIN_EXPORT std::vector<ustring32> split_string(ustring32 const& text, ustring32 const& delimiter,
                                                   int limit);

// The same with a zero-terminated delimiter, which must not be null.
VELDRIN_EXPORT std::vector<std::string> split_string(std::string const& text, char const* delimiter,
                                                     int limit);
VELDRIN_EXPORT std::vector<ustring8> split_string(ustring8 const& text, char const* delimiter, int limit);

} // namespace VELDRIN_2_18::strings
