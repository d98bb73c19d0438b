#include "i18n/exponent_form.hpp"

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;
using i18n::_private::fit_exponent_form;

TEST(exponent_form, drops_the_first_of_three_exponent_digits) {
    EXPECT_EQ(fit_exponent_form("1.00e+100", 8), "1.00e+00");
    EXPECT_EQ(fit_exponent_form("1.00e-234", 8), "1.00e-34");
    EXPECT_EQ(fit_exponent_form("1.00e+012", 8), "1.00e+12");
}

TEST(exponent_form, keeps_two_exponent_digits) { EXPECT_EQ(fit_exponent_form("1.00e+12", 8), "1.00e+12"); }

TEST(exponent_form, puts_one_blank_in_front_of_a_short_text) {
    EXPECT_EQ(fit_exponent_form("1.00e+100", 9), " 1.00e+00");
    EXPECT_EQ(fit_exponent_form("1.00e+100", 12), " 1.00e+00");
}

TEST(exponent_form, cuts_a_long_text) {
    EXPECT_EQ(fit_exponent_form("1.00e+100", 6), "1.00e+");
    EXPECT_EQ(fit_exponent_form("1.00e+12", 4), "1.00");
}

TEST(exponent_form, has_no_exponent_in_what_is_no_number) {
    EXPECT_EQ(fit_exponent_form("-inf", 4), "-inf");
    EXPECT_EQ(fit_exponent_form("-inf", 2), "-i");
}

} // namespace
