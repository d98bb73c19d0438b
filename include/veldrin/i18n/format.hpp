// File: veldrin/i18n/format.hpp
//
// The formatters behind the argument types of a message. Options are pairs of key and value, all separated by
// the byte 0x01. A key or keyword may be shortened to any of its beginnings; an empty one is the first word
// listed. Later pairs override earlier ones. An option text with an odd number of parts (a last value that is
// empty is no part), an unknown key or keyword, a number beyond `int`, or a field size above 65535 gives
// "-0". A text that is no number counts as 0, and so does a negative number.
//
//     strings::ustring8 unit;
//     i18n::_private::format_memory(1536, "precision\x01" "1", unit);   // "1.5", and "KB" in unit

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::i18n::_private {

// Keys, in order of matching: `base` ("dec", "default", "spaced_dec", "hex", "oct", "bin"; default "dec") and
// `fieldsize` (in characters; 0, the default, is none).
//
// 255 is "255", "0x00ff", "o377" or "11111111b", and 1234567 in spaced form "1 234 567". Other radices than
// 10 show a negative value as its complement: in as many digits as it takes to show the sign, or as the field
// has, or, where the field has fewer than the value, as the value has. A decimal is never padded; all others
// are padded to the field size with zeros, unless negative. Without a field hexadecimal digits come in
// multiples of four. A number that does not fit the field gives "-0".
VELDRIN_EXPORT strings::ustring8 format_int(std::int64_t value, strings::ustring8 const& options);

// Keys, in order of matching: `precision` (digits behind the point, default 2) and `fieldsize` (in
// characters; 0, the default, is none).
//
// Fixed notation, right-aligned in the field. A number that is too wide for its field is written in exponent
// form and cut to the field. A text that has more than 63 characters before it is cut gives "-0". The
// decimal point is the one that `setlocale` has set.
VELDRIN_EXPORT strings::ustring8 format_double(double value, strings::ustring8 const& options);

// The value counts seconds. Keys, in order of matching: `precision` (of the seconds, default 2) and
// `short_form` ("true", "false"; default "false").
//
// 93784.5 is "1 dy 2 hr 3 min 4.50 sec", in short form "1d 2h 3m 4.50s". Leading parts that are 0 are left
// out; parts of a negative value are negative. The whole seconds are counted in 32 bits, which wrap. Where
// the seconds cannot be formatted, "-0" stands in their place.
VELDRIN_EXPORT strings::ustring8 format_duration(double value, strings::ustring8 const& options);

// Keys, in order of matching: `target_unit` ("any", which means bytes, or a unit), `base_unit` (the unit of
// the value: "default", never shortened, which means bytes, or a unit), `precision` (default 0, which is
// whole numbers, rounded down) and `fieldsize` (default 0; used only with a precision). Units are B, KB, MB,
// GB, TB, PB, EB, ZB and YB, in steps of 1024; what stands behind them is ignored.
//
// Returns the number and puts the unit's name into `unit`. Without a target the unit is chosen so that the
// number is below 1024, as far as YB goes. A whole number is taken as an unsigned 64-bit one. `unit` is
// emptied first and stays empty where an option is bad; but where only `format_double` refuses the precision
// or the field size, the unit's name stands beside the "-0". Both go there as texts, in which a ";" separates
// options as the byte 0x01 does.
VELDRIN_EXPORT strings::ustring8 format_memory(types::variant value, strings::ustring8 const& options,
                                               strings::ustring8& unit);

// Keys, in order of matching: `base_unit` and `target_unit` ("base", which is no prefix, or one of a f p n mc
// m k M G T P E Z Y), `short_form` ("true", "false"; default "true"), `precision` (default 3; 0 is whole
// numbers) and `fieldsize` (default 0; used only with a precision).
//
// Returns the number and puts the prefix, or with `short_form` "false" its name, into `unit`. Without a
// target a number of 1000 or more climbs by steps of 1000, up to T; a small one is left alone. A negative
// whole number is written as the unsigned 64-bit one. What `format_memory` says of `unit`, of the precision
// and of the field size holds here too.
VELDRIN_EXPORT strings::ustring8 format_metric(types::variant value, strings::ustring8 const& options,
                                               strings::ustring8& unit);

} // namespace VELDRIN_2_18::i18n::_private
