#include "platform/path.hpp"

#include <string>

#include <gtest/gtest.h>

#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using platform::path;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using support::utf16;
using support::utf32;
using support::utf8;

template <class Text>
void expect_path(Text const& text, std::string const& bytes) {
    EXPECT_TRUE(path(text).names_something());
    EXPECT_EQ(path(text).text(), bytes);
}

template <class Text>
void expect_nothing(Text const& text) {
    EXPECT_FALSE(path(text).names_something());
    EXPECT_EQ(path(text).text(), "");
    EXPECT_FALSE(path(text).child("a").names_something());
    EXPECT_FALSE(path(text).prefix(0).names_something());
}

TEST(path, takes_bytes_as_they_are) {
    expect_path(ustring8(), "");
    expect_path(ustring8("/a\\b/\xFF\xC3"), "/a\\b/\xFF\xC3");
    expect_path(ustring8("-1"), "-1");
}

TEST(path, takes_utf_16_to_utf_8) {
    expect_path(ustring16(), "");
    expect_path(utf16({0x2F, 0xE9, 0xD83D, 0xDE00}), "/\xC3\xA9\xF0\x9F\x98\x80");
    // A mark is a character.
    expect_path(utf16({0xFEFF, 0x61}), "\xEF\xBB\xBF"
                                       "a");
    expect_path(utf16({0x61, 0xFFFE}), "a\xEF\xBF\xBE");
    expect_path(utf16({0x2D, 0x31}), "-1");
}

TEST(path, takes_utf_32_straight_to_utf_8) {
    expect_path(ustring32(), "");
    // By way of the other converter to UTF-16 this would be another character.
    expect_path(utf32({0x2F, 0xE9, 0x1F600, 0x10FFFF}), "/\xC3\xA9\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
    expect_path(utf32({0xFFFE, 0x61}), "\xEF\xBF\xBE"
                                       "a");
    expect_path(utf32({0x2D, 0x31}), "-1");
}

TEST(path, of_what_cannot_be_converted_names_nothing) {
    expect_nothing(utf16({0xD800}));
    expect_nothing(utf16({0xDC00, 0x61}));
    expect_nothing(utf16({0x61, 0xDBFF}));
    expect_nothing(utf16({0xFFFE}));
    expect_nothing(utf16({0xFFFE, 0x6100}));
    expect_nothing(utf32({0xD800}));
    expect_nothing(utf32({0x61, 0xDFFF}));
    expect_nothing(utf32({0x61, 0x110000}));
    expect_nothing(utf32({0xFFFFFFFF}));
}

TEST(path, with_a_zero_unit_names_nothing) {
    expect_nothing(utf8({0x61, 0}));
    expect_nothing(utf16({0, 0x61}));
    expect_nothing(utf32({0x61, 0, 0x62}));
}

TEST(path, has_children_and_prefixes) {
    path const base(ustring8("a/b"));
    EXPECT_EQ(base.child("c").text(), "a/b/c");
    EXPECT_EQ(path(ustring8()).child("c").text(), "/c");
    EXPECT_EQ(base.prefix(1).text(), "a");
    EXPECT_EQ(base.prefix(0).text(), "");
    EXPECT_TRUE(base.prefix(0).names_something());
}

TEST(path, goes_back_to_each_text) {
    path const all(utf8({0x2F, 0xC3, 0xA9, 0xF0, 0x9F, 0x98, 0x80}));
    EXPECT_EQ(all.as<ustring8>(), utf8({0x2F, 0xC3, 0xA9, 0xF0, 0x9F, 0x98, 0x80}));
    EXPECT_EQ(all.as<ustring16>(), utf16({0x2F, 0xE9, 0xD83D, 0xDE00}));
    EXPECT_EQ(all.as<ustring32>(), utf32({0x2F, 0xE9, 0x1F600}));
    EXPECT_EQ(path(ustring8("-1")).as<ustring16>(), utf16({0x2D, 0x31}));
    EXPECT_EQ(path(ustring8()).as<ustring16>(), ustring16());
}

TEST(path, gives_16_bit_text_only_if_that_leads_back) {
    for (ustring8 const& bytes :
         {utf8({0xFF}), utf8({0xC3}), utf8({0x80}), utf8({0xC0, 0xAF}), utf8({0xED, 0xA0, 0x80}),
          utf8({0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}), utf8({0xF4, 0x90, 0x80, 0x80}),
          utf8({0xF0, 0x82, 0x82, 0xAC}), utf8({0x2D, 0x31, 0xFF}), utf8({0xEF, 0xBF, 0xBE})}) {
        EXPECT_EQ(path(bytes).as<ustring16>(), std::nullopt);
        EXPECT_EQ(path(bytes).as<ustring8>(), bytes);
        EXPECT_TRUE(path(bytes).as<ustring32>().has_value());
    }
    EXPECT_EQ(path(utf8({0x61, 0xFF})).as<ustring32>(), utf32({0x61, 0x3F}));
}

} // namespace
