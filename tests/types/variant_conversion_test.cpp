// Every kind of value crossed with every conversion, and the rules behind the table one by one.

#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/types/variant.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using support::text_of;
using support::utf16;
using support::utf32;
using support::utf8;
using types::variant;

// One value in the five kinds of text.
std::vector<variant> in_every_text_kind(std::string_view ascii) {
    return {text_of<std::string>(ascii), text_of<wide_string>(ascii), text_of<ustring8>(ascii),
            text_of<ustring16>(ascii), text_of<ustring32>(ascii)};
}

std::string kind_of(variant const& value) { return value.type().name(); }

// ---- The table -----------------------------------------------------------------------------------------

struct row {
    variant value;
    int int8;
    int int16;
    std::int32_t int32;
    std::int64_t int64;
    unsigned int uint8;
    unsigned int uint16;
    std::uint32_t uint32;
    std::uint64_t uint64;
    bool boolean;
    float float_value;
    double double_value;
    long double long_double_value;
    char const* text;
    char const* streamed;
};

template <class T>
variant of(T value) {
    return value;
}

void expect_conversions(row const& expected) {
    SCOPED_TRACE(kind_of(expected.value) + " " + expected.text);
    variant const& value = expected.value;

    EXPECT_EQ(value.as_int8(), expected.int8);
    EXPECT_EQ(value.as_short(), expected.int16);
    EXPECT_EQ(value.as_int16(), expected.int16);
    EXPECT_EQ(value.as_int(), expected.int32);
    EXPECT_EQ(value.as_signed(), expected.int32);
    EXPECT_EQ(value.as_long(), expected.int32);
    EXPECT_EQ(value.as_int32(), expected.int32);
    EXPECT_EQ(value.as_int64(), expected.int64);
    EXPECT_EQ(value.as_uint8(), expected.uint8);
    EXPECT_EQ(value.as_uint16(), expected.uint16);
    EXPECT_EQ(value.as_uint32(), expected.uint32);
    EXPECT_EQ(value.as_uint64(), expected.uint64);
    EXPECT_EQ(value.as_ushort(), static_cast<unsigned short>(expected.int16));
    EXPECT_EQ(value.as_unsigned(), static_cast<unsigned int>(expected.int32));
    EXPECT_EQ(value.as_uint(), static_cast<unsigned int>(expected.int32));
    EXPECT_EQ(value.as_ulong(), static_cast<std::uint32_t>(expected.int32));
    EXPECT_EQ(value.as_bool(), expected.boolean);
    EXPECT_EQ(value.as_float(), expected.float_value);
    EXPECT_EQ(value.as_double(), expected.double_value);
    EXPECT_EQ(value.as_long_double(), expected.long_double_value);

    EXPECT_EQ(value.as_string(), expected.text);
    EXPECT_EQ(value.as_utf8(), expected.text);
    EXPECT_EQ(value.as_wstring(), text_of<wide_string>(expected.text));
    EXPECT_EQ(value.as_ustring(), text_of<wide_string>(expected.text));
    EXPECT_EQ(value.as_utf16(), text_of<ustring16>(expected.text));
    EXPECT_EQ(value.as_utf32(), text_of<ustring32>(expected.text));

    if (value.type() != typeid(wide_string)) {
        std::ostringstream stream;
        stream << value;
        EXPECT_EQ(stream.str(), expected.streamed);
    }
}

