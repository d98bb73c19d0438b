#include "veldrin/i18n/format.hpp"

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::_private::format_int;
using support::option_text;

constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

std::string const zeros_63(63, '0');

struct row {
    std::int64_t value;
    char const* options;
    std::string text;
};

void expect_rows(std::initializer_list<row> rows) {
    for (row const& expected : rows) {
        EXPECT_EQ(format_int(expected.value, option_text(expected.options)), expected.text)
            << expected.value << " (" << expected.options << ")";
    }
}

TEST(format_int, writes_decimal_without_options) {
    expect_rows({{0, "", "0"},
                 {255, "", "255"},
                 {-255, "", "-255"},
                 {1234567, "", "1234567"},
                 {largest, "", "9223372036854775807"},
                 {smallest, "", "-9223372036854775808"}});
}

TEST(format_int, writes_each_base) {
    expect_rows({{255, "base=dec", "255"},
                 {255, "base=default", "255"},
                 {255, "base=hex", "0x00ff"},
                 {255, "base=oct", "o377"},
                 {255, "base=bin", "11111111b"},
                 {-255, "base=dec", "-255"},
                 {-255, "base=default", "-255"},
                 {0, "base=hex", "0x0000"},
                 {0, "base=oct", "o0"},
                 {0, "base=bin", "0b"},
                 {largest, "base=hex", "0x7fffffffffffffff"},
                 {largest, "base=oct", "o777777777777777777777"},
                 {largest, "base=bin", std::string(63, '1') + "b"}});
}

TEST(format_int, writes_hexadecimal_in_groups_of_four_digits) {
    expect_rows({{0xF, "base=hex", "0x000f"},
                 {0xFFFF, "base=hex", "0xffff"},
                 {0x10000, "base=hex", "0x00010000"},
                 {0xABCDEF01, "base=hex", "0xabcdef01"},
                 {0x123456789, "base=hex", "0x000123456789"}});
}

TEST(format_int, puts_a_blank_before_each_group_of_three_digits) {
    expect_rows({{0, "base=spaced_dec", "0"},
                 {1, "base=spaced_dec", "1"},
                 {12, "base=spaced_dec", "12"},
                 {123, "base=spaced_dec", "123"},
                 {1234, "base=spaced_dec", "1 234"},
                 {12345, "base=spaced_dec", "12 345"},
                 {123456, "base=spaced_dec", "123 456"},
                 {1234567, "base=spaced_dec", "1 234 567"},
                 {-1, "base=spaced_dec", "-1"},
                 {-123, "base=spaced_dec", "-123"},
                 {-1234, "base=spaced_dec", "-1 234"},
                 {-123456, "base=spaced_dec", "-123 456"},
                 {-1234567, "base=spaced_dec", "-1 234 567"},
                 {largest, "base=spaced_dec", "9 223 372 036 854 775 807"},
                 {smallest, "base=spaced_dec", "-9 223 372 036 854 775 808"}});
}

TEST(format_int, counts_the_blanks_against_the_field) {
    expect_rows({{1234567, "base=spaced_dec,fieldsize=9", "1 234 567"},
                 {1234567, "base=spaced_dec,fieldsize=8", "-0"},
                 {-1234567, "base=spaced_dec,fieldsize=10", "-1 234 567"},
                 {-1234567, "base=spaced_dec,fieldsize=9", "-0"},
                 {123, "base=spaced_dec,fieldsize=3", "123"},
                 {-123, "base=spaced_dec,fieldsize=4", "-123"},
                 {-123, "base=spaced_dec,fieldsize=3", "-0"}});
}

TEST(format_int, never_pads_a_decimal) {
    expect_rows({{42, "fieldsize=8", "42"},
                 {42, "fieldsize=2", "42"},
                 {42, "fieldsize=1", "-0"},
                 {-42, "fieldsize=3", "-42"},
                 {-42, "fieldsize=2", "-0"},
                 {1234, "fieldsize=3", "-0"},
                 {1234, "base=spaced_dec,fieldsize=20", "1 234"}});
}

