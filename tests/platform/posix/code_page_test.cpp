#include <gtest/gtest.h>

#include "support/unit_texts.hpp"
#include "veldrin/strings/code_page.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::code_page;

TEST(posix_code_page, the_pages_of_the_system_are_utf8) {
    for (code_page::encoding_type const type :
         {code_page::system_ansi, code_page::system_oem, code_page::system_oem_alternate}) {
        code_page const page(type);
        EXPECT_EQ(page.as_utf8("\xE2\x82\xAC\xF0\x9F\x98\x80"), "\xE2\x82\xAC\xF0\x9F\x98\x80");
        EXPECT_EQ(page.as_utf16("\xE2\x82\xAC\xFF"), support::utf16({0x20AC, 0xFFFD}));
        EXPECT_EQ(page.encode(support::utf16({0x20AC, 0xD83D, 0xDE00, 0xDE00})),
                  "\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD");
    }
}

} // namespace
