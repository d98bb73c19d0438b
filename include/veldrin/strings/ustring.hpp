// File: veldrin/strings/ustring.hpp
//
// The three text types, one for each Unicode encoding form, so that the encoding of a text is part of its
// type. Each is a standard string with a new name: `size()` and every index count code units, comparison is
// by unit value, and nothing validates, normalises or converts. Going from one to another takes a converter
// of veldrin/strings/unicode.hpp.
//
//     strings::ustring8 text("\xC3\xA9");   // one character
//     text.size();                          // 2: bytes

#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "veldrin/strings/unit_types.hpp"

namespace VELDRIN_2_18::strings {

template <class Unit>
class basic_ustring : public std::basic_string<Unit> {
public:
    using base_type = std::basic_string<Unit>;

    basic_ustring() = default;

    // Copies up to the first zero unit, which is not copied. The pointer must not be null.
    basic_ustring(Unit const* text) : base_type(text) {}

    basic_ustring(base_type const& text) : base_type(text) {}

    // Takes the buffer over.
    basic_ustring(base_type&& text) noexcept : base_type(std::move(text)) {}

#ifdef __cpp_char8_t
    // `ustring8` alone: a literal that the language knows to be UTF-8.
    template <class Other,
              class = std::enable_if_t<std::is_same_v<Unit, char> && std::is_same_v<Other, char8_t>>>
    basic_ustring(Other const* text) : base_type(reinterpret_cast<char const*>(text)) {}
#endif

    // The other constructors and the assignments of the standard string.
    using base_type::base_type;
    using base_type::operator=;
};

// UTF-8 by convention. A literal's bytes are taken as they are.
using ustring8 = basic_ustring<char>;

// UTF-16 in the machine's byte order by convention.
using ustring16 = basic_ustring<utf16_unit>;

// UTF-32 in the machine's byte order by convention.
using ustring32 = basic_ustring<utf32_unit>;

} // namespace VELDRIN_2_18::strings