TEST(variant_conversion, integers_bool_and_nil_to_everything) {
    constexpr std::uint64_t minus_5 = 18446744073709551611U;
    // Worked out at run time: not every machine has 64 bits of precision.
    std::uint64_t const volatile greatest = 18446744073709551615U;
    auto const greatest_as_long_double = static_cast<long double>(greatest);
    // value, int8, int16, int32, int64, uint8, uint16, uint32, uint64, bool, float, double, long double,
    // text, stream
    std::vector<row> const rows = {
        // clang-format off
        {types::nil, 0, 0, 0, 0, 0, 0, 0, 0, false, 0, 0, 0, "", "0"},
        {true, 1, 1, 1, 1, 1, 1, 1, 1, true, 1, 1, 1, "1", "1"},
        {false, 0, 0, 0, 0, 0, 0, 0, 0, false, 0, 0, 0, "0", "0"},
        {of<signed char>(65), 65, 65, 65, 65, 65, 65, 65, 65, true, 65, 65, 65, "65", "A"},
        {of<signed char>(-5), -5, -5, -5, -5, 251, 65531, 4294967291, minus_5, true, -5, -5, -5, "-5", "\xFB"},
        {of<signed char>(-128), -128, -128, -128, -128, 128, 65408, 4294967168, 18446744073709551488U, true,
         -128, -128, -128, "-128", "\x80"},
        {of<unsigned char>(200), -56, 200, 200, 200, 200, 200, 200, 200, true, 200, 200, 200, "200", "\xC8"},
        {of<short>(-300), -44, -300, -300, -300, 212, 65236, 4294966996, 18446744073709551316U, true,
         -300, -300, -300, "-300", "-300"},
        {of<short>(32767), -1, 32767, 32767, 32767, 255, 32767, 32767, 32767, true, 32767, 32767, 32767,
         "32767", "32767"},
        {of<unsigned short>(65535), -1, -1, 65535, 65535, 255, 65535, 65535, 65535, true, 65535, 65535, 65535,
         "65535", "65535"},
        {of<int>(0), 0, 0, 0, 0, 0, 0, 0, 0, false, 0, 0, 0, "0", "0"},
        {of<int>(-5), -5, -5, -5, -5, 251, 65531, 4294967291, minus_5, true, -5, -5, -5, "-5", "-5"},
        {of<int>(0x12345678), 120, 22136, 305419896, 305419896, 120, 22136, 305419896, 305419896, true,
         305419904.0F, 305419896, 305419896, "305419896", "305419896"},
        {of<int>(std::numeric_limits<int>::min()), 0, 0, std::numeric_limits<int>::min(), -2147483648LL, 0, 0,
         2147483648U, 18446744071562067968U, true, -2147483648.0F, -2147483648.0, -2147483648.0L,
         "-2147483648", "-2147483648"},
        {of<unsigned int>(4294967295), -1, -1, -1, 4294967295, 255, 65535, 4294967295, 4294967295, true,
         4294967296.0F, 4294967295.0, 4294967295.0L, "4294967295", "4294967295"},
        {of<long>(-7), -7, -7, -7, -7, 249, 65529, 4294967289, 18446744073709551609U, true, -7, -7, -7,
         "-7", "-7"},
        {of<unsigned long>(70000), 112, 4464, 70000, 70000, 112, 4464, 70000, 70000, true, 70000, 70000, 70000,
         "70000", "70000"},
        {of<long long>(-5000000000), 0, 3584, -705032704, -5000000000, 0, 3584, 3589934592, 18446744068709551616U,
         true, -5000000000.0F, -5000000000.0, -5000000000.0L, "-5000000000", "-5000000000"},
        {of<long long>(std::numeric_limits<long long>::min()), 0, 0, 0, std::numeric_limits<std::int64_t>::min(),
         0, 0, 0, 9223372036854775808U, true, -9223372036854775808.0F, -9223372036854775808.0,
         -9223372036854775808.0L, "-9223372036854775808", "-9223372036854775808"},
        {of<unsigned long long>(18446744073709549568U), 0, -2048, -2048, -2048, 0, 63488, 4294965248,
         18446744073709549568U, true, 18446744073709551616.0F, 18446744073709549568.0, 18446744073709549568.0L,
         "18446744073709549568", "18446744073709549568"},
        {of<unsigned long long>(18446744073709551615U), -1, -1, -1, -1, 255, 65535, 4294967295,
         18446744073709551615U, true, 18446744073709551616.0F, 18446744073709551616.0,
         greatest_as_long_double, "18446744073709551615", "18446744073709551615"},
        // clang-format on
    };
    for (row const& expected : rows) {
        expect_conversions(expected);
    }
}

