#include "veldrin/generic/convert/str_to_x.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <limits>
#include <locale>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "generic/convert/integer_parsers.hpp"
#include "support/ascii_text.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/exceptions/runtime_error.hpp"
#include "veldrin/types/radix.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace VELDRIN_2_18::generic::convert;
using base = types::radix_t::base;

constexpr char const* bad_radix = "invalid radix value, values of 0, 2-36 are the only valid values";
constexpr char const* too_large = "Number value is to large";
constexpr char const* too_small = "Number value is to small";
constexpr char const* signed_routine = "VELDRIN_2_18::generic::convert::strtointx";
constexpr char const* unsigned_routine = "VELDRIN_2_18::generic::convert::strtouintx";

static_assert(types::radix_t::detect == 0 && types::radix_t::binary == 2 && types::radix_t::octal == 8 &&
              types::radix_t::decimal == 10 && types::radix_t::hexadecimal == 16 &&
              types::radix_t::maximum == 36);
static_assert(std::is_same_v<std::underlying_type_t<base>, std::int32_t>);

// The bits that one overload gives for the whole text.
template <class Unit, class Overloads>
std::int64_t parse(Overloads const& overloads, std::string_view bytes, int radix,
                   bool throw_on_range = false) {
    auto const text = support::text_of<std::basic_string<Unit>>(bytes);
    return static_cast<std::int64_t>(
        overloads.template over<Unit>()(text.c_str(), text.size(), static_cast<base>(radix), throw_on_range));
}

struct parser_case {
    std::string_view text;
    int radix;
    int value;
};

// These hold for every result type and every unit.
constexpr parser_case lenient_cases[] = {
    {"", 0, 0},
    {"", 2, 0},
    {"", 10, 0},
    {"", 36, 0},
    // White space, sign, digits, rest.
    {"42", 10, 42},
    {"  42", 10, 42},
    {" \t\n\v\f\r42", 10, 42},
    {"+42", 10, 42},
    {" +42", 10, 42},
    {"- 42", 10, 0},
    {"+ 42", 10, 0},
    {"42abc", 10, 42},
    {"42 43", 10, 42},
    {"4-2", 10, 4},
    {"abc", 10, 0},
    {"-x", 10, 0},
    {"x", 10, 0},
    {"--4", 10, 0},
    {"++4", 10, 0},
    {"-+4", 10, 0},
    {" ", 10, 0},
    {" \t ", 10, 0},
    {"-", 10, 0},
    {"+", 10, 0},
    {" -", 10, 0},
    {"-0", 10, 0},
    {"000000000000000000000000000000000000042", 10, 42},
    // Every byte outside ASCII, and a zero, is no digit and no white space.
    {"\x80", 36, 0},
    {"\xff", 36, 0},
    {"\xa0"
     "5",
     10, 0},
    {"\x85"
     "5",
     10, 0},
    {"1\xb2", 10, 1},
    {std::string_view("1\0"
                      "2",
                      3),
     10, 1},
    // No prefix but by detection.
    {"0x1f", 16, 0},
    {"0b", 16, 11},
    // Detection.
    {"0", 0, 0},
    {"0x", 0, 0},
    {"0X", 0, 0},
    {"0b", 0, 0},
    {"0B", 0, 0},
    {"\\", 0, 0},
    {"\\x", 0, 0},
    {"0xg", 0, 0},
    {"0x1F", 0, 31},
    {"0X1f", 0, 31},
    {"\\x1F", 0, 31},
    {"\\X1f", 0, 31},
    {"0b101", 0, 5},
    {"0B101", 0, 5},
    {"\\b101", 0, 5},
    {"\\B101", 0, 5},
    {"0b102", 0, 2},
    {"0b2", 0, 0},
    {"010", 0, 8},
    {"0010", 0, 8},
    {"09", 0, 0},
    {"018", 0, 1},
    {"\\17", 0, 15},
    {"10", 0, 10},
    {"+0x1F", 0, 31},
    {" +\\x1F", 0, 31},
    {"0 x1F", 0, 0},
    {"0x 1F", 0, 0},
    {"0x+1", 0, 0},
    // Letters of both cases.
    {"1F", 16, 31},
    {"1f", 16, 31},
    {"1g", 16, 1},
    {"1G", 16, 1},
    {"z", 36, 35},
    {"Z", 36, 35},
    {"a", 11, 10},
    {"b", 11, 0},
    {"A", 10, 0},
    {"a", 10, 0},
    {"2", 2, 0},
    {"12", 2, 1},
};

