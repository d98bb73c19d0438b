// File: veldrin/serialization/serialize_binary_buf.hpp
//
// The compact form of a serialize buffer: values one after the other, without type marks or alignment, in the
// byte order of the machine. It is not for exchange between machines of different order.
//
//     serialization::serialize_binary_buf buffer;
//     buffer.append_int16(258);        // 02 01, where the low byte comes first
//     buffer.append_string("abc");     // 03 00 00 00 61 62 63
//     buffer.read_int16();             // 258
//     buffer.read_string();            // "abc"

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/serialization/cursor_buffer.hpp"
#include "veldrin/serialization/serialize_buffer.hpp"

namespace VELDRIN_2_18::serialization {

// | value                        | bytes                                            |
// |------------------------------|--------------------------------------------------|
// | `int8`, `uint8`              | 1                                                |
// | `int16`, `uint16`            | 2                                                |
// | `int32`, `uint32`            | 4                                                |
// | `int64`, `uint64`            | 8                                                |
// | `float`                      | 4, IEEE single; `precision` is ignored           |
// | `double`                     | 8, IEEE double; `precision` is ignored           |
// | string, the bytes of a buffer| the length in 4 bytes, unsigned; then the bytes  |
//
// Only the low 32 bits of a length are kept.
//
// At the end a number reads as 0, a string as empty, a nested buffer as null, and the cursor stays. A number
// that is cut off reads with zeros for the bytes it lacks. A string or buffer that is cut off gives the bytes
// that are there. In both cases the cursor moves as far as it would have, behind the end. A wrong type gives
// wrong values and a wrong cursor, undetected.
class VELDRIN_EXPORT serialize_binary_buf : public _private::cursor_buffer {
public:
    // Empty.
    serialize_binary_buf();

    // Bytes and cursor of the other.
    serialize_binary_buf(serialize_binary_buf const& other);
    serialize_binary_buf& operator=(serialize_binary_buf const& other);

    // The bytes alone, with the cursor at the front.
    serialize_binary_buf(serialize_buffer const& other);
    serialize_binary_buf(std::string const& bytes);

    // Of another form, or of bytes: the cursor stays.
    using serialize_buffer::operator=;

    ~serialize_binary_buf() override;

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

    // Null at the end. A buffer of length 0 that stands last reads as null too, one that does not as empty.
    serialize_buffer* read_buffer() const override;

    serialize_buffer* create() const override;
    serialize_buffer* clone() const override;

private:
    template <class T>
    T take_number() const;

    template <class T>
    T read_number() const;

    // The bytes of a string or nested buffer; nothing at the end.
    std::optional<std::string_view> take_framed_bytes() const;
};

} // namespace VELDRIN_2_18::serialization
