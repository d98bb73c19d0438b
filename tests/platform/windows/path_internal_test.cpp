#include "platform/path.hpp"

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
void expect_path(Text const& text, ustring16 const& units) {
    EXPECT_TRUE(path(text).names_something());
    EXPECT_EQ(path(text).text(), units);
}

template <class Text>
void expect_nothing(Text const& text) {
    EXPECT_FALSE(path(text).names_something());
    EXPECT_EQ(path(text).text(), ustring16());
    EXPECT_FALSE(path(text).child(utf16({'a'})).names_something());
    EXPECT_FALSE(path(text).prefix(0).names_something());
}

TEST(path, takes_utf_16_as_it_is) {
    expect_path(ustring16(), utf16({}));
    for (ustring16 const& units : {utf16({'C', ':', 0x5C, '/', 0xE9, 0xD83D, 0xDE00}), utf16({'-', '1'}),
                                   utf16({0xD800}), utf16({0xFFFE, 0x61}), utf16({0xFEFF})}) {
        expect_path(units, units);
    }
}

TEST(path, takes_utf_8_to_utf_16) {
    expect_path(ustring8(), utf16({}));
    expect_path(utf8({0x5C, 0xC3, 0xA9, 0xF0, 0x9F, 0x98, 0x80}), utf16({0x5C, 0xE9, 0xD83D, 0xDE00}));
    expect_path(ustring8("-1"), utf16({'-', '1'}));
}

// Beyond U+FFFF the units are those of the converter, which are no standard pair.
TEST(path, takes_utf_32_by_the_converter) {
    expect_path(ustring32(), utf16({}));
    expect_path(utf32({0x5C, 0xE9, 0x1F600}), utf16({0x5C, 0xE9, 0xD87D, 0xDE00}));
    expect_path(utf32({'-', '1'}), utf16({'-', '1'}));
}

TEST(path, of_what_cannot_be_converted_names_nothing) {
    expect_nothing(utf8({0xFF}));
    expect_nothing(utf8({0x61, 0xC3}));
    expect_nothing(utf8({0x80}));
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
    path const base(utf16({'a', 0x5C, 'b'}));
    EXPECT_EQ(base.child(utf16({'c'})).text(), utf16({'a', 0x5C, 'b', 0x5C, 'c'}));
    EXPECT_EQ(base.prefix(1).text(), utf16({'a'}));
    EXPECT_TRUE(base.prefix(0).names_something());
}

TEST(path, goes_back_to_each_text) {
    path const all(utf16({0x5C, 0xE9, 0xD83D, 0xDE00}));
    EXPECT_EQ(all.as<ustring8>(), utf8({0x5C, 0xC3, 0xA9, 0xF0, 0x9F, 0x98, 0x80}));
    EXPECT_EQ(all.as<ustring16>(), utf16({0x5C, 0xE9, 0xD83D, 0xDE00}));
    EXPECT_EQ(all.as<ustring32>(), utf32({0x5C, 0xE9, 0x1F600}));
    EXPECT_EQ(path(ustring16()).as<ustring8>(), ustring8());
    EXPECT_EQ(path(utf16({'-', '1'})).as<ustring8>(), utf8({'-', '1'}));
}

TEST(path, gives_no_text_for_units_that_are_none) {
    for (ustring16 const& units : {utf16({0xD800}), utf16({0x61, 0xDC00}), utf16({0xFFFE, 0x61})}) {
        EXPECT_EQ(path(units).as<ustring8>(), std::nullopt);
        EXPECT_EQ(path(units).as<ustring16>(), units);
        EXPECT_EQ(path(units).as<ustring32>(), std::nullopt);
    }
}

} // namespace
