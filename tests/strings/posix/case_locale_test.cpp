// The case functions under a locale that knows one pair of letters, and those are not ASCII.

#include <gtest/gtest.h>

#include "support/one_pair_locale.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/case.hpp"

namespace {

using namespace VELDRIN_2_18;

using case_under_locale = support::one_pair_locale;

TEST_F(case_under_locale, wider_units_follow_it_up_to_255) {
    EXPECT_EQ(strings::to_lower(support::utf16({0xC4, 0x41, 0x1C4, 0xC5})),
              support::utf16({0xE4, 0x41, 0x1C4, 0xC5}));
    EXPECT_EQ(strings::to_upper(support::utf16({0xE4, 0x61, 0x1E4, 0xE5})),
              support::utf16({0xC4, 0x61, 0x1E4, 0x6B}));
    EXPECT_EQ(strings::to_lower(support::utf32({0xC4, 0x1C4})), support::utf32({0xE4, 0x1C4}));
    EXPECT_EQ(strings::to_upper(support::utf32({0xE4, 0x1E4})), support::utf32({0xC4, 0x1E4}));
    EXPECT_EQ(strings::lower_case(support::utf16({0xC4, 0xC4, 0xC4}), 1, 2),
              support::utf16({0xC4, 0xE4, 0xC4}));
    EXPECT_EQ(strings::gh2::tolower(support::utf16({0xC4, 0x41})), support::utf16({0xE4, 0x41}));
    EXPECT_EQ(strings::gh2::toupper(support::utf16({0xE4, 0x61})), support::utf16({0xC4, 0x61}));
}

TEST_F(case_under_locale, bytes_follow_it_up_to_127) {
    EXPECT_EQ(strings::to_lower(support::utf8({0xC3, 0xC4, 0x41})), support::utf8({0xC3, 0xC4, 0x41}));
    EXPECT_EQ(strings::to_upper(support::utf8({0xE4, 0xE5, 0x61})), support::utf8({0xE4, 0xE5, 0x61}));
    // The result is stored in the width of the unit.
    EXPECT_EQ(strings::to_lower(support::utf8({0x6B})), support::utf8({0xE5}));
}

} // namespace