TEST(integer_parsers, are_lenient) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        for (auto const& [text, radix, value] : lenient_cases) {
            EXPECT_EQ(parse<decltype(unit)>(overloads, text, radix), value)
                << overloads.name << " of " << text << " in radix " << radix;
        }
    });
}

TEST(integer_parsers, step_over_white_space_and_no_other_control) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        for (char byte = 0; byte <= ' '; ++byte) {
            bool const is_white_space = byte == ' ' || (byte >= 9 && byte <= 13);
            EXPECT_EQ(parse<decltype(unit)>(overloads, std::string{byte, '7'}, 10), is_white_space ? 7 : 0)
                << overloads.name << " behind " << static_cast<int>(byte);
        }
    });
}

TEST(integer_parsers, read_negative_numbers_into_signed_results) {
    support::for_each_signed_parser([](auto const& overloads) {
        EXPECT_EQ(parse<char>(overloads, "-42", 10), -42) << overloads.name;
        EXPECT_EQ(parse<char>(overloads, " -0x1F", 0), -31) << overloads.name;
        EXPECT_EQ(parse<char>(overloads, "-\\b101 ", 0), -5) << overloads.name;
        EXPECT_EQ(parse<char>(overloads, "-017", 0), -15) << overloads.name;
    });
}

TEST(integer_parsers, count_upper_and_lower_case_alike_in_radix_36) {
    for (char const* const text : {"zZ", "Zz", "zz", "ZZ"}) {
        EXPECT_EQ(str_to_short(text, 2, types::radix_t::maximum, false), 1295);
        EXPECT_EQ(str_to_uint64(text, 2, types::radix_t::maximum, false), 1295u);
    }
}

// ---- Range ----

// What a text gives with `throw_on_range` false and true; a null message means no failure.
struct range_case {
    std::string_view text;
    std::int64_t low_bits;
    char const* message;
};

struct range_table {
    std::string_view name;
    std::vector<range_case> cases;
};

std::vector<range_table> const range_tables = {
    {"str_to_int8",
     {{"127", 127, nullptr},
      {"128", 127, too_large},
      {"1270", 127, too_large},
      {"-128", -128, nullptr},
      {"-129", -128, too_small},
      // The wrap behind the minimum.
      {"-1280", 0, nullptr},
      {"-1281", -1, nullptr},
      {"-1289", -9, nullptr},
      {"-1290", -128, too_small}}},
    {"str_to_short",
     {{"32767", 32767, nullptr},
      {"32768", 32767, too_large},
      {"-32768", -32768, nullptr},
      {"-32769", -32768, too_small},
      {"-327680", 0, nullptr},
      {"-327685", -5, nullptr}}},
    {"str_to_int16",
     {{"32767", 32767, nullptr},
      {"32768", 32767, too_large},
      {"-32768", -32768, nullptr},
      {"-32769", -32768, too_small},
      {"-327685", -5, nullptr}}},
    {"str_to_int",
     {{"2147483647", 2147483647, nullptr},
      {"2147483648", 2147483647, too_large},
      {"-2147483648", INT32_MIN, nullptr},
      {"-2147483649", INT32_MIN, too_small},
      {"-21474836480", 0, nullptr},
      {"-21474836487", -7, nullptr},
      {"-2147483648700000000", -700000000, nullptr},
      // The wrapped value has a range of its own.
      {"-21474836487000000000", INT32_MIN, too_small}}},
    {"str_to_signed",
     {{"2147483647", 2147483647, nullptr},
      {"2147483648", 2147483647, too_large},
      {"-2147483648", INT32_MIN, nullptr},
      {"-2147483649", INT32_MIN, too_small},
      {"-21474836480", 0, nullptr}}},
    {"str_to_long",
     {{"2147483647", 2147483647, nullptr},
      {"2147483648", 2147483647, too_large},
      {"-2147483648", INT32_MIN, nullptr},
      {"-2147483649", INT32_MIN, too_small},
      {"-21474836480", 0, nullptr}}},
    {"str_to_int32",
     {{"2147483647", 2147483647, nullptr},
      {"2147483648", 2147483647, too_large},
      {"-2147483648", INT32_MIN, nullptr},
      {"-2147483649", INT32_MIN, too_small},
      {"-21474836480", 0, nullptr}}},
    {"str_to_int64",
     {{"9223372036854775807", INT64_MAX, nullptr},
      {"9223372036854775808", INT64_MAX, too_large},
      {"-9223372036854775808", INT64_MIN, nullptr},
      {"-9223372036854775809", INT64_MIN, too_small},
      {"-92233720368547758080", 0, nullptr},
      {"-92233720368547758081", -1, nullptr}}},
    {"str_to_uint8",
     {{"255", 255, nullptr},
      {"256", 255, too_large},
      {"2550", 255, too_large},
      {"-0", 0, nullptr},
      {"-5", 0, too_small},
      {"-128", 0, too_small},
      {"-255", 0, too_small},
      {"-256", 0, too_small}}},
    {"str_to_uint16",
     {{"65535", 65535, nullptr},
      {"65536", 65535, too_large},
      {"-1", 0, too_small},
      {"-65536", 0, too_small}}},
    {"str_to_unsigned",
     {{"4294967295", 4294967295, nullptr},
      {"4294967296", 4294967295, too_large},
      {"-1", 0, too_small},
      {"-4294967296", 0, too_small}}},
    {"str_to_uint32",
     {{"4294967295", 4294967295, nullptr},
      {"4294967296", 4294967295, too_large},
      {"-5", 0, too_small},
      {"-0", 0, nullptr},
      {"-x", 0, nullptr},
      {"-4294967296", 0, too_small}}},
    {"str_to_uint64",
     {{"18446744073709551615", -1, nullptr},
      {"18446744073709551616", -1, too_large},
      {"184467440737095516150", -1, too_large},
      {"-1", 0, too_small},
      {"-18446744073709551616", 0, too_small}}},
};

