#include "veldrin/i18n/format.hpp"

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::_private::format_metric;
using support::option_text;

constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

struct row {
    types::variant value;
    std::string options;
    std::string number;
    std::string unit;
};

void expect_rows(std::initializer_list<row> rows) {
    for (row const& expected : rows) {
        strings::ustring8 unit = "what was there before";
        EXPECT_EQ(format_metric(expected.value, option_text(expected.options), unit), expected.number)
            << expected.value << " (" << expected.options << ")";
        EXPECT_EQ(unit, expected.unit) << expected.value << " (" << expected.options << ")";
    }
}

struct prefix {
    std::string short_name;
    std::string long_name;
};

// From index -6 on; "base" names the one at index 0 in an option.
prefix const prefixes[] = {{"a", "atto"},  {"f", "femto"}, {"p", "pico"}, {"n", "nano"},  {"mc", "micro"},
                           {"m", "milli"}, {"", ""},       {"k", "kilo"}, {"M", "mega"},  {"G", "giga"},
                           {"T", "tera"},  {"P", "peta"},  {"E", "exa"},  {"Z", "zetta"}, {"Y", "yotta"}};

std::string option_name(prefix const& unit) { return unit.short_name.empty() ? "base" : unit.short_name; }

TEST(format_metric, chooses_the_prefix) {
    expect_rows({{0, "", "0.000", ""},
                 {999, "", "999.000", ""},
                 {1000, "", "1.000", "k"},
                 {1500, "", "1.500", "k"},
                 {999999, "", "999.999", "k"},
                 {1000000, "", "1.000", "M"},
                 {2.5e9, "", "2.500", "G"},
                 {2.5e12, "", "2.500", "T"},
                 {999.9996, "", "1000.000", ""}});
}

TEST(format_metric, stops_climbing_at_tera) {
    expect_rows({{2e15, "", "2000.000", "T"},
                 {std::int64_t(2000000000000000), "precision=0", "2000", "T"},
                 {5000, "base_unit=T", "5000.000", "T"},
                 {5000, "base_unit=P", "5000.000", "P"},
                 {5000, "base_unit=Y,precision=0", "5000", "Y"},
                 {std::numeric_limits<double>::infinity(), "", "inf", "T"}});
}

TEST(format_metric, does_not_scale_a_small_value_down) {
    expect_rows({{0.001, "", "0.001", ""}, {0.5, "precision=1", "0.5", ""}, {0.0001, "", "0.000", ""}});
}

TEST(format_metric, names_each_prefix_in_both_forms) {
    for (prefix const& unit : prefixes) {
        std::string const base = "base_unit=" + option_name(unit);
        expect_rows({{5, base, "5.000", unit.short_name},
                     {5, base + ",short_form=true", "5.000", unit.short_name},
                     {5, base + ",short_form=false", "5.000", unit.long_name},
                     {5, base + ",precision=0,short_form=false", "5", unit.long_name}});
    }
    expect_rows({{1500, "short_form=false", "1.500", "kilo"}});
}

TEST(format_metric, starts_at_the_base_unit) {
    expect_rows({{1500, "base_unit=m", "1.500", ""},
                 {1500, "base_unit=mc", "1.500", "m"},
                 {1500, "base_unit=k", "1.500", "M"},
                 {1e18, "base_unit=a", "1.000", ""},
                 {1500, "base_unit=m,precision=0", "1", ""},
                 {1e30, "base_unit=a", "1.000", "T"}});
}

TEST(format_metric, scales_a_real_number_to_the_target) {
    expect_rows({{1500, "target_unit=base", "1500.000", ""},
                 {1500, "target_unit=M,precision=6", "0.001500", "M"},
                 {2, "base_unit=M,target_unit=k", "2000.000", "k"},
                 {2, "base_unit=k,target_unit=mc,precision=1", "2000000000.0", "mc"},
                 {1, "base_unit=base,target_unit=a,precision=1", "1000000000000000000.0", "a"},
                 {5e24, "target_unit=Y,precision=1", "5.0", "Y"},
                 {2.5, "base_unit=k,target_unit=k", "2.500", "k"}});
}

TEST(format_metric, scales_a_whole_number_to_the_target) {
    expect_rows({{2, "base_unit=M,target_unit=k,precision=0", "2000", "k"},
                 {2, "base_unit=M,target_unit=G,precision=0", "0", "G"},
                 {1999, "target_unit=k,precision=0", "1", "k"},
                 {largest, "target_unit=E,precision=0", "9", "E"},
                 {largest, "target_unit=Z,precision=0", "0", "Z"},
                 {5, "base_unit=E,target_unit=base,precision=0", "5000000000000000000", ""},
                 {10, "base_unit=E,target_unit=base,precision=0", "10000000000000000000", ""},
                 {20, "base_unit=E,target_unit=base,precision=0", "1553255926290448384", ""},
                 {1, "base_unit=Y,target_unit=a,precision=0", "11806718586779598848", "a"}});
}

TEST(format_metric, works_on_whole_numbers_for_a_precision_of_0) {
    expect_rows({{999, "precision=0", "999", ""},
                 {1000, "precision=0", "1", "k"},
                 {1999, "precision=0", "1", "k"},
                 {1999.9, "precision=none", "1", "k"},
                 {1999, "precision=-3", "1", "k"},
                 {1999, "precision=,base_unit=base", "1", "k"},
                 {largest, "precision=0", "9223372", "T"},
                 {1999, "precision=0,fieldsize=99999999999", "1", "k"}});
}

