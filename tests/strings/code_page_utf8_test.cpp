// UTF-8 as a code page: strict, with U+FFFD for what is ill-formed.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/unit_texts.hpp"
#include "veldrin/strings/code_page.hpp"
#include "veldrin/strings/unicode.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::code_page;
using support::utf16;

code_page const utf8_page(code_page::utf8);

struct byte_range {
    unsigned char first;
    unsigned char last;
};

// The well-formed byte sequences of UTF-8, as Unicode lists them.
std::vector<std::vector<byte_range>> const well_formed = {
    {{0x01, 0x7F}},
    {{0xC2, 0xDF}, {0x80, 0xBF}},
    {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
    {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
    {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}},
};

std::size_t matching_bytes(std::vector<byte_range> const& ranges, std::string const& bytes,
                           std::size_t position) {
    std::size_t count = 0;
    while (count < ranges.size() && position + count < bytes.size()) {
        auto const byte = static_cast<unsigned char>(bytes[position + count]);
        if (byte < ranges[count].first || byte > ranges[count].last) {
            break;
        }
        ++count;
    }
    return count;
}

// The model: what begins like a well-formed sequence and is not one is replaced by one U+FFFD, as far as it
// goes.
strings::ustring16 decode_by_model(std::string const& bytes) {
    strings::ustring16 result;
    for (std::size_t position = 0; position < bytes.size();) {
        std::size_t longest = 1;
        bool is_whole = false;
        for (std::vector<byte_range> const& ranges : well_formed) {
            std::size_t const count = matching_bytes(ranges, bytes, position);
            longest = std::max(longest, count);
            is_whole = is_whole || count == ranges.size();
        }
        result += is_whole ? strings::utf8_to_utf16(bytes.substr(position, longest)) : utf16({0xFFFD});
        position += longest;
    }
    return result;
}

void expect_as_model(std::string const& bytes) {
    ASSERT_EQ(utf8_page.as_utf16(bytes), decode_by_model(bytes)) << testing::PrintToString(bytes);
}

TEST(code_page_utf8, decodes_all_texts_of_one_and_two_bytes_by_maximal_parts) {
    for (unsigned int first = 1; first <= 0xFF; ++first) {
        expect_as_model({static_cast<char>(first)});
        for (unsigned int second = 1; second <= 0xFF; ++second) {
            expect_as_model({static_cast<char>(first), static_cast<char>(second)});
        }
    }
}

// Every value at which the meaning of a byte changes, from both sides.
constexpr unsigned char boundaries[] = {0x01, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0,
                                        0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE, 0xEF,
                                        0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF7, 0xF8, 0xFF};

TEST(code_page_utf8, decodes_all_boundaries_of_three_and_four_bytes_by_maximal_parts) {
    for (unsigned char const first : boundaries) {
        for (unsigned char const second : boundaries) {
            for (unsigned char const third : boundaries) {
                std::string const bytes = {static_cast<char>(first), static_cast<char>(second),
                                           static_cast<char>(third)};
                expect_as_model(bytes);
                for (unsigned char const fourth : boundaries) {
                    expect_as_model(bytes + static_cast<char>(fourth));
                }
            }
        }
    }
}

TEST(code_page_utf8, replaces_ill_formed_parts_one_by_one) {
    struct {
        std::string bytes;
        strings::ustring16 text;
    } const rows[] = {
        {"\x80", utf16({0xFFFD})},
        {"\xC0\x80", utf16({0xFFFD, 0xFFFD})},
        {"\xE2\x82", utf16({0xFFFD})},
        {"\xE2\x82"
         "A",
         utf16({0xFFFD, 'A'})},
        {"\xE0\x80\x80", utf16({0xFFFD, 0xFFFD, 0xFFFD})},
        {"\xED\xA0\x80", utf16({0xFFFD, 0xFFFD, 0xFFFD})},
        {"\xF0\x9F\x98", utf16({0xFFFD})},
        {"\xF4\x90\x80\x80", utf16({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD})},
        {"\xF8\x88\x80\x80\x80", utf16({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD})},
        {"a\xF1\x80\x80\xE1\x80\xC2"
         "b\x80"
         "c\x80\xBF"
         "d",
         utf16({'a', 0xFFFD, 0xFFFD, 0xFFFD, 'b', 0xFFFD, 'c', 0xFFFD, 0xFFFD, 'd'})},
        {std::string("\xE2\0\x82", 3), utf16({0xFFFD})},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(utf8_page.as_utf16(row.bytes), row.text) << testing::PrintToString(row.bytes);
    }
}

TEST(code_page_utf8, every_character_goes_there_and_back) {
    for (std::uint32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF) {
            continue;
        }
        strings::ustring8 const bytes = strings::utf32_to_utf8(support::utf32({character}));
        strings::ustring16 const text = strings::utf8_to_utf16(bytes);
        ASSERT_EQ(utf8_page.encode(text), bytes) << std::hex << character;
        ASSERT_EQ(utf8_page.as_utf16(bytes), text) << std::hex << character;
    }
}

TEST(code_page_utf8, a_lone_surrogate_encodes_as_the_replacement_character) {
    for (std::uint32_t unit = 0xD800; unit <= 0xDFFF; ++unit) {
        ASSERT_EQ(utf8_page.encode(utf16({unit})), "\xEF\xBF\xBD");
        ASSERT_EQ(utf8_page.encode(utf16({unit, 'a'})), "\xEF\xBF\xBD"
                                                        "a");
    }
    EXPECT_EQ(utf8_page.encode(utf16({0xD83D, 0xD83D, 0xDE00})), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8_page.encode(utf16({0xDE00, 0xD83D})), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(utf8_page.encode(utf16({0xD83D, 0, 0xDE00})), "\xEF\xBF\xBD");
}

TEST(code_page_utf8, a_byte_order_mark_is_a_character_like_any_other) {
    EXPECT_EQ(utf8_page.as_utf16("\xEF\xBB\xBF"
                                 "a"),
              utf16({0xFEFF, 'a'}));
    EXPECT_EQ(utf8_page.encode(utf16({0xFEFF, 'a'})), "\xEF\xBB\xBF"
                                                      "a");
}

// The converters behind UTF-16 end the process for this unit; UTF-16 itself takes it.
TEST(code_page_utf8, a_swapped_byte_order_mark_can_be_had_as_utf16_only) {
    EXPECT_EQ(utf8_page.as_utf16("\xEF\xBF\xBE"
                                 "a"),
              utf16({0xFFFE, 'a'}));
    EXPECT_EQ(utf8_page.as_ustring("\xEF\xBF\xBE"
                                   "a"),
              utf16({0xFFFE, 'a'}));
    EXPECT_DEATH(utf8_page.as_utf8("\xEF\xBF\xBE"), "");
    EXPECT_DEATH(utf8_page.as_utf32("\xEF\xBF\xBE"), "");
}

} // namespace
