#include "veldrin/strings/ansi.hpp"

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/code_page.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::wide_string;

TEST(ansi, ascii_passes_both_ways) {
    EXPECT_EQ(strings::gh2::to_ansi(support::text_of<wide_string>("file.txt")), "file.txt");
    EXPECT_EQ(strings::gh2::from_ansi("file.txt"), support::text_of<wide_string>("file.txt"));
    EXPECT_EQ(strings::gh2::to_ansi(wide_string()), "");
    EXPECT_EQ(strings::gh2::from_ansi(""), wide_string());
}

TEST(ansi, is_the_code_page_system_ansi) {
    strings::code_page const page(strings::code_page::system_ansi);
    ustring16 const text = support::utf16({0xE9, 0x20AC, 0x4E2D, 0xD83D, 0xDE00, 0xD800, 0x41});
    EXPECT_EQ(strings::gh2::to_ansi(text), page.encode(text));
    std::string const bytes = "\xC3\xA9 \xE9 \x80\xFF\xF0\x9F\x98\x80";
    EXPECT_EQ(strings::gh2::from_ansi(bytes), page.as_ustring(bytes));
}

TEST(ansi, stops_at_the_first_zero_unit) {
    EXPECT_EQ(strings::gh2::to_ansi(support::text_of<wide_string>({"a\0b", 3})), "a");
    EXPECT_EQ(strings::gh2::from_ansi(std::string("a\0b", 3)), support::text_of<wide_string>("a"));
}

} // namespace
