// Reading from the text serialization form, in any order of operations, beside a plain model of it.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "require.hpp"
#include "serialize_operations.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/serialization/serialize_text_buf.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace VELDRIN_2_18::generic::convert;
using serialization::serialize_buffer;
using serialization::serialize_text_buf;
using buffer_type = open_buffer<serialize_text_buf>;

constexpr std::uint64_t no_position = UINT64_MAX;

struct field {
    std::string text;
    std::uint64_t position_behind = no_position;
};

field expected_field(buffer_type const& buffer) {
    std::string const& data = buffer.as_str();
    std::uint64_t const position = buffer.m_read_pos;
    if (position >= data.size()) {
        return {};
    }
    std::size_t const found = data.find('\x01', position);
    if (found == std::string::npos) {
        return {data.substr(position), no_position};
    }
    return {data.substr(position, found - position), found + 1};
}

template <class T>
using integer_parser = T (*)(char const*, std::uint64_t, types::radix_t::base, bool);

template <class T, T (serialize_buffer::*read)() const, integer_parser<T> parse>
void check_integer(buffer_type& buffer) {
    field const expected = expected_field(buffer);
    T const value = unchanging(buffer, [](buffer_type const& from) { return (from.*read)(); });
    require(value == parse(expected.text.c_str(), expected.text.size(), types::radix_t::detect, false));
    require(buffer.m_read_pos == expected.position_behind);
}

// A value that was read is written, and reads back, with all its digits.
template <class T, T (serialize_buffer::*read)() const, T (*parse)(strings::ustring8 const&),
          void (serialize_buffer::*append)(T const&, std::uint32_t const&)>
void check_real(buffer_type& buffer) {
    field const expected = expected_field(buffer);
    T const value = unchanging(buffer, [](buffer_type const& from) { return (from.*read)(); });
    require(value == parse(expected.text) && std::isfinite(value));
    require(buffer.m_read_pos == expected.position_behind);

    serialize_text_buf copy;
    (copy.*append)(value, 17);
    require((copy.*read)() == value && copy.at_end());
}

// Nothing where the reading throws.
struct frame {
    std::optional<std::string> bytes;
    std::uint64_t position_behind;
};

frame expected_frame(buffer_type const& buffer) {
    if (buffer.m_read_pos == no_position) {
        return {"", no_position};
    }
    auto const [text, start] = expected_field(buffer);
    auto const length =
        static_cast<std::uint64_t>(str_to_int32(text.c_str(), text.size(), types::radix_t::detect, false));
    std::uint64_t const position_behind = start + length + 1;
    if (length == 0) {
        return {"", position_behind};
    }
    if (start == no_position) {
        return {std::nullopt, position_behind};
    }
    return {buffer.as_str().substr(start, length), position_behind};
}

template <class Read>
void check_framed(buffer_type& buffer, Read read) {
    frame const expected = expected_frame(buffer);
    std::optional<std::string> bytes;
    try {
        bytes = unchanging(buffer, read);
    } catch (std::out_of_range const& failure) {
        require(failure.what() == std::string_view("invalid string position"));
    }
    require(bytes == expected.bytes);
    require(buffer.m_read_pos == expected.position_behind);
}

void check_string(buffer_type& buffer) {
    check_framed(buffer, [](buffer_type const& from) { return from.read_string(); });
}

void check_nested_buffer(buffer_type& buffer) {
    check_framed(buffer, [](buffer_type const& from) {
        std::unique_ptr<serialize_buffer const> const nested(from.read_buffer());
        return nested->as_str();
    });
}

constexpr operation<serialize_text_buf> operations[] = {
    check_integer<signed char, &serialize_buffer::read_int8, str_to_int8>,
    check_integer<short, &serialize_buffer::read_int16, str_to_int16>,
    check_integer<std::int32_t, &serialize_buffer::read_int32, str_to_int32>,
    check_integer<std::int64_t, &serialize_buffer::read_int64, str_to_int64>,
    check_integer<unsigned char, &serialize_buffer::read_uint8, str_to_uint8>,
    check_integer<unsigned short, &serialize_buffer::read_uint16, str_to_uint16>,
    check_integer<std::uint32_t, &serialize_buffer::read_uint32, str_to_uint32>,
    check_integer<std::uint64_t, &serialize_buffer::read_uint64, str_to_uint64>,
    check_real<float, &serialize_buffer::read_float, str_to_float, &serialize_buffer::append_float>,
    check_real<double, &serialize_buffer::read_double, str_to_double, &serialize_buffer::append_double>,
    check_string,
    check_nested_buffer,
    check_end,
    reset,
    assign_shorter_bytes,
    append_to_itself,
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    run_operations(data, size, operations);
    return 0;
}