std::vector<range_case> const& range_cases_of(std::string_view name) {
    for (auto const& table : range_tables) {
        if (table.name == name) {
            return table.cases;
        }
    }
    throw std::logic_error("a parser without a table");
}

TEST(integer_parsers, give_the_nearest_bound_out_of_range) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        for (auto const& [text, low_bits, message] : range_cases_of(overloads.name)) {
            EXPECT_EQ(parse<decltype(unit)>(overloads, text, 10), low_bits)
                << overloads.name << " of " << text;
        }
    });
}

// ---- Failures ----

// The line of the library's source that a failure names.
std::string source_line(exceptions::exception::state const& place) {
    std::ifstream file(std::string(VELDRIN_TEST_DATA "/../../src/") + place.file() + ".cpp");
    std::string line;
    for (unsigned int number = 0; number < place.line(); ++number) {
        std::getline(file, line);
    }
    return line;
}

void expect_state(exceptions::exception const& failure, char const* message, char const* function,
                  char const* thrower) {
    EXPECT_STREQ(failure.message(), message);
    EXPECT_STREQ(failure.error_state().file(), "generic/convert/str_to_x");
    EXPECT_STREQ(failure.error_state().function(), function);
    EXPECT_NE(source_line(failure.error_state()).find(thrower), std::string::npos);
}

template <class Failure, class Call>
void expect_failure(Call call, char const* message, char const* function, char const* thrower) {
    try {
        call();
        ADD_FAILURE() << "no failure, but " << message << " was expected";
    } catch (Failure const& failure) {
        expect_state(failure, message, function, thrower);
    }
}

template <class Result>
constexpr char const* routine_of = std::is_signed_v<Result> ? signed_routine : unsigned_routine;

TEST(integer_parsers, throw_out_of_range_when_asked_to) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        constexpr char const* routine = routine_of<typename std::decay_t<decltype(overloads)>::result_type>;
        for (auto const& entry : range_cases_of(overloads.name)) {
            auto const call = [&] { return parse<decltype(unit)>(overloads, entry.text, 10, true); };
            if (entry.message == nullptr) {
                EXPECT_EQ(call(), entry.low_bits);
            } else if (entry.message == too_small) {
                expect_failure<exceptions::underflow_error>(call, too_small, routine,
                                                            "throw exceptions::underflow_error");
            } else {
                expect_failure<exceptions::overflow_error>(call, too_large, routine,
                                                           "throw exceptions::overflow_error");
            }
        }
    });
}

