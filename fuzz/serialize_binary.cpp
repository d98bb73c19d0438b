// Reading from the binary serialization form, in any order of operations, beside a plain model of it.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "require.hpp"
#include "serialize_operations.hpp"
#include "veldrin/serialization/serialize_binary_buf.hpp"

namespace {

using namespace VELDRIN_2_18;
using serialization::serialize_binary_buf;
using serialization::serialize_buffer;
using buffer_type = open_buffer<serialize_binary_buf>;

// So many bytes at the cursor, zeros behind the end.
std::string padded_bytes(buffer_type const& buffer, std::size_t size) {
    std::string bytes(size, '\0');
    buffer.as_str().copy(bytes.data(), size, buffer.m_read_pos);
    return bytes;
}

template <class T, T (serialize_buffer::*read)() const>
void check_number(buffer_type& buffer) {
    std::uint64_t const position = buffer.m_read_pos;
    bool const at_end = position >= buffer.as_str().size();
    std::string const expected = at_end ? std::string(sizeof(T), '\0') : padded_bytes(buffer, sizeof(T));

    T const value = unchanging(buffer, [](buffer_type const& from) { return (from.*read)(); });
    require(std::memcmp(&value, expected.data(), sizeof value) == 0);
    require(buffer.m_read_pos == position + (at_end ? 0 : sizeof value));
}

struct frame {
    std::optional<std::string> bytes;
    std::uint64_t position_behind;
};

frame expected_frame(buffer_type const& buffer) {
    std::string const& data = buffer.as_str();
    std::uint64_t const position = buffer.m_read_pos;
    if (position >= data.size()) {
        return {std::nullopt, position};
    }
    std::uint32_t length;
    std::memcpy(&length, padded_bytes(buffer, sizeof length).data(), sizeof length);
    std::uint64_t const start = position + sizeof length;
    if (start >= data.size()) {
        return {std::nullopt, start};
    }
    return {data.substr(start, length), start + length};
}

void check_string(buffer_type& buffer) {
    frame const expected = expected_frame(buffer);
    require(unchanging(buffer, [](buffer_type const& from) { return from.read_string(); }) ==
            expected.bytes.value_or(""));
    require(buffer.m_read_pos == expected.position_behind);
}

void check_nested_buffer(buffer_type& buffer) {
    frame const expected = expected_frame(buffer);
    std::unique_ptr<serialize_buffer const> const nested(
        unchanging(buffer, [](buffer_type const& from) { return from.read_buffer(); }));
    require((nested != nullptr) == expected.bytes.has_value());
    require(nested == nullptr || nested->as_str() == *expected.bytes);
    require(buffer.m_read_pos == expected.position_behind);
}

constexpr operation<serialize_binary_buf> operations[] = {
    check_number<signed char, &serialize_buffer::read_int8>,
    check_number<short, &serialize_buffer::read_int16>,
    check_number<std::int32_t, &serialize_buffer::read_int32>,
    check_number<std::int64_t, &serialize_buffer::read_int64>,
    check_number<unsigned char, &serialize_buffer::read_uint8>,
    check_number<unsigned short, &serialize_buffer::read_uint16>,
    check_number<std::uint32_t, &serialize_buffer::read_uint32>,
    check_number<std::uint64_t, &serialize_buffer::read_uint64>,
    check_number<float, &serialize_buffer::read_float>,
    check_number<double, &serialize_buffer::read_double>,
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
