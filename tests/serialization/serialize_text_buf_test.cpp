#include "veldrin/serialization/serialize_text_buf.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <locale>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using namespace VELDRIN_2_18;
using namespace std::string_literals;
using serialization::serialize_buffer;
using serialization::serialize_text_buf;

static_assert(std::is_base_of_v<serialize_buffer, serialize_text_buf>);

constexpr std::uint64_t parked = UINT64_MAX;

// Makes the cursor visible.
struct open_buffer : serialize_text_buf {
    using serialize_text_buf::m_read_pos;
    using serialize_text_buf::serialize_text_buf;
};

using form = serialize_text_buf;

// The bytes that are written, with "|" for each byte 01.
std::string text_of(void (*append)(form&)) {
    form buffer;
    append(buffer);
    std::string text = buffer.as_str();
    EXPECT_EQ(text.find('|'), std::string::npos);
    for (char& byte : text) {
        byte = byte == '\x01' ? '|' : byte;
    }
    return text;
}

// The other way round.
open_buffer buffer_of(std::string text) {
    for (char& byte : text) {
        byte = byte == '|' ? '\x01' : byte;
    }
    return open_buffer(text);
}

// ---- Writing ----

TEST(serialize_text_buf, writes_integers_as_decimal_fields) {
    EXPECT_EQ(text_of([](form& to) { to.append_int8(0); }), "0|");
    EXPECT_EQ(text_of([](form& to) { to.append_int8(-1); }), "-1|");
    EXPECT_EQ(text_of([](form& to) { to.append_int8('a'); }), "97|");
    EXPECT_EQ(text_of([](form& to) { to.append_int8(INT8_MIN); }), "-128|");
    EXPECT_EQ(text_of([](form& to) { to.append_int16(INT16_MIN); }), "-32768|");
    EXPECT_EQ(text_of([](form& to) { to.append_int32(INT32_MIN); }), "-2147483648|");
    EXPECT_EQ(text_of([](form& to) { to.append_int32(INT32_MAX); }), "2147483647|");
    EXPECT_EQ(text_of([](form& to) { to.append_int64(INT64_MIN); }), "-9223372036854775808|");
    EXPECT_EQ(text_of([](form& to) { to.append_int64(INT64_MAX); }), "9223372036854775807|");
    EXPECT_EQ(text_of([](form& to) { to.append_uint8(UINT8_MAX); }), "255|");
    EXPECT_EQ(text_of([](form& to) { to.append_uint16(UINT16_MAX); }), "65535|");
    EXPECT_EQ(text_of([](form& to) { to.append_uint32(UINT32_MAX); }), "4294967295|");
    EXPECT_EQ(text_of([](form& to) { to.append_uint64(UINT64_MAX); }), "18446744073709551615|");
}

TEST(serialize_text_buf, writes_strings_behind_their_length) {
    EXPECT_EQ(text_of([](form& to) { to.append_string("ab"); }), "2|ab|");
    EXPECT_EQ(text_of([](form& to) { to.append_string(""); }), "0||");
    EXPECT_EQ(text_of([](form& to) { to.append_string("\x01"); }), "1|||");
    EXPECT_EQ(text_of([](form& to) { to.append_string("a,\r\n\0 b"s); }), "7|a,\r\n\0 b|"s);
    EXPECT_EQ(text_of([](form& to) { to.append_string(std::string(1000, 'x')); }),
              "1000|" + std::string(1000, 'x') + "|");
    EXPECT_EQ(text_of([](form& to) { to.append_buffer(form("12\x01"s)); }), "3|12||");
}

TEST(serialize_text_buf, writes_values_one_after_the_other) {
    EXPECT_EQ(text_of([](form& to) {
                  to.append_int32(-5);
                  to.append_string("ab");
                  to.append_double(0.5, 6);
              }),
              "-5|2|ab|0.5|");
}

struct real_case {
    double value;
    std::uint32_t precision;
    char const* text;
};

