#include "veldrin/serialization/serialize_text_buf.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <ostream>
#include <stdexcept>
#include <streambuf>

#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/radix.hpp"

namespace VELDRIN_2_18::serialization {

namespace convert = generic::convert;

namespace {

constexpr char separator = '\x01';

// No `double` has more significant digits. What the standard library takes of memory and time grows with the
// precision, not with the digits; the greatest precisions are beyond it.
constexpr std::uint32_t greatest_precision = 767;

template <class Value>
void append_integer(std::string& data, Value value, void (*format)(Value, char*, unsigned int)) {
    char field[sizeof "-9223372036854775808"];
    format(value, field, types::radix_t::decimal);
    std::size_t const length = std::strlen(field);
    field[length] = separator;
    data.append(field, length + 1);
}

// Where a stream writes one field. The longest is a small number with all its digits; grouping characters
// take less room, since they stand only in front of a point.
class field_area : public std::streambuf {
public:
    field_area() { setp(m_text, m_text + sizeof m_text); }

    std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

private:
    char m_text[sizeof "-.e-308" + greatest_precision];
};

template <class Real>
void append_real(std::string& data, Real value, std::uint32_t precision) {
    field_area area;
    std::ostream stream(&area);
    // Else the stream would keep to itself that memory is exhausted.
    stream.exceptions(std::ios_base::badbit);
    stream.precision(std::min(precision, greatest_precision));
    stream << value << separator;
    data += area.text();
}

template <class Value>
Value integer_in(std::string_view field,
                 Value (*parse)(char const*, std::uint64_t, types::radix_t::base, bool)) {
    // To the parsers, a length of 0 is a text up to its terminator: all that is left to read.
    return field.empty() ? Value{0} : parse(field.data(), field.size(), types::radix_t::detect, false);
}

} // namespace

serialize_text_buf::serialize_text_buf() = default;

serialize_text_buf::serialize_text_buf(serialize_text_buf const& other) = default;

serialize_text_buf& serialize_text_buf::operator=(serialize_text_buf const& other) = default;

serialize_text_buf::serialize_text_buf(serialize_buffer const& other) : cursor_buffer(other) {}

serialize_text_buf::serialize_text_buf(std::string const& bytes) : cursor_buffer(bytes) {}

serialize_text_buf::~serialize_text_buf() = default;

void serialize_text_buf::append_int8(signed char const& value) {
    append_integer<std::int32_t>(m_data, value, convert::ltoa);
}

void serialize_text_buf::append_int16(short const& value) {
    append_integer<std::int32_t>(m_data, value, convert::ltoa);
}

void serialize_text_buf::append_int32(std::int32_t const& value) {
    append_integer<std::int32_t>(m_data, value, convert::ltoa);
}

void serialize_text_buf::append_int64(std::int64_t const& value) {
    append_integer<std::int64_t>(m_data, value, convert::lltoa);
}

void serialize_text_buf::append_uint8(unsigned char const& value) {
    append_integer<std::uint32_t>(m_data, value, convert::ultoa);
}

void serialize_text_buf::append_uint16(unsigned short const& value) {
    append_integer<std::uint32_t>(m_data, value, convert::ultoa);
}

void serialize_text_buf::append_uint32(std::uint32_t const& value) {
    append_integer<std::uint32_t>(m_data, value, convert::ultoa);
}

void serialize_text_buf::append_uint64(std::uint64_t const& value) {
    append_integer<std::uint64_t>(m_data, value, convert::ulltoa);
}

void serialize_text_buf::append_float(float const& value, std::uint32_t const& precision) {
    append_real(m_data, value, precision);
}

void serialize_text_buf::append_double(double const& value, std::uint32_t const& precision) {
    append_real(m_data, value, precision);
}

void serialize_text_buf::append_string(std::string const& value) {
    // The size is kept: the value may be the bytes of this buffer, which grow by the length.
    std::size_t const size = value.size();
    m_data.reserve(m_data.size() + sizeof "18446744073709551615" + size + sizeof separator);
    append_integer<std::uint64_t>(m_data, size, convert::ulltoa);
    m_data.append(value, 0, size);
    m_data += separator;
}

void serialize_text_buf::append_buffer(serialize_buffer const& value) { append_string(value.as_str()); }

signed char serialize_text_buf::read_int8() const { return integer_in(take_field(), convert::str_to_int8); }

short serialize_text_buf::read_int16() const { return integer_in(take_field(), convert::str_to_int16); }

std::int32_t serialize_text_buf::read_int32() const {
    return integer_in(take_field(), convert::str_to_int32);
}

std::int64_t serialize_text_buf::read_int64() const {
    return integer_in(take_field(), convert::str_to_int64);
}

unsigned char serialize_text_buf::read_uint8() const {
    return integer_in(take_field(), convert::str_to_uint8);
}

unsigned short serialize_text_buf::read_uint16() const {
    return integer_in(take_field(), convert::str_to_uint16);
}

std::uint32_t serialize_text_buf::read_uint32() const {
    return integer_in(take_field(), convert::str_to_uint32);
}

std::uint64_t serialize_text_buf::read_uint64() const {
    return integer_in(take_field(), convert::str_to_uint64);
}

float serialize_text_buf::read_float() const {
    return convert::str_to_float(strings::ustring8(take_field()));
}

double serialize_text_buf::read_double() const {
    return convert::str_to_double(strings::ustring8(take_field()));
}

std::string serialize_text_buf::read_string() const { return std::string(take_framed_bytes()); }

serialize_buffer* serialize_text_buf::read_buffer() const {
    return make_form<serialize_text_buf>(take_framed_bytes());
}

serialize_buffer* serialize_text_buf::create() const {
    return generic::abilities::make_dynamic<serialize_text_buf>();
}

serialize_buffer* serialize_text_buf::clone() const {
    return generic::abilities::make_dynamic<serialize_text_buf>(*this);
}

std::string_view serialize_text_buf::take_field() const {
    std::string_view const rest = unread();
    std::size_t const length = rest.find(separator);
    m_read_pos = length == std::string_view::npos ? no_position : m_read_pos + length + 1;
    return rest.substr(0, length);
}

std::string_view serialize_text_buf::take_framed_bytes() const {
    if (m_read_pos == no_position) {
        return {};
    }
    auto const length = static_cast<std::uint64_t>(read_int32());
    std::uint64_t const start = m_read_pos;
    m_read_pos = start + length + 1;
    if (length == 0) {
        return {};
    }
    if (start > m_data.size()) {
        throw std::out_of_range("invalid string position");
    }
    return std::string_view(m_data).substr(start, length);
}

} // namespace VELDRIN_2_18::serialization
