// File: veldrin/types/variant.hpp
//
// One value of any of twenty kinds (every integer type, bool, the floating types, five string classes, or
// nothing) that converts on demand into any other kind. A variant is a handle, one machine word, to an
// immutable counted object: a copy shares the object, and assigning to one handle never changes another.
//
//     types::variant value("0x10");
//     value.as_int();          // 16
//     value.as_bool();         // true
//     value = -5;
//     value.as_string();       // "-5"
//     value.as_uint32();       // 4294967291
//     value == types::nil;     // false

#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <type_traits>
#include <typeinfo>

#include "veldrin/export.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"
#include "veldrin/types/variant_type.hpp"

namespace VELDRIN_2_18::types {

// Every construction from a value allocates, the nil value too; nothing but exhausted memory throws. There is
// no moved-from state: moving a variant copies the handle. Handles to one object may be used from several
// threads as long as no two threads write the same handle.
//
// Held 16-bit text that starts with 0xFFFE ends the process when it is transcoded, as strings::utf16_to_utf8
// does: by the 8- and 32-bit texts, the floating results, and streaming.
class VELDRIN_EXPORT variant {
public:
    // Nil.
    variant();
    variant(nil_t const&);

    // Shares the other handle's object.
    variant(variant const& other) = default;

    // The held type is the argument's; a `char` is held as an `int`.
    variant(bool value);
    variant(signed char value);
    variant(unsigned char value);
    variant(short value);
    variant(unsigned short value);
    variant(int value);
    variant(unsigned int value);
    variant(long value);
    variant(unsigned long value);
    variant(long long value);
    variant(unsigned long long value);
    variant(float value);
    variant(double value);
    variant(long double value);
    variant(std::string const& value);
    variant(strings::wide_string const& value);
    variant(strings::ustring8 const& value);
    variant(strings::ustring16 const& value);
    variant(strings::ustring32 const& value);

    // Text up to the first zero unit, held as `ustring8` (the bytes are taken as UTF-8, as they are),
    // `ustring16` and `ustring32`. The pointer must not be null.
    variant(char const* text);
    variant(strings::utf16_unit const* text);
    variant(strings::utf32_unit const* text);
#ifdef __cpp_char8_t
    variant(char8_t const* text) : variant(reinterpret_cast<char const*>(text)) {}
#endif

    // No other pointer is a value: it would become a bool.
    variant(std::nullptr_t) = delete;
    template <class T>
    variant(T const*) = delete;
    template <class T, class = std::enable_if_t<std::is_function_v<std::remove_pointer_t<T>> ||
                                                std::is_member_pointer_v<T>>>
    variant(T) = delete;

    // Lets go of the held object and shares the other's; nothing happens if both are the same.
    variant& operator=(variant const& other) = default;
    variant& assign(variant const& other) { return *this = other; }

    // Takes a new nil object.
    variant& operator=(nil_t const&);
    variant& assign(nil_t const&) { return *this = nil; }

    // The type of the held value: `typeid(int)` for `variant(5)`, `typeid(strings::ustring8)` for
    // `variant("a")`.
    std::type_info const& type() const;

    // Whether the held value is nil. Variants do not compare with each other.
    bool equal(nil_t const&) const;
    bool operator==(nil_t const&) const { return equal(nil); }
    bool operator!=(nil_t const&) const { return !equal(nil); }

    // Writes the value and returns the stream. Numbers and bool go by the stream's own flags, `signed char`
    // and `unsigned char` are one character, nil is 0. A `std::string` is written whole, a `ustring8` up to
    // its first zero byte, and so are the UTF-8 forms of `ustring16` and `ustring32`. A `wide_string` is
    // written as its type's name and its address.
    std::ostream& ostream(std::ostream& stream) const;

    // Integers. An integer is cast: truncated, wrapped or sign-extended. A bool is 1 or 0, nil is 0. A
    // floating value is truncated to a signed 64-bit integer and cast; a NaN, and what does not fit there,
    // count as the smallest one, but `as_uint64` keeps what fits into 64 unsigned bits. Text is parsed for
    // the result's type by generic/convert, with the radix detected from it ("0x10", "0b10", "010"): a text
    // with no number gives 0, a number out of range the nearest limit.
    int as_int() const;
    int as_signed() const;
    short as_short() const;
    std::int32_t as_long() const;
    signed char as_int8() const;
    short as_int16() const;
    std::int32_t as_int32() const;
    std::int64_t as_int64() const;
    unsigned char as_uint8() const;
    unsigned short as_uint16() const;
    std::uint32_t as_uint32() const;
    std::uint64_t as_uint64() const;

    // The signed reading, cast: text is parsed as a signed number, so "4294967295" gives 2147483647 here and
    // 4294967295 from `as_uint32`.
    unsigned int as_unsigned() const;
    unsigned int as_uint() const;
    unsigned short as_ushort() const;
    std::uint32_t as_ulong() const;

    // True for a number other than 0, a NaN included; for the texts "yes", "on" and "true" in any case; and
    // for a text that `as_long` reads as a number other than 0. False for nil.
    bool as_bool() const;

    // A number is cast. A text is read by the global locale and gives 0 if it holds no number. Nil is 0.
    float as_float() const;
    double as_double() const;
    long double as_long_double() const;

    // Text. Integers are decimal digits. Bool ("1", "0") and floating values are what a string stream in its
    // default state makes of them, six significant digits at most, by the global locale: its narrow form,
    // which counts as UTF-8, or for `as_wstring` its wide form. Text is transcoded by
    // veldrin/strings/unicode.hpp, so bad text becomes "-1" or question marks. Nil is an empty text.
    strings::ustring8 as_string() const;
    strings::wide_string as_wstring() const;
    strings::wide_string as_ustring() const;
    strings::ustring8 as_utf8() const;
    strings::ustring16 as_utf16() const;
    strings::ustring32 as_utf32() const;

private:
    memory::pointers::rc_pointer<variant_type> m_value;
};

// The same as `value.ostream(stream)`.
VELDRIN_EXPORT std::ostream& operator<<(std::ostream& stream, variant const& value);

} // namespace VELDRIN_2_18::types
