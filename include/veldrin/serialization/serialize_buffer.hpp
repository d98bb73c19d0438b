// File: veldrin/serialization/serialize_buffer.hpp
//
// A growing string of bytes to which typed values are appended, and from which they are read back in the same
// order. Nothing in the bytes says what type a value has: writer and reader agree on the sequence. This is
// the interface; `serialize_binary_buf` is the compact form and `serialize_text_buf` the one with numbers as
// text.
//
//     void write(serialization::serialize_buffer& buffer) {
//         buffer.append_string("width");
//         buffer.append_int32(640);
//     }
//
//     serialization::serialize_text_buf buffer;
//     write(buffer);
//     buffer.read_string();     // "width"
//     buffer.read_int32();      // 640
//     buffer.at_end();          // true

#pragma once

#include <cstdint>
#include <string>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/create_ability.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::serialization {

// Reading is `const`: it moves the cursor and changes no bytes. It writes all the same, so a buffer is not
// read by two threads at once. The order of the virtual operations is fixed.
class VELDRIN_EXPORT serialize_buffer
    : public generic::abilities::create_ability,
      public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<serialize_buffer> {
public:
    serialize_buffer();
    serialize_buffer(serialize_buffer const& other);
    ~serialize_buffer() override;

    // The same as `assign`.
    serialize_buffer& operator=(serialize_buffer const& other) { return assign(other); }
    serialize_buffer& operator=(std::string const& bytes) { return assign(bytes); }

    // Replace the bytes; the cursor stays where it is. Call `reset_read` before reading from the front. A
    // negative `size` counts as 0. Of another buffer the bytes are taken as they are, whatever its form.
    virtual serialize_buffer& assign(char const* bytes, int size) = 0;
    virtual serialize_buffer& assign(std::string const& bytes) = 0;
    virtual serialize_buffer& assign(serialize_buffer const& other) = 0;

    // The bytes, without a copy. The reference stands until the next change.
    virtual std::string const& as_str() const = 0;

    // Append a value behind the last one, wherever the cursor is. They fail only for want of memory or at a
    // string's greatest length.
    virtual void append_int8(signed char const& value) = 0;
    virtual void append_int16(short const& value) = 0;
    virtual void append_int32(std::int32_t const& value) = 0;
    virtual void append_int64(std::int64_t const& value) = 0;
    virtual void append_uint8(unsigned char const& value) = 0;
    virtual void append_uint16(unsigned short const& value) = 0;
    virtual void append_uint32(std::uint32_t const& value) = 0;
    virtual void append_uint64(std::uint64_t const& value) = 0;

    // `precision` is the number of significant digits, for a form that writes digits.
    virtual void append_float(float const& value, std::uint32_t const& precision) = 0;
    virtual void append_double(double const& value, std::uint32_t const& precision) = 0;

    // Appends a string of any bytes, which reads back as they are. Framing is by length: nothing is escaped.
    virtual void append_string(std::string const& value) = 0;

    // Appends the bytes of a buffer of any form, this one included, framed as a string.
    virtual void append_buffer(serialize_buffer const& value) = 0;

    // Read the value at the cursor and move behind it, also where there is no memory for a string or a nested
    // buffer. Nothing tells of bad data; behind the end there are zeros and empty strings. Each form says
    // what its cursor does there.
    virtual signed char read_int8() const = 0;
    virtual short read_int16() const = 0;
    virtual std::int32_t read_int32() const = 0;
    virtual std::int64_t read_int64() const = 0;
    virtual unsigned char read_uint8() const = 0;
    virtual unsigned short read_uint16() const = 0;
    virtual std::uint32_t read_uint32() const = 0;
    virtual std::uint64_t read_uint64() const = 0;
    virtual float read_float() const = 0;
    virtual double read_double() const = 0;
    virtual std::string read_string() const = 0;

    // The bytes of a nested buffer, in a new buffer of this form on the heap, with the cursor at its front.
    // The caller owns it.
    virtual serialize_buffer* read_buffer() const = 0;

    // Whether the cursor is at or behind the end of the bytes.
    virtual bool at_end() const = 0;

    // Moves the cursor to the front.
    virtual void reset_read() const = 0;

    // A new empty buffer of the same class on the heap; the caller owns it.
    virtual serialize_buffer* create() const = 0;

    // A copy on the heap that goes on reading where this one stands; the caller owns it.
    virtual serialize_buffer* clone() const = 0;
};

} // namespace VELDRIN_2_18::serialization
