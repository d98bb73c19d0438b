// What the tables of this platform answer where those of another one may answer otherwise.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/code_page.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using support::utf16;

TEST(posix_code_page_seam, knows_no_page_beyond_the_list) {
    for (int const number : {-1, 2, 42, 437, 65000}) {
        EXPECT_EQ(platform::multi_byte_to_wide(number, "a", nullptr, 0), 0);
        EXPECT_EQ(platform::wide_to_multi_byte(number, utf16({'a'}).c_str(), nullptr, 0), 0);
    }
}

TEST(posix_code_page_seam, a_negative_size_is_a_size_query) {
    EXPECT_EQ(platform::multi_byte_to_wide(1252, "abc", nullptr, std::numeric_limits<int>::min()), 4);
}

TEST(posix_code_page_seam, an_output_may_end_in_half_a_pair) {
    std::string bytes = "....";
    EXPECT_EQ(platform::wide_to_multi_byte(932, utf16({0x65E5, 0x672C}).c_str(), bytes.data(), 3), 0);
    EXPECT_EQ(bytes, "\x93\xFA\x96.");
}

} // namespace
