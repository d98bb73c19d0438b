// Where the system has no ANSI page of its own, the page is UTF-8.

#include "veldrin/strings/ansi.hpp"

#include <gtest/gtest.h>

#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;

TEST(ansi, is_utf_8) {
    EXPECT_EQ(strings::gh2::to_ansi(support::utf16({0xE9, 0x20AC, 0xD83D, 0xDE00})),
              "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(strings::gh2::from_ansi("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"),
              support::utf16({0xE9, 0x20AC, 0xD83D, 0xDE00}));
    EXPECT_EQ(strings::gh2::to_ansi(support::utf16({0xD800})), "\xEF\xBF\xBD");
    EXPECT_EQ(strings::gh2::from_ansi("\xFF"), support::utf16({0xFFFD}));
}

} // namespace