TEST(format_int, pads_other_bases_to_the_field_with_zeros) {
    expect_rows({{255, "base=hex,fieldsize=8", "0x0000ff"},
                 {255, "base=hex,fieldsize=5", "0x0ff"},
                 {255, "base=hex,fieldsize=4", "0xff"},
                 {255, "base=hex,fieldsize=3", "-0"},
                 {255, "base=oct,fieldsize=6", "o00377"},
                 {255, "base=oct,fieldsize=4", "o377"},
                 {255, "base=oct,fieldsize=3", "-0"},
                 {5, "base=bin,fieldsize=9", "00000101b"},
                 {5, "base=bin,fieldsize=4", "101b"},
                 {5, "base=bin,fieldsize=3", "-0"},
                 {0, "base=hex,fieldsize=1", "-0"},
                 {0, "base=hex,fieldsize=2", "-0"},
                 {0, "base=hex,fieldsize=3", "0x0"}});
}

TEST(format_int, shows_a_negative_value_as_its_complement) {
    expect_rows({{-1, "base=hex", "0xffff"},
                 {-0x8000, "base=hex", "0x8000"},
                 {-0x8001, "base=hex", "0xffff7fff"},
                 {-0x10000, "base=hex", "0xffff0000"},
                 {-1, "base=bin", "1b"},
                 {-2, "base=bin", "10b"},
                 {-3, "base=bin", "101b"},
                 {-4, "base=bin", "100b"},
                 {-5, "base=bin", "1011b"},
                 {-1, "base=oct", "o7"},
                 {-4, "base=oct", "o4"},
                 {-5, "base=oct", "o73"},
                 {-8, "base=oct", "o70"},
                 {-32, "base=oct", "o40"},
                 {-33, "base=oct", "o737"}});
}

TEST(format_int, fills_the_field_with_the_complement) {
    expect_rows({{-1, "base=hex,fieldsize=4", "0xff"},
                 {-1, "base=hex,fieldsize=10", "0xffffffff"},
                 {-1, "base=hex,fieldsize=3", "0xf"},
                 {-1, "base=hex,fieldsize=2", "-0"},
                 {-1, "base=hex,fieldsize=1", "-0"},
                 {-1, "base=oct,fieldsize=4", "o777"},
                 {-1, "base=oct,fieldsize=1", "-0"},
                 {-1, "base=bin,fieldsize=9", "11111111b"},
                 {-1, "base=bin,fieldsize=1", "-0"},
                 {-10, "base=bin,fieldsize=9", "11110110b"}});
}

// A field that has no room for the sign's digit takes the digits that are left; they are not padded.
TEST(format_int, loses_the_sign_of_a_complement_in_a_narrow_field) {
    expect_rows({{-3, "base=bin,fieldsize=3", "1b"},
                 {-3, "base=bin,fieldsize=2", "1b"},
                 {-15, "base=hex,fieldsize=3", "0x1"},
                 {-0x8001, "base=hex,fieldsize=6", "0x7fff"},
                 {-0xFF, "base=hex,fieldsize=4", "0x1"}});
}