template <class Unit, class Overloads>
void expect_bad_radix(Overloads const& overloads, std::string_view text, int radix) {
    using result_type = typename Overloads::result_type;
    for (bool const throw_on_range : {false, true}) {
        expect_failure<exceptions::invalid_argument_value>(
            [&] { return parse<Unit>(overloads, text, radix, throw_on_range); }, bad_radix,
            routine_of<result_type>, "throw exceptions::invalid_argument_value");
    }
}

TEST(integer_parsers, throw_for_a_bad_radix) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        for (int const radix : {1, 37, 65536, INT_MAX}) {
            for (std::string_view const text : {"", "1", " 1", "-1", "abc"}) {
                expect_bad_radix<decltype(unit)>(overloads, text, radix);
            }
        }
    });
}

TEST(integer_parsers, do_not_come_to_the_radix_of_white_space_or_a_lone_sign) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        for (int const radix : {1, 37, -1}) {
            for (std::string_view const text : {" ", " \t\r\n", "-", "+", " -", "\n+"}) {
                EXPECT_EQ(parse<decltype(unit)>(overloads, text, radix, true), 0) << overloads.name << text;
            }
        }
    });
}

TEST(integer_parsers, take_a_negative_radix_as_0_digits_or_as_bad) {
    for (int const radix : {-1, -2, -10, -16, INT_MIN}) {
        support::for_each_signed_parser([&](auto const& overloads) {
            for (std::string_view const text : {"", "1", "-1", "0x1F", "zz", "99999999999999999999"}) {
                EXPECT_EQ(parse<char>(overloads, text, radix, true), 0);
                EXPECT_EQ(parse<strings::utf16_unit>(overloads, text, radix, true), 0);
                EXPECT_EQ(parse<strings::utf32_unit>(overloads, text, radix, true), 0);
            }
        });
        support::for_each_unsigned_parser([&](auto const& overloads) {
            expect_bad_radix<char>(overloads, "1", radix);
            expect_bad_radix<strings::utf16_unit>(overloads, "1", radix);
            expect_bad_radix<strings::utf32_unit>(overloads, "1", radix);
        });
    }
}

// ---- Length ----

template <class Unit, class Overloads>
std::int64_t parse_length(Overloads const& overloads, std::string_view bytes, std::uint64_t length,
                          int radix) {
    auto const text = support::text_of<std::basic_string<Unit>>(bytes);
    return static_cast<std::int64_t>(
        overloads.template over<Unit>()(text.c_str(), length, static_cast<base>(radix), false));
}

TEST(integer_parsers, stop_at_the_length) {
    support::for_each_integer_overload([](auto unit, auto const& overloads) {
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "123", 2, 10), 12);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "123", 1, 10), 1);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "  5", 2, 10), 0);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "+5", 1, 10), 0);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "017", 1, 0), 0);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "0x1", 2, 0), 0);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "0b1", 2, 0), 0);
        EXPECT_EQ(parse_length<decltype(unit)>(overloads, "0x12", 3, 0), 1);
    });
}

TEST(integer_parsers, run_to_the_terminator_for_length_0_and_a_signed_result) {
    support::for_each_signed_parser([](auto const& overloads) {
        EXPECT_EQ(parse_length<char>(overloads, " 123 ", 0, 10), 123);
        EXPECT_EQ(parse_length<strings::utf16_unit>(overloads, "-123", 0, 10), -123);
        EXPECT_EQ(parse_length<strings::utf32_unit>(overloads, "0x1F", 0, 0), 31);
        EXPECT_EQ(parse_length<char>(overloads, "", 0, 10), 0);
        EXPECT_EQ(parse_length<char>(overloads, " ", 0, 10), 0);
        EXPECT_EQ(parse_length<char>(overloads,
                                     std::string_view("1\0"
                                                      "2",
                                                      3),
                                     0, 10),
                  1);
    });
}

