#include "veldrin/i18n/format.hpp"

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::_private::format_memory;
using support::option_text;

constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();

struct row {
    types::variant value;
    std::string options;
    std::string number;
    std::string unit;
};

void expect_rows(std::initializer_list<row> rows) {
    for (row const& expected : rows) {
        strings::ustring8 unit = "what was there before";
        EXPECT_EQ(format_memory(expected.value, option_text(expected.options), unit), expected.number)
            << expected.value << " (" << expected.options << ")";
        EXPECT_EQ(unit, expected.unit) << expected.value << " (" << expected.options << ")";
    }
}

TEST(format_memory, chooses_the_unit) {
    expect_rows({{0, "", "0", "B"},
                 {1, "", "1", "B"},
                 {1023, "", "1023", "B"},
                 {1024, "", "1", "KB"},
                 {1536, "", "1", "KB"},
                 {1048575, "", "1023", "KB"},
                 {1048576, "", "1", "MB"},
                 {std::uint64_t(5) << 30, "", "5", "GB"},
                 {std::uint64_t(5) << 40, "", "5", "TB"},
                 {std::uint64_t(5) << 50, "", "5", "PB"},
                 {largest, "", "15", "EB"}});
}

TEST(format_memory, shows_digits_behind_the_point_with_a_precision) {
    expect_rows({{0, "precision=2", "0.00", "B"},
                 {1536, "precision=1", "1.5", "KB"},
                 {1023, "precision=1", "1023.0", "B"},
                 {1024, "precision=3", "1.000", "KB"},
                 {1023.96, "precision=1", "1024.0", "B"},
                 {1048576, "precision=1", "1.0", "MB"},
                 {largest, "precision=2", "16.00", "EB"},
                 {1e24, "precision=2", "847.03", "ZB"},
                 {1e27, "precision=2", "827.18", "YB"},
                 {0.25, "precision=2", "0.25", "B"}});
}

TEST(format_memory, stops_climbing_at_the_last_letter) {
    expect_rows({{2048, "base_unit=ZB", "2", "YB"},
                 {2048, "base_unit=YB", "2048", "YB"},
                 {largest, "base_unit=YB", "18446744073709551615", "YB"},
                 {2048, "base_unit=YB,precision=1", "2048.0", "YB"},
                 {1e30, "precision=1", "827180.6", "YB"},
                 {std::numeric_limits<double>::infinity(), "precision=1", "inf", "YB"}});
}

TEST(format_memory, starts_at_the_base_unit) {
    expect_rows({{2048, "base_unit=B", "2", "KB"},
                 {2048, "base_unit=KB", "2", "MB"},
                 {2, "base_unit=KB", "2", "KB"},
                 {2, "base_unit=MB", "2", "MB"},
                 {2, "base_unit=GB", "2", "GB"},
                 {2, "base_unit=TB", "2", "TB"},
                 {2, "base_unit=PB", "2", "PB"},
                 {2, "base_unit=EB", "2", "EB"},
                 {2, "base_unit=ZB", "2", "ZB"},
                 {2, "base_unit=YB", "2", "YB"},
                 {2048, "base_unit=default", "2", "KB"},
                 {1536, "base_unit=KB,precision=1", "1.5", "MB"}});
}

TEST(format_memory, shifts_right_to_a_larger_target) {
    expect_rows({{largest, "target_unit=B", "18446744073709551615", "B"},
                 {largest, "target_unit=KB", "18014398509481983", "KB"},
                 {largest, "target_unit=MB", "17592186044415", "MB"},
                 {largest, "target_unit=GB", "17179869183", "GB"},
                 {largest, "target_unit=TB", "16777215", "TB"},
                 {largest, "target_unit=PB", "16383", "PB"},
                 {largest, "target_unit=EB", "15", "EB"},
                 {largest, "target_unit=ZB", "0", "ZB"},
                 {largest, "target_unit=YB", "0", "YB"},
                 {1536, "target_unit=MB", "0", "MB"},
                 {4096, "target_unit=GB,base_unit=MB", "4", "GB"}});
}

TEST(format_memory, shifts_left_to_a_smaller_target) {
    expect_rows({{2, "target_unit=KB,base_unit=MB", "2048", "KB"},
                 {2, "target_unit=B,base_unit=MB", "2097152", "B"},
                 {2, "target_unit=MB,base_unit=MB", "2", "MB"},
                 {1, "target_unit=B,base_unit=EB", "1152921504606846976", "B"},
                 {16, "target_unit=B,base_unit=EB", "0", "B"},
                 {17, "target_unit=B,base_unit=EB", "1152921504606846976", "B"},
                 {1, "target_unit=B,base_unit=ZB", "0", "B"},
                 {1, "target_unit=B,base_unit=YB", "0", "B"}});
}

TEST(format_memory, scales_a_real_number_to_the_target) {
    expect_rows({{1536, "target_unit=KB,precision=2", "1.50", "KB"},
                 {1536, "target_unit=MB,precision=6", "0.001465", "MB"},
                 {1.5, "target_unit=KB,base_unit=MB,precision=1", "1536.0", "KB"},
                 {1, "target_unit=B,base_unit=YB,precision=1", "1208925819614629174706176.0", "B"},
                 {1e30, "target_unit=YB,precision=1", "827180.6", "YB"},
                 {5000, "target_unit=B,precision=1", "5000.0", "B"}});
}

TEST(format_memory, takes_a_target_of_any_as_bytes) {
    expect_rows({{1536, "target_unit=any", "1536", "B"},
                 {1536, "target_unit=an", "1536", "B"},
                 {1536, "target_unit=a", "1536", "B"},
                 {1536, "target_unit=,base_unit=B", "1536", "B"},
                 {3, "target_unit=any,base_unit=KB", "3072", "B"},
                 {1536, "target_unit=any,precision=1", "1536.0", "B"},
                 {1536, "target_unit=anyx", "-0", ""}});
}

