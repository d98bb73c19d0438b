#include "veldrin/i18n/format.hpp"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::_private::format_duration;
using support::option_text;

struct row {
    double value;
    char const* options;
    std::string text;
};

void expect_rows(std::initializer_list<row> rows) {
    for (row const& expected : rows) {
        EXPECT_EQ(format_duration(expected.value, option_text(expected.options)), expected.text)
            << expected.value << " (" << expected.options << ")";
    }
}

TEST(format_duration, starts_with_the_first_part_that_is_not_0) {
    expect_rows({{0, "", "0.00 sec"},
                 {59.5, "", "59.50 sec"},
                 {60, "", "1 min 0.00 sec"},
                 {61.25, "", "1 min 1.25 sec"},
                 {3599, "", "59 min 59.00 sec"},
                 {3600, "", "1 hr 0 min 0.00 sec"},
                 {3661, "", "1 hr 1 min 1.00 sec"},
                 {86399, "", "23 hr 59 min 59.00 sec"},
                 {86400, "", "1 dy 0 hr 0 min 0.00 sec"},
                 {86460, "", "1 dy 0 hr 1 min 0.00 sec"},
                 {93784.5, "", "1 dy 2 hr 3 min 4.50 sec"},
                 {864000, "", "10 dy 0 hr 0 min 0.00 sec"},
                 {2147483647, "", "24855 dy 3 hr 14 min 7.00 sec"}});
}

TEST(format_duration, has_a_short_form) {
    expect_rows({{93784.5, "short_form=true", "1d 2h 3m 4.50s"},
                 {93784.5, "short_form=false", "1 dy 2 hr 3 min 4.50 sec"},
                 {3600, "short_form=true", "1h 0m 0.00s"},
                 {60, "short_form=true", "1m 0.00s"},
                 {59.5, "short_form=true", "59.50s"}});
}

TEST(format_duration, shows_the_seconds_with_the_digits_asked_for) {
    expect_rows({{93784.125, "precision=3", "1 dy 2 hr 3 min 4.125 sec"},
                 {93784.125, "precision=1", "1 dy 2 hr 3 min 4.1 sec"},
                 {93784.125, "precision=0", "1 dy 2 hr 3 min 4 sec"},
                 {93784.125, "precision=none", "1 dy 2 hr 3 min 4 sec"},
                 {93784.125, "precision=1;fieldsize;9", "1 dy 2 hr 3 min 4.1 sec"},
                 {1.5, "precision=1,short_form=true", "1.5s"}});
}

// The seconds are rounded after the minutes were taken out.
TEST(format_duration, does_not_carry_a_rounded_second) {
    expect_rows({{59.999, "", "60.00 sec"}, {119.999, "", "1 min 60.00 sec"}});
}

TEST(format_duration, truncates_each_part_of_a_negative_value_toward_0) {
    expect_rows({{-59.5, "", "-59.50 sec"},
                 {-60, "", "-1 min 0.00 sec"},
                 {-3661, "", "-1 hr -1 min -1.00 sec"},
                 {-86400, "", "-1 dy 0 hr 0 min 0.00 sec"},
                 {-93784.5, "", "-1 dy -2 hr -3 min -4.50 sec"}});
}

TEST(format_duration, keeps_the_low_32_bits_of_a_large_value) {
    expect_rows({{3e9, "", "-14988 dy -1 hr -8 min 4294967280.00 sec"},
                 {4294967296.0, "", "4294967296.00 sec"},
                 {4294967296.0 + 61, "", "1 min 4294967297.00 sec"},
                 {9223372036854775808.0, "", "9223372036854775808.00 sec"},
                 {-9223372036854775808.0, "", "-9223372036854775808.00 sec"},
                 {1e25, "", "10000000000000000905969664.00 sec"},
                 {-1e25, "", "-10000000000000000905969664.00 sec"}});
}

TEST(format_duration, writes_what_is_no_number_of_seconds) {
    expect_rows({{std::numeric_limits<double>::infinity(), "", "inf sec"},
                 {-std::numeric_limits<double>::infinity(), "", "-inf sec"},
                 {std::numeric_limits<double>::quiet_NaN(), "", "nan sec"}});
}

TEST(format_duration, writes_the_failure_in_the_place_of_the_seconds) {
    expect_rows({{1e300, "", "-0 sec"},
                 {60, "precision=99", "1 min -0 sec"},
                 {60, "precision=2147483648", "1 min -0 sec"},
                 {60, "precision=,short_form=true", "1m -0s"},
                 {-0.2, "precision=0", "-0 sec"}});
}

TEST(format_duration, takes_any_beginning_of_a_key) {
    std::string const precision = "precision";
    for (std::size_t length = 0; length <= precision.size(); ++length) {
        EXPECT_EQ(format_duration(1.5, option_text(precision.substr(0, length) + "=1")), "1.5 sec") << length;
    }
    std::string const short_form = "short_form";
    for (std::size_t length = 1; length <= short_form.size(); ++length) {
        EXPECT_EQ(format_duration(1.5, option_text(short_form.substr(0, length) + "=true")), "1.50s")
            << length;
    }
}

TEST(format_duration, takes_any_beginning_of_true_and_false) {
    for (char const* value : {"t", "tr", "tru", "true"}) {
        EXPECT_EQ(format_duration(1.5, option_text(std::string("short_form=") + value)), "1.50s") << value;
    }
    for (char const* value : {"f", "fa", "fal", "fals", "false"}) {
        EXPECT_EQ(format_duration(1.5, option_text(std::string("short_form=") + value)), "1.50 sec") << value;
    }
    EXPECT_EQ(format_duration(1.5, option_text("short_form=,precision=2")), "1.50s");
}

TEST(format_duration, takes_the_last_of_several_options) {
    expect_rows({{1.5, "short_form=true,short_form=false", "1.50 sec"},
                 {1.5, "precision=3,precision=1", "1.5 sec"},
                 {1.5, "precision=,precision=1", "1.5 sec"},
                 {1.5, "short_form=yes,short_form=true", "-0"}});
}

TEST(format_duration, refuses_bad_options) {
    expect_rows({{1.5, "short_form=yes", "-0"},
                 {1.5, "short_form=True", "-0"},
                 {1.5, "short_form=1", "-0"},
                 {1.5, "short_form=truex", "-0"},
                 {1.5, "short_form", "-0"},
                 {1.5, "short_form=", "-0"},
                 {1.5, "precision=1,short_form", "-0"},
                 {1.5, "fieldsize=3", "-0"},
                 {1.5, "Precision=1", "-0"}});
}

} // namespace