TEST(variant_conversion, floating_values_to_everything) {
    // value, int8, int16, int32, int64, uint8, uint16, uint32, uint64, bool, float, double, long double,
    // text, stream
    std::vector<row> const rows = {
        // clang-format off
        {0.0, 0, 0, 0, 0, 0, 0, 0, 0, false, 0, 0, 0, "0", "0"},
        {-0.0, 0, 0, 0, 0, 0, 0, 0, 0, false, 0, 0, 0, "-0", "-0"},
        {0.5F, 0, 0, 0, 0, 0, 0, 0, 0, true, 0.5F, 0.5, 0.5L, "0.5", "0.5"},
        {2.75F, 2, 2, 2, 2, 2, 2, 2, 2, true, 2.75F, 2.75, 2.75L, "2.75", "2.75"},
        {3.9, 3, 3, 3, 3, 3, 3, 3, 3, true, 3.9F, 3.9, 3.9, "3.9", "3.9"},
        {-3.9, -3, -3, -3, -3, 253, 65533, 4294967293, 18446744073709551613U, true, -3.9F, -3.9, -3.9,
         "-3.9", "-3.9"},
        {3.9F, 3, 3, 3, 3, 3, 3, 3, 3, true, 3.9F, static_cast<double>(3.9F), static_cast<long double>(3.9F),
         "3.9", "3.9"},
        {-2.5L, -2, -2, -2, -2, 254, 65534, 4294967294, 18446744073709551614U, true, -2.5F, -2.5, -2.5L,
         "-2.5", "-2.5"},
        {100.0, 100, 100, 100, 100, 100, 100, 100, 100, true, 100, 100, 100, "100", "100"},
        {100000.0L, -96, -31072, 100000, 100000, 160, 34464, 100000, 100000, true, 100000, 100000, 100000,
         "100000", "100000"},
        {1e10, 0, -7168, 1410065408, 10000000000, 0, 58368, 1410065408, 10000000000U, true, 1e10F, 1e10, 1e10L,
         "1e+10", "1e+10"},
        {1234567.0, -121, -10617, 1234567, 1234567, 135, 54919, 1234567, 1234567, true, 1234567, 1234567, 1234567,
         "1.23457e+06", "1.23457e+06"},
        {1.0 / 3, 0, 0, 0, 0, 0, 0, 0, 0, true, static_cast<float>(1.0 / 3), 1.0 / 3, 1.0 / 3,
         "0.333333", "0.333333"},
        // clang-format on
    };
    for (row const& expected : rows) {
        expect_conversions(expected);
    }
}

struct text_row {
    char const* text;
    int int8;
    int int16;
    std::int32_t int32;
    std::int64_t int64;
    unsigned int uint8;
    unsigned int uint16;
    std::uint32_t uint32;
    std::uint64_t uint64;
    bool boolean;
    double real;
};

TEST(variant_conversion, every_kind_of_text_to_everything) {
    // text, int8, int16, int32, int64, uint8, uint16, uint32, uint64, bool, all three floating results
    std::vector<text_row> const rows = {
        // clang-format off
        {"", 0, 0, 0, 0, 0, 0, 0, 0, false, 0},
        {"no number", 0, 0, 0, 0, 0, 0, 0, 0, false, 0},
        {"0", 0, 0, 0, 0, 0, 0, 0, 0, false, 0},
        {" +12 eggs", 12, 12, 12, 12, 12, 12, 12, 12, true, 12},
        {"-5", -5, -5, -5, -5, 0, 0, 0, 0, true, -5},
        {"16.75 miles", 16, 16, 16, 16, 16, 16, 16, 16, true, 16.75},
        {"0.5", 0, 0, 0, 0, 0, 0, 0, 0, false, 0.5},
        {"300", 127, 300, 300, 300, 255, 300, 300, 300, true, 300},
        {"-300", -128, -300, -300, -300, 0, 0, 0, 0, true, -300},
        {"70000", 127, 32767, 70000, 70000, 255, 65535, 70000, 70000, true, 70000},
        {"4294967295", 127, 32767, 2147483647, 4294967295, 255, 65535, 4294967295, 4294967295, true, 4294967295.0},
        {"-99999999999999999999", -128, -32768, std::numeric_limits<std::int32_t>::min(),
         std::numeric_limits<std::int64_t>::min(), 0, 0, 0, 0, true, -1e20},
        {"99999999999999999999", 127, 32767, 2147483647, 9223372036854775807, 255, 65535, 4294967295,
         18446744073709551615U, true, 1e20},
        // clang-format on
    };
    for (text_row const& expected : rows) {
        for (variant const& value : in_every_text_kind(expected.text)) {
            expect_conversions({value, expected.int8, expected.int16, expected.int32, expected.int64,
                                expected.uint8, expected.uint16, expected.uint32, expected.uint64,
                                expected.boolean, static_cast<float>(expected.real), expected.real,
                                expected.real, expected.text, expected.text});
        }
    }
}