TEST(serialize_text_buf, writes_reals_as_a_stream_of_that_precision_does) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr real_case cases[] = {
        {0, 6, "0|"},
        {-0.0, 6, "-0|"},
        {1, 6, "1|"},
        {0.5, 6, "0.5|"},
        {-2.25, 6, "-2.25|"},
        {1.0 / 3, 3, "0.333|"},
        {2.0 / 3, 1, "0.7|"},
        {1.0 / 3, 17, "0.33333333333333331|"},
        {0.1, 17, "0.10000000000000001|"},
        {123456, 6, "123456|"},
        {1234567, 6, "1.23457e+06|"},
        {1234567, 7, "1234567|"},
        {0.0001, 6, "0.0001|"},
        {0.00001, 6, "1e-05|"},
        {1e300, 6, "1e+300|"},
        // A precision of 0 counts as 1.
        {1234.5, 0, "1e+03|"},
        {1234.5, 1, "1e+03|"},
        // No value has more digits than it has.
        {0.1, 767, "0.1000000000000000055511151231257827021181583404541015625|"},
        {0.1, 768, "0.1000000000000000055511151231257827021181583404541015625|"},
        {0.1, INT32_MAX, "0.1000000000000000055511151231257827021181583404541015625|"},
        {0.1, UINT32_MAX, "0.1000000000000000055511151231257827021181583404541015625|"},
        {infinity, 6, "inf|"},
        {-infinity, 6, "-inf|"},
    };
    for (auto const& [value, precision, text] : cases) {
        form buffer;
        buffer.append_double(value, precision);
        EXPECT_EQ(buffer.as_str(), buffer_of(text).as_str());
    }
    EXPECT_EQ(text_of([](form& to) { to.append_double(std::nan(""), 6); }), "nan|");
    EXPECT_EQ(text_of([](form& to) { to.append_float(1.0F, 6); }), "1|");
    EXPECT_EQ(text_of([](form& to) { to.append_float(0.1F, 6); }), "0.1|");
    EXPECT_EQ(text_of([](form& to) { to.append_float(0.1F, 9); }), "0.100000001|");
    EXPECT_EQ(text_of([](form& to) { to.append_float(1.0F / 3, 3); }), "0.333|");
    EXPECT_EQ(text_of([](form& to) { to.append_float(1e-10F, 6); }), "1e-10|");
}

// The longest texts there are: all digits of the values with the most of them.
TEST(serialize_text_buf, writes_every_digit_of_a_real) {
    for (double const value :
         {-std::nextafter(std::numeric_limits<double>::min(), 0.0), 0x1.fffffffffffffp-4,
          -std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
        char expected[2048];
        std::snprintf(expected, sizeof expected, "%.1500g\x01", value);
        form buffer;
        buffer.append_double(value, 1500);
        EXPECT_EQ(buffer.as_str(), expected);
        EXPECT_EQ(buffer.read_double(), value);
    }
}

// Restores the global locale.
class global_locale {
public:
    explicit global_locale(std::locale const& locale) : m_previous(std::locale::global(locale)) {}
    global_locale(global_locale const&) = delete;
    global_locale& operator=(global_locale const&) = delete;
    ~global_locale() { std::locale::global(m_previous); }

private:
    std::locale m_previous;
};

class comma_and_points : public std::numpunct<char> {
public:
    explicit comma_and_points(std::string groups) : m_groups(std::move(groups)) {}

protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return m_groups; }

private:
    std::string m_groups;
};

TEST(serialize_text_buf, writes_and_reads_reals_by_the_global_locale) {
    global_locale const locale(std::locale(std::locale::classic(), new comma_and_points("\3")));
    form buffer;
    buffer.append_double(1234567.25, 10);
    buffer.append_float(-0.5F, 6);
    buffer.append_int32(1234567);
    buffer.append_string(std::string(1234, 'x'));
    EXPECT_EQ(buffer.as_str().substr(0, 40), "1.234.567,25\x01-0,5\x01"
                                             "1234567\x01"
                                             "1234\x01xxxxxxxxx"s);
    EXPECT_EQ(buffer.read_double(), 1234567.25);
    EXPECT_EQ(buffer.read_float(), -0.5F);
    EXPECT_EQ(buffer.read_int32(), 1234567);
    EXPECT_EQ(buffer.read_string(), std::string(1234, 'x'));
}

