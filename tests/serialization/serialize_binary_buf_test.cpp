#include "veldrin/serialization/serialize_binary_buf.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using namespace VELDRIN_2_18;
using namespace std::string_literals;
using serialization::serialize_binary_buf;
using serialization::serialize_buffer;

static_assert(std::is_base_of_v<serialize_buffer, serialize_binary_buf>);

// Makes the cursor visible.
struct open_buffer : serialize_binary_buf {
    using serialize_binary_buf::m_read_pos;
    using serialize_binary_buf::serialize_binary_buf;
};

// A buffer of these bytes, whose storage goes on with other ones.
open_buffer cut_off(std::string const& bytes) {
    open_buffer buffer(bytes + std::string(32, '\x77'));
    std::string const copy = bytes;
    buffer.assign(copy);
    return buffer;
}

std::string bytes_of(void (*append)(serialize_binary_buf&)) {
    serialize_binary_buf buffer;
    append(buffer);
    return buffer.as_str();
}

using form = serialize_binary_buf;

// ---- Writing: the bytes of a machine with the low byte first ----

TEST(serialize_binary_buf, writes_integers_in_their_width) {
    EXPECT_EQ(bytes_of([](form& to) { to.append_int8(-2); }), "\xfe"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_uint8(200); }), "\xc8"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_int16(258); }), "\x02\x01"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_uint16(0xfedc); }), "\xdc\xfe"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_int32(-2); }), "\xfe\xff\xff\xff"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_uint32(0x01020304); }), "\x04\x03\x02\x01"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_int64(-2); }), "\xfe\xff\xff\xff\xff\xff\xff\xff"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_uint64(0x0102030405060708); }),
              "\x08\x07\x06\x05\x04\x03\x02\x01"s);
}

TEST(serialize_binary_buf, writes_reals_whole_whatever_the_precision) {
    EXPECT_EQ(bytes_of([](form& to) { to.append_float(1.0F, 3); }), "\0\0\x80\x3f"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_float(1.0F, 9); }), "\0\0\x80\x3f"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_float(0.1F, 0); }), "\xcd\xcc\xcc\x3d"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_double(-2.5, 0); }), "\0\0\0\0\0\0\x04\xc0"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_double(-2.5, UINT32_MAX); }), "\0\0\0\0\0\0\x04\xc0"s);
}

TEST(serialize_binary_buf, writes_strings_behind_their_length) {
    EXPECT_EQ(bytes_of([](form& to) { to.append_string("abc"); }), "\x03\0\0\0abc"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_string(""); }), "\0\0\0\0"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_string("\0\xff\x01"s); }), "\x03\0\0\0\0\xff\x01"s);
    EXPECT_EQ(bytes_of([](form& to) { to.append_string(std::string(258, 'x')); }),
              "\x02\x01\0\0"s + std::string(258, 'x'));
}

TEST(serialize_binary_buf, writes_values_one_after_the_other) {
    EXPECT_EQ(bytes_of([](form& to) {
                  to.append_int8(1);
                  to.append_int32(2);
                  to.append_string("a");
                  to.append_int16(3);
              }),
              "\x01\x02\0\0\0\x01\0\0\0a\x03\0"s);
}

// ---- Reading ----

TEST(serialize_binary_buf, reads_a_string_and_a_number) {
    serialize_binary_buf buffer;
    buffer.append_string("name");
    buffer.append_int32(-7);
    EXPECT_EQ(buffer.read_string(), "name");
    EXPECT_EQ(buffer.read_int32(), -7);
    EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_binary_buf, reads_reals_bit_by_bit) {
    std::string const bits = "\x01\0\xa0\x7f"s + "\x01\0\0\0\0\0\xf4\xff"s;
    serialize_binary_buf const buffer(bits);
    float const single_nan = buffer.read_float();
    double const double_nan = buffer.read_double();
    EXPECT_EQ(std::memcmp(&single_nan, bits.data(), 4), 0);
    EXPECT_EQ(std::memcmp(&double_nan, bits.data() + 4, 8), 0);

    serialize_binary_buf others;
    others.append_double(-0.0, 1);
    others.append_float(std::numeric_limits<float>::infinity(), 1);
    EXPECT_TRUE(std::signbit(others.read_double()));
    EXPECT_EQ(others.read_float(), std::numeric_limits<float>::infinity());
}

