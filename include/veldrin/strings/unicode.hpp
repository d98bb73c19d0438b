// File: veldrin/strings/unicode.hpp
//
// Moves text between UTF-8, UTF-16 and UTF-32, decodes one character at a time, and deals with byte-order
// marks. Nothing here throws on bad text: each converter has its own settled treatment of it. Lengths and
// positions count code units of the text at hand, never characters, unless a contract says so.
//
//     strings::utf8_to_utf16("\xF0\x9F\x98\x80");   // D83D DE00: one character, a surrogate pair
//     strings::utf8_to_utf16("\xC3");               // "-1": the sequence is cut off
//     strings::utf8_to_utf32("\xC3");               // "?": this one replaces and goes on

#pragma once

#include <cstddef>

#include "veldrin/export.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::strings {

// ----------------------------------------------------------------------------------------------------------
// Byte-order marks
// ----------------------------------------------------------------------------------------------------------

// U+FEFF in each encoding form: the bytes EF BB BF, or the one unit 0xFEFF. Valid before any user code runs.
VELDRIN_EXPORT extern ustring8 const utf8_byte_order_mark;
VELDRIN_EXPORT extern ustring16 const utf16_byte_order_mark;
VELDRIN_EXPORT extern ustring32 const utf32_byte_order_mark;

// What the mark looks like at the front of UTF-16 text in the other byte order.
inline constexpr utf16_unit swapped_byte_order_mark = 0xFFFE;

// ----------------------------------------------------------------------------------------------------------
// Converters
//
// A mark at the front is data like any other character. The failure text is "-1" in the encoding of the
// result; it cannot be told from a text that reads "-1".
// ----------------------------------------------------------------------------------------------------------

// Bad text gives the failure text: a stray continuation byte, a byte F8 to FF, a lead byte without all of its
// continuation bytes. Only the form is checked: overlong forms and encoded surrogates become the unit that
// their bits spell, and four-byte forms outside U+10000 to U+10FFFF become two units by the arithmetic of
// surrogate pairs.
VELDRIN_EXPORT ustring16 utf8_to_utf16(ustring8 const& text);

// Ends the process by `std::abort` if the first unit is 0xFFFE: pass text that may be in the other byte order
// through `check_BOM_and_modify_swap` first. A surrogate that is not part of a pair gives the failure text.
VELDRIN_EXPORT ustring8 utf16_to_utf8(ustring16 const& text);

// Never fails: each byte that cannot start or complete a sequence becomes one "?", and conversion resumes at
// the byte behind it. Like `utf8_to_utf16` it checks the form only; results go up to 0x1FFFFF.
VELDRIN_EXPORT ustring32 utf8_to_utf32(ustring8 const& text);

// A surrogate code point gives the failure text; a unit of 0x110000 or more is left out.
VELDRIN_EXPORT ustring8 utf32_to_utf8(ustring32 const& text);

// Ends the process by `std::abort` if the first unit is 0xFFFE: pass text that may be in the other byte order
// through `check_BOM_and_modify_swap` first. A surrogate that is not part of a pair gives the failure text.
VELDRIN_EXPORT ustring32 utf16_to_utf32(ustring16 const& text);

// Not the inverse of `utf16_to_utf32`: a unit u from 0xFFFF on becomes (u >> 10) + 0xD800 and
// (u & 0x3FF) + 0xDC00, with no 0x10000 taken off, so U+1F600 gives D87D DE00. For standard surrogate pairs
// go through `utf32_to_utf8` and `utf8_to_utf16`. A surrogate code point and a unit of 0x110000 or more give
// the failure text.
VELDRIN_EXPORT ustring16 utf32_to_utf16(ustring32 const& text);

// ----------------------------------------------------------------------------------------------------------
// One character at a time, and lengths
// ----------------------------------------------------------------------------------------------------------