TEST(serialize_text_buf, has_room_for_a_group_of_each_digit) {
    global_locale const locale(std::locale(std::locale::classic(), new comma_and_points("\1")));
    form buffer;
    buffer.append_double(-std::numeric_limits<double>::max(), 1000);
    EXPECT_EQ(buffer.as_str().size(), 1 + 309 + 308 + 1U);
    EXPECT_EQ(buffer.as_str().substr(0, 8), "-1.7.9.7");
    EXPECT_EQ(buffer.read_double(), -std::numeric_limits<double>::max());
}

// ---- Reading numbers ----

struct integer_case {
    char const* text;
    int int8;
    int int16;
    std::int32_t int32;
    std::int64_t int64;
    unsigned uint8;
    unsigned uint16;
    std::uint32_t uint32;
    std::uint64_t uint64;
};

constexpr integer_case integer_cases[] = {
    {"5", 5, 5, 5, 5, 5, 5, 5, 5},
    {"-5", -5, -5, -5, -5, 0, 0, 0, 0},
    {"", 0, 0, 0, 0, 0, 0, 0, 0},
    {"abc", 0, 0, 0, 0, 0, 0, 0, 0},
    {"-", 0, 0, 0, 0, 0, 0, 0, 0},
    {" ", 0, 0, 0, 0, 0, 0, 0, 0},
    {" \n+7up", 7, 7, 7, 7, 7, 7, 7, 7},
    {"0.5", 0, 0, 0, 0, 0, 0, 0, 0},
    // The radix is told by the text.
    {"0x1F", 31, 31, 31, 31, 31, 31, 31, 31},
    {"0b101", 5, 5, 5, 5, 5, 5, 5, 5},
    {"010", 8, 8, 8, 8, 8, 8, 8, 8},
    // Out of range gives the nearest bound.
    {"300", 127, 300, 300, 300, 255, 300, 300, 300},
    {"-300", -128, -300, -300, -300, 0, 0, 0, 0},
    {"70000", 127, 32767, 70000, 70000, 255, 65535, 70000, 70000},
    {"5000000000", 127, 32767, INT32_MAX, 5000000000, 255, 65535, UINT32_MAX, 5000000000},
    {"-5000000000", -128, -32768, INT32_MIN, -5000000000, 0, 0, 0, 0},
    {"18446744073709551615", 127, 32767, INT32_MAX, INT64_MAX, 255, 65535, UINT32_MAX, UINT64_MAX},
    {"99999999999999999999", 127, 32767, INT32_MAX, INT64_MAX, 255, 65535, UINT32_MAX, UINT64_MAX},
    {"-99999999999999999999", -128, -32768, INT32_MIN, INT64_MIN, 0, 0, 0, 0},
};

// The field stands in front of another one and, without its 01, at the end.
template <class T, class Expected>
void expect_integer(std::string const& text, T (serialize_buffer::*read)() const, Expected expected) {
    open_buffer const in_front = buffer_of(text + "|9|");
    EXPECT_EQ((in_front.*read)(), static_cast<T>(expected)) << text;
    EXPECT_EQ(in_front.m_read_pos, text.size() + 1) << text;
    EXPECT_EQ((in_front.*read)(), static_cast<T>(9)) << text;

    open_buffer const last = buffer_of("1|" + text);
    last.read_int32();
    EXPECT_EQ((last.*read)(), static_cast<T>(expected)) << text;
    EXPECT_EQ(last.m_read_pos, parked) << text;
}

TEST(serialize_text_buf, reads_integers_as_the_parsers_do) {
    for (integer_case const& each : integer_cases) {
        expect_integer(each.text, &serialize_buffer::read_int8, each.int8);
        expect_integer(each.text, &serialize_buffer::read_int16, each.int16);
        expect_integer(each.text, &serialize_buffer::read_int32, each.int32);
        expect_integer(each.text, &serialize_buffer::read_int64, each.int64);
        expect_integer(each.text, &serialize_buffer::read_uint8, each.uint8);
        expect_integer(each.text, &serialize_buffer::read_uint16, each.uint16);
        expect_integer(each.text, &serialize_buffer::read_uint32, each.uint32);
        expect_integer(each.text, &serialize_buffer::read_uint64, each.uint64);
    }
}