TEST(format_metric, writes_a_negative_whole_number_as_unsigned) {
    expect_rows({{-5, "precision=0", "18446744073709551611", ""},
                 {-5000, "precision=0", "18446744073709546616", ""},
                 {-1500, "precision=0,target_unit=k", "18446744073709551615", "k"},
                 {-999, "precision=0,target_unit=k", "0", "k"},
                 {-2, "precision=0,target_unit=m", "18446744073709549616", "m"},
                 {smallest, "precision=0", "9223372036854775808", ""},
                 {smallest, "precision=0,target_unit=m", "0", "m"},
                 {-1500, "", "-1500.000", ""},
                 {-1500, "target_unit=k", "-1.500", "k"}});
}

TEST(format_metric, takes_any_beginning_of_base_as_no_prefix) {
    for (char const* name : {"b", "ba", "bas", "base"}) {
        expect_rows({{5, std::string("base_unit=") + name, "5.000", ""},
                     {5000, std::string("target_unit=") + name, "5000.000", ""}});
    }
    expect_rows({{5, "base_unit=,precision=1", "5.0", ""}, {5000, "target_unit=,precision=1", "5000.0", ""}});
}

TEST(format_metric, refuses_what_is_no_prefix) {
    for (char const* name :
         {"bases", "K", "g", "t", "mcc", "mm", "kk", "kilo", "milli", "u", " ", "c", "h", "d"}) {
        expect_rows({{5, std::string("base_unit=") + name, "-0", ""},
                     {5, std::string("target_unit=") + name, "-0", ""}});
    }
    expect_rows({{5, "base_unit=x,base_unit=k", "-0", ""}});
}

TEST(format_metric, aligns_a_real_number_in_its_field) {
    expect_rows({{1500, "fieldsize=8", "   1.500", "k"},
                 {1500, "fieldsize=8,precision=1", "     1.5", "k"},
                 {1500, "fieldsize=4", "1.50", "k"}});
}

TEST(format_metric, gives_the_prefix_beside_a_number_that_cannot_be_written) {
    expect_rows({{1500, "precision=99", "-0", "k"},
                 {1500, "fieldsize=65536", "-0", "k"},
                 {1500, "fieldsize=99999999999", "-0", "k"},
                 {1500, "fieldsize=,precision=1", "-0", "k"},
                 {-0.2, "precision=1;p;0", "-0", ""}});
}

TEST(format_metric, takes_a_semicolon_in_a_number_as_a_separator) {
    expect_rows({{1500, "precision=1;prec;2", "1.50", "k"},
                 {1500, "fieldsize=8;precision;2", "    1.50", "k"},
                 {1500, "precision=1;3", "-0", "k"}});
}

TEST(format_metric, takes_any_beginning_of_true_and_false) {
    for (char const* value : {"t", "tr", "tru", "true"}) {
        expect_rows({{1500, std::string("short_form=") + value, "1.500", "k"}});
    }
    for (char const* value : {"f", "fa", "fal", "fals", "false"}) {
        expect_rows({{1500, std::string("short_form=") + value, "1.500", "kilo"}});
    }
    expect_rows({{1500, "short_form=f,short_form=,precision=1", "1.5", "k"},
                 {1500, "short_form=no", "-0", ""},
                 {1500, "short_form=False", "-0", ""},
                 {1500, "short_form=falsex", "-0", ""}});
}

TEST(format_metric, takes_any_beginning_of_a_key) {
    struct key {
        std::string word;
        std::size_t shortest;
        std::string option;
        std::string number;
        std::string unit;
    };
    for (key const& option :
         {key{"base_unit", 0, "k", "1.500", "M"}, key{"target_unit", 1, "base", "1500.000", ""},
          key{"short_form", 1, "false", "1.500", "kilo"}, key{"precision", 1, "1", "1.5", "k"},
          key{"fieldsize", 1, "6", " 1.500", "k"}}) {
        for (std::size_t length = option.shortest; length <= option.word.size(); ++length) {
            expect_rows(
                {{1500, option.word.substr(0, length) + "=" + option.option, option.number, option.unit}});
        }
    }
}

TEST(format_metric, takes_the_last_of_several_options) {
    expect_rows({{1500, "target_unit=M,target_unit=k", "1.500", "k"},
                 {1500, "target_unit=M,target_unit=base", "1500.000", ""},
                 {1500, "short_form=false,short_form=true", "1.500", "k"},
                 {1500, "base_unit=M,base_unit=base", "1.500", "k"},
                 {1500, "precision=0,precision=1", "1.5", "k"},
                 {1500, "fieldsize=20,fieldsize=6", " 1.500", "k"}});
}

TEST(format_metric, refuses_bad_options) {
    expect_rows({{1, "unit=k", "-0", ""},
                 {1, "Base_unit=k", "-0", ""},
                 {1, "base_units=k", "-0", ""},
                 {1, "precision", "-0", ""},
                 {1, "precision=", "-0", ""},
                 {1, "precision=1,fieldsize=", "-0", ""},
                 {1, "precision=2147483648", "-0", ""},
                 {1, "precision=-2147483649,precision=1", "-0", ""}});
}

TEST(format_metric, converts_the_value) {
    expect_rows({{"1500", "", "1.500", "k"},
                 {"1500", "precision=0", "1", "k"},
                 {"many", "", "0.000", ""},
                 {types::nil, "", "0.000", ""},
                 {std::numeric_limits<double>::quiet_NaN(), "", "nan", ""}});
}

} // namespace
