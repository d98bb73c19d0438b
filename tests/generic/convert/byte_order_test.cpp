#include "veldrin/generic/convert/byte_order.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/allocations.hpp"

namespace {

using namespace VELDRIN_2_18::generic::convert;

// What the machine itself does.
bool machine_is_little_endian() {
    std::uint16_t const one = 1;
    char first = 0;
    std::memcpy(&first, &one, 1);
    return first == 1;
}

std::string reversed(std::string const& bytes) { return {bytes.rbegin(), bytes.rend()}; }

template <class T>
std::string bytes_in_memory(T value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

// The three functions of one type in one order.
template <class T>
struct functions {
    T (*from_pointer)(char const*);
    T (*from_string)(std::string const&);
    std::string (*to_string)(T const&);
};

// One type in the three orders, and the sizes from which the strings are long enough.
template <class T>
struct family {
    functions<T> plain;
    functions<T> little;
    functions<T> big;
    std::size_t plain_guard = sizeof(T);
};

family<std::int16_t> const int16 = {
    {bin_str_to_int16, bin_str_to_int16, int16_to_bin_str},
    {little_endian::bin_str_to_int16, little_endian::bin_str_to_int16, little_endian::int16_to_bin_str},
    {big_endian::bin_str_to_int16, big_endian::bin_str_to_int16, big_endian::int16_to_bin_str}};
family<std::int32_t> const int32 = {
    {bin_str_to_int32, bin_str_to_int32, int32_to_bin_str},
    {little_endian::bin_str_to_int32, little_endian::bin_str_to_int32, little_endian::int32_to_bin_str},
    {big_endian::bin_str_to_int32, big_endian::bin_str_to_int32, big_endian::int32_to_bin_str}};
family<std::int64_t> const int64 = {
    {bin_str_to_int64, bin_str_to_int64, int64_to_bin_str},
    {little_endian::bin_str_to_int64, little_endian::bin_str_to_int64, little_endian::int64_to_bin_str},
    {big_endian::bin_str_to_int64, big_endian::bin_str_to_int64, big_endian::int64_to_bin_str}};
family<std::uint16_t> const uint16 = {
    {bin_str_to_uint16, bin_str_to_uint16, uint16_to_bin_str},
    {little_endian::bin_str_to_uint16, little_endian::bin_str_to_uint16, little_endian::uint16_to_bin_str},
    {big_endian::bin_str_to_uint16, big_endian::bin_str_to_uint16, big_endian::uint16_to_bin_str}};
family<std::uint32_t> const uint32 = {
    {bin_str_to_uint32, bin_str_to_uint32, uint32_to_bin_str},
    {little_endian::bin_str_to_uint32, little_endian::bin_str_to_uint32, little_endian::uint32_to_bin_str},
    {big_endian::bin_str_to_uint32, big_endian::bin_str_to_uint32, big_endian::uint32_to_bin_str}};
family<std::uint64_t> const uint64 = {
    {bin_str_to_uint64, bin_str_to_uint64, uint64_to_bin_str},
    {little_endian::bin_str_to_uint64, little_endian::bin_str_to_uint64, little_endian::uint64_to_bin_str},
    {big_endian::bin_str_to_uint64, big_endian::bin_str_to_uint64, big_endian::uint64_to_bin_str}};
family<float> const single_real = {
    {bin_str_to_float, bin_str_to_float, float_to_bin_str},
    {little_endian::bin_str_to_float, little_endian::bin_str_to_float, little_endian::float_to_bin_str},
    {big_endian::bin_str_to_float, big_endian::bin_str_to_float, big_endian::float_to_bin_str},
    8};
family<double> const double_real = {
    {bin_str_to_double, bin_str_to_double, double_to_bin_str},
    {little_endian::bin_str_to_double, little_endian::bin_str_to_double, little_endian::double_to_bin_str},
    {big_endian::bin_str_to_double, big_endian::bin_str_to_double, big_endian::double_to_bin_str},
    4};

template <class Check>
void for_each_family(Check check) {
    check("int16", int16);
    check("int32", int32);
    check("int64", int64);
    check("uint16", uint16);
    check("uint32", uint32);
    check("uint64", uint64);
    check("float", single_real);
    check("double", double_real);
}

// ---- The bytes ----

// A value and its bytes with the most significant one first.
template <class T>
struct sample {
    T value;
    std::string big_endian_bytes;
};

template <class T>
void expect_bytes(family<T> const& of, std::vector<sample<T>> const& samples) {
    for (auto const& [value, bytes] : samples) {
        EXPECT_EQ(of.big.to_string(value), bytes) << value;
        EXPECT_EQ(of.little.to_string(value), reversed(bytes)) << value;
        EXPECT_EQ(of.plain.to_string(value), machine_is_little_endian() ? reversed(bytes) : bytes) << value;
        EXPECT_EQ(of.big.from_pointer(bytes.data()), value);
        EXPECT_EQ(of.big.from_string(bytes), value);
        EXPECT_EQ(of.little.from_pointer(reversed(bytes).data()), value);
        EXPECT_EQ(of.little.from_string(reversed(bytes)), value);
        EXPECT_EQ(of.plain.from_pointer(of.plain.to_string(value).data()), value);
        EXPECT_EQ(of.plain.from_string(of.plain.to_string(value) + std::string(8, 'x')), value);
    }
}

using namespace std::string_literals;

TEST(byte_order, of_integers_is_that_of_the_namespace) {
    expect_bytes<std::int16_t>(int16, {{0, "\0\0"s},
                                       {1, "\0\x01"s},
                                       {258, "\x01\x02"s},
                                       {-2, "\xff\xfe"s},
                                       {INT16_MIN, "\x80\0"s},
                                       {INT16_MAX, "\x7f\xff"s}});
    expect_bytes<std::uint16_t>(uint16, {{0x0102, "\x01\x02"s}, {0x80fe, "\x80\xfe"s}});
    expect_bytes<std::int32_t>(int32, {{0x01020304, "\x01\x02\x03\x04"s},
                                       {-2, "\xff\xff\xff\xfe"s},
                                       {INT32_MIN, "\x80\0\0\0"s},
                                       {INT32_MAX, "\x7f\xff\xff\xff"s}});
    expect_bytes<std::uint32_t>(uint32,
                                {{0x01020304, "\x01\x02\x03\x04"s}, {0xfedcba98, "\xfe\xdc\xba\x98"s}});
    expect_bytes<std::int64_t>(int64, {{0x0102030405060708, "\x01\x02\x03\x04\x05\x06\x07\x08"s},
                                       {-2, "\xff\xff\xff\xff\xff\xff\xff\xfe"s},
                                       {INT64_MIN, "\x80\0\0\0\0\0\0\0"s},
                                       {INT64_MAX, "\x7f\xff\xff\xff\xff\xff\xff\xff"s}});
    expect_bytes<std::uint64_t>(uint64, {{0x0102030405060708, "\x01\x02\x03\x04\x05\x06\x07\x08"s},
                                         {0xfedcba9876543210, "\xfe\xdc\xba\x98\x76\x54\x32\x10"s}});
}

TEST(byte_order, of_reals_is_that_of_their_bit_pattern) {
    expect_bytes<float>(single_real, {{1.0F, "\x3f\x80\0\0"s},
                                      {-2.5F, "\xc0\x20\0\0"s},
                                      {std::numeric_limits<float>::infinity(), "\x7f\x80\0\0"s},
                                      {std::numeric_limits<float>::denorm_min(), "\0\0\0\x01"s}});
    expect_bytes<double>(double_real, {{1.0, "\x3f\xf0\0\0\0\0\0\0"s},
                                       {-2.5, "\xc0\x04\0\0\0\0\0\0"s},
                                       {-std::numeric_limits<double>::infinity(), "\xff\xf0\0\0\0\0\0\0"s},
                                       {std::numeric_limits<double>::denorm_min(), "\0\0\0\0\0\0\0\x01"s}});
    EXPECT_EQ(big_endian::float_to_bin_str(-0.0F), "\x80\0\0\0"s);
    EXPECT_EQ(little_endian::double_to_bin_str(-0.0), "\0\0\0\0\0\0\0\x80"s);
}

TEST(byte_order, examples_with_their_bytes_spelled_out) {
    EXPECT_EQ(big_endian::uint32_to_bin_str(0x01020304), "\x01\x02\x03\x04"s);
    EXPECT_EQ(little_endian::uint32_to_bin_str(0x01020304), "\x04\x03\x02\x01"s);
    EXPECT_EQ(big_endian::bin_str_to_int16("\xff\xfe"s), -2);
    EXPECT_EQ(little_endian::float_to_bin_str(1.0F), "\0\0\x80\x3f"s);
}

template <class T>
void expect_same_bits(functions<T> const& of, std::string const& bits) {
    T value;
    std::memcpy(&value, bits.data(), sizeof value);
    std::string const written = of.to_string(value);
    ASSERT_EQ(written.size(), sizeof value);
    EXPECT_EQ(bytes_in_memory(of.from_pointer(written.data())), bits);
    EXPECT_EQ(bytes_in_memory(of.from_string(written + "\0behind"s)), bits);
}

// Most patterns are numbers; NaNs, quiet and signalling, have to be asked for.
TEST(byte_order, every_bit_pattern_comes_back) {
    std::mt19937_64 random(1);
    for_each_family([&]<class T>(char const* name, family<T> const& of) {
        SCOPED_TRACE(name);
        std::vector<std::string> patterns = {std::string(sizeof(T), '\0'), std::string(sizeof(T), '\xff')};
        for (std::uint64_t const nan : {0x7ff0000000000001U, 0x7ff8000000000001U, 0x7f8000017f800001U}) {
            patterns.push_back(bytes_in_memory(nan).substr(0, sizeof(T)));
            patterns.push_back(bytes_in_memory(~nan).substr(0, sizeof(T)));
        }
        for (int count = 0; count < 1000; ++count) {
            patterns.push_back(bytes_in_memory(static_cast<std::uint64_t>(random())).substr(0, sizeof(T)));
        }
        for (std::string const& bits : patterns) {
            expect_same_bits(of.plain, bits);
            expect_same_bits(of.little, bits);
            expect_same_bits(of.big, bits);
        }
    });
}

TEST(byte_order, of_the_plain_functions_is_that_of_memory) {
    for_each_family([]<class T>(char const* name, family<T> const& of) {
        std::string const bytes = "\x12\x34\x56\x78\x9a\xbc\xde\x40"s;
        T value;
        std::memcpy(&value, bytes.data(), sizeof value);
        EXPECT_EQ(of.plain.from_pointer(bytes.data()), value) << name;
        EXPECT_EQ(of.plain.to_string(value), bytes.substr(0, sizeof(T))) << name;
    });
}

TEST(byte_order, bytes_are_read_at_any_address) {
    std::string const bytes = "\x12\x34\x56\x78\x9a\xbc\xde\x40"s;
    for_each_family([&]<class T>(char const* name, family<T> const& of) {
        for (std::size_t offset = 0; offset < 8; ++offset) {
            std::string const moved = std::string(offset, '\xee') + bytes;
            for (auto const& order : {of.plain, of.little, of.big}) {
                EXPECT_EQ(order.from_pointer(moved.data() + offset), order.from_pointer(bytes.data()))
                    << name;
            }
        }
    });
}

TEST(byte_order, reading_allocates_nothing) {
    std::string const bytes(100, '\x40');
    std::string const few(4, '\x40');
    for_each_family([&]<class T>(char const* name, family<T> const& of) {
        for (auto const& order : {of.plain, of.little, of.big}) {
            std::size_t const before = support::allocations;
            order.from_pointer(bytes.data());
            order.from_string(bytes);
            order.from_string(few);
            EXPECT_EQ(support::allocations, before) << name;
        }
    });
}

// ---- Strings that are too short ----

template <class T>
void expect_guard(functions<T> const& of, std::size_t guard) {
    std::string const bytes(16, '\x40');
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        std::string padded = bytes.substr(0, size);
        padded.resize(bytes.size());
        T const expected = size < guard ? T{0} : of.from_pointer(padded.data());
        EXPECT_EQ(of.from_string(bytes.substr(0, size)), expected) << size;
        EXPECT_EQ(expected == T{0}, size < guard) << size;
    }
}

// Only the plain functions for reals look at the size of the other type.
TEST(byte_order, strings_below_their_guard_read_as_0) {
    for_each_family([]<class T>(char const* name, family<T> const& of) {
        SCOPED_TRACE(name);
        expect_guard(of.plain, of.plain_guard);
        expect_guard(of.little, sizeof(T));
        expect_guard(of.big, sizeof(T));
    });
    EXPECT_EQ(little_endian::bin_str_to_uint16("\x05"s), 0);
    EXPECT_EQ(little_endian::bin_str_to_uint16("\x05\x01\x07"s), 0x0105);
}

TEST(byte_order, plain_float_wants_8_bytes_and_reads_4) {
    std::string const one = float_to_bin_str(1.0F);
    EXPECT_EQ(bin_str_to_float(one), 0.0F);
    EXPECT_EQ(bin_str_to_float(one + "abc"), 0.0F);
    EXPECT_EQ(bin_str_to_float(one + "abcd"), 1.0F);
    EXPECT_EQ(little_endian::bin_str_to_float(little_endian::float_to_bin_str(1.0F)), 1.0F);
}

TEST(byte_order, plain_double_wants_4_bytes_and_reads_zeros_for_the_others) {
    std::string const bytes = "\x11\x22\x33\x44\x55\x66\x77\x40"s;
    for (std::size_t size = 4; size <= 8; ++size) {
        std::string const padded = bytes.substr(0, size) + std::string(8 - size, '\0');
        // What was cut off still stands in the string's storage.
        std::string cut = bytes;
        cut.resize(size);
        EXPECT_EQ(bytes_in_memory(bin_str_to_double(cut)), padded) << size;
    }
    EXPECT_EQ(bin_str_to_double(bytes.substr(0, 3)), 0.0);
    EXPECT_EQ(little_endian::bin_str_to_double(bytes.substr(0, 7)), 0.0);
}

} // namespace
