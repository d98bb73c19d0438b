#include "veldrin/serialization/serialize_binary_buf.hpp"

#include <cstddef>

#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/generic/convert/byte_order.hpp"

namespace VELDRIN_2_18::serialization {

using generic::convert::_private::machine_order;

serialize_binary_buf::serialize_binary_buf() = default;

serialize_binary_buf::serialize_binary_buf(serialize_binary_buf const& other) = default;

serialize_binary_buf& serialize_binary_buf::operator=(serialize_binary_buf const& other) = default;

serialize_binary_buf::serialize_binary_buf(serialize_buffer const& other) : cursor_buffer(other) {}

serialize_binary_buf::serialize_binary_buf(std::string const& bytes) : cursor_buffer(bytes) {}

serialize_binary_buf::~serialize_binary_buf() = default;

void serialize_binary_buf::append_int8(signed char const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_int16(short const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_int32(std::int32_t const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_int64(std::int64_t const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_uint8(unsigned char const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_uint16(unsigned short const& value) {
    machine_order::append(m_data, value);
}

void serialize_binary_buf::append_uint32(std::uint32_t const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_uint64(std::uint64_t const& value) { machine_order::append(m_data, value); }

void serialize_binary_buf::append_float(float const& value, std::uint32_t const&) {
    machine_order::append(m_data, value);
}

void serialize_binary_buf::append_double(double const& value, std::uint32_t const&) {
    machine_order::append(m_data, value);
}

void serialize_binary_buf::append_string(std::string const& value) {
    // The size is kept: the value may be the bytes of this buffer, which grow by the length.
    std::size_t const size = value.size();
    auto const length = static_cast<std::uint32_t>(size);
    m_data.reserve(m_data.size() + sizeof length + size);
    machine_order::append(m_data, length);
    m_data.append(value, 0, size);
}

void serialize_binary_buf::append_buffer(serialize_buffer const& value) { append_string(value.as_str()); }

signed char serialize_binary_buf::read_int8() const { return read_number<signed char>(); }

short serialize_binary_buf::read_int16() const { return read_number<short>(); }

std::int32_t serialize_binary_buf::read_int32() const { return read_number<std::int32_t>(); }

std::int64_t serialize_binary_buf::read_int64() const { return read_number<std::int64_t>(); }

unsigned char serialize_binary_buf::read_uint8() const { return read_number<unsigned char>(); }

unsigned short serialize_binary_buf::read_uint16() const { return read_number<unsigned short>(); }

std::uint32_t serialize_binary_buf::read_uint32() const { return read_number<std::uint32_t>(); }

std::uint64_t serialize_binary_buf::read_uint64() const { return read_number<std::uint64_t>(); }

float serialize_binary_buf::read_float() const { return read_number<float>(); }

double serialize_binary_buf::read_double() const { return read_number<double>(); }

std::string serialize_binary_buf::read_string() const {
    return std::string(take_framed_bytes().value_or(std::string_view()));
}

serialize_buffer* serialize_binary_buf::read_buffer() const {
    auto const bytes = take_framed_bytes();
    return bytes ? make_form<serialize_binary_buf>(*bytes) : nullptr;
}

serialize_buffer* serialize_binary_buf::create() const {
    return generic::abilities::make_dynamic<serialize_binary_buf>();
}

serialize_buffer* serialize_binary_buf::clone() const {
    return generic::abilities::make_dynamic<serialize_binary_buf>(*this);
}

template <class T>
T serialize_binary_buf::take_number() const {
    T const value = machine_order::read<T, 0>(unread());
    m_read_pos += sizeof value;
    return value;
}

template <class T>
T serialize_binary_buf::read_number() const {
    return at_end() ? T{0} : take_number<T>();
}

std::optional<std::string_view> serialize_binary_buf::take_framed_bytes() const {
    if (at_end()) {
        return std::nullopt;
    }
    auto const length = take_number<std::uint32_t>();
    if (at_end()) {
        return std::nullopt;
    }
    std::string_view const bytes = unread().substr(0, length);
    m_read_pos += length;
    return bytes;
}

} // namespace VELDRIN_2_18::serialization