TEST(serialize_text_buf, reads_reals_as_the_parsers_do) {
    open_buffer const buffer = buffer_of("0.333|-1e3|abc||1e999|1e39|1e39|12xyz|7|inf|0.25");
    EXPECT_EQ(buffer.read_double(), 0.333);
    EXPECT_EQ(buffer.read_float(), -1000.0F);
    EXPECT_EQ(buffer.read_double(), 0.0);
    EXPECT_EQ(buffer.read_float(), 0.0F);
    EXPECT_EQ(buffer.read_double(), 0.0);
    EXPECT_EQ(buffer.read_float(), 0.0F);
    EXPECT_EQ(buffer.read_double(), 1e39);
    EXPECT_EQ(buffer.read_float(), 12.0F);
    EXPECT_EQ(buffer.read_double(), 7.0);
    EXPECT_EQ(buffer.read_double(), 0.0);
    EXPECT_EQ(buffer.read_float(), 0.25F);
    EXPECT_EQ(buffer.m_read_pos, parked);
}

TEST(serialize_text_buf, keeps_a_real_to_its_precision) {
    form buffer;
    buffer.append_double(1.0 / 3, 3);
    buffer.append_float(2.0F / 3, 3);
    buffer.append_double(std::nan(""), 6);
    buffer.append_double(-std::numeric_limits<double>::infinity(), 6);
    EXPECT_EQ(buffer.read_double(), 0.333);
    EXPECT_EQ(buffer.read_float(), 0.667F);
    EXPECT_EQ(buffer.read_double(), 0.0);
    EXPECT_EQ(buffer.read_double(), 0.0);
    EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_text_buf, reads_zero_for_a_real_that_was_rounded_beyond_the_greatest) {
    open_buffer buffer;
    buffer.append_double(std::numeric_limits<double>::max(), 3);
    buffer.append_float(-std::numeric_limits<float>::max(), 1);
    buffer.append_float(-std::numeric_limits<float>::max(), 2);
    EXPECT_EQ(buffer.as_str(), buffer_of("1.8e+308|-3e+38|-3.4e+38|").as_str());
    EXPECT_EQ(buffer.read_double(), 0.0);
    EXPECT_EQ(buffer.read_float(), -3e38F);
    EXPECT_EQ(buffer.read_double(), -3.4e38);
}

TEST(serialize_text_buf, reads_a_number_as_another_type) {
    form buffer;
    buffer.append_int8(-7);
    buffer.append_uint64(200);
    buffer.append_double(2.5, 6);
    buffer.append_int32(3);
    EXPECT_EQ(buffer.read_int64(), -7);
    EXPECT_EQ(buffer.read_uint8(), 200);
    EXPECT_EQ(buffer.read_int16(), 2);
    EXPECT_EQ(buffer.read_double(), 3.0);
    EXPECT_TRUE(buffer.at_end());
}

TEST(serialize_text_buf, loses_the_framing_when_a_string_is_read_as_a_number) {
    open_buffer const buffer = buffer_of("2|ab|5|");
    EXPECT_EQ(buffer.read_int32(), 2);
    EXPECT_EQ(buffer.read_int32(), 0);
    EXPECT_EQ(buffer.read_int32(), 5);
}

// ---- The cursor at the end ----

template <class Check>
void for_each_number_read(Check check) {
    check("int8", [](form const& from) { return from.read_int8() == 0; });
    check("int16", [](form const& from) { return from.read_int16() == 0; });
    check("int32", [](form const& from) { return from.read_int32() == 0; });
    check("int64", [](form const& from) { return from.read_int64() == 0; });
    check("uint8", [](form const& from) { return from.read_uint8() == 0; });
    check("uint16", [](form const& from) { return from.read_uint16() == 0; });
    check("uint32", [](form const& from) { return from.read_uint32() == 0; });
    check("uint64", [](form const& from) { return from.read_uint64() == 0; });
    check("float", [](form const& from) { return from.read_float() == 0.0F; });
    check("double", [](form const& from) { return from.read_double() == 0.0; });
}

