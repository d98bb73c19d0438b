// The contract of the two functions at the seam, where the class does not show it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/code_page.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using support::utf16;

TEST(code_page_seam, a_size_query_counts_the_terminator) {
    EXPECT_EQ(platform::multi_byte_to_wide(932, "\x93\xFA.", nullptr, 0), 3);
    EXPECT_EQ(platform::wide_to_multi_byte(932, utf16({0x65E5, '.'}).c_str(), nullptr, 0), 4);
    EXPECT_EQ(platform::multi_byte_to_wide(65001, "", nullptr, 0), 1);
    EXPECT_EQ(platform::wide_to_multi_byte(65001, utf16({}).c_str(), nullptr, 0), 1);
}

TEST(code_page_seam, an_unknown_number_fails) {
    for (int const number : {1259, 12345, 28600}) {
        EXPECT_EQ(platform::multi_byte_to_wide(number, "a", nullptr, 0), 0);
        EXPECT_EQ(platform::wide_to_multi_byte(number, utf16({'a'}).c_str(), nullptr, 0), 0);
    }
}

TEST(code_page_seam, an_output_that_is_too_small_is_filled_and_fails) {
    std::string bytes = "....";
    EXPECT_EQ(platform::wide_to_multi_byte(932, utf16({0x65E5, 0x672C}).c_str(), bytes.data(), 2), 0);
    EXPECT_EQ(bytes, "\x93\xFA..");
    strings::ustring16 text = utf16({'.', '.', '.'});
    EXPECT_EQ(platform::multi_byte_to_wide(1252, "abc", text.data(), 2), 0);
    EXPECT_EQ(text, utf16({'a', 'b', '.'}));
}

TEST(code_page_seam, an_output_that_fits_gets_the_terminator) {
    std::vector<char> bytes(4, '.');
    EXPECT_EQ(platform::wide_to_multi_byte(65001, utf16({0x20AC}).c_str(), bytes.data(), 4), 4);
    EXPECT_EQ(bytes, (std::vector<char>{'\xE2', '\x82', '\xAC', '\0'}));
}

} // namespace