TEST(serialize_binary_buf, takes_bytes_for_whatever_type_is_asked_for) {
    serialize_binary_buf buffer;
    buffer.append_int32(0x04030201);
    EXPECT_EQ(buffer.read_int8(), 1);
    EXPECT_EQ(buffer.read_uint16(), 0x0302);
    EXPECT_EQ(buffer.read_uint8(), 4);
    EXPECT_TRUE(buffer.at_end());
}

// Every read operation, with what it gives at the end.
template <class Check>
void for_each_read(Check check) {
    check("int8", 1U, [](form const& from) { return from.read_int8() == 0; });
    check("int16", 2U, [](form const& from) { return from.read_int16() == 0; });
    check("int32", 4U, [](form const& from) { return from.read_int32() == 0; });
    check("int64", 8U, [](form const& from) { return from.read_int64() == 0; });
    check("uint8", 1U, [](form const& from) { return from.read_uint8() == 0; });
    check("uint16", 2U, [](form const& from) { return from.read_uint16() == 0; });
    check("uint32", 4U, [](form const& from) { return from.read_uint32() == 0; });
    check("uint64", 8U, [](form const& from) { return from.read_uint64() == 0; });
    check("float", 4U, [](form const& from) { return from.read_float() == 0.0F; });
    check("double", 8U, [](form const& from) { return from.read_double() == 0.0; });
    check("string", 4U, [](form const& from) { return from.read_string().empty(); });
    check("buffer", 4U, [](form const& from) { return from.read_buffer() == nullptr; });
}

TEST(serialize_binary_buf, reads_zeros_at_the_end_and_stays_there) {
    open_buffer const empty;
    open_buffer const read("ab"s);
    read.read_int16();
    open_buffer const far_behind("ab"s);
    far_behind.m_read_pos = 1000;
    open_buffer const nowhere("ab"s);
    nowhere.m_read_pos = UINT64_MAX;
    for (open_buffer const* const buffer : {&empty, &read, &far_behind, &nowhere}) {
        std::uint64_t const position = buffer->m_read_pos;
        for_each_read([&](char const* name, std::size_t, auto reads_zero) {
            EXPECT_TRUE(reads_zero(*buffer)) << name;
            EXPECT_EQ(buffer->m_read_pos, position) << name;
            EXPECT_TRUE(buffer->at_end()) << name;
        });
    }
}

TEST(serialize_binary_buf, goes_on_behind_the_end_when_values_are_appended_there) {
    open_buffer buffer;
    EXPECT_EQ(buffer.read_int32(), 0);
    buffer.append_int32(5);
    EXPECT_EQ(buffer.read_int32(), 5);
}

template <class T>
void expect_padded(T (serialize_buffer::*read)() const) {
    std::string const bytes = "\x11\x22\x33\x44\x55\x66\x77\x40"s;
    for (std::size_t size = 1; size <= sizeof(T); ++size) {
        std::string const padded = bytes.substr(0, size) + std::string(8, '\0');
        T expected;
        std::memcpy(&expected, padded.data(), sizeof expected);
        open_buffer const buffer = cut_off("ab" + bytes.substr(0, size));
        buffer.read_int16();
        EXPECT_EQ((buffer.*read)(), expected) << size;
        EXPECT_EQ(buffer.m_read_pos, 2 + sizeof(T)) << size;
        EXPECT_TRUE(buffer.at_end()) << size;
    }
}

TEST(serialize_binary_buf, reads_zeros_for_the_bytes_that_a_number_lacks) {
    expect_padded(&serialize_buffer::read_int8);
    expect_padded(&serialize_buffer::read_int16);
    expect_padded(&serialize_buffer::read_int32);
    expect_padded(&serialize_buffer::read_int64);
    expect_padded(&serialize_buffer::read_uint8);
    expect_padded(&serialize_buffer::read_uint16);
    expect_padded(&serialize_buffer::read_uint32);
    expect_padded(&serialize_buffer::read_uint64);
    expect_padded(&serialize_buffer::read_float);
    expect_padded(&serialize_buffer::read_double);
}