std::string nested_bytes(form const& buffer) {
    std::unique_ptr<serialize_buffer const> const nested(buffer.read_buffer());
    EXPECT_NE(dynamic_cast<serialize_text_buf const*>(nested.get()), nullptr);
    return nested->as_str();
}

TEST(serialize_text_buf, parks_the_cursor_when_a_number_is_read_at_the_end) {
    for_each_number_read([](char const* name, auto reads_zero) {
        SCOPED_TRACE(name);
        open_buffer buffer = buffer_of("7|");
        EXPECT_EQ(buffer.read_int32(), 7);
        EXPECT_EQ(buffer.m_read_pos, 2U);
        EXPECT_TRUE(buffer.at_end());
        EXPECT_TRUE(reads_zero(buffer));
        EXPECT_EQ(buffer.m_read_pos, parked);

        // For good: not even new values are read.
        buffer.append_int32(8);
        EXPECT_TRUE(buffer.at_end());
        EXPECT_TRUE(reads_zero(buffer));
        EXPECT_EQ(buffer.read_string(), "");
        EXPECT_EQ(nested_bytes(buffer), "");
        EXPECT_EQ(buffer.m_read_pos, parked);
        buffer.reset_read();
        EXPECT_FALSE(buffer.at_end());
        EXPECT_EQ(buffer.read_int32(), 7);
        EXPECT_EQ(buffer.read_int32(), 8);
    });
}

TEST(serialize_text_buf, parks_the_cursor_when_a_number_is_read_behind_the_end) {
    for_each_number_read([](char const* name, auto reads_zero) {
        open_buffer const buffer = buffer_of("5|ab");
        EXPECT_EQ(buffer.read_string(), "ab") << name;
        EXPECT_EQ(buffer.m_read_pos, 8U) << name;
        EXPECT_TRUE(reads_zero(buffer)) << name;
        EXPECT_EQ(buffer.m_read_pos, parked) << name;
    });
}

TEST(serialize_text_buf, stays_at_the_end_without_data) {
    open_buffer const buffer;
    EXPECT_EQ(buffer.read_int32(), 0);
    EXPECT_TRUE(buffer.at_end());
    EXPECT_EQ(buffer.read_int32(), 0);
    EXPECT_TRUE(buffer.at_end());
    EXPECT_EQ(buffer.m_read_pos, parked);
    buffer.reset_read();
    EXPECT_EQ(buffer.m_read_pos, 0U);
}

TEST(serialize_text_buf, rewinds_when_a_string_is_read_at_the_end) {
    open_buffer const buffer = buffer_of("7|");
    EXPECT_EQ(buffer.read_int32(), 7);
    EXPECT_TRUE(buffer.at_end());
    EXPECT_EQ(buffer.read_string(), "");
    EXPECT_FALSE(buffer.at_end());
    EXPECT_EQ(buffer.read_int32(), 7);
    EXPECT_EQ(nested_bytes(buffer), "");
    EXPECT_EQ(buffer.m_read_pos, 0U);
    EXPECT_EQ(buffer.read_int32(), 7);
}

TEST(serialize_text_buf, rewinds_when_a_string_is_read_behind_the_end) {
    open_buffer const buffer = buffer_of("5|ab");
    EXPECT_EQ(buffer.read_string(), "ab");
    EXPECT_EQ(buffer.read_string(), "");
    EXPECT_EQ(buffer.m_read_pos, 0U);
    EXPECT_EQ(nested_bytes(buffer), "ab");
    EXPECT_EQ(nested_bytes(buffer), "");
    EXPECT_EQ(buffer.m_read_pos, 0U);
}

// ---- Strings and nested buffers ----

struct frame_case {
    char const* text;
    char const* content;
    std::uint64_t position_behind;
};