template <class Unit, class Overloads>
void expect_one_unit_read(Overloads const& overloads) {
    EXPECT_EQ(parse_length<Unit>(overloads, "123", 0, 10), 1);
    EXPECT_EQ(parse_length<Unit>(overloads, "z9", 0, 36), 35);
    EXPECT_EQ(parse_length<Unit>(overloads, "123", 0, 0), 1);
    EXPECT_EQ(parse_length<Unit>(overloads, " 23", 0, 10), 0);
    EXPECT_EQ(parse_length<Unit>(overloads, "+23", 0, 10), 0);
    EXPECT_EQ(parse_length<Unit>(overloads, "-23", 0, 10), 0);
    EXPECT_EQ(parse_length<Unit>(overloads, "017", 0, 0), 0);
    EXPECT_EQ(parse_length<Unit>(overloads, "\\17", 0, 0), 0);
    EXPECT_EQ(parse_length<Unit>(overloads, "", 0, 10), 0);
}

TEST(integer_parsers, read_one_unit_for_length_0_and_an_unsigned_result) {
    support::for_each_unsigned_parser([](auto const& overloads) {
        expect_one_unit_read<char>(overloads);
        expect_one_unit_read<strings::utf16_unit>(overloads);
        expect_one_unit_read<strings::utf32_unit>(overloads);
    });
}

// ---- Units of 16 and 32 bits ----

TEST(integer_parsers, take_every_16_bit_unit_from_A_upward_as_a_digit_below_radix_10) {
    struct letter_case {
        std::string_view text;
        int radix;
        int in_16_bits;
        int in_others;
    };
    for (auto const& [text, radix, in_16_bits, in_others] : {
             letter_case{"1A", 8, 18, 1},
             letter_case{"1a", 8, 50, 1},
             letter_case{"A", 8, 10, 0},
             letter_case{"01A", 0, 18, 1},
             letter_case{"0b1A", 0, 12, 1},
             letter_case{"1A", 2, 12, 1},
             letter_case{"1A", 9, 19, 1},
             letter_case{"1[1", 8, 353, 1},
             letter_case{"1@", 8, 1, 1},
             letter_case{"0b1", 2, 87, 0},
             letter_case{"\\17", 8, 2383, 0},
             letter_case{"\\\\17", 0, 2383, 0},
             letter_case{"1A", 10, 1, 1},
             letter_case{"1A", 11, 21, 21},
             letter_case{"1[", 36, 1, 1},
         }) {
        auto const narrow = support::text_of<std::basic_string<char>>(text);
        auto const units = support::text_of<std::basic_string<strings::utf16_unit>>(text);
        auto const characters = support::text_of<std::basic_string<strings::utf32_unit>>(text);
        auto const number_base = static_cast<base>(radix);
        EXPECT_EQ(str_to_int(narrow.c_str(), narrow.size(), number_base, false), in_others) << text;
        EXPECT_EQ(str_to_int(units.c_str(), units.size(), number_base, false), in_16_bits) << text;
        EXPECT_EQ(str_to_int(characters.c_str(), characters.size(), number_base, false), in_others) << text;
        EXPECT_EQ(str_to_uint32(narrow.c_str(), narrow.size(), number_base, false),
                  static_cast<std::uint32_t>(in_others));
        EXPECT_EQ(str_to_uint32(units.c_str(), units.size(), number_base, false),
                  static_cast<std::uint32_t>(in_16_bits));
        EXPECT_EQ(str_to_uint32(characters.c_str(), characters.size(), number_base, false),
                  static_cast<std::uint32_t>(in_others));
    }
}

TEST(integer_parsers, compare_a_digit_beyond_the_radix_as_a_plain_number) {
    // The digit is 65480; where the value in front of it is at the cutoff it is beyond every last digit,
    // below the cutoff it wraps.
    strings::utf16_unit const wraps[] = {'1', 0xFFFF, 0};
    EXPECT_EQ(str_to_int8(wraps, 2, types::radix_t::octal, true), static_cast<signed char>(8 + 65480));
    strings::utf16_unit const at_cutoff[] = {'1', '7', 0xFFFF, 0};
    EXPECT_EQ(str_to_int8(at_cutoff, 3, types::radix_t::octal, false), 127);
    EXPECT_EQ(str_to_uint16(wraps, 2, types::radix_t::octal, true), 65488);
}