TEST(format_int, stays_within_64_bits_for_the_complement) {
    expect_rows({{smallest, "base=hex", "0x8000000000000000"},
                 {smallest, "base=oct", "o1000000000000000000000"},
                 {smallest, "base=bin", "1" + zeros_63 + "b"},
                 {smallest + 1, "base=bin", "1" + std::string(62, '0') + "1b"},
                 {-(std::int64_t(1) << 62), "base=bin", "1" + std::string(62, '0') + "b"},
                 {-(std::int64_t(1) << 62) - 1, "base=bin", "10" + std::string(62, '1') + "b"},
                 {-1, "base=hex,fieldsize=17", "0x" + std::string(15, 'f')},
                 {-1, "base=hex,fieldsize=18", "0x" + std::string(16, 'f')},
                 {-1, "base=hex,fieldsize=19", "0x" + std::string(16, 'f')},
                 {-1, "base=oct,fieldsize=22", "o" + std::string(21, '7')},
                 {-1, "base=oct,fieldsize=23", "o1" + std::string(21, '7')},
                 {-1, "base=oct,fieldsize=24", "o1" + std::string(21, '7')},
                 {-1, "base=bin,fieldsize=64", std::string(63, '1') + "b"},
                 {-1, "base=bin,fieldsize=65", std::string(64, '1') + "b"},
                 {-1, "base=bin,fieldsize=65535", std::string(64, '1') + "b"},
                 {smallest, "base=hex,fieldsize=18", "0x8000000000000000"},
                 {smallest, "base=hex,fieldsize=17", "-0"}});
}

TEST(format_int, takes_any_beginning_of_a_key) {
    std::string const base = "base";
    for (std::size_t length = 0; length <= base.size(); ++length) {
        EXPECT_EQ(format_int(255, option_text(base.substr(0, length) + "=hex")), "0x00ff") << length;
    }
    std::string const field_size = "fieldsize";
    for (std::size_t length = 1; length <= field_size.size(); ++length) {
        EXPECT_EQ(format_int(255, option_text(field_size.substr(0, length) + "=2")), "-0") << length;
        EXPECT_EQ(format_int(255, option_text(field_size.substr(0, length) + "=3")), "255") << length;
    }
}

TEST(format_int, takes_any_beginning_of_a_base) {
    struct keyword {
        std::string word;
        std::string text;
    };
    for (keyword const& base :
         {keyword{"dec", "1000"}, keyword{"default", "1000"}, keyword{"spaced_dec", "1 000"},
          keyword{"hex", "0x03e8"}, keyword{"oct", "o1750"}, keyword{"bin", "1111101000b"}}) {
        for (std::size_t length = 1; length <= base.word.size(); ++length) {
            std::string const shortened = base.word.substr(0, length);
            EXPECT_EQ(format_int(1000, option_text("base=" + shortened)), base.text) << shortened;
        }
    }
    EXPECT_EQ(format_int(1000, option_text("base=,fieldsize=4")), "1000");
}

TEST(format_int, takes_the_last_of_several_options) {
    expect_rows({{255, "base=hex,base=oct", "o377"},
                 {255, "base=oct,fieldsize=9,base=dec", "255"},
                 {1234, "fieldsize=3,fieldsize=4", "1234"},
                 {1234, "fieldsize=4,fieldsize=3", "-0"},
                 {1234, "fieldsize=3,fieldsize=0", "1234"}});
}

TEST(format_int, refuses_what_it_does_not_know) {
    expect_rows({{1, "radix=10", "-0"},
                 {1, "Base=dec", "-0"},
                 {1, "bases=dec", "-0"},
                 {1, "fieldsizes=1", "-0"},
                 {1, "precision=2", "-0"},
                 {1, "base=Hex", "-0"},
                 {1, "base=hexa", "-0"},
                 {1, "base=16", "-0"},
                 {1, "base= dec", "-0"},
                 {1, "base=unknown,base=dec", "-0"},
                 {1, "base=dec,unknown=1", "-0"}});
}

TEST(format_int, refuses_an_odd_number_of_parts) {
    expect_rows({{1, "base", "-0"},
                 {1, "base=", "-0"}, // an empty last value is no part
                 {1, "=", "-0"},
                 {1, "base=dec,fieldsize", "-0"},
                 {1, "base=dec,fieldsize=", "-0"},
                 {1, "base=dec,fieldsize=1,x", "-0"},
                 {1, "base=dec,", "1"}});
}

