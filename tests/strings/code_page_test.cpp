#include "veldrin/strings/code_page.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <type_traits>
#include <utility>

#include "support/unit_texts.hpp"
#include "veldrin/exceptions/logic_error.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::code_page;
using support::utf16;
using support::utf32;
using support::utf8;

code_page::encoding_type type_of_number(std::int32_t number) {
    return static_cast<code_page::encoding_type>(number);
}

struct encoding_row {
    code_page::encoding_type type;
    std::int32_t value;
    int system_number;
};

constexpr encoding_row encodings[] = {
    {code_page::system_ansi, 1, 0},          {code_page::system_oem, 2, 1},
    {code_page::system_oem_alternate, 3, 1}, {code_page::utf8, 4, 65001},
    {code_page::cp_932, 932, 932},           {code_page::cp_936, 936, 936},
    {code_page::cp_949, 949, 949},           {code_page::cp_950, 950, 950},
    {code_page::cp_1250, 1250, 1250},        {code_page::cp_1251, 1251, 1251},
    {code_page::cp_1252, 1252, 1252},        {code_page::cp_1253, 1253, 1253},
    {code_page::cp_1254, 1254, 1254},        {code_page::cp_1255, 1255, 1255},
    {code_page::cp_1256, 1256, 1256},        {code_page::cp_1257, 1257, 1257},
    {code_page::cp_1258, 1258, 1258},        {code_page::cp_20866, 20866, 20866},
    {code_page::cp_21866, 21866, 21866},     {code_page::cp_28591, 28591, 28591},
    {code_page::cp_28592, 28592, 28592},     {code_page::cp_28593, 28593, 28593},
    {code_page::cp_28594, 28594, 28594},     {code_page::cp_28595, 28595, 28595},
    {code_page::cp_28596, 28596, 28596},     {code_page::cp_28597, 28597, 28597},
    {code_page::cp_28598, 28598, 28598},     {code_page::cp_28599, 28599, 28599},
    {code_page::cp_28605, 28605, 28605},
};

// Reaches the protected member.
class open_code_page : public code_page {
public:
    using code_page::code_page;
    using code_page::to_system_type;
};

template <class Call>
void expect_not_valid(Call const& call) {
    try {
        call();
        ADD_FAILURE() << "nothing was thrown";
    } catch (exceptions::invalid_argument_value const& failure) {
        EXPECT_STREQ(failure.message(), "Not valid code_page type");
        EXPECT_STREQ(failure.error_state().file(), "strings/code_page");
        EXPECT_STREQ(failure.error_state().function(), "VELDRIN_2_18::strings::code_page::to_system_type");
        EXPECT_GT(failure.error_state().line(), 0u);
    }
}

template <class Left, class Right>
concept unequal_comparable = requires(Left const& left, Right const& right) {
    left != right;
};

template <class Page>
concept offers_to_system_type = requires(Page const& page) {
    page.to_system_type(Page::utf8);
};

TEST(code_page, the_enumeration_has_32_bits_and_the_listed_values) {
    static_assert(std::is_same_v<std::underlying_type_t<code_page::encoding_type>, std::int32_t>);
    static_assert(sizeof(code_page) == sizeof(code_page::encoding_type));
    EXPECT_EQ(code_page::none, 0);
    for (encoding_row const& row : encodings) {
        EXPECT_EQ(row.type, row.value);
    }
}

TEST(code_page, is_none_by_default_and_from_nil) {
    EXPECT_EQ(code_page().type(), code_page::none);
    EXPECT_EQ(code_page(types::nil).type(), code_page::none);
}

TEST(code_page, holds_the_type_it_is_made_from) {
    code_page const page(code_page::cp_1251);
    EXPECT_EQ(page.type(), code_page::cp_1251);
    code_page const copy(page);
    EXPECT_EQ(copy.type(), code_page::cp_1251);
    EXPECT_EQ(code_page(type_of_number(123456)).type(), 123456);
}

TEST(code_page, assignment_takes_nil_a_code_page_or_a_type) {
    code_page page(code_page::cp_1251);
    page = code_page::utf8;
    EXPECT_EQ(page.type(), code_page::utf8);
    page = code_page(code_page::cp_932);
    EXPECT_EQ(page.type(), code_page::cp_932);
    page = types::nil;
    EXPECT_EQ(page.type(), code_page::none);
    page.assign(code_page::cp_949);
    EXPECT_EQ(page.type(), code_page::cp_949);
    page.assign(code_page(code_page::cp_950));
    EXPECT_EQ(page.type(), code_page::cp_950);
    page.assign(types::nil);
    EXPECT_EQ(page.type(), code_page::none);
}

