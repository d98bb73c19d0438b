#include "veldrin/i18n/format.hpp"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::_private::format_double;
using support::option_text;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

struct row {
    double value;
    char const* options;
    std::string text;
};

void expect_rows(std::initializer_list<row> rows) {
    for (row const& expected : rows) {
        EXPECT_EQ(format_double(expected.value, option_text(expected.options)), expected.text)
            << expected.value << " (" << expected.options << ")";
    }
}

TEST(format_double, shows_two_digits_by_default) {
    expect_rows({{0.0, "", "0.00"},
                 {3.14159, "", "3.14"},
                 {-3.14159, "", "-3.14"},
                 {1e10, "", "10000000000.00"},
                 {0.005, "", "0.01"},
                 {0.001, "", "0.00"},
                 {-0.001, "", "-0.00"}});
}

TEST(format_double, shows_the_digits_asked_for) {
    expect_rows({{3.14159, "precision=0", "3"},
                 {3.14159, "precision=1", "3.1"},
                 {3.14159, "precision=5", "3.14159"},
                 {3.0, "precision=8", "3.00000000"},
                 {2.5, "precision=0", "2"},
                 {3.5, "precision=0", "4"},
                 {0.5, "precision=20", "0.50000000000000000000"}});
}

TEST(format_double, can_show_a_small_negative_number_as_the_failure_text) {
    expect_rows({{-0.2, "precision=0", "-0"}, {-0.0, "precision=0", "-0"}, {-0.2, "precision=1", "-0.2"}});
}

TEST(format_double, aligns_a_number_that_fits_the_field_to_the_right) {
    expect_rows({{3.14159, "fieldsize=8", "    3.14"},
                 {-3.14159, "fieldsize=8", "   -3.14"},
                 {3.14159, "fieldsize=5", " 3.14"},
                 {3.14159, "fieldsize=4", "3.14"},
                 {3.14159, "fieldsize=1,precision=0", "3"},
                 {3.14159, "fieldsize=6,precision=3", " 3.142"}});
}

TEST(format_double, goes_to_the_exponent_form_when_the_field_is_too_narrow) {
    expect_rows({{123456.789, "fieldsize=8", "1.23e+05"},
                 {-123456.789, "fieldsize=9", "-1.23e+05"},
                 {12345678.9, "fieldsize=8,precision=1", " 1.2e+07"},
                 {12345678.9, "fieldsize=7,precision=1", "1.2e+07"},
                 {12345678.9, "fieldsize=7,precision=0", "  1e+07"},
                 {1e40, "fieldsize=10", "  1.00e+40"}});
}

TEST(format_double, cuts_an_exponent_form_that_is_too_wide_as_well) {
    expect_rows({{3.14159, "fieldsize=4,precision=3", "3.14"},
                 {-3.14159, "fieldsize=4", "-3.1"},
                 {123456.789, "fieldsize=7", "1.23e+0"},
                 {123456.789, "fieldsize=5", "1.23e"},
                 {123456.789, "fieldsize=1", "1"},
                 {-0.5, "fieldsize=1", "-"},
                 {1e-100, "fieldsize=3", "1.0"},
                 {1e-100, "fieldsize=11,precision=10", "1.000000000"}});
}

TEST(format_double, gives_up_on_more_than_63_characters) {
    double const digits_63 = std::ldexp(1.0, 209);
    double const digits_64 = std::ldexp(1.0, 210);
    std::string const two_to_the_209 = "822752278660603021077484591278675252491367932816789931674304512";
    expect_rows({{digits_63, "precision=0", two_to_the_209},
                 {digits_64, "precision=0", "-0"},
                 {-digits_63, "precision=0", "-0"},
                 {digits_63, "", "-0"},
                 {digits_63, "precision=0,fieldsize=63", two_to_the_209},
                 {digits_63, "precision=0,fieldsize=62", std::string(57, ' ') + "8e+62"},
                 {digits_64, "precision=0,fieldsize=10", "-0"},
                 {1e100, "", "-0"},
                 {1e100, "fieldsize=10", "-0"},
                 {1e308, "fieldsize=63", "-0"},
                 {1.0, "precision=61", "1." + std::string(61, '0')},
                 {1.0, "precision=62", "-0"},
                 {-1.0, "precision=61", "-0"},
                 {1.0, "precision=2147483647", "-0"},
                 {3.14159, "fieldsize=63", std::string(59, ' ') + "3.14"},
                 {3.14159, "fieldsize=64", "-0"},
                 {3.14159, "fieldsize=65535", "-0"},
                 {1.0, "precision=57,fieldsize=10", "1.00000000"},
                 {1.0, "precision=58,fieldsize=10", "-0"},
                 {1.0, "precision=61,fieldsize=10", "-0"}});
}

TEST(format_double, writes_what_is_no_number) {
    expect_rows({{infinity, "", "inf"},
                 {-infinity, "", "-inf"},
                 {not_a_number, "", "nan"},
                 {infinity, "fieldsize=5", "  inf"},
                 {infinity, "fieldsize=2", "in"},
                 {infinity, "precision=2147483647", "inf"},
                 {infinity, "fieldsize=64", "-0"}});
}

TEST(format_double, takes_any_beginning_of_a_key) {
    std::string const precision = "precision";
    for (std::size_t length = 0; length <= precision.size(); ++length) {
        EXPECT_EQ(format_double(3.14159, option_text(precision.substr(0, length) + "=1")), "3.1") << length;
    }
    std::string const field_size = "fieldsize";
    for (std::size_t length = 1; length <= field_size.size(); ++length) {
        EXPECT_EQ(format_double(3.14159, option_text(field_size.substr(0, length) + "=6")), "  3.14")
            << length;
    }
}

TEST(format_double, takes_the_last_of_several_options) {
    expect_rows({{3.14159, "precision=1,precision=3", "3.142"},
                 {3.14159, "fieldsize=9,precision=1,fieldsize=0", "3.1"},
                 {3.14159, "precision=2147483648,precision=3", "-0"}});
}

TEST(format_double, reads_its_numbers_leniently) {
    expect_rows({{3.14159, "precision=none", "3"},
                 {3.14159, "precision=,fieldsize=0", "3"},
                 {3.14159, "precision=-1", "3"},
                 {3.14159, "precision=-2147483648", "3"},
                 {3.14159, "precision= 1", "3.1"},
                 {3.14159, "precision=\t\n+1", "3.1"},
                 {3.14159, "precision=1.9", "3.1"},
                 {3.14159, "fieldsize=-6", "3.14"},
                 {3.14159, "fieldsize=wide", "3.14"}});
}

TEST(format_double, refuses_bad_options) {
    expect_rows({{1.0, "precision", "-0"},
                 {1.0, "precision=", "-0"},
                 {1.0, "precision=1,fieldsize", "-0"},
                 {1.0, "base=dec", "-0"},
                 {1.0, "Precision=1", "-0"},
                 {1.0, "precisions=1", "-0"},
                 {1.0, "precision=2147483648", "-0"},
                 {1.0, "precision=-2147483649", "-0"},
                 {1.0, "precision=99999999999999999999", "-0"},
                 {1.0, "fieldsize=65536", "-0"},
                 {1.0, "fieldsize=2147483648", "-0"},
                 {infinity, "precision=2147483648", "-0"}});
}

} // namespace
