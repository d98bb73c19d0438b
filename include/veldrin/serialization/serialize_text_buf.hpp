// File: veldrin/serialization/serialize_text_buf.hpp
//
// The form of a serialize buffer in which numbers are decimal text. The byte 01 ends each of them, and
// strings have their length in front, so blanks, commas, line ends and the byte 01 itself stand in strings as
// they are.
//
//     serialization::serialize_text_buf buffer;
//     buffer.append_int32(-5);         // "-5" 01
//     buffer.append_string("ab");      // "2" 01 "ab" 01
//     buffer.append_double(0.5, 6);    // "0.5" 01
//     buffer.read_int8();              // -5

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/serialization/cursor_buffer.hpp"
#include "veldrin/serialization/serialize_buffer.hpp"

namespace VELDRIN_2_18::serialization {

// A field is a text and the byte 01.
//
// | value                         | written                                                            |
// |-------------------------------|--------------------------------------------------------------------|
// | integer                       | a field of decimal digits, "-" in front of a negative value        |
// | `float`, `double`             | a field as a stream writes it that has this precision              |
// | string, the bytes of a buffer | a field with the length, the bytes, the byte 01                    |
//
// Reals are written and read by the global locale. They come back to their precision; infinities and NaNs
// are written as words and read as 0, as is a value that its precision rounds beyond the greatest one.
//
// A number takes the text up to the next 01 and parses it as generic/convert does: radix by the text, no
// number gives 0, out of range the nearest bound. So it may be read as another type than it was written. A
// last field without its 01 is read too, and parks the cursor, as does a number read at the end: from there
// on numbers are 0, strings and nested buffers empty, until `reset_read`.
//
// A string or nested buffer reads its length by `read_int32`, takes that many bytes, or as many as there are,
// and moves the cursor as if all were there. Read at the end, with the cursor not parked, or with a length of
// 0 in a last field without its 01, it is empty and leaves the cursor at the front: `at_end` is false again.
//
// A negative length takes all bytes that are left and moves the cursor back, by one less and counted from the
// first of them; in front of the data it wraps and is behind the end. A length other than 0 in a last field
// without its 01 throws `std::out_of_range` "invalid string position" and leaves the cursor that many bytes
// from the front. Lengths of 2 GiB and more do not read back.
class VELDRIN_EXPORT serialize_text_buf : public _private::cursor_buffer {
public:
    // Empty.
    serialize_text_buf();

    // Bytes and cursor of the other.
    serialize_text_buf(serialize_text_buf const& other);
    serialize_text_buf& operator=(serialize_text_buf const& other);

    // The bytes alone, with the cursor at the front.
    serialize_text_buf(serialize_buffer const& other);
    serialize_text_buf(std::string const& bytes);

    // Of another form, or of bytes: the cursor stays.
    using serialize_buffer::operator=;

    ~serialize_text_buf() override;

    void append_int8(signed char const& value) override;
    void append_int16(short const& value) override;
    void append_int32(std::int32_t const& value) override;
    void append_int64(std::int64_t const& value) override;
    void append_uint8(unsigned char const& value) override;
    void append_uint16(unsigned short const& value) override;
    void append_uint32(std::uint32_t const& value) override;
    void append_uint64(std::uint64_t const& value) override;
    void append_float(float const& value, std::uint32_t const& precision) override;
    void append_double(double const& value, std::uint32_t const& precision) override;
    void append_string(std::string const& value) override;
    void append_buffer(serialize_buffer const& value) override;

    signed char read_int8() const override;
    short read_int16() const override;
    std::int32_t read_int32() const override;
    std::int64_t read_int64() const override;
    unsigned char read_uint8() const override;
    unsigned short read_uint16() const override;
    std::uint32_t read_uint32() const override;
    std::uint64_t read_uint64() const override;
    float read_float() const override;
    double read_double() const override;
    std::string read_string() const override;

    // Never null.
    serialize_buffer* read_buffer() const override;

    serialize_buffer* create() const override;
    serialize_buffer* clone() const override;

private:
    // The text at the cursor up to the next 01.
    std::string_view take_field() const;

    // The bytes of a string or nested buffer.
    std::string_view take_framed_bytes() const;
};

} // namespace VELDRIN_2_18::serialization