// ---- Integers ------------------------------------------------------------------------------------------

TEST(variant_conversion, long_is_kept_whole) {
    constexpr long smallest = std::numeric_limits<long>::min();
    constexpr unsigned long greatest = std::numeric_limits<unsigned long>::max();
    EXPECT_EQ(variant(smallest).as_int64(), smallest);
    EXPECT_EQ(variant(smallest).as_string(), std::to_string(smallest));
    EXPECT_EQ(variant(smallest).as_utf16(), text_of<ustring16>(std::to_string(smallest)));
    EXPECT_EQ(variant(greatest).as_uint64(), greatest);
    EXPECT_EQ(variant(greatest).as_string(), std::to_string(greatest));
    EXPECT_EQ(variant(greatest).as_utf32(), text_of<ustring32>(std::to_string(greatest)));
}

TEST(variant_conversion, results_have_the_listed_types) {
    variant const value;
    EXPECT_TRUE((std::is_same_v<decltype(value.as_int()), int>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_signed()), int>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_unsigned()), unsigned int>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_uint()), unsigned int>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_short()), short>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_ushort()), unsigned short>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_long()), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_ulong()), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_int8()), signed char>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_int16()), short>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_int32()), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_int64()), std::int64_t>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_uint8()), unsigned char>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_uint16()), unsigned short>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_uint32()), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_uint64()), std::uint64_t>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_string()), ustring8>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_wstring()), wide_string>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_ustring()), wide_string>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_utf8()), ustring8>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_utf16()), ustring16>));
    EXPECT_TRUE((std::is_same_v<decltype(value.as_utf32()), ustring32>));
}

// ---- Floating values to integers -----------------------------------------------------------------------

struct cast_row {
    long double value;
    std::int64_t int64;
    std::uint64_t uint64;
    std::int32_t int32;
    std::uint32_t uint32;
    int int16;
    unsigned int uint8;
};

