#include "veldrin/strings/replace.hpp"

#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;

template <class Text>
class replace_all : public testing::Test {};

using text_classes = testing::Types<std::string, wide_string, ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(replace_all, text_classes);

struct replace_case {
    std::string_view text;
    std::string_view from;
    std::string_view to;
    std::string_view result;
    std::int32_t count;
};

replace_case const cases[] = {
    // From left to right, no overlap.
    {"aaa", "aa", "b", "ba", 1},
    {"aaaa", "aa", "b", "bb", 2},
    // What was put in is not searched again.
    {"aa", "a", "aa", "aaaa", 2},
    {"ab", "ab", "aab", "aab", 1},
    {"xaxbx", "x", "", "ab", 3},
    {"xxx", "x", "", "", 3},
    // Nothing new arises across the border of what was put in and what follows.
    {"aabb", "ab", "", "ab", 1},
    {"abc", "b", "B", "aBc", 1},
    {"abc", "abc", "a longer text", "a longer text", 1},
    {"abc", "abcd", "x", "abc", 0},
    {"abc", "x", "y", "abc", 0},
    {"abc", "", "y", "abc", 0},
    {"abc", "", "", "abc", 0},
    {"", "", "y", "", 0},
    {"", "x", "y", "", 0},
};

TYPED_TEST(replace_all, replaces_and_counts) {
    for (replace_case const& current : cases) {
        TypeParam text = support::text_of<TypeParam>(current.text);
        EXPECT_EQ(strings::replace_all(text, support::text_of<TypeParam>(current.from),
                                       support::text_of<TypeParam>(current.to)),
                  current.count)
            << current.text << " from " << current.from;
        EXPECT_EQ(text, support::text_of<TypeParam>(current.result))
            << current.text << " from " << current.from;
    }
}

TYPED_TEST(replace_all, keeps_zero_units) {
    TypeParam text = support::text_of<TypeParam>({"a\0b\0", 4});
    EXPECT_EQ(strings::replace_all(text, support::text_of<TypeParam>({"\0", 1}),
                                   support::text_of<TypeParam>({"-\0", 2})),
              2);
    EXPECT_EQ(text, support::text_of<TypeParam>({"a-\0b-\0", 6}));
}

TYPED_TEST(replace_all, takes_the_text_itself_as_an_argument) {
    TypeParam text = support::text_of<TypeParam>("ab");
    EXPECT_EQ(strings::replace_all(text, support::text_of<TypeParam>("b"), text), 1);
    EXPECT_EQ(text, support::text_of<TypeParam>("aab"));
    EXPECT_EQ(strings::replace_all(text, text, support::text_of<TypeParam>("c")), 1);
    EXPECT_EQ(text, support::text_of<TypeParam>("c"));
}

TEST(replace_all_gh2, is_the_same_for_the_wide_string) {
    for (replace_case const& current : cases) {
        wide_string text = support::text_of<wide_string>(current.text);
        EXPECT_EQ(strings::gh2::replace_all(text, support::text_of<wide_string>(current.from),
                                            support::text_of<wide_string>(current.to)),
                  current.count);
        EXPECT_EQ(text, support::text_of<wide_string>(current.result));
    }
}

TEST(replace_all_result, has_32_bits) {
    ustring8 text;
    static_assert(std::is_same_v<decltype(strings::replace_all(text, text, text)), std::int32_t>);
}

TEST(replace_all_units, compares_units_and_not_characters) {
    ustring8 bytes = support::utf8({0xC3, 0xA9});
    EXPECT_EQ(strings::replace_all(bytes, "\xC3", "A"), 1);
    EXPECT_EQ(bytes, support::utf8({0x41, 0xA9}));

    ustring16 units = support::utf16({0xD83D, 0xDE00});
    EXPECT_EQ(strings::replace_all(units, support::utf16({0xDE00}), support::utf16({})), 1);
    EXPECT_EQ(units, support::utf16({0xD83D}));

    ustring32 code_points = support::utf32({0x1F600, 0x61});
    EXPECT_EQ(strings::replace_all(code_points, support::utf32({0x1F600}), support::utf32({0x110000, 0x62})),
              1);
    EXPECT_EQ(code_points, support::utf32({0x110000, 0x62, 0x61}));
}

// The definition step by step, in place, on every text of up to seven units of two kinds.
std::int32_t replace_step_by_step(std::string& text, std::string const& from, std::string const& to) {
    std::int32_t count = 0;
    for (std::size_t found = text.find(from); found != std::string::npos;
         found = text.find(from, found + to.size())) {
        if (to.size() < from.size()) {
            text.erase(found, from.size() - to.size());
        } else {
            text.insert(found, to.size() - from.size(), ' ');
        }
        std::copy(to.begin(), to.end(), text.begin() + static_cast<std::ptrdiff_t>(found));
        ++count;
    }
    return count;
}

TEST(replace_all_exhaustive, follows_the_steps_for_all_small_texts) {
    for (std::size_t length = 0; length <= 7; ++length) {
        for (unsigned bits = 0; bits < 1u << length; ++bits) {
            std::string text;
            for (std::size_t index = 0; index < length; ++index) {
                text += (bits >> index & 1) != 0 ? 'b' : 'a';
            }
            for (std::string const from : {"a", "aa", "ab", "bab"}) {
                for (std::string const to : {"", "a", "ba", "aa", "abba"}) {
                    std::string result = text;
                    std::string expected = text;
                    ASSERT_EQ(strings::replace_all(result, from, to),
                              replace_step_by_step(expected, from, to))
                        << text << " from " << from << " to " << to;
                    ASSERT_EQ(result, expected) << text << " from " << from << " to " << to;
                }
            }
        }
    }
}

} // namespace
