// The formatters under a locale with a decimal comma.

#include <gtest/gtest.h>

#include "comma_locale.hpp"
#include "support/option_text.hpp"
#include "veldrin/i18n/format.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace VELDRIN_2_18::i18n::_private;
using support::option_text;

using format_under_locale = support::comma_locale;

TEST_F(format_under_locale, real_numbers_have_its_decimal_point) {
    EXPECT_EQ(format_double(1234.5, ""), "1234,50");
    EXPECT_EQ(format_double(3.14159, option_text("fieldsize=6")), "  3,14");
    EXPECT_EQ(format_double(123456.789, option_text("fieldsize=8")), "1,23e+05");
    EXPECT_EQ(format_duration(59.5, ""), "59,50 sec");

    strings::ustring8 unit;
    EXPECT_EQ(format_memory(1536, option_text("precision=1"), unit), "1,5");
    EXPECT_EQ(format_metric(1500, "", unit), "1,500");
}

TEST_F(format_under_locale, whole_numbers_have_no_separator_of_it) {
    EXPECT_EQ(format_int(1234567, ""), "1234567");
    EXPECT_EQ(format_int(1234567, option_text("base=spaced_dec")), "1 234 567");

    strings::ustring8 unit;
    EXPECT_EQ(format_memory(1000000, option_text("target_unit=B"), unit), "1000000");
}

} // namespace