TEST(integer_parsers, take_no_wide_unit_for_a_narrow_one) {
    // The low bytes, or the low halves, are those of a digit, a blank and a sign.
    for (std::uint32_t const high : {0x100u, 0xFF00u, 0x10000u, 0x80000000u, 0xFFFFFF00u}) {
        for (std::uint32_t const low : {0x20u, 0x2Bu, 0x2Du, 0x35u, 0x41u, 0x61u}) {
            strings::utf32_unit const text[] = {static_cast<strings::utf32_unit>(high | low), '5', 0};
            EXPECT_EQ(str_to_int64(text, 2, types::radix_t::hexadecimal, true), 0);
            EXPECT_EQ(str_to_uint64(text, 2, types::radix_t::maximum, true), 0u);
        }
    }
    for (unsigned int const unit : {0x120u, 0x22Du, 0x3000u, 0x2028u, 0xFF15u, 0x85u, 0xA0u}) {
        strings::utf16_unit const text[] = {static_cast<strings::utf16_unit>(unit), '5', 0};
        EXPECT_EQ(str_to_int64(text, 2, types::radix_t::hexadecimal, true), 0);
        EXPECT_EQ(str_to_uint64(text, 2, types::radix_t::decimal, true), 0u);
    }
}

// ---- Real numbers ----

struct real_case {
    strings::ustring8 text;
    double value;
};

std::vector<real_case> const real_cases = {
    {"", 0},
    {"abc", 0},
    {"1.5xyz", 1.5},
    {"1.5", 1.5},
    {" \t\n 1.5 2", 1.5},
    {"-1.5", -1.5},
    {"+1.5", 1.5},
    {"- 1.5", 0},
    {".5", 0.5},
    {"5.", 5},
    {"1e3", 1000},
    {"1E-2", 0.01},
    {"1e", 0},
    {"1,5", 1},
    {"0x10", 0},
    {"010", 10},
    {"nan", 0},
    {"inf", 0},
    {"\xEF\xBB\xBF"
     "1.5",
     0},
    {strings::ustring8(std::string("1\0"
                                   "5",
                                   3)),
     1},
    {strings::ustring8(std::string("\0"
                                   "5",
                                   2)),
     0},
    // Seven figures are more than the default precision of a stream, which does not bind reading.
    {"1234567.25", 1234567.25},
};

TEST(real_parsers, read_the_front_of_the_text) {
    std::locale const& classic = std::locale::classic();
    for (auto const& [text, value] : real_cases) {
        EXPECT_EQ(str_to_float(text), static_cast<float>(value)) << text;
        EXPECT_EQ(str_to_float(text, classic), static_cast<float>(value)) << text;
        EXPECT_EQ(str_to_double(text), value) << text;
        EXPECT_EQ(str_to_double(text, classic), value) << text;
        EXPECT_NEAR(static_cast<double>(str_to_long_double(text)), value, 0) << text;
        EXPECT_NEAR(static_cast<double>(str_to_long_double(text, classic)), value, 0) << text;
    }
}

TEST(real_parsers, read_in_the_precision_of_the_result) {
    EXPECT_EQ(str_to_float("0.1"), 0.1f);
    EXPECT_EQ(str_to_double("0.1"), 0.1);
    EXPECT_EQ(str_to_double("1.7976931348623157e308"), 1.7976931348623157e308);
    EXPECT_EQ(str_to_float("16777217"), 16777216.0f);
    EXPECT_EQ(str_to_double("16777217"), 16777217.0);
}

TEST(real_parsers, read_every_digit_of_a_long_double) {
    EXPECT_EQ(str_to_long_double("0.1"), 0.1L);
    EXPECT_EQ(str_to_long_double("9223372036854775807"), 9223372036854775807.0L);
    EXPECT_EQ(str_to_long_double("1e400"), 1e400L);
}

TEST(real_parsers, give_0_for_a_value_out_of_range) {
    EXPECT_EQ(str_to_float("1e39"), 0.0f);
    EXPECT_EQ(str_to_float("-1e39"), 0.0f);
    EXPECT_EQ(str_to_double("1e39"), 1e39);
    EXPECT_EQ(str_to_double("1e309"), 0.0);
    EXPECT_EQ(str_to_double("-1e309"), 0.0);
    EXPECT_EQ(str_to_long_double("1e5000"), 0.0L);
}