TEST(format_memory, ignores_what_stands_behind_a_unit) {
    expect_rows({{3, "base_unit=Bytes", "3", "B"},
                 {3, "base_unit=BB", "3", "B"},
                 {3, "base_unit=KB/s", "3", "KB"},
                 {4096, "target_unit=KBYTE", "4", "KB"},
                 {4096, "target_unit=Base", "4096", "B"}});
}

TEST(format_memory, refuses_what_is_no_unit) {
    for (char const* name :
         {"b", "K", "KiB", "kb", "Kb", "XB", " B", "0B", "AB", "1", "defaul", "defaults", "d"}) {
        expect_rows({{3, std::string("base_unit=") + name, "-0", ""},
                     {3, std::string("target_unit=") + name, "-0", ""}});
    }
    expect_rows({{3, "target_unit=default", "-0", ""},
                 {3, "base_unit=any", "-0", ""},
                 {3, "base_unit=,precision=0", "-0", ""},
                 {3, "base_unit=x,base_unit=KB", "-0", ""}});
}

TEST(format_memory, works_on_whole_numbers_for_a_precision_of_0) {
    expect_rows({{1536, "precision=0", "1", "KB"},
                 {1536, "precision=none", "1", "KB"},
                 {1536, "precision=-1", "1", "KB"},
                 {1536, "precision=,fieldsize=0", "1", "KB"},
                 {1536.9, "precision=0", "1", "KB"},
                 {1536, "precision=0,fieldsize=20", "1", "KB"},
                 {1536, "fieldsize=99999999999", "1", "KB"}});
}

TEST(format_memory, aligns_a_real_number_in_its_field) {
    expect_rows({{1536, "precision=1,fieldsize=8", "     1.5", "KB"},
                 {1536, "precision=1,fieldsize=2", "1.", "KB"},
                 {1536, "fieldsize=8,precision=1", "     1.5", "KB"}});
}

TEST(format_memory, gives_the_unit_beside_a_number_that_cannot_be_written) {
    expect_rows({{1536, "precision=99", "-0", "KB"},
                 {1536, "precision=1,fieldsize=65536", "-0", "KB"},
                 {1536, "precision=1,fieldsize=99999999999", "-0", "KB"},
                 {1536, "fieldsize=,precision=1", "-0", "KB"}});
}

// The texts are handed on joined by ";", which then becomes the separator: one of their own becomes it too.
TEST(format_memory, takes_a_semicolon_in_a_number_as_a_separator) {
    expect_rows({{1536, "precision=1;prec;3", "1.500", "KB"},
                 {1536, "precision=1;f;8", "1.5", "KB"},
                 {1536, "precision=1,fieldsize=8;precision;2", "    1.50", "KB"},
                 {1536, "precision=1;x;3", "-0", "KB"},
                 {1536, "precision=1;3", "-0", "KB"}});
}

TEST(format_memory, takes_a_negative_value_as_unsigned_on_the_whole_path_only) {
    expect_rows({{-1, "", "15", "EB"},
                 {-1, "target_unit=B", "18446744073709551615", "B"},
                 {-5000, "precision=1", "-5000.0", "B"},
                 {-5120, "precision=1,target_unit=KB", "-5.0", "KB"}});
}

TEST(format_memory, converts_the_value) {
    expect_rows({{"2048", "", "2", "KB"},
                 {"2048.5", "precision=2,target_unit=B", "2048.50", "B"},
                 {"many", "", "0", "B"},
                 {types::nil, "", "0", "B"},
                 {std::numeric_limits<double>::quiet_NaN(), "precision=1", "nan", "B"}});
}

TEST(format_memory, takes_any_beginning_of_a_key) {
    struct key {
        std::string word;
        std::size_t shortest;
        std::string option;
        std::string number;
    };
    for (key const& option : {key{"target_unit", 0, "B", "2048.0"}, key{"base_unit", 1, "KB", "2.0"},
                              key{"precision", 1, "2", "2.00"}, key{"fieldsize", 1, "5", "  2.0"}}) {
        for (std::size_t length = option.shortest; length <= option.word.size(); ++length) {
            std::string const shortened = option.word.substr(0, length);
            strings::ustring8 unit;
            EXPECT_EQ(
                format_memory(2048, option_text("precision=1," + shortened + "=" + option.option), unit),
                option.number)
                << shortened;
        }
    }
}

TEST(format_memory, takes_the_last_of_several_options) {
    expect_rows({{4096, "target_unit=MB,target_unit=KB", "4", "KB"},
                 {4096, "target_unit=MB,target_unit=any", "4096", "B"},
                 {4096, "base_unit=MB,base_unit=B", "4", "KB"},
                 {4096, "base_unit=MB,base_unit=default", "4", "KB"},
                 {1536, "precision=3,precision=0", "1", "KB"},
                 {1536, "precision=0,precision=3", "1.500", "KB"},
                 {1536, "precision=1,fieldsize=9,fieldsize=5", "  1.5", "KB"}});
}

TEST(format_memory, refuses_bad_options) {
    expect_rows({{1, "unit=KB", "-0", ""},
                 {1, "Precision=1", "-0", ""},
                 {1, "precisions=1", "-0", ""},
                 {1, "short_form=true", "-0", ""},
                 {1, "precision", "-0", ""},
                 {1, "precision=", "-0", ""},
                 {1, "precision=1,fieldsize", "-0", ""},
                 {1, "precision=2147483648", "-0", ""},
                 {1, "precision=2147483648,precision=1", "-0", ""}});
}

} // namespace
