#include "veldrin/strings/split.hpp"

#include <string_view>

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
class split_string : public testing::Test {};

using text_classes = testing::Types<std::string, wide_string, ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(split_string, text_classes);

struct split_case {
    std::string_view text;
    std::string_view delimiter;
    int limit;
    std::vector<std::string_view> pieces;
};

split_case const cases[] = {
    {"a,b,c", ",", 0, {"a", "b", "c"}},
    // The limit counts cuts, not pieces.
    {"a,b,c", ",", 1, {"a", "b,c"}},
    {"a,b,c", ",", 2, {"a", "b", "c"}},
    {"a,b,c", ",", 3, {"a", "b", "c"}},
    {"a,b,c", ",", -1, {"a", "b", "c"}},
    {"a,b,c", ",", -2147483647 - 1, {"a", "b", "c"}},
    {"a,b,c", ",", 2147483647, {"a", "b", "c"}},
    // A cut at the very end leaves nothing to append.
    {"a,b,", ",", 0, {"a", "b"}},
    {"a,b,", ",", 2, {"a", "b"}},
    {"a,b,", ",", 1, {"a", "b,"}},
    {"a,,", ",", 0, {"a", ""}},
    {"a,,", ",", 1, {"a", ","}},
    {",a", ",", 0, {"", "a"}},
    {"a,,b", ",", 0, {"a", "", "b"}},
    {",", ",", 0, {""}},
    {",,", ",", 0, {"", ""}},
    {"abc", ",", 0, {"abc"}},
    {"abc", "abc", 0, {""}},
    {"abc", "abcd", 0, {"abc"}},
    {"a--b-c", "--", 0, {"a", "b-c"}},
    // Finds do not overlap.
    {"a---b", "--", 0, {"a", "-b"}},
    // An empty delimiter cuts nothing; an empty text has nothing in it.
    {"abc", "", 0, {"abc"}},
    {"abc", "", 1, {"abc"}},
    {"", "", 0, {""}},
    {"", ",", 0, {}},
    {"", ",", 1, {}},
};

TYPED_TEST(split_string, cuts_at_each_delimiter_up_to_the_limit) {
    for (split_case const& current : cases) {
        EXPECT_EQ(strings::split_string(support::text_of<TypeParam>(current.text),
                                        support::text_of<TypeParam>(current.delimiter), current.limit),
                  support::texts_of<TypeParam>(current.pieces))
            << current.text << " at " << current.delimiter << ", limit " << current.limit;
    }
}

TYPED_TEST(split_string, keeps_zero_units) {
    TypeParam const text = support::text_of<TypeParam>({"a\0,b", 4});
    EXPECT_EQ(strings::split_string(text, support::text_of<TypeParam>(","), 0),
              support::texts_of<TypeParam>({{"a\0", 2}, "b"}));
    EXPECT_EQ(strings::split_string(text, support::text_of<TypeParam>({"\0", 1}), 0),
              support::texts_of<TypeParam>({"a", ",b"}));
}

template <class Text>
class split_string_at_literal : public testing::Test {};

using literal_classes = testing::Types<std::string, ustring8>;
TYPED_TEST_SUITE(split_string_at_literal, literal_classes);

TYPED_TEST(split_string_at_literal, is_the_same_split) {
    for (split_case const& current : cases) {
        EXPECT_EQ(strings::split_string(support::text_of<TypeParam>(current.text), current.delimiter.data(),
                                        current.limit),
                  support::texts_of<TypeParam>(current.pieces))
            << current.text << " at " << current.delimiter << ", limit " << current.limit;
    }
}

// The definition step by step, on every text of up to seven units of two kinds, with delimiters that can
// overlap themselves.
std::vector<std::string> split_step_by_step(std::string const& text, std::string const& delimiter,
                                            int limit) {
    std::vector<std::string> result;
    std::size_t position = 0;
    int count = 0;
    while (true) {
        if (position >= text.size()) {
            return result;
        }
        std::size_t const found = text.find(delimiter, position);
        if (found == std::string::npos) {
            break;
        }
        result.push_back(text.substr(position, found - position));
        ++count;
        position = found + delimiter.size();
        if (count == limit) {
            break;
        }
    }
    if (position < text.size()) {
        result.push_back(text.substr(position));
    }
    return result;
}

TEST(split_string_exhaustive, follows_the_steps_for_all_small_texts) {
    for (std::size_t length = 0; length <= 7; ++length) {
        for (unsigned bits = 0; bits < 1u << length; ++bits) {
            std::string text;
            for (std::size_t index = 0; index < length; ++index) {
                text += (bits >> index & 1) != 0 ? ',' : 'a';
            }
            for (std::string const delimiter : {",", ",,", "a,", "a,a", "aa"}) {
                for (int limit = -1; limit <= 4; ++limit) {
                    ASSERT_EQ(strings::split_string(text, delimiter, limit),
                              split_step_by_step(text, delimiter, limit))
                        << text << " at " << delimiter << ", limit " << limit;
                }
            }
        }
    }
}

TEST(split_string_units, compares_units_and_not_characters) {
    // Half of a surrogate pair is a delimiter like any other.
    EXPECT_EQ(
        strings::split_string(support::utf16({0x61, 0xD83D, 0xDE00, 0x62}), support::utf16({0xD83D}), 0),
        (std::vector<ustring16>{support::utf16({0x61}), support::utf16({0xDE00, 0x62})}));
    EXPECT_EQ(strings::split_string(support::utf8({0x61, 0xC3, 0xA9, 0x62}), "\xC3", 0),
              (std::vector<ustring8>{support::utf8({0x61}), support::utf8({0xA9, 0x62})}));
    EXPECT_EQ(strings::split_string(support::utf32({0x61, 0x1F600, 0x62}), support::utf32({0x1F600}), 0),
              (std::vector<ustring32>{support::utf32({0x61}), support::utf32({0x62})}));
}

} // namespace