class comma_punctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

std::locale comma_locale() { return {std::locale::classic(), new comma_punctuation}; }

TEST(real_parsers, take_the_decimal_point_of_the_locale_given) {
    EXPECT_EQ(str_to_float("1,5", comma_locale()), 1.5f);
    EXPECT_EQ(str_to_double("1,5", comma_locale()), 1.5);
    EXPECT_EQ(str_to_long_double("1,5", comma_locale()), 1.5L);
    EXPECT_EQ(str_to_double("1.5", comma_locale()), 1.0);
    EXPECT_EQ(str_to_double("1,5"), 1.0);
}

class grouping_punctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(real_parsers, take_the_digit_grouping_of_the_locale) {
    std::locale const grouping(std::locale::classic(), new grouping_punctuation);
    EXPECT_EQ(str_to_float("1.234,5", grouping), 1234.5f);
    EXPECT_EQ(str_to_double("1.234.567,25", grouping), 1234567.25);
    EXPECT_EQ(str_to_long_double("1.234,5", grouping), 1234.5L);
    EXPECT_EQ(str_to_double("1234567,25", grouping), 1234567.25);
    // Groups of another size make the extraction fail.
    EXPECT_EQ(str_to_float("12.34,5", grouping), 0.0f);
    EXPECT_EQ(str_to_double("12.34,5", grouping), 0.0);
    EXPECT_EQ(str_to_long_double("12.34,5", grouping), 0.0L);

    std::locale const before = std::locale::global(grouping);
    EXPECT_EQ(str_to_double("1.234,5"), 1234.5);
    std::locale::global(before);
}

TEST(real_parsers, take_the_decimal_point_of_the_global_locale) {
    std::locale const before = std::locale::global(comma_locale());
    EXPECT_EQ(str_to_float("1,5"), 1.5f);
    EXPECT_EQ(str_to_double("1,5"), 1.5);
    EXPECT_EQ(str_to_long_double("1,5"), 1.5L);
    EXPECT_EQ(str_to_double("1,5", std::locale::classic()), 1.0);
    std::locale::global(before);
    EXPECT_EQ(str_to_double("1,5"), 1.0);
}

// ---- Formatters ----

// The text in front of the terminator. What lies behind it must be untouched.
template <class Unit, class Value>
std::string formatted(void (*format)(Value, Unit*, unsigned int), Value value, unsigned int radix) {
    constexpr Unit untouched = 'Q';
    Unit buffer[68];
    std::fill(std::begin(buffer), std::end(buffer), untouched);
    format(value, buffer, radix);
    std::string text;
    Unit* unit = buffer;
    for (; *unit != 0; ++unit) {
        text.push_back(static_cast<char>(*unit));
    }
    EXPECT_EQ(std::count(unit + 1, std::end(buffer), untouched), std::end(buffer) - unit - 1);
    return text;
}

// The text that all three overloads of one name give.
template <class Value>
std::string formatted_by_all(void (*narrow)(Value, char*, unsigned int),
                             void (*in_16_bits)(Value, strings::utf16_unit*, unsigned int),
                             void (*in_32_bits)(Value, strings::utf32_unit*, unsigned int), Value value,
                             unsigned int radix) {
    std::string const text = formatted(narrow, value, radix);
    EXPECT_EQ(formatted(in_16_bits, value, radix), text);
    EXPECT_EQ(formatted(in_32_bits, value, radix), text);
    return text;
}

std::string by_ltoa(std::int32_t value, unsigned int radix) {
    return formatted_by_all<std::int32_t>(ltoa, ltoa, ltoa, value, radix);
}

std::string by_ultoa(std::uint32_t value, unsigned int radix) {
    return formatted_by_all<std::uint32_t>(ultoa, ultoa, ultoa, value, radix);
}

std::string by_lltoa(std::int64_t value, unsigned int radix) {
    return formatted_by_all<std::int64_t>(lltoa, lltoa, lltoa, value, radix);
}

std::string by_ulltoa(std::uint64_t value, unsigned int radix) {
    return formatted_by_all<std::uint64_t>(ulltoa, ulltoa, ulltoa, value, radix);
}