template <class Argument>
void expect_assignment_returns_the_object(Argument const& argument) {
    code_page page;
    static_assert(std::is_same_v<decltype(page = argument), code_page const&>);
    static_assert(std::is_same_v<decltype(page.assign(argument)), code_page const&>);
    EXPECT_EQ(&(page = argument), &page);
    EXPECT_EQ(&page.assign(argument), &page);
}

TEST(code_page, assignment_returns_the_object_to_read) {
    expect_assignment_returns_the_object(types::nil);
    expect_assignment_returns_the_object(code_page(code_page::utf8));
    expect_assignment_returns_the_object(code_page::utf8);
}

TEST(code_page, compares_the_numbers) {
    code_page const page(code_page::cp_1252);
    code_page const same(code_page::cp_1252);
    code_page const other(code_page::cp_28591);
    EXPECT_TRUE(page.equal(same));
    EXPECT_TRUE(page == same);
    EXPECT_FALSE(page != same);
    EXPECT_FALSE(page.equal(other));
    EXPECT_FALSE(page == other);
    EXPECT_TRUE(page != other);
    EXPECT_TRUE(page.equal(code_page::cp_1252));
    EXPECT_TRUE(page == code_page::cp_1252);
    EXPECT_FALSE(page != code_page::cp_1252);
    EXPECT_FALSE(page.equal(code_page::cp_28591));
    EXPECT_FALSE(page == code_page::cp_28591);
    EXPECT_TRUE(page != code_page::cp_28591);
}

// The two OEM types mean the same code page and are two values all the same.
TEST(code_page, does_not_compare_what_the_numbers_mean) {
    EXPECT_TRUE(code_page(code_page::system_oem) != code_page(code_page::system_oem_alternate));
}

TEST(code_page, is_equal_to_nil_with_a_negative_number_only) {
    EXPECT_FALSE(code_page(types::nil).equal(types::nil));
    EXPECT_FALSE(code_page(types::nil) == types::nil);
    EXPECT_FALSE(code_page().equal(types::nil));
    EXPECT_FALSE(code_page(code_page::utf8) == types::nil);
    EXPECT_FALSE(code_page(type_of_number(std::numeric_limits<std::int32_t>::max())) == types::nil);
    EXPECT_TRUE(code_page(type_of_number(-1)).equal(types::nil));
    EXPECT_TRUE(code_page(type_of_number(-1)) == types::nil);
    EXPECT_TRUE(code_page(type_of_number(std::numeric_limits<std::int32_t>::min())) == types::nil);
}

TEST(code_page, has_no_inequality_with_nil) {
    static_assert(unequal_comparable<code_page, code_page>);
    static_assert(unequal_comparable<code_page, code_page::encoding_type>);
    static_assert(!unequal_comparable<code_page, types::nil_t>);
    static_assert(!unequal_comparable<types::nil_t, code_page>);
}

TEST(code_page, type_gives_access_to_the_field) {
    code_page page;
    page.type() = code_page::cp_936;
    EXPECT_EQ(std::as_const(page).type(), code_page::cp_936);
    static_assert(std::is_same_v<decltype(std::as_const(page).type()), code_page::encoding_type const&>);
    static_assert(std::is_same_v<decltype(page.type()), code_page::encoding_type&>);
}

TEST(code_page, setting_the_type_returns_a_reference_to_it) {
    code_page page;
    static_assert(std::is_same_v<decltype(page.type(code_page::utf8)), code_page::encoding_type&>);
    page.type(code_page::cp_936) = code_page::cp_950;
    EXPECT_EQ(page.type(), code_page::cp_950);
    EXPECT_EQ(&page.type(code_page::utf8), &page.type());
    EXPECT_EQ(page.type(), code_page::utf8);
}

TEST(code_page, to_system_type_is_for_derived_classes) {
    static_assert(!offers_to_system_type<code_page>);
    static_assert(offers_to_system_type<open_code_page>);
}