TEST(variant_conversion, a_floating_value_goes_through_64_bits_and_keeps_the_low_bits) {
    constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
    constexpr long double infinity = std::numeric_limits<long double>::infinity();
    std::vector<cast_row> const rows = {
        // clang-format off
        {255.9L, 255, 255, 255, 255, 255, 255},
        {256.0L, 256, 256, 256, 256, 256, 0},
        {-1.0L, -1, 18446744073709551615U, -1, 4294967295, -1, 255},
        {-0.9L, 0, 0, 0, 0, 0, 0},
        {3000000000.0L, 3000000000, 3000000000, -1294967296, 3000000000, 24064, 0},
        {4294967303.0L, 4294967303, 4294967303, 7, 7, 7, 7},
        {9223372036854774784.0L, 9223372036854774784, 9223372036854774784, -1024, 4294966272, -1024, 0},
        {-9223372036854775808.0L, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {9223372036854775808.0L, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {18446744073709549568.0L, smallest, 18446744073709549568U, 0, 0, 0, 0},
        {18446744073709551616.0L, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {-9223372036854777856.0L, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {1e30L, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {infinity, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {-infinity, smallest, 9223372036854775808U, 0, 0, 0, 0},
        {std::numeric_limits<long double>::quiet_NaN(), smallest, 9223372036854775808U, 0, 0, 0, 0},
        // clang-format on
    };
    for (cast_row const& expected : rows) {
        for (variant const& value : {variant(expected.value), variant(static_cast<double>(expected.value))}) {
            SCOPED_TRACE(kind_of(value) + " " + value.as_string());
            EXPECT_EQ(value.as_int64(), expected.int64);
            EXPECT_EQ(value.as_uint64(), expected.uint64);
            EXPECT_EQ(value.as_int32(), expected.int32);
            EXPECT_EQ(value.as_int(), expected.int32);
            EXPECT_EQ(value.as_long(), expected.int32);
            EXPECT_EQ(value.as_uint32(), expected.uint32);
            EXPECT_EQ(value.as_unsigned(), expected.uint32);
            EXPECT_EQ(value.as_int16(), expected.int16);
            EXPECT_EQ(value.as_uint8(), expected.uint8);
        }
    }
    EXPECT_EQ(variant(1e30F).as_int64(), smallest);
    EXPECT_EQ(variant(9223371487098961920.0F).as_int64(), 9223371487098961920);
    EXPECT_EQ(variant(9223373136366403584.0F).as_uint64(), 9223373136366403584U);
}

TEST(variant_conversion, a_nan_is_true_and_stays_a_nan) {
    variant const value(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(value.as_bool());
    EXPECT_TRUE(std::isnan(value.as_float()));
    EXPECT_TRUE(std::isnan(value.as_double()));
    EXPECT_TRUE(std::isnan(value.as_long_double()));
    EXPECT_EQ(value.as_string(), "nan");
}

TEST(variant_conversion, a_floating_value_too_large_for_the_result_becomes_infinite) {
    EXPECT_EQ(variant(1e300).as_float(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(variant(-1e300L).as_float(), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(variant(std::numeric_limits<float>::infinity()).as_string(), "inf");
}

// ---- Text to integers ----------------------------------------------------------------------------------

TEST(variant_conversion, the_radix_is_detected_from_the_text) {
    struct {
        char const* text;
        int value;
    } const rows[] = {{"0x10", 16}, {"0X1f", 31}, {"\\x1F", 31},  {"0b101", 5}, {"\\b101", 5}, {"010", 8},
                      {"\\17", 15}, {"09", 0},    {"-0x10", -16}, {"0x", 0},    {"1A", 1},     {"+ 1", 0}};
    for (auto const& [text, expected] : rows) {
        for (variant const& value : in_every_text_kind(text)) {
            EXPECT_EQ(value.as_int8(), expected) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_short(), expected) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_int16(), expected) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_int(), expected) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_long(), expected) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_int32(), expected) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_int64(), expected) << kind_of(value) << " " << text;
            unsigned int const magnitude = expected < 0 ? 0 : static_cast<unsigned int>(expected);
            EXPECT_EQ(value.as_uint8(), magnitude) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_uint16(), magnitude) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_uint32(), magnitude) << kind_of(value) << " " << text;
            EXPECT_EQ(value.as_uint64(), magnitude) << kind_of(value) << " " << text;
        }
    }
}

// Only 16-bit text has this rule for digits below radix 10, so the units were not transcoded first.
TEST(variant_conversion, text_is_parsed_in_its_own_units) {
    EXPECT_EQ(variant(text_of<ustring16>("01A")).as_int(), 18);
    EXPECT_EQ(variant(text_of<wide_string>("01A")).as_int(), 18);
    EXPECT_EQ(variant(text_of<ustring8>("01A")).as_int(), 1);
    EXPECT_EQ(variant(text_of<std::string>("01A")).as_int(), 1);
    EXPECT_EQ(variant(text_of<ustring32>("01A")).as_int(), 1);
    EXPECT_EQ(variant(utf16({'7', 0xD800})).as_int(), 7);
    EXPECT_EQ(variant(utf32({'7', 0xD800})).as_uint32(), 7U);
    EXPECT_EQ(variant(std::string("12\0"
                                  "34",
                                  5))
                  .as_int(),
              12);
}

// Four members have no operation of their own: they read the text as a signed number.
TEST(variant_conversion, the_unsigned_aliases_use_the_signed_parser) {
    for (variant const& value : in_every_text_kind("4294967295")) {
        EXPECT_EQ(value.as_unsigned(), 2147483647U);
        EXPECT_EQ(value.as_uint(), 2147483647U);
        EXPECT_EQ(value.as_ulong(), 2147483647U);
        EXPECT_EQ(value.as_ushort(), 32767U);
        EXPECT_EQ(value.as_uint32(), 4294967295U);
        EXPECT_EQ(value.as_uint16(), 65535U);
    }
    for (variant const& value : in_every_text_kind("-5")) {
        EXPECT_EQ(value.as_unsigned(), 4294967291U);
        EXPECT_EQ(value.as_uint(), 4294967291U);
        EXPECT_EQ(value.as_ulong(), 4294967291U);
        EXPECT_EQ(value.as_ushort(), 65531U);
        EXPECT_EQ(value.as_uint32(), 0U);
        EXPECT_EQ(value.as_uint16(), 0U);
    }
}

// ---- Text to bool --------------------------------------------------------------------------------------

TEST(variant_conversion, text_is_true_by_keyword_or_by_number) {
    for (char const* text : {"yes", "on", "true", "YES", "On", "oN", "True", "tRuE", "1", "2", "0x1", "0X10",
                             "-1", " 7", "+3 apples", "\\1", "4294967296", "-99999999999"}) {
        for (variant const& value : in_every_text_kind(text)) {
            EXPECT_TRUE(value.as_bool()) << kind_of(value) << " " << text;
        }
    }
}

TEST(variant_conversion, all_other_text_is_false) {
    for (char const* text : {"",  "no", "off", "false",  "FALSE", "On ", " on", "yes!", "yess",  "ye",
                             "o", "y",  "t",   "trueon", "0",     "0x0", "-0",  "0.9",  "maybe", "a1"}) {
        for (variant const& value : in_every_text_kind(text)) {
            EXPECT_FALSE(value.as_bool()) << kind_of(value) << " " << text;
        }
    }
}

// The number is read by the 32-bit parser, whose digits wrap behind the exact minimum.
TEST(variant_conversion, the_number_behind_a_bool_has_32_bits) {
    for (variant const& value : in_every_text_kind("-21474836480")) {
        EXPECT_FALSE(value.as_bool()) << kind_of(value);
    }
    for (variant const& value : in_every_text_kind("-1280")) {
        EXPECT_TRUE(value.as_bool()) << kind_of(value);
    }
}

TEST(variant_conversion, the_keyword_is_the_whole_text_with_all_its_units) {
    EXPECT_FALSE(variant(std::string("on\0", 3)).as_bool());
    EXPECT_FALSE(variant(utf16({'o', 'n', 0})).as_bool());
    EXPECT_FALSE(variant(utf32({'o', 'n', 0})).as_bool());
}

TEST(variant_conversion, a_unit_that_only_resembles_a_letter_makes_no_keyword) {
    EXPECT_FALSE(variant(utf16({0x014F, 'n'})).as_bool()); // its low byte is "O"
    EXPECT_FALSE(variant(utf32({0x1004F, 'n'})).as_bool());
    EXPECT_FALSE(variant(utf16({0xFF4F, 0xFF4E})).as_bool());
    EXPECT_FALSE(variant(utf8({0xEF, 'n'})).as_bool());
}

// ---- Text to floating values ---------------------------------------------------------------------------

TEST(variant_conversion, text_of_a_floating_value_is_read_in_full_precision) {
    for (variant const& value : in_every_text_kind("1.2345678901234567 and more")) {
        EXPECT_EQ(value.as_float(), 1.2345678901234567F);
        EXPECT_EQ(value.as_double(), 1.2345678901234567);
        EXPECT_NEAR(static_cast<double>(value.as_long_double()), 1.2345678901234567, 1e-15);
    }
    for (variant const& value : in_every_text_kind(" -2.5e3")) {
        EXPECT_EQ(value.as_float(), -2500.0F);
        EXPECT_EQ(value.as_double(), -2500.0);
        EXPECT_EQ(value.as_long_double(), -2500.0L);
    }
    // Each result has the parser, and so the range, of its own type.
    for (variant const& value : in_every_text_kind("1e39")) {
        EXPECT_EQ(value.as_float(), 0.0F);
        EXPECT_EQ(value.as_double(), 1e39);
    }
    for (variant const& value : in_every_text_kind("1e309")) {
        EXPECT_EQ(value.as_double(), 0.0);
    }
    for (variant const& value : in_every_text_kind("0.1")) {
        EXPECT_EQ(value.as_long_double(), generic::convert::str_to_long_double("0.1"));
    }
    for (variant const& value : in_every_text_kind("1e999999")) {
        EXPECT_EQ(value.as_float(), 0.0F);
        EXPECT_EQ(value.as_double(), 0.0);
        EXPECT_EQ(value.as_long_double(), 0.0L);
    }
}

// The wide kinds go through UTF-8, where their bad text reads "-1"; as an integer their units are parsed.
TEST(variant_conversion, bad_wide_text_is_the_floating_value_minus_one) {
    for (variant const& value :
         {variant(utf16({0xD800})), variant(wide_string(utf16({0xDC00}))), variant(utf32({0xDFFF}))}) {
        EXPECT_EQ(value.as_float(), -1.0F);
        EXPECT_EQ(value.as_double(), -1.0);
        EXPECT_EQ(value.as_long_double(), -1.0L);
        EXPECT_EQ(value.as_int(), 0);
        EXPECT_FALSE(value.as_bool());
    }
}

// ---- Text to text --------------------------------------------------------------------------------------

// U+0041, U+00E9, U+20AC, U+1F600
ustring8 const utf8_text = utf8({0x41, 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80});
ustring16 const utf16_text = utf16({0x41, 0xE9, 0x20AC, 0xD83D, 0xDE00});
ustring32 const utf32_text = utf32({0x41, 0xE9, 0x20AC, 0x1F600});

TEST(variant_conversion, text_is_transcoded) {
    for (variant const& value : {variant(utf8_text), variant(std::string(utf8_text)), variant(utf16_text),
                                 variant(wide_string(utf16_text)), variant(utf32_text)}) {
        SCOPED_TRACE(kind_of(value));
        // From UTF-32 to UTF-16 the converter makes no standard surrogate pair.
        ustring16 const expected_utf16 =
            value.type() == typeid(ustring32) ? utf16({0x41, 0xE9, 0x20AC, 0xD87D, 0xDE00}) : utf16_text;
        EXPECT_EQ(value.as_string(), utf8_text);
        EXPECT_EQ(value.as_utf8(), utf8_text);
        EXPECT_EQ(value.as_wstring(), expected_utf16);
        EXPECT_EQ(value.as_ustring(), expected_utf16);
        EXPECT_EQ(value.as_utf16(), expected_utf16);
        EXPECT_EQ(value.as_utf32(), utf32_text);
    }
}

TEST(variant_conversion, bad_text_is_copied_in_its_own_encoding_and_treated_by_the_converter_in_others) {
    ustring8 const bad_bytes = utf8({0x41, 0xFF});
    for (variant const& value : {variant(bad_bytes), variant(std::string(bad_bytes))}) {
        EXPECT_EQ(value.as_string(), bad_bytes);
        EXPECT_EQ(value.as_utf8(), bad_bytes);
        EXPECT_EQ(value.as_wstring(), utf16({'-', '1'}));
        EXPECT_EQ(value.as_ustring(), utf16({'-', '1'}));
        EXPECT_EQ(value.as_utf16(), utf16({'-', '1'}));
        EXPECT_EQ(value.as_utf32(), utf32({'A', '?'}));
    }
    ustring16 const bad_units = utf16({0x41, 0xD800});
    for (variant const& value : {variant(bad_units), variant(wide_string(bad_units))}) {
        EXPECT_EQ(value.as_string(), "-1");
        EXPECT_EQ(value.as_utf8(), "-1");
        EXPECT_EQ(value.as_wstring(), bad_units);
        EXPECT_EQ(value.as_ustring(), bad_units);
        EXPECT_EQ(value.as_utf16(), bad_units);
        EXPECT_EQ(value.as_utf32(), utf32({'-', '1'}));
    }
    ustring32 const bad_code_points = utf32({0x41, 0xD800});
    variant const value(bad_code_points);
    EXPECT_EQ(value.as_string(), "-1");
    EXPECT_EQ(value.as_utf16(), utf16({'-', '1'}));
    EXPECT_EQ(value.as_wstring(), utf16({'-', '1'}));
    EXPECT_EQ(value.as_utf32(), bad_code_points);
}

TEST(variant_conversion, the_failure_text_parses_as_minus_one) {
    variant const unreadable(utf16({0xD800}));
    EXPECT_EQ(unreadable.as_string(), "-1");
    EXPECT_EQ(variant(unreadable.as_string()).as_int(), -1);
}

TEST(variant_conversion, nil_gives_empty_text) {
    EXPECT_EQ(variant().as_string(), "");
    EXPECT_EQ(variant().as_utf8(), "");
    EXPECT_TRUE(variant().as_wstring().empty());
    EXPECT_TRUE(variant().as_ustring().empty());
    EXPECT_TRUE(variant().as_utf16().empty());
    EXPECT_TRUE(variant().as_utf32().empty());
}

// ---- The global locale ---------------------------------------------------------------------------------

template <class Character>
class punctuation : public std::numpunct<Character> {
public:
    explicit punctuation(Character point) : m_point(point) {}

protected:
    Character do_decimal_point() const override { return m_point; }
    Character do_thousands_sep() const override { return Character('.'); }
    std::string do_grouping() const override { return "\3"; }
    std::basic_string<Character> do_truename() const override { return {Character('T')}; }

private:
    Character m_point;
};

// Puts a locale with these two decimal points in place for the time of a test.
class global_punctuation {
public:
    global_punctuation(char narrow_point, wchar_t wide_point)
        : m_previous(std::locale::global(
              std::locale(std::locale(std::locale::classic(), new punctuation<char>(narrow_point)),
                          new punctuation<wchar_t>(wide_point)))) {}
    ~global_punctuation() { std::locale::global(m_previous); }
    global_punctuation(global_punctuation const&) = delete;
    global_punctuation& operator=(global_punctuation const&) = delete;

private:
    std::locale m_previous;
};

TEST(variant_conversion, floating_text_follows_the_global_locale) {
    global_punctuation const in_place(',', L';');
    for (variant const& value : {variant(1234.5), variant(1234.5F), variant(1234.5L)}) {
        EXPECT_EQ(value.as_string(), "1.234,5");
        EXPECT_EQ(value.as_utf8(), "1.234,5");
        EXPECT_EQ(value.as_ustring(), text_of<wide_string>("1.234,5"));
        EXPECT_EQ(value.as_utf16(), text_of<ustring16>("1.234,5"));
        EXPECT_EQ(value.as_utf32(), text_of<ustring32>("1.234,5"));
    }
}

TEST(variant_conversion, as_wstring_goes_through_a_wide_stream) {
    global_punctuation const in_place(',', static_cast<wchar_t>(0x2396));
    for (variant const& value : {variant(0.5), variant(0.5F), variant(0.5L)}) {
        EXPECT_EQ(value.as_wstring(), utf16({'0', 0x2396, '5'}));
        EXPECT_EQ(value.as_ustring(), text_of<wide_string>("0,5"));
    }
}

// The bytes of the narrow stream count as UTF-8, whatever the locale meant by them.
TEST(variant_conversion, the_other_wide_texts_transcode_the_narrow_one) {
    global_punctuation const in_place('\xB7', L'.');
    variant const value(0.5);
    EXPECT_EQ(value.as_string(), "0\xB7"
                                 "5");
    EXPECT_EQ(value.as_utf16(), text_of<ustring16>("-1"));
    EXPECT_EQ(value.as_ustring(), text_of<wide_string>("-1"));
    EXPECT_EQ(value.as_utf32(), text_of<ustring32>("0?5"));
    EXPECT_EQ(value.as_wstring(), text_of<wide_string>("0.5"));
}

TEST(variant_conversion, integers_and_bool_have_no_punctuation_and_no_words) {
    global_punctuation const in_place(',', L',');
    EXPECT_EQ(variant(1234567).as_string(), "1234567");
    EXPECT_EQ(variant(1234567).as_wstring(), text_of<wide_string>("1234567"));
    EXPECT_EQ(variant(1234567890123).as_utf16(), text_of<ustring16>("1234567890123"));
    EXPECT_EQ(variant(true).as_string(), "1");
    EXPECT_EQ(variant(true).as_wstring(), text_of<wide_string>("1"));
    EXPECT_EQ(variant(false).as_utf32(), text_of<ustring32>("0"));
}

TEST(variant_conversion, floating_values_are_read_by_the_global_locale) {
    global_punctuation const in_place(',', L'.');
    for (variant const& value : in_every_text_kind("0,5")) {
        EXPECT_EQ(value.as_float(), 0.5F);
        EXPECT_EQ(value.as_double(), 0.5);
        EXPECT_EQ(value.as_long_double(), 0.5L);
    }
}

TEST(variant_conversion, the_stream_operator_follows_the_stream_and_not_the_global_locale) {
    std::ostringstream stream; // of the classic locale, before another one is put in place
    global_punctuation const in_place(',', L',');
    stream << variant(1234.5) << ' ' << variant(1234567);
    EXPECT_EQ(stream.str(), "1234.5 1234567");
    std::ostringstream localised;
    localised << variant(1234.5) << ' ' << variant(1234567);
    EXPECT_EQ(localised.str(), "1.234,5 1.234.567");
}

} // namespace