TEST(integer_formatters, write_the_texts_expected) {
    EXPECT_EQ(by_ltoa(0, 10), "0");
    EXPECT_EQ(by_ltoa(-1, 10), "-1");
    EXPECT_EQ(by_ltoa(-255, 16), "-ff");
    EXPECT_EQ(by_ltoa(INT32_MIN, 10), "-2147483648");
    EXPECT_EQ(by_ltoa(INT32_MIN, 2), "-1" + std::string(31, '0'));
    EXPECT_EQ(by_ltoa(INT32_MAX, 10), "2147483647");
    EXPECT_EQ(by_ultoa(0, 2), "0");
    EXPECT_EQ(by_ultoa(UINT32_MAX, 10), "4294967295");
    EXPECT_EQ(by_ultoa(0x80000000u, 16), "80000000");
    EXPECT_EQ(by_lltoa(INT64_MIN, 10), "-9223372036854775808");
    EXPECT_EQ(by_lltoa(INT64_MIN, 2), "-1" + std::string(63, '0'));
    EXPECT_EQ(by_lltoa(INT64_MAX, 10), "9223372036854775807");
    EXPECT_EQ(by_lltoa(0, 36), "0");
    EXPECT_EQ(by_ulltoa(255, 16), "ff");
    EXPECT_EQ(by_ulltoa(UINT64_MAX, 10), "18446744073709551615");
    EXPECT_EQ(by_ulltoa(UINT64_MAX, 2), std::string(64, '1'));
    EXPECT_EQ(by_ulltoa(35, 36), "z");
    EXPECT_EQ(by_ulltoa(36, 36), "10");
}

TEST(integer_formatters, do_not_look_at_a_radix_above_36) {
    EXPECT_EQ(by_ulltoa(36, 37), "{");
    EXPECT_EQ(by_ultoa(99, 100), "\xBA");
    EXPECT_EQ(by_ltoa(-1000, 1000), "-10");
}

TEST(integer_formatters, write_an_empty_text_in_a_radix_that_is_none) {
    for (unsigned int const radix : {0u, 1u}) {
        EXPECT_EQ(by_ltoa(-5, radix), "");
        EXPECT_EQ(by_ultoa(5, radix), "");
        EXPECT_EQ(by_lltoa(-5, radix), "");
        EXPECT_EQ(by_ulltoa(5, radix), "");
    }
}

template <class Value>
std::string standard_text(Value value, unsigned int radix) {
    char buffer[66];
    auto const result = std::to_chars(std::begin(buffer), std::end(buffer), value, static_cast<int>(radix));
    return {buffer, result.ptr};
}

TEST(integer_formatters, agree_with_the_standard_library_and_with_the_parsers) {
    std::vector<std::uint64_t> values;
    for (std::uint64_t value = 0; value <= 300; ++value) {
        values.push_back(value);
    }
    for (int bit = 8; bit < 64; ++bit) {
        for (std::uint64_t const offset : {0u, 1u, 2u}) {
            values.push_back((std::uint64_t{1} << bit) - offset);
            values.push_back(0 - (std::uint64_t{1} << bit) + offset);
        }
    }
    for (unsigned int radix = 2; radix <= 36; ++radix) {
        for (std::uint64_t const value : values) {
            auto const value_32 = static_cast<std::uint32_t>(value);
            auto const signed_value = static_cast<std::int64_t>(value);
            auto const signed_32 = static_cast<std::int32_t>(value);
            auto const number_base = static_cast<base>(radix);

            std::string text = by_ltoa(signed_32, radix);
            EXPECT_EQ(text, standard_text(signed_32, radix));
            EXPECT_EQ(str_to_int32(text.c_str(), text.size(), number_base, true), signed_32);
            text = by_ultoa(value_32, radix);
            EXPECT_EQ(text, standard_text(value_32, radix));
            EXPECT_EQ(str_to_uint32(text.c_str(), text.size(), number_base, true), value_32);
            text = by_lltoa(signed_value, radix);
            EXPECT_EQ(text, standard_text(signed_value, radix));
            EXPECT_EQ(str_to_int64(text.c_str(), text.size(), number_base, true), signed_value);
            text = by_ulltoa(value, radix);
            EXPECT_EQ(text, standard_text(value, radix));
            EXPECT_EQ(str_to_uint64(text.c_str(), text.size(), number_base, true), value);
        }
    }
}

} // namespace
