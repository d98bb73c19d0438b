// File: veldrin/generic/convert/str_to_x.hpp
//
// Text to number and number to text. The integer parsers and formatters run on code units of 8, 16 or 32 bits
// in place and allocate nothing. The parsers are lenient: white space and one sign may stand in front, what
// follows the number is ignored, a text without a number gives 0.
//
//     generic::convert::str_to_int32("0x1F", 4, types::radix_t::detect, false);        // 31
//     generic::convert::str_to_uint8("256 kB", 6, types::radix_t::decimal, false);     // 255
//     char text[11];
//     generic::convert::ultoa(255, text, 16);                                          // "ff"

#pragma once

#include <cstdint>
#include <locale>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/radix.hpp"

namespace VELDRIN_2_18::generic::convert {

// ---- Integer parsers ------------------------------------------------------------------------------------
//
// `length` counts units. `text` must not be null, and the unit at index 0 is always read; of the others
// only those below `length` are.
//
// White space is the six ASCII characters, whatever the locale. A digit above 9 is a letter of either case.
//
// Radix `detect` goes by the text: "0x" or "\x" is hexadecimal, "0b" or "\b" binary, with a letter of either
// case, "0" or "\" before anything else octal, all else decimal. With every other radix a prefix is text like
// any other.
//
// A value out of range gives the nearest bound of the result type. With `throw_on_range` it throws instead:
// `exceptions::underflow_error` "Number value is to small" for a text with "-", otherwise
// `exceptions::overflow_error` "Number value is to large".
//
// A radix of 1 or above 36 throws `exceptions::invalid_argument_value` "invalid radix value, values of 0,
// 2-36 are the only valid values", whatever `throw_on_range` says, unless the text ends in the white space or
// the sign at its front: that gives 0.
//
// In 16-bit text every unit from "A" upward counts as a digit at radices below 10, of the value that it has
// as a letter: "1A" in radix 8 is 18.

// Signed results. A `length` of 0 means that the text runs up to its terminator. A negative radix gives 0.
//
// Once a text with "-" has reached the magnitude of the minimum exactly, the next digit wraps modulo 2 to the
// width and raises no range failure: `str_to_int8` of "-128" is -128, of "-129" out of range, of "-1281" -1.

// -128 to 127.
VELDRIN_EXPORT signed char str_to_int8(char const* text, std::uint64_t length, types::radix_t::base radix,
                                       bool throw_on_range);
VELDRIN_EXPORT signed char str_to_int8(strings::utf16_unit const* text, std::uint64_t length,
                                       types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT signed char str_to_int8(strings::utf32_unit const* text, std::uint64_t length,
                                       types::radix_t::base radix, bool throw_on_range);

// -32768 to 32767.
VELDRIN_EXPORT short str_to_short(char const* text, std::uint64_t length, types::radix_t::base radix,
                                  bool throw_on_range);
VELDRIN_EXPORT short str_to_short(strings::utf16_unit const* text, std::uint64_t length,
                                  types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT short str_to_short(strings::utf32_unit const* text, std::uint64_t length,
                                  types::radix_t::base radix, bool throw_on_range);

// The same by another name.
VELDRIN_EXPORT std::int16_t str_to_int16(char const* text, std::uint64_t length, types::radix_t::base radix,
                                         bool throw_on_range);
VELDRIN_EXPORT std::int16_t str_to_int16(strings::utf16_unit const* text, std::uint64_t length,
                                         types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::int16_t str_to_int16(strings::utf32_unit const* text, std::uint64_t length,
                                         types::radix_t::base radix, bool throw_on_range);

// -2147483648 to 2147483647.
VELDRIN_EXPORT int str_to_int(char const* text, std::uint64_t length, types::radix_t::base radix,
                              bool throw_on_range);
VELDRIN_EXPORT int str_to_int(strings::utf16_unit const* text, std::uint64_t length,
                              types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT int str_to_int(strings::utf32_unit const* text, std::uint64_t length,
                              types::radix_t::base radix, bool throw_on_range);

// The same by another name.
VELDRIN_EXPORT int str_to_signed(char const* text, std::uint64_t length, types::radix_t::base radix,
                                 bool throw_on_range);
VELDRIN_EXPORT int str_to_signed(strings::utf16_unit const* text, std::uint64_t length,
                                 types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT int str_to_signed(strings::utf32_unit const* text, std::uint64_t length,
                                 types::radix_t::base radix, bool throw_on_range);

// The same by another name.
VELDRIN_EXPORT std::int32_t str_to_long(char const* text, std::uint64_t length, types::radix_t::base radix,
                                        bool throw_on_range);
VELDRIN_EXPORT std::int32_t str_to_long(strings::utf16_unit const* text, std::uint64_t length,
                                        types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::int32_t str_to_long(strings::utf32_unit const* text, std::uint64_t length,
                                        types::radix_t::base radix, bool throw_on_range);

// The same by another name.
VELDRIN_EXPORT std::int32_t str_to_int32(char const* text, std::uint64_t length, types::radix_t::base radix,
                                         bool throw_on_range);
VELDRIN_EXPORT std::int32_t str_to_int32(strings::utf16_unit const* text, std::uint64_t length,
                                         types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::int32_t str_to_int32(strings::utf32_unit const* text, std::uint64_t length,
                                         types::radix_t::base radix, bool throw_on_range);

// -9223372036854775808 to 9223372036854775807.
VELDRIN_EXPORT std::int64_t str_to_int64(char const* text, std::uint64_t length, types::radix_t::base radix,
                                         bool throw_on_range);
VELDRIN_EXPORT std::int64_t str_to_int64(strings::utf16_unit const* text, std::uint64_t length,
                                         types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::int64_t str_to_int64(strings::utf32_unit const* text, std::uint64_t length,
                                         types::radix_t::base radix, bool throw_on_range);

// Unsigned results. A `length` of 0 is a length: no unit behind the first is read, so `str_to_uint32` of
// "123" is 1. A negative radix throws as one above 36 does.
//
// A text with "-" whose value is not 0, however many digits it has, gives 0; with `throw_on_range` it throws
// `exceptions::underflow_error` "Number value is to small".

// 0 to 255.
VELDRIN_EXPORT unsigned char str_to_uint8(char const* text, std::uint64_t length, types::radix_t::base radix,
                                          bool throw_on_range);
VELDRIN_EXPORT unsigned char str_to_uint8(strings::utf16_unit const* text, std::uint64_t length,
                                          types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT unsigned char str_to_uint8(strings::utf32_unit const* text, std::uint64_t length,
                                          types::radix_t::base radix, bool throw_on_range);

// 0 to 65535.
VELDRIN_EXPORT std::uint16_t str_to_uint16(char const* text, std::uint64_t length, types::radix_t::base radix,
                                           bool throw_on_range);
VELDRIN_EXPORT std::uint16_t str_to_uint16(strings::utf16_unit const* text, std::uint64_t length,
                                           types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::uint16_t str_to_uint16(strings::utf32_unit const* text, std::uint64_t length,
                                           types::radix_t::base radix, bool throw_on_range);

// 0 to 4294967295.
VELDRIN_EXPORT unsigned int str_to_unsigned(char const* text, std::uint64_t length,
                                            types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT unsigned int str_to_unsigned(strings::utf16_unit const* text, std::uint64_t length,
                                            types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT unsigned int str_to_unsigned(strings::utf32_unit const* text, std::uint64_t length,
                                            types::radix_t::base radix, bool throw_on_range);

// The same by another name.
VELDRIN_EXPORT std::uint32_t str_to_uint32(char const* text, std::uint64_t length, types::radix_t::base radix,
                                           bool throw_on_range);
VELDRIN_EXPORT std::uint32_t str_to_uint32(strings::utf16_unit const* text, std::uint64_t length,
                                           types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::uint32_t str_to_uint32(strings::utf32_unit const* text, std::uint64_t length,
                                           types::radix_t::base radix, bool throw_on_range);

// 0 to 18446744073709551615.
VELDRIN_EXPORT std::uint64_t str_to_uint64(char const* text, std::uint64_t length, types::radix_t::base radix,
                                           bool throw_on_range);
VELDRIN_EXPORT std::uint64_t str_to_uint64(strings::utf16_unit const* text, std::uint64_t length,
                                           types::radix_t::base radix, bool throw_on_range);
VELDRIN_EXPORT std::uint64_t str_to_uint64(strings::utf32_unit const* text, std::uint64_t length,
                                           types::radix_t::base radix, bool throw_on_range);

// ---- Real-number parsers --------------------------------------------------------------------------------
//
// The number is what the standard stream extraction takes from the front of the text; what follows it is
// ignored. Decimal point and digit grouping are those of the locale `loc`, or of the global locale where none
// is passed. A text that the extraction rejects, a value out of range included, gives 0. Nothing is thrown
// for bad input.

VELDRIN_EXPORT float str_to_float(strings::ustring8 const& text);
VELDRIN_EXPORT float str_to_float(strings::ustring8 const& text, std::locale const& loc);
VELDRIN_EXPORT double str_to_double(strings::ustring8 const& text);
VELDRIN_EXPORT double str_to_double(strings::ustring8 const& text, std::locale const& loc);
VELDRIN_EXPORT long double str_to_long_double(strings::ustring8 const& text);
VELDRIN_EXPORT long double str_to_long_double(strings::ustring8 const& text, std::locale const& loc);

// ---- Integer formatters ---------------------------------------------------------------------------------
//
// Write the value and a terminating zero to `buffer`: "-" for a negative value, then its digits without
// leading zeros, "a" to "z" for those above 9. Nothing tests the buffer's bounds; the widest text, 64 bits in
// radix 2, takes 66 units with its sign and terminator. `radix` must be 2 to 36; 0 and 1 write an empty text.

VELDRIN_EXPORT void ltoa(std::int32_t value, char* buffer, unsigned int radix);
VELDRIN_EXPORT void ltoa(std::int32_t value, strings::utf16_unit* buffer, unsigned int radix);
VELDRIN_EXPORT void ltoa(std::int32_t value, strings::utf32_unit* buffer, unsigned int radix);

VELDRIN_EXPORT void ultoa(std::uint32_t value, char* buffer, unsigned int radix);
VELDRIN_EXPORT void ultoa(std::uint32_t value, strings::utf16_unit* buffer, unsigned int radix);
VELDRIN_EXPORT void ultoa(std::uint32_t value, strings::utf32_unit* buffer, unsigned int radix);

VELDRIN_EXPORT void lltoa(std::int64_t value, char* buffer, unsigned int radix);
VELDRIN_EXPORT void lltoa(std::int64_t value, strings::utf16_unit* buffer, unsigned int radix);
VELDRIN_EXPORT void lltoa(std::int64_t value, strings::utf32_unit* buffer, unsigned int radix);

VELDRIN_EXPORT void ulltoa(std::uint64_t value, char* buffer, unsigned int radix);
VELDRIN_EXPORT void ulltoa(std::uint64_t value, strings::utf16_unit* buffer, unsigned int radix);
VELDRIN_EXPORT void ulltoa(std::uint64_t value, strings::utf32_unit* buffer, unsigned int radix);

} // namespace VELDRIN_2_18::generic::convert