TEST(serialize_binary_buf, is_at_the_end_after_a_number_that_was_cut_off) {
    open_buffer const buffer("\x01\x02\x03\x04\x05\x06"s);
    EXPECT_EQ(buffer.read_int32(), 0x04030201);
    EXPECT_EQ(buffer.read_int32(), 0x0605);
    EXPECT_TRUE(buffer.at_end());
    EXPECT_EQ(buffer.m_read_pos, 8U);
}

// ---- Strings and nested buffers ----

struct frame_case {
    char const* name;
    std::string bytes;
    bool is_null; // for a nested buffer
    std::string content;
    std::uint64_t position_behind;
};

frame_case const frame_cases[] = {
    {"whole", "\x02\0\0\0ab"s, false, "ab", 6},
    {"with more behind it", "\x02\0\0\0abc"s, false, "ab", 6},
    {"any bytes", "\x04\0\0\0\0\x01\xff\n"s, false, "\0\x01\xff\n"s, 8},
    {"empty at the end", "\0\0\0\0"s, true, "", 4},
    {"empty elsewhere", "\0\0\0\0x"s, false, "", 4},
    {"length alone", "\x05\0\0\0"s, true, "", 4},
    {"length cut off", "\x05\0"s, true, "", 4},
    {"cut off", "\x05\0\0\0ab"s, false, "ab", 9},
    {"a length with its highest bit set", "\0\0\0\x80xyz"s, false, "xyz", 0x80000004},
    {"the greatest length", "\xff\xff\xff\xffxyz"s, false, "xyz", 0x100000003},
    {"no bytes", "", true, "", 0},
};

TEST(serialize_binary_buf, reads_as_much_of_a_string_as_there_is) {
    for (frame_case const& each : frame_cases) {
        open_buffer const buffer = cut_off(each.bytes);
        EXPECT_EQ(buffer.read_string(), each.content) << each.name;
        EXPECT_EQ(buffer.m_read_pos, each.position_behind) << each.name;
    }
}

TEST(serialize_binary_buf, reads_as_much_of_a_nested_buffer_as_there_is) {
    for (frame_case const& each : frame_cases) {
        open_buffer const buffer = cut_off(each.bytes);
        std::unique_ptr<serialize_buffer const> const nested(buffer.read_buffer());
        EXPECT_EQ(nested == nullptr, each.is_null) << each.name;
        if (nested != nullptr) {
            EXPECT_EQ(nested->as_str(), each.content) << each.name;
            EXPECT_EQ(nested->at_end(), each.content.empty()) << each.name;
        }
        EXPECT_EQ(buffer.m_read_pos, each.position_behind) << each.name;
    }
}

// ---- The test for the end ----

struct buffer_with_own_end : open_buffer {
    using open_buffer::open_buffer;

    bool at_end() const override { return says_end; }

    bool says_end = true;
};

TEST(serialize_binary_buf, asks_for_the_end_by_the_virtual_operation) {
    buffer_with_own_end const buffer("\x01\0\0\0zzzzzzzz"s);
    for_each_read([&](char const* name, std::size_t, auto reads_zero) {
        EXPECT_TRUE(reads_zero(buffer)) << name;
        EXPECT_EQ(buffer.m_read_pos, 0U) << name;
    });
}

TEST(serialize_binary_buf, reads_zeros_where_the_virtual_operation_denies_the_end) {
    buffer_with_own_end buffer("ab"s);
    buffer.says_end = false;
    buffer.m_read_pos = 100;
    std::uint64_t position = buffer.m_read_pos;
    for_each_read([&](char const* name, std::size_t width, auto reads_zero) {
        if (name != "buffer"s) {
            EXPECT_TRUE(reads_zero(buffer)) << name;
            EXPECT_EQ(buffer.m_read_pos, position += width) << name;
        }
    });
    std::unique_ptr<serialize_buffer const> const nested(buffer.read_buffer());
    EXPECT_EQ(nested->as_str(), "");
}

} // namespace
