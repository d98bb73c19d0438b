// The case functions under a locale that has letters beyond ASCII.

#include <gtest/gtest.h>

#include "support/german_locale.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/case.hpp"

namespace {

using namespace VELDRIN_2_18;

using case_under_locale = support::german_locale;

TEST_F(case_under_locale, wider_units_follow_it_up_to_255) {
    EXPECT_EQ(strings::to_lower(support::utf16({0xC4, 0x41, 0x10C, 0xD7})),
              support::utf16({0xE4, 0x61, 0x10C, 0xD7}));
    EXPECT_EQ(strings::to_upper(support::utf16({0xE4, 0x61, 0x10D, 0xF7})),
              support::utf16({0xC4, 0x41, 0x10D, 0xF7}));
    EXPECT_EQ(strings::to_lower(support::utf32({0xD6, 0x10C})), support::utf32({0xF6, 0x10C}));
    EXPECT_EQ(strings::to_upper(support::utf32({0xF6, 0x10D})), support::utf32({0xD6, 0x10D}));
    EXPECT_EQ(strings::lower_case(support::utf16({0xC4, 0xC4, 0xC4}), 1, 2),
              support::utf16({0xC4, 0xE4, 0xC4}));
    EXPECT_EQ(strings::gh2::tolower(support::utf16({0xC4, 0x41})), support::utf16({0xE4, 0x61}));
    EXPECT_EQ(strings::gh2::toupper(support::utf16({0xE4, 0x61})), support::utf16({0xC4, 0x41}));
}

TEST_F(case_under_locale, bytes_follow_it_up_to_127) {
    EXPECT_EQ(strings::to_lower(support::utf8({0xC3, 0xC4, 0x41})), support::utf8({0xC3, 0xC4, 0x61}));
    EXPECT_EQ(strings::to_upper(support::utf8({0xE4, 0xE5, 0x61})), support::utf8({0xE4, 0xE5, 0x41}));
}

} // namespace