TEST(code_page, to_system_type_maps_its_argument_and_ignores_the_object) {
    for (code_page::encoding_type const own : {code_page::none, code_page::utf8, type_of_number(28600)}) {
        open_code_page page;
        page.type(own);
        for (encoding_row const& row : encodings) {
            EXPECT_EQ(page.to_system_type(row.type), row.system_number);
        }
        expect_not_valid([&] { page.to_system_type(code_page::none); });
    }
}

TEST(code_page, to_system_type_throws_for_every_other_number) {
    std::map<std::int32_t, int> known;
    for (encoding_row const& row : encodings) {
        known[row.value] = row.system_number;
    }
    open_code_page const page;
    for (std::int32_t number = -10; number < 66000; ++number) {
        if (known.count(number) == 0) {
            EXPECT_THROW(page.to_system_type(type_of_number(number)), exceptions::invalid_argument_value)
                << number;
        }
    }
    for (std::int32_t const number :
         {0, 5, 931, 1249, 1259, 28590, 28600, 28601, 28602, 28603, 28604, 28606, 65001, -1,
          std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        expect_not_valid([&] { page.to_system_type(type_of_number(number)); });
    }
}

TEST(code_page, no_conversion_works_without_a_valid_type) {
    for (code_page const& page : {code_page(), code_page(types::nil), code_page(type_of_number(28600)),
                                  code_page(type_of_number(-1))}) {
        expect_not_valid([&] { page.encode(utf8({'a'})); });
        expect_not_valid([&] { page.encode(utf16({'a'})); });
        expect_not_valid([&] { page.encode(utf32({'a'})); });
        expect_not_valid([&] { page.as_utf8("a"); });
        expect_not_valid([&] { page.as_utf16("a"); });
        expect_not_valid([&] { page.as_utf32("a"); });
        expect_not_valid([&] { page.as_ustring("a"); });
        expect_not_valid([&] { page.encode(utf16({})); });
        expect_not_valid([&] { page.as_utf16(""); });
    }
}

TEST(code_page, an_empty_text_stays_empty_in_both_directions) {
    for (encoding_row const& row : encodings) {
        code_page const page(row.type);
        EXPECT_EQ(page.encode(utf8({})), "");
        EXPECT_EQ(page.encode(utf16({})), "");
        EXPECT_EQ(page.encode(utf32({})), "");
        EXPECT_EQ(page.as_utf8(""), utf8({}));
        EXPECT_EQ(page.as_utf16(""), utf16({}));
        EXPECT_EQ(page.as_utf32(""), utf32({}));
        EXPECT_EQ(page.as_ustring(""), utf16({}));
    }
}

TEST(code_page, every_encoding_keeps_ascii) {
    for (encoding_row const& row : encodings) {
        code_page const page(row.type);
        std::string bytes;
        strings::ustring16 text;
        for (char value = 1; value < 0x7F; ++value) {
            bytes += value;
            text += static_cast<strings::utf16_unit>(value);
        }
        EXPECT_EQ(page.encode(text), bytes) << row.value;
        EXPECT_EQ(page.as_utf16(bytes), text) << row.value;
    }
}

TEST(code_page, encoding_stops_at_the_first_zero_unit) {
    for (encoding_row const& row : encodings) {
        code_page const page(row.type);
        EXPECT_EQ(page.encode(utf8({'a', 'b', 0, 'c'})), "ab");
        EXPECT_EQ(page.encode(utf16({'a', 'b', 0, 'c'})), "ab");
        EXPECT_EQ(page.encode(utf32({'a', 'b', 0, 'c'})), "ab");
        EXPECT_EQ(page.encode(utf16({0, 'c'})), "");
    }
}

TEST(code_page, decoding_stops_at_the_first_zero_byte) {
    for (encoding_row const& row : encodings) {
        code_page const page(row.type);
        std::string const bytes("ab\0c", 4);
        EXPECT_EQ(page.as_utf8(bytes), utf8({'a', 'b'}));
        EXPECT_EQ(page.as_utf16(bytes), utf16({'a', 'b'}));
        EXPECT_EQ(page.as_utf32(bytes), utf32({'a', 'b'}));
        EXPECT_EQ(page.as_ustring(bytes), utf16({'a', 'b'}));
        EXPECT_EQ(page.as_utf16(std::string("\0c", 2)), utf16({}));
    }
}

struct text_row {
    code_page::encoding_type type;
    std::string bytes;
    strings::ustring8 text8;
    strings::ustring16 text16;
    strings::ustring32 text32;
};

// One text that each encoding can hold, in all forms.
text_row const texts[] = {
    {code_page::utf8, "\xE2\x82\xAC", "\xE2\x82\xAC", utf16({0x20AC}), utf32({0x20AC})},
    {code_page::cp_932, "\x93\xFA\x96{\xB1", "\xE6\x97\xA5\xE6\x9C\xAC\xEF\xBD\xB1",
     utf16({0x65E5, 0x672C, 0xFF71}), utf32({0x65E5, 0x672C, 0xFF71})},
    {code_page::cp_936, "\xD6\xD0\xB9\xFA\x80", "\xE4\xB8\xAD\xE5\x9B\xBD\xE2\x82\xAC",
     utf16({0x4E2D, 0x56FD, 0x20AC}), utf32({0x4E2D, 0x56FD, 0x20AC})},
    {code_page::cp_949, "\xC7\xD1\x81\x41", "\xED\x95\x9C\xEA\xB0\x82", utf16({0xD55C, 0xAC02}),
     utf32({0xD55C, 0xAC02})},
    {code_page::cp_950, "\xA4\xA4\xB0\xEA", "\xE4\xB8\xAD\xE5\x9C\x8B", utf16({0x4E2D, 0x570B}),
     utf32({0x4E2D, 0x570B})},
    {code_page::cp_1250, "\x8A\xEC", "\xC5\xA0\xC4\x9B", utf16({0x160, 0x11B}), utf32({0x160, 0x11B})},
    {code_page::cp_1251, "\xC6\x80", "\xD0\x96\xD0\x82", utf16({0x416, 0x402}), utf32({0x416, 0x402})},
    {code_page::cp_1252, "\x80\xE9", "\xE2\x82\xAC\xC3\xA9", utf16({0x20AC, 0xE9}), utf32({0x20AC, 0xE9})},
    {code_page::cp_1253, "\xF9\xA2", "\xCF\x89\xCE\x86", utf16({0x3C9, 0x386}), utf32({0x3C9, 0x386})},
    {code_page::cp_1254, "\xDD\xF0", "\xC4\xB0\xC4\x9F", utf16({0x130, 0x11F}), utf32({0x130, 0x11F})},
    {code_page::cp_1255, "\xE0\xFA", "\xD7\x90\xD7\xAA", utf16({0x5D0, 0x5EA}), utf32({0x5D0, 0x5EA})},
    {code_page::cp_1256, "\xC7\x81", "\xD8\xA7\xD9\xBE", utf16({0x627, 0x67E}), utf32({0x627, 0x67E})},
    {code_page::cp_1257, "\xE0\xFE", "\xC4\x85\xC5\xBE", utf16({0x105, 0x17E}), utf32({0x105, 0x17E})},
    {code_page::cp_1258, "\xD5\xFE", "\xC6\xA0\xE2\x82\xAB", utf16({0x1A0, 0x20AB}), utf32({0x1A0, 0x20AB})},
    {code_page::cp_20866, "\xC1\xA3", "\xD0\xB0\xD1\x91", utf16({0x430, 0x451}), utf32({0x430, 0x451})},
    {code_page::cp_21866, "\xC1\xA4", "\xD0\xB0\xD1\x94", utf16({0x430, 0x454}), utf32({0x430, 0x454})},
    {code_page::cp_28591, "\xE9\xFF", "\xC3\xA9\xC3\xBF", utf16({0xE9, 0xFF}), utf32({0xE9, 0xFF})},
    {code_page::cp_28592, "\xA9\xEC", "\xC5\xA0\xC4\x9B", utf16({0x160, 0x11B}), utf32({0x160, 0x11B})},
    {code_page::cp_28593, "\xA1\xF8", "\xC4\xA6\xC4\x9D", utf16({0x126, 0x11D}), utf32({0x126, 0x11D})},
    {code_page::cp_28594, "\xA1\xBF", "\xC4\x84\xC5\x8B", utf16({0x104, 0x14B}), utf32({0x104, 0x14B})},
    {code_page::cp_28595, "\xB6\xF0", "\xD0\x96\xE2\x84\x96", utf16({0x416, 0x2116}), utf32({0x416, 0x2116})},
    {code_page::cp_28596, "\xC7\xEA", "\xD8\xA7\xD9\x8A", utf16({0x627, 0x64A}), utf32({0x627, 0x64A})},
    {code_page::cp_28597, "\xF9\xB6", "\xCF\x89\xCE\x86", utf16({0x3C9, 0x386}), utf32({0x3C9, 0x386})},
    {code_page::cp_28598, "\xE0\xDF", "\xD7\x90\xE2\x80\x97", utf16({0x5D0, 0x2017}), utf32({0x5D0, 0x2017})},
    {code_page::cp_28599, "\xDD\xF0", "\xC4\xB0\xC4\x9F", utf16({0x130, 0x11F}), utf32({0x130, 0x11F})},
    {code_page::cp_28605, "\xA4\xBD", "\xE2\x82\xAC\xC5\x93", utf16({0x20AC, 0x153}), utf32({0x20AC, 0x153})},
};

TEST(code_page, goes_from_and_to_all_three_encoding_forms) {
    EXPECT_EQ(std::size(texts), std::size(encodings) - 3);
    for (text_row const& row : texts) {
        SCOPED_TRACE(row.type);
        code_page const page(row.type);
        EXPECT_EQ(page.encode(row.text8), row.bytes);
        EXPECT_EQ(page.encode(row.text16), row.bytes);
        EXPECT_EQ(page.encode(row.text32), row.bytes);
        EXPECT_EQ(page.as_utf8(row.bytes), row.text8);
        EXPECT_EQ(page.as_utf16(row.bytes), row.text16);
        EXPECT_EQ(page.as_utf32(row.bytes), row.text32);
        EXPECT_EQ(page.as_ustring(row.bytes), row.text16);
        static_assert(std::is_same_v<decltype(page.as_ustring(row.bytes)), strings::wide_string>);
    }
}

struct best_fit_row {
    code_page::encoding_type type;
    std::uint32_t unit;
    std::string bytes;
};

TEST(code_page, a_character_that_the_page_lacks_becomes_its_best_fit_or_a_question_mark) {
    best_fit_row const rows[] = {
        {code_page::cp_1252, 0x0100, "A"},
        {code_page::cp_1252, 0x2265, "="},
        {code_page::cp_1252, 0xFF21, "A"},
        {code_page::cp_1252, 0x4E2D, "?"},
        {code_page::cp_1252, 0x0416, "?"},
        {code_page::cp_1252, 0xFFFE, "?"},
        {code_page::cp_1252, 0xFFFF, "?"},
        {code_page::cp_1252, 0xD83D, "?"},
        {code_page::cp_1252, 0xDE00, "?"},
        {code_page::cp_1251, 0x00E9, "e"},
        {code_page::cp_1251, 0x4E2D, "?"},
        {code_page::cp_932, 0x00A5, "\\"},
        {code_page::cp_932, 0x00C0, "A"},
        {code_page::cp_932, 0x0E01, "?"},
        {code_page::cp_932, 0x30FB,
         "\x81"
         "E"},
        {code_page::cp_936, 0x00AA, "a"},
        {code_page::cp_20866, 0x201C, "\""},
        {code_page::cp_28591, 0x20AC, "?"},
        {code_page::cp_28591, 0xFF21, "A"},
        {code_page::cp_28605, 0x00A4, "?"},
    };
    for (best_fit_row const& row : rows) {
        EXPECT_EQ(code_page(row.type).encode(utf16({row.unit})), row.bytes)
            << row.type << " " << std::hex << row.unit;
    }
}

TEST(code_page, a_surrogate_pair_that_the_page_lacks_becomes_two_question_marks) {
    for (text_row const& row : texts) {
        if (row.type != code_page::utf8) {
            EXPECT_EQ(code_page(row.type).encode(utf16({'<', 0xD83D, 0xDE00, '>'})), "<?\?>") << row.type;
        }
    }
}

TEST(code_page, bad_utf8_is_encoded_as_the_failure_text) {
    EXPECT_EQ(code_page(code_page::cp_1252).encode(utf8({0xC3})), "-1");
    EXPECT_EQ(code_page(code_page::utf8).encode(utf8({'a', 0xFF})), "-1");
}

TEST(code_page, bad_utf32_is_encoded_as_the_failure_text) {
    EXPECT_EQ(code_page(code_page::cp_1252).encode(utf32({0xD800})), "-1");
    EXPECT_EQ(code_page(code_page::cp_1252).encode(utf32({0x110000})), "-1");
}

// The splitting of `utf32_to_utf16` shows through.
TEST(code_page, utf32_beyond_16_bits_is_encoded_as_the_converter_splits_it) {
    EXPECT_EQ(code_page(code_page::utf8).encode(utf32({0x1F600})), "\xF0\xAF\x98\x80");
    EXPECT_EQ(code_page(code_page::cp_1252).encode(utf32({0xFFFF})), "?\?");
}

TEST(code_page, bytes_without_a_meaning_in_a_single_byte_page_go_to_private_or_control_characters) {
    EXPECT_EQ(code_page(code_page::cp_1252).as_utf16("\x81\x8D"), utf16({0x81, 0x8D}));
    EXPECT_EQ(code_page(code_page::cp_1255).as_utf16("\xD9\xFF"), utf16({0xF88D, 0xF896}));
    EXPECT_EQ(code_page(code_page::cp_28596).as_utf16("\xA1\xFF"), utf16({0xF7C8, 0xF7F4}));
    EXPECT_EQ(code_page(code_page::cp_1255).encode(utf16({0xF88D, 0xF896})), "\xD9\xFF");
}

struct lead_row {
    code_page::encoding_type type;
    unsigned int first;
    unsigned int last;
    std::uint32_t replacement;
};

constexpr lead_row lead_bytes[] = {
    {code_page::cp_932, 0x81, 0x9F, 0x30FB}, {code_page::cp_932, 0xE0, 0xFC, 0x30FB},
    {code_page::cp_936, 0x81, 0xFE, '?'},    {code_page::cp_949, 0x81, 0xFE, '?'},
    {code_page::cp_950, 0x81, 0xFE, '?'},
};

TEST(code_page, a_lead_byte_at_the_end_is_one_replacement) {
    for (lead_row const& row : lead_bytes) {
        for (unsigned int lead = row.first; lead <= row.last; ++lead) {
            std::string const bytes = {'a', static_cast<char>(lead)};
            EXPECT_EQ(code_page(row.type).as_utf16(bytes), utf16({'a', row.replacement}))
                << row.type << " " << lead;
        }
    }
}

TEST(code_page, a_lead_byte_does_not_take_the_zero_byte_behind_it) {
    for (lead_row const& row : lead_bytes) {
        std::string const bytes = {static_cast<char>(row.first), '\0', 'a'};
        EXPECT_EQ(code_page(row.type).as_utf16(bytes), utf16({row.replacement}));
    }
}

TEST(code_page, a_lead_byte_takes_a_bad_trail_byte_with_it) {
    for (lead_row const& row : lead_bytes) {
        for (unsigned int lead = row.first; lead <= row.last; ++lead) {
            for (char const trail : {'\x01', ' ', '\x7F', '\xFF'}) {
                std::string const bytes = {static_cast<char>(lead), trail, 'a'};
                EXPECT_EQ(code_page(row.type).as_utf16(bytes), utf16({row.replacement, 'a'}))
                    << row.type << " " << lead << " " << static_cast<int>(trail);
            }
        }
    }
}

TEST(code_page, what_was_encoded_once_stays_the_same) {
    for (text_row const& row : texts) {
        code_page const page(row.type);
        for (std::uint32_t unit = 1; unit <= 0xFFFF; ++unit) {
            std::string const bytes = page.encode(utf16({unit}));
            ASSERT_EQ(page.encode(page.as_utf16(bytes)), bytes) << row.type << " " << std::hex << unit;
        }
    }
}

TEST(code_page, the_ansi_and_oem_pages_of_the_system_round_trip_ascii) {
    for (code_page::encoding_type const type :
         {code_page::system_ansi, code_page::system_oem, code_page::system_oem_alternate}) {
        EXPECT_EQ(code_page(type).as_utf8("C:\\a b"), utf8({'C', ':', '\\', 'a', ' ', 'b'}));
        EXPECT_EQ(code_page(type).encode(utf8({'C', ':', '\\', 'a', ' ', 'b'})), "C:\\a b");
    }
}

TEST(code_page, long_texts_convert_whole) {
    code_page const page(code_page::cp_932);
    std::string bytes;
    strings::ustring16 text;
    for (int count = 0; count < 100000; ++count) {
        bytes += "\x93\xFA.";
        text += utf16({0x65E5, '.'});
    }
    EXPECT_EQ(page.as_utf16(bytes), text);
    EXPECT_EQ(page.encode(text), bytes);
}

} // namespace
