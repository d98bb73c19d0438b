// File: veldrin/strings/code_page.hpp
//
// The bridge between the three text classes and bytes in a legacy encoding. A `code_page` is a small value
// that names one encoding and holds no other state; any number of threads may convert with the same one.
//
//     strings::code_page page(strings::code_page::cp_1252);
//     page.encode(strings::ustring8("\xE2\x82\xAC 5"));   // "\x80 5": the euro sign has one byte there
//     page.as_utf8("\x80 5");                             // "\xE2\x82\xAC 5"

#pragma once

#include <cstdint>
#include <string>

#include "veldrin/export.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"

namespace VELDRIN_2_18::strings {

class VELDRIN_EXPORT code_page {
public:
    // From `cp_932` on, the value is the code page's number. Other values may be held and compared, but not
    // used for a conversion.
    enum encoding_type : std::int32_t {
        none = 0,                 // a default or nil code page: not usable
        system_ansi = 1,          // the system's ANSI code page; UTF-8 where the system has no such notion
        system_oem = 2,           // the system's OEM code page; UTF-8 likewise
        system_oem_alternate = 3, // the same as system_oem
        utf8 = 4,
        cp_932 = 932, // Shift-JIS
        cp_936 = 936, // GBK
        cp_949 = 949, // Korean
        cp_950 = 950, // Big5
        cp_1250 = 1250,
        cp_1251 = 1251,
        cp_1252 = 1252,
        cp_1253 = 1253,
        cp_1254 = 1254,
        cp_1255 = 1255,
        cp_1256 = 1256,
        cp_1257 = 1257,
        cp_1258 = 1258,
        cp_20866 = 20866, // KOI8-R
        cp_21866 = 21866, // KOI8-U
        cp_28591 = 28591, // ISO 8859-1, and so on to ISO 8859-9
        cp_28592 = 28592,
        cp_28593 = 28593,
        cp_28594 = 28594,
        cp_28595 = 28595,
        cp_28596 = 28596,
        cp_28597 = 28597,
        cp_28598 = 28598,
        cp_28599 = 28599,
        cp_28605 = 28605 // ISO 8859-15
    };

    code_page() = default;
    code_page(types::nil_t const&) {}
    code_page(encoding_type const& type) : m_type(type) {}
    code_page(code_page const&) = default;
    ~code_page() = default;

    code_page const& operator=(types::nil_t const&) { return assign(types::nil); }
    code_page const& operator=(code_page const& other) { return assign(other); }
    code_page const& operator=(encoding_type const& type) { return assign(type); }

    // `types::nil` sets `none`.
    code_page const& assign(types::nil_t const&) { return assign(none); }
    code_page const& assign(code_page const& other) { return assign(other.m_type); }
    code_page const& assign(encoding_type const& type) {
        m_type = type;
        return *this;
    }

    bool equal(code_page const& other) const { return m_type == other.m_type; }
    bool equal(encoding_type const& type) const { return m_type == type; }

    // True if the number is negative. A code page made from `types::nil` holds 0, so it is not equal to
    // `types::nil`; and there is no `!=` for it.
    bool equal(types::nil_t const&) const { return m_type < 0; }

    bool operator==(code_page const& other) const { return equal(other); }
    bool operator==(encoding_type const& type) const { return equal(type); }
    bool operator==(types::nil_t const&) const { return equal(types::nil); }
    bool operator!=(code_page const& other) const { return !equal(other); }
    bool operator!=(encoding_type const& type) const { return !equal(type); }
    bool operator!=(types::nil_t const&) const = delete;
    friend bool operator!=(types::nil_t const&, code_page const&) = delete;

    encoding_type const& type() const { return m_type; }
    encoding_type& type() { return m_type; }

    // Sets the type and returns a reference to it.
    encoding_type& type(encoding_type const& type) { return m_type = type; }

    // The bytes of the text in this encoding, up to the first zero unit. A character that the encoding lacks
    // becomes its nearest look-alike where the code page has one, and "?" otherwise; a surrogate pair that it
    // lacks becomes two "?". In UTF-8 a lone surrogate becomes EF BF BD. The 8- and 32-bit forms go through
    // `utf8_to_utf16` and `utf32_to_utf16`, whose treatment of bad text holds: a bad `ustring8` encodes as
    // "-1".
    //
    // All conversions throw `exceptions::invalid_argument_value` if the type is `none` or not in the list.
    std::string encode(ustring8 const& text) const;
    std::string encode(ustring16 const& text) const;
    std::string encode(ustring32 const& text) const;

    // The text of the bytes, up to the first zero byte. Bytes that mean nothing in this encoding become the
    // code page's replacement character; in UTF-8 each maximal ill-formed part becomes one U+FFFD. The 8- and
    // 32-bit forms go through `utf16_to_utf8` and `utf16_to_utf32`, which end the process for a text that
    // begins with U+FFFE (in UTF-8 the bytes EF BF BE): take `as_utf16` and `check_BOM_and_modify_swap` where
    // such bytes may come in.
    ustring8 as_utf8(std::string const& bytes) const;
    ustring16 as_utf16(std::string const& bytes) const;
    ustring32 as_utf32(std::string const& bytes) const;
    wide_string as_ustring(std::string const& bytes) const;

protected:
    // The system's number of the code page named by the argument; the object's own type does not matter.
    // Throws `exceptions::invalid_argument_value` for `none` and values that are not in the list.
    int to_system_type(encoding_type type) const;

private:
    encoding_type m_type = none;
};

} // namespace VELDRIN_2_18::strings