// The code point of the character that begins at unit `index` of a text of `length` units; `units` gets the
// number of units it takes. On failure, `index` not below `length` or no whole character there, the result is
// '?' and `units` is `std::size_t(-1)`. UTF-8 is checked as in `utf8_to_utf32`, UTF-16 for paired surrogates,
// and a 32-bit unit is returned as it stands.
VELDRIN_EXPORT utf32_unit unichar(char const* text, std::size_t length, std::size_t index,
                                  std::size_t& units);
VELDRIN_EXPORT utf32_unit unichar(utf16_unit const* text, std::size_t length, std::size_t index,
                                  std::size_t& units);
VELDRIN_EXPORT utf32_unit unichar(utf32_unit const* text, std::size_t length, std::size_t index,
                                  std::size_t& units);

// The unit position at which character number `n`, counted from 0, begins. `std::size_t(-1)` if `n` is not
// below `text.size()`, which counts units, or if a malformed character is met on the way. Positions behind
// the text count as characters of one unit each, so the result can be `text.size()` or more.
VELDRIN_EXPORT std::size_t character_index(ustring8 const& text, std::size_t n);

// As above; but of the low surrogates only one at the very front is found malformed, a lone one further on
// counts as a character.
VELDRIN_EXPORT std::size_t character_index(ustring16 const& text, std::size_t n);

// The length in units, not in characters, up to the first zero unit. The pointer must not be null.
VELDRIN_EXPORT std::size_t string_length(char const* text);
VELDRIN_EXPORT std::size_t string_length(utf16_unit const* text);
VELDRIN_EXPORT std::size_t string_length(utf32_unit const* text);

// `text.size()`, zero units included.
VELDRIN_EXPORT std::size_t string_length(ustring8 const& text);
VELDRIN_EXPORT std::size_t string_length(ustring16 const& text);
VELDRIN_EXPORT std::size_t string_length(ustring32 const& text);

namespace gh2 {

// The length in bytes, 1 to 4, that the first byte announces; 0 for a byte that starts no sequence, a null
// pointer and length 0. Only the first byte is read.
VELDRIN_EXPORT std::size_t get_utf8_length(char const* text, std::size_t length);
VELDRIN_EXPORT std::size_t get_utf8_length(unsigned char const* text, std::size_t length);

// True if the text begins with a whole sequence: a lead byte and its continuation bytes, all within `length`.
// Only the first character is looked at. False for a null pointer and length 0.
VELDRIN_EXPORT bool validate_utf8(char const* text, std::size_t length);
VELDRIN_EXPORT bool validate_utf8(unsigned char const* text, std::size_t length);

} // namespace gh2

// ----------------------------------------------------------------------------------------------------------
// Byte order
// ----------------------------------------------------------------------------------------------------------

// The text behind one mark at its front, or a copy. The swapped mark is no mark here.
VELDRIN_EXPORT ustring8 remove_BOM(ustring8 const& text);
VELDRIN_EXPORT ustring16 remove_BOM(ustring16 const& text);
VELDRIN_EXPORT ustring32 remove_BOM(ustring32 const& text);

// Exchanges the two bytes of every unit in place.
VELDRIN_EXPORT void modify_swap_string_bytes_order(ustring16& text);

// Returns its argument unswapped; to swap, use `modify_swap_string_bytes_order`.
VELDRIN_EXPORT ustring16 swap_string_bytes_order(ustring16 const& text);

// If the first unit is 0xFFFE, exchanges the two bytes of every unit in place, so that the mark, now 0xFEFF,
// stays at the front. Any other text is left alone.
VELDRIN_EXPORT void check_BOM_and_modify_swap(ustring16& text);
VELDRIN_EXPORT void check_BOM_and_modify_swap(wide_string& text);

// Returns its argument unswapped, whatever its first unit; to swap, use `check_BOM_and_modify_swap`.
VELDRIN_EXPORT ustring16 check_BOM_and_swap(ustring16 const& text);
VELDRIN_EXPORT wide_string check_BOM_and_swap(wide_string const& text);

} // namespace VELDRIN_2_18::strings