constexpr frame_case frame_cases[] = {
    {"2|ab|", "ab", 5},
    {"2|ab|7|", "ab", 5},
    {"3|a|b|7|", "a|b", 6},
    {"1|||", "|", 4},
    {"0||", "", 3},
    {"0||7|", "", 3},
    // The separator behind the bytes is stepped over, whatever stands there.
    {"2|abc", "ab", 5},
    {"2|ab", "ab", 5},
    {"0|x|", "", 3},
    {"0|", "", 3},
    // As many bytes as there are.
    {"5|ab", "ab", 8},
    {"5|", "", 8},
    {"2147483647|ab", "ab", 11 + 2147483647LL + 1},
    // A length is parsed as a number.
    {"0x2|ab|", "ab", 7},
    {"|ab|", "", 2},
    {"xyz|ab|", "", 5},
    {"9999999999|ab", "ab", 11 + 2147483647LL + 1},
    // A last field that is 0 has parked the cursor, one more is the front.
    {"", "", 0},
    {"0", "", 0},
    {"xyz", "", 0},
    // A negative length: all bytes that are left, and the cursor goes back.
    {"-1|ab|", "ab|", 3},
    {"-2|ab|", "ab|", 2},
    {"-4|ab|", "ab|", 0},
    {"-5|ab|", "ab|", parked},
    {"-6|ab|", "ab|", parked - 1},
    {"-1|", "", 3},
    {"-2147483648|ab|", "ab|", 12 - 2147483648ULL + 1},
    {"-9999999999|ab|", "ab|", 12 - 2147483648ULL + 1},
};

TEST(serialize_text_buf, reads_strings_by_their_length) {
    for (auto const& [text, content, position_behind] : frame_cases) {
        open_buffer const buffer = buffer_of(text);
        EXPECT_EQ(buffer.read_string(), buffer_of(content).as_str()) << text;
        EXPECT_EQ(buffer.m_read_pos, position_behind) << text;
    }
}

TEST(serialize_text_buf, reads_nested_buffers_by_their_length) {
    for (auto const& [text, content, position_behind] : frame_cases) {
        open_buffer const buffer = buffer_of(text);
        EXPECT_EQ(nested_bytes(buffer), buffer_of(content).as_str()) << text;
        EXPECT_EQ(buffer.m_read_pos, position_behind) << text;
    }
}

TEST(serialize_text_buf, reads_a_nested_buffer_from_its_front) {
    form inner;
    inner.append_int32(1);
    inner.read_int32();
    form buffer;
    buffer.append_buffer(inner);
    std::unique_ptr<serialize_buffer const> const nested(buffer.read_buffer());
    EXPECT_EQ(nested->read_int32(), 1);
    EXPECT_TRUE(nested->at_end());
}

struct out_of_range_case {
    char const* text;
    std::uint64_t position_behind;
};

// What stands in front is read as a string first.
TEST(serialize_text_buf, throws_for_a_length_without_a_separator) {
    constexpr out_of_range_case cases[] = {
        {"3", 3}, {"1|a|3", 3}, {"1", 1}, {"2147483647", 2147483647}, {"-1", parked}, {"-2", parked - 1},
    };
    for (auto const& [text, position_behind] : cases) {
        auto const expect = [&, text = text, position = position_behind](auto read) {
            open_buffer const buffer = buffer_of(text);
            if (buffer.as_str().size() > 4 && buffer.as_str()[1] == '\x01') {
                EXPECT_EQ(buffer.read_string(), "a");
            }
            try {
                read(buffer);
                ADD_FAILURE() << text;
            } catch (std::out_of_range const& failure) {
                EXPECT_STREQ(failure.what(), "invalid string position");
            }
            EXPECT_EQ(buffer.m_read_pos, position) << text;
        };
        expect([](form const& buffer) { buffer.read_string(); });
        expect([](form const& buffer) { delete buffer.read_buffer(); });
    }
}

struct buffer_with_own_length : open_buffer {
    using open_buffer::open_buffer;

    std::int32_t read_int32() const override {
        open_buffer::read_int32();
        return 1;
    }
};

TEST(serialize_text_buf, reads_a_length_by_the_virtual_operation) {
    buffer_with_own_length const buffer("3\x01xyz\x01"s);
    EXPECT_EQ(buffer.read_string(), "x");
    EXPECT_EQ(buffer.m_read_pos, 4U);
}

} // namespace