TEST(format_int, reads_a_field_size_leniently) {
    expect_rows({{1234, "fieldsize=0", "1234"},
                 {1234, "fieldsize=none", "1234"},
                 {1234, "fieldsize=,base=dec", "1234"},
                 {1234, "fieldsize=-3", "1234"},
                 {1234, "fieldsize=-2147483648", "1234"},
                 {1234, "fieldsize= 3", "-0"},
                 {1234, "fieldsize=+3", "-0"},
                 {1234, "fieldsize=3x", "-0"},
                 {1234, "fieldsize=0x3", "1234"},
                 {1234, "fieldsize=0003", "-0"}});
}

TEST(format_int, refuses_field_sizes_beyond_the_limit) {
    EXPECT_EQ(format_int(1, option_text("base=hex,fieldsize=65535")), "0x" + std::string(65532, '0') + "1");
    expect_rows({{1, "fieldsize=65535", "1"},
                 {1, "fieldsize=65536", "-0"},
                 {1, "fieldsize=2147483647", "-0"},
                 {1, "fieldsize=2147483648", "-0"},
                 {1, "fieldsize=-2147483649", "-0"},
                 {1, "fieldsize=99999999999999999999", "-0"},
                 {1, "fieldsize=-99999999999999999999", "-0"},
                 {1, "fieldsize=65536,fieldsize=0", "-0"}});
}

// ----------------------------------------------------------------------------------------------------------
// The complement against a plain model
// ----------------------------------------------------------------------------------------------------------

struct model_base {
    std::string keyword;
    std::int64_t radix;
    std::string prefix;
    std::string suffix;
};

std::string model_digits(std::int64_t value, std::int64_t radix) {
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789abcdef"[value % radix]);
        value /= radix;
    } while (value != 0);
    return digits;
}

// Works with the numbers themselves, which must be small enough for them to fit.
std::string model(std::int64_t value, model_base const& base, int field_size) {
    int const marks = static_cast<int>(base.prefix.size() + base.suffix.size());
    bool const is_negative = value < 0;
    if (is_negative) {
        int digits = 0;
        std::int64_t power = 1;
        for (std::int64_t rest = value; rest != 0; rest /= base.radix) {
            ++digits;
            power *= base.radix;
        }
        auto const grow = [&] {
            ++digits;
            power *= base.radix;
        };
        if (field_size != 0) {
            while (digits < field_size - marks) {
                grow();
            }
        } else {
            if (-power < value && value < -power / 2) {
                grow();
            }
            while (base.radix == 16 && digits % 4 != 0) {
                grow();
            }
        }
        value += power;
    }
    std::string digits = model_digits(value, base.radix);
    if (field_size != 0 && field_size < marks + static_cast<int>(digits.size())) {
        return "-0";
    }
    while (!is_negative && (field_size != 0 ? static_cast<int>(digits.size()) + marks < field_size
                                            : base.radix == 16 && digits.size() % 4 != 0)) {
        digits.insert(digits.begin(), '0');
    }
    return base.prefix + digits + base.suffix;
}

model_base const model_bases[] = {{"hex", 16, "0x", ""}, {"oct", 8, "o", ""}, {"bin", 2, "", "b"}};

// Every value from -limit to limit; the first difference ends it.
void compare_with_model(std::int64_t limit, int field_size) {
    for (model_base const& base : model_bases) {
        strings::ustring8 const options =
            option_text("base=" + base.keyword + ",fieldsize=" + std::to_string(field_size));
        for (std::int64_t value = -limit; value <= limit; ++value) {
            ASSERT_EQ(format_int(value, options), model(value, base, field_size))
                << value << " " << base.keyword << " " << field_size;
        }
    }
}

TEST(format_int, agrees_with_the_model_without_a_field) { compare_with_model(70000, 0); }

TEST(format_int, agrees_with_the_model_in_a_narrow_and_a_wide_field) {
    compare_with_model(70000, 6);
    compare_with_model(70000, 17);
}

TEST(format_int, agrees_with_the_model_in_every_field_up_to_its_bounds) {
    for (int field_size = 1; field_size <= 16; ++field_size) {
        compare_with_model(1100, field_size);
    }
}

} // namespace
